#include "platform/clock.h"

#include "platform/system.h"
#include "platform/time_zone.h"

namespace quorvane {

namespace {

using std::chrono::seconds;

/// Asking the system for fields takes its time, and they are asked for many times within one
/// second.
class LastSecond {
 public:
  CalendarTime fields(TimePoint t) {
    const auto second = std::chrono::floor<seconds>(t.time_since_epoch());
    if (second != second_) {
      const auto found = inLocalZone(static_cast<std::time_t>(second.count()));
      if (!found) return {};
      second_ = second;
      fields_ = *found;
    }
    return fields_;
  }

 private:
  seconds second_ = seconds::min();
  CalendarTime fields_;
};

class SystemClock final : public Clock {
 public:
  TimePoint now() const override { return std::chrono::system_clock::now(); }
  std::chrono::steady_clock::time_point steadyNow() const override {
    return std::chrono::steady_clock::now();
  }
  CalendarTime local(TimePoint t) const override { return local_.fields(t); }
  CalendarTime utc(TimePoint t) const override { return utcFields(t); }

 private:
  mutable LastSecond local_;
};

}  // namespace

std::unique_ptr<Clock> makeClock() {
  return std::make_unique<SystemClock>();
}

}  // namespace quorvane
