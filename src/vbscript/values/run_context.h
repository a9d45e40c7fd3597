#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "vbscript/values/string_body.h"

/// What the engine keeps for each thread, in one place. Values, objects and engines belong to the
/// thread that made them; nothing here is shared between threads.
namespace quorvane::vbs {

class EndQueue;
class Host;
class Object;
struct Locale;

/// Counts the bytes that script values hold (strings, arrays, objects), so that a host can bound a
/// script. Values may outlive the run that made them; the count simply follows every allocation
/// and release, and a run's bound is set relative to the count at its start.
struct MemoryMeter {
  std::int64_t used = 0;
  std::int64_t limit = INT64_MAX;  ///< `used` may not pass it; set by the running engine

  /// Adds `bytes`. Throws ScriptError 7 (out of memory) and counts nothing when over the limit.
  /// What is taken is filled, too: it counts as work. For users of memory_meter.h.
  inline void charge(std::size_t bytes);
  void release(std::size_t bytes) { used -= static_cast<std::int64_t>(bytes); }
  /// Throws as charge() does when there is no room for `bytes`: a copy, say, that is gone before
  /// the native member that makes it is done.
  void require(std::size_t bytes) const {
    if (used + static_cast<std::int64_t>(bytes) > limit) overLimit();
  }

 private:
  [[noreturn]] static void overLimit();
};

/// See time_check.h.
struct TimeCheck {
  void (*check)(void* run) = nullptr;  ///< null while no script runs
  void* run = nullptr;
  std::size_t counted = 0;  ///< bytes of work since the last check
};

/// How values become text and back; see text_locale.h.
struct TextContext {
  const Locale* locale = nullptr;  ///< null: the default
  Host* host = nullptr;            ///< whose clock tells the year
};

/// Objects and arrays whose last reference is gone and that are being ended, inside each other.
struct EndsInProgress {
  int depth = 0;
  EndQueue* waiting = nullptr;  ///< there only while something waits
};

/// What a storey above this one keeps from one run to the next. Made when it is first asked for
/// and kept as long as the thread, which is taken to last as long as the process.
class RunPart {
 protected:
  ~RunPart() = default;
};

class RunParts {
 public:
  /// The thread's one object of a class derived from RunPart.
  template <class Part>
  Part& get() {
    static const std::size_t place = takePlace();
    if (!parts_[place]) parts_[place] = new Part;
    return static_cast<Part&>(*parts_[place]);
  }

 private:
  static constexpr std::size_t kMost = 4;
  static std::size_t takePlace();

  std::array<RunPart*, kMost> parts_{};
};

struct RunContext {
  MemoryMeter memory;
  TimeCheck time;
  TextContext text;
  Object* newestObject = nullptr;  ///< of all that are there; see Object::older()
  EndsInProgress ends;
  std::uint32_t lastClassSerial = 0;  ///< of scripts' classes; see Object::classNumber()
  RunParts parts;
  OneByteBodies oneByteBodies{};
};

/// No constructor to run and no destructor, so that its parts are reached without a question.
inline constinit thread_local RunContext runContext;

}  // namespace quorvane::vbs
