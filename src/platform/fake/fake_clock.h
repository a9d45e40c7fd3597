#pragma once

#include "platform/clock.h"

namespace quorvane {

/// A clock set by hand. Its own time zone is Coordinated Universal Time moved by `zone`.
class FakeClock final : public Clock {
 public:
  TimePoint time = std::chrono::sys_days{std::chrono::year{2026} / 3 / 9} +
                   std::chrono::hours{10};  ///< a Monday
  std::chrono::minutes zone{0};

  void advance(std::chrono::milliseconds by) { time += by; }

  /// How far each look at the steady clock moves it.
  std::chrono::milliseconds step{0};

  TimePoint now() const override { return time; }
  std::chrono::steady_clock::time_point steadyNow() const override { return steady_ += step; }
  CalendarTime local(TimePoint t) const override { return utc(t + zone); }
  CalendarTime utc(TimePoint t) const override { return utcFields(t); }

 private:
  mutable std::chrono::steady_clock::time_point steady_;
};

}  // namespace quorvane
