#pragma once

#include <chrono>

/// Calendar arithmetic shared by every folder. Nothing here reads a clock.

/// A moment broken into calendar fields, in whatever zone its maker says.
struct CalendarTime {
  int year = 1899;
  int month = 12;   ///< 1 to 12
  int day = 30;     ///< 1 to 31
  int hour = 0;     ///< 0 to 23
  int minute = 0;   ///< 0 to 59
  int second = 0;   ///< 0 to 59
  int weekday = 6;  ///< 0 is Sunday

  friend bool operator==(const CalendarTime&, const CalendarTime&) = default;
};

using TimePoint = std::chrono::system_clock::time_point;
