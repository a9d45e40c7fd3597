#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

#include "vbscript/values/host.h"
#include "vbscript/values/run_context.h"

namespace quorvane::vbs {

/// The time limit ends a run: no script traps this.
struct RunStopped {};

/// When a run's time is over. Owns the deadline and a budget of calls and jumps back, because the
/// clock is worth a look only once in many of them.
class TimeLimit {
 public:
  explicit TimeLimit(Host& host) : host_(host) {}

  /// The time of a run begins.
  void start(std::chrono::milliseconds time) {
    isOver_ = false;
    budget_ = 0;
    extend(time);
  }
  /// So much time from now on, for what is still to end when the run is over.
  void extend(std::chrono::milliseconds time) { deadline_ = host_.steadyNow() + time; }
  void setDeadline(std::chrono::steady_clock::time_point deadline) { deadline_ = deadline; }

  /// Counts a call or jump, as so many; true when it is time for look(), until lookWithin().
  bool isDue(std::int32_t count = 1) { return (budget_ -= count) < 0; }
  /// Throws RunStopped when the time is over, from then on each time.
  void look();
  /// The next look is due after so many calls and jumps, or sooner.
  void lookWithin(std::int32_t count) { budget_ = std::min(kBetweenLooks, count); }
  /// Makes the next call or jump look at the clock.
  void lookSoon() { budget_ = 0; }
  bool isOver() const { return isOver_; }

  /// What lets native work end with the run's time.
  TimeCheck check() {
    return {[](void* limit) { static_cast<TimeLimit*>(limit)->look(); }, this};
  }

 private:
  static constexpr std::int32_t kBetweenLooks = 2000;

  Host& host_;
  std::chrono::steady_clock::time_point deadline_;
  std::int32_t budget_ = 0;
  bool isOver_ = false;
};

}  // namespace quorvane::vbs
