#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "vbscript/values/value.h"

namespace quorvane::vbs {

/// Every effect of a script on the outside goes through here. Tests give a fake.
class Host {
 public:
  virtual ~Host() = default;

  /// Local date and time as days since 30 December 1899; Now, Date, Time and Timer read it.
  virtual double now() = 0;
  /// Seeds Randomize without an argument.
  virtual double secondsSinceMidnight() = 0;
  /// A clock that never goes back, for the time limit.
  virtual std::chrono::steady_clock::time_point steadyNow() = 0;

  /// Whether the time of every run is over, because the program is to end. Asked often.
  virtual bool mustEnd() { return false; }

  /// Whether On Error Resume Next goes on after this error; if not, it always ends the run.
  virtual bool canTrap(std::int32_t) { return true; }

  /// The locale that a run starts with; English (United States) for one that is not known.
  virtual std::int32_t locale() { return 0; }

  /// CreateObject. Nothing-to-be-made is a throw of error 429.
  virtual Value createObject(std::string_view progId) = 0;
  virtual Value getObject(std::string_view pathName, std::string_view progId) = 0;
};

/// Thrown by a member of a host object to end the run at once, as a script's request to quit: no
/// trap of the script sees it, and Engine::run() returns as if the script had come to its end.
struct EndOfRun {};

struct Limits {
  std::chrono::milliseconds time{10'000};  ///< of one run; then error 113, which no script traps
  std::int64_t memoryBytes = std::int64_t{256} << 20;  ///< of values made in a run; error 7
  std::uint32_t callDepth = 4000;                      ///< nested script calls; error 28
};

}  // namespace quorvane::vbs
