#pragma once

#include <cstddef>
#include <cstdint>

#include "vbscript/values/time_check.h"

namespace quorvane::vbs {

/// Counts the bytes that script values hold (strings, arrays, objects) on this thread, so that a
/// host can bound a script. Values may outlive the run that made them; the count simply follows
/// every allocation and release, and a run's bound is set relative to the count at its start.
struct MemoryMeter {
  std::int64_t used = 0;
  std::int64_t limit = INT64_MAX;  ///< `used` may not pass it; set by the running engine

  /// Adds `bytes`. Throws ScriptError 7 (out of memory) and counts nothing when over the limit.
  /// What is taken is filled, too: it counts as work.
  void charge(std::size_t bytes) {
    countWork(bytes);
    if (used + static_cast<std::int64_t>(bytes) > limit) overLimit();
    used += static_cast<std::int64_t>(bytes);
  }
  void release(std::size_t bytes) { used -= static_cast<std::int64_t>(bytes); }

 private:
  [[noreturn]] static void overLimit();
};

inline constinit thread_local MemoryMeter memoryMeter;

/// Counts memory that stands outside of values for as long as it lives.
class MemoryCharge {
 public:
  explicit MemoryCharge(std::size_t bytes) : bytes_(bytes) { memoryMeter.charge(bytes); }
  MemoryCharge(const MemoryCharge&) = delete;
  MemoryCharge& operator=(const MemoryCharge&) = delete;
  ~MemoryCharge() { memoryMeter.release(bytes_); }

 private:
  std::size_t bytes_;
};

}  // namespace quorvane::vbs
