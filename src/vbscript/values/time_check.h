#pragma once

#include <cstddef>

#include "vbscript/values/run_context.h"

/// Native work without a small bound of its own (a regular expression over a long text, say) calls
/// checkTime() now and then. While a script runs, that throws when the script's time is over.
namespace quorvane::vbs {

inline void checkTime() {
  if (runContext.time.check) runContext.time.check(runContext.time.run);
}

/// Counts work that takes time by the bytes it touches. A loop looks at the clock once in many
/// turns, which is too seldom when each turn copies or searches megabytes.
inline void countWork(std::size_t bytes) {
  constexpr std::size_t kSmall = 4096;
  constexpr std::size_t kBetweenChecks = std::size_t{32} << 20;
  if (bytes < kSmall) return;
  runContext.time.counted += bytes;
  if (runContext.time.counted < kBetweenChecks) return;
  runContext.time.counted = 0;
  checkTime();
}

/// Puts a run's check in place while it lives.
class TimeCheckScope {
 public:
  explicit TimeCheckScope(TimeCheck check) : before_(runContext.time) { runContext.time = check; }
  ~TimeCheckScope() { runContext.time = before_; }
  TimeCheckScope(const TimeCheckScope&) = delete;
  TimeCheckScope& operator=(const TimeCheckScope&) = delete;

 private:
  TimeCheck before_;
};

}  // namespace quorvane::vbs
