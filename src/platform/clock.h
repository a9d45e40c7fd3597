#pragma once

#include <chrono>

#include "support/calendar_time.h"

namespace quorvane {

/// The clock of the system, injected so that tests need not wait.
class Clock {
 public:
  virtual ~Clock() = default;

  virtual TimePoint now() const = 0;
  /// For measuring time spans: never set back, of no known origin.
  virtual std::chrono::steady_clock::time_point steadyNow() const = 0;

  /// The fields of `t` in the machine's own time zone.
  virtual CalendarTime local(TimePoint t) const = 0;
  /// The fields of `t` in Coordinated Universal Time.
  virtual CalendarTime utc(TimePoint t) const = 0;
};

}  // namespace quorvane
