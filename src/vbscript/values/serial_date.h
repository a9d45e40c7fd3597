#pragma once

#include <cstdint>

/// Calendar arithmetic on script dates: days since 30 December 1899, whose fraction is the time of
/// day. Before that day the fraction still counts forward: -1.25 is 29 December, 6 o'clock.
namespace quorvane::vbs {

inline constexpr double kMinDate = -657434.0;    ///< 1 January 100
inline constexpr double kDateLimit = 2958466.0;  ///< the day after 31 December 9999
inline constexpr std::int32_t kSecondsPerDay = 86400;

struct DateParts {
  std::int32_t year = 1899;
  std::int32_t month = 12;  ///< 1 to 12
  std::int32_t day = 30;    ///< 1 to 31
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
  std::int32_t weekday = 7;  ///< 1 is Sunday
};

bool isDateInRange(double date);

/// Whole days of a date of the Gregorian calendar; the month must be 1 to 12, any day will do.
std::int32_t dayNumber(std::int32_t year, std::int32_t month, std::int32_t day);
std::int32_t daysInMonth(std::int32_t year, std::int32_t month);

/// Broken down, rounded to the nearest second. `date` must be in range.
DateParts dateParts(double date);

/// Puts a day number and a time of day (seconds, of any sign and size) together.
double combineDate(std::int64_t days, std::int64_t seconds);
/// The inverse: whole seconds since midnight of 30 December 1899, in unbroken counting.
std::int64_t totalSeconds(double date);

}  // namespace quorvane::vbs
