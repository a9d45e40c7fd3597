#pragma once

namespace vbs {

/// Native work without a small bound of its own (a regular expression over a long text, say) calls
/// checkTime() now and then. While a script runs, that throws when the script's time is over.
struct TimeCheck {
  void (*check)(void* run) = nullptr;  ///< null while no script runs on this thread
  void* run = nullptr;
};
inline constinit thread_local TimeCheck timeCheck;

inline void checkTime() {
  if (timeCheck.check) timeCheck.check(timeCheck.run);
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

}  // namespace vbs
