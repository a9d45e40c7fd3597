#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// A moment as calendar fields, and its texts. Nothing here reads a clock.

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

/// The fields of `t` in Coordinated Universal Time.
CalendarTime utcFields(TimePoint t);

/// "HH:mm:ss".
std::string timeOfDayText(const CalendarTime& time);

/// "yyyy-MM-dd HH:mm:ss", the form in which date-times are stored as text. The weekday is not read.
std::string dateTimeText(const CalendarTime& time);

/// The fields of a stored date-time; nothing when the text is not of that form or no date.
std::optional<CalendarTime> parseDateTimeText(std::string_view text);

}  // namespace quorvane
