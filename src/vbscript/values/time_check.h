#pragma once

#include <cstddef>

namespace quorvane::vbs {

/// Native work without a small bound of its own (a regular expression over a long text, say) calls
/// checkTime() now and then. While a script runs, that throws when the script's time is over.
struct TimeCheck {
  void (*check)(void* run) = nullptr;  ///< null while no script runs on this thread
  void* run = nullptr;
  std::size_t counted = 0;  ///< bytes of work since the last check
};
inline constinit thread_local TimeCheck timeCheck;

inline void checkTime() {
  if (timeCheck.check) timeCheck.check(timeCheck.run);
}

/// Counts work that takes time by the bytes it touches. A loop looks at the clock once in many
/// turns, which is too seldom when each turn copies or searches megabytes.
inline void countWork(std::size_t bytes) {
  constexpr std::size_t kSmall = 4096;
  constexpr std::size_t kBetweenChecks = std::size_t{32} << 20;
  if (bytes < kSmall) return;
  timeCheck.counted += bytes;
  if (timeCheck.counted < kBetweenChecks) return;
  timeCheck.counted = 0;
  checkTime();
}

/// Puts a run's check in place while it lives.
class TimeCheckScope {
 public:
  explicit TimeCheckScope(TimeCheck check) : before_(timeCheck) { timeCheck = check; }
  ~TimeCheckScope() { timeCheck = before_; }
  TimeCheckScope(const TimeCheckScope&) = delete;
  TimeCheckScope& operator=(const TimeCheckScope&) = delete;

 private:
  TimeCheck before_;
};

}  // namespace quorvane::vbs
