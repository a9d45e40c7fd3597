#include "platform/clock.h"

#include "platform/system.h"
#include "platform/time_zone.h"

namespace quorvane {

namespace {

using std::chrono::sys_seconds;

/// Asking the system for fields takes its time, and they are asked for many times within one
/// second.
class LastSecond {
 public:
  CalendarTime fields(sys_seconds second) {
    if (second != second_) {
      const auto found = inLocalZone(static_cast<std::time_t>(second.time_since_epoch().count()));
      if (!found) return {};
      second_ = second;
      fields_ = *found;
    }
    return fields_;
  }

  sys_seconds second() const { return second_; }

 private:
  sys_seconds second_ = sys_seconds::min();
  CalendarTime fields_;
};

class SystemClock final : public Clock {
 public:
  TimePoint now() const override { return std::chrono::system_clock::now(); }
  std::chrono::steady_clock::time_point steadyNow() const override {
    return std::chrono::steady_clock::now();
  }
  CalendarTime local(TimePoint t) const override {
    const auto second = std::chrono::floor<std::chrono::seconds>(t);
    return (second < present_.second() ? past_ : present_).fields(second);
  }
  CalendarTime utc(TimePoint t) const override { return utcFields(t); }

 private:
  // Those of files come between those of the log.
  mutable LastSecond present_;
  mutable LastSecond past_;
};

}  // namespace

std::unique_ptr<Clock> makeClock() {
  return std::make_unique<SystemClock>();
}

}  // namespace quorvane
