#include "platform/clock.h"

#include <ctime>

#include "platform/system.h"

namespace quorvane {

namespace {

using std::chrono::system_clock;

CalendarTime fromSystem(const std::tm& fields) {
  return {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
          fields.tm_min,         fields.tm_sec,     fields.tm_wday};
}

/// Breaking a moment into fields is asked for many times within one second.
class LastSecond {
 public:
  using Convert = std::tm* (*)(const std::time_t*, std::tm*);

  CalendarTime fields(TimePoint t, Convert convert) {
    const std::time_t second = system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(t));
    if (known_ && second == second_) return fields_;
    std::tm broken{};
    if (!convert(&second, &broken)) return {};
    known_ = true;
    second_ = second;
    fields_ = fromSystem(broken);
    return fields_;
  }

 private:
  bool known_ = false;
  std::time_t second_ = 0;
  CalendarTime fields_;
};

class LinuxClock final : public Clock {
 public:
  TimePoint now() const override { return system_clock::now(); }
  std::chrono::steady_clock::time_point steadyNow() const override {
    return std::chrono::steady_clock::now();
  }
  CalendarTime local(TimePoint t) const override { return local_.fields(t, ::localtime_r); }
  CalendarTime utc(TimePoint t) const override { return utc_.fields(t, ::gmtime_r); }

 private:
  mutable LastSecond local_;
  mutable LastSecond utc_;
};

}  // namespace

std::unique_ptr<Clock> makeClock() {
  return std::make_unique<LinuxClock>();
}

}  // namespace quorvane
