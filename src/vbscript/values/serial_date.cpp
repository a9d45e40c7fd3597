#include "vbscript/values/serial_date.h"

#include <cmath>

namespace quorvane::vbs {

namespace {

constexpr std::int64_t floorDivide(std::int64_t a, std::int64_t b) {
  return a / b - (a % b != 0 && (a < 0) != (b < 0) ? 1 : 0);
}

/// Days from 1 March of year 0 to the first of a month, years starting in March.
constexpr std::int32_t daysBeforeMonth(std::int32_t monthFromMarch) {
  return (153 * monthFromMarch + 2) / 5;
}

constexpr std::int32_t kEpoch = 693899;       ///< 30 December 1899 counted from 1 March of year 0
constexpr std::uint32_t kWeekdayOfEpoch = 3;  ///< 1 March of year 0 was a Wednesday
constexpr std::uint32_t kDaysPer400Years = 146097;

struct SplitDate {
  std::int32_t day;
  std::int32_t second;  ///< 0 to 86399
};

SplitDate split(double date) {
  auto day = static_cast<std::int32_t>(date);
  auto second = static_cast<std::int32_t>(std::lround(std::fabs(date - day) * kSecondsPerDay));
  if (second >= kSecondsPerDay) {
    second -= kSecondsPerDay;
    ++day;
  }
  return {day, second};
}

}  // namespace

bool isDateInRange(double date) {
  return date >= kMinDate && date < kDateLimit;
}

std::int32_t dayNumber(std::int32_t year, std::int32_t month, std::int32_t day) {
  const std::int32_t shifted = month <= 2 ? year - 1 : year;
  const auto era = static_cast<std::int32_t>(floorDivide(shifted, 400));
  const std::int32_t yearOfEra = shifted - era * 400;
  const std::int32_t dayOfYear = daysBeforeMonth(month > 2 ? month - 3 : month + 9) + day - 1;
  const std::int32_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * static_cast<std::int32_t>(kDaysPer400Years) + dayOfEra - kEpoch;
}

std::int32_t daysInMonth(std::int32_t year, std::int32_t month) {
  return month == 12 ? 31 : dayNumber(year, month + 1, 1) - dayNumber(year, month, 1);
}

DateParts dateParts(double date) {
  const auto [day, second] = split(date);
  const auto shifted = static_cast<std::uint32_t>(day + kEpoch);  // no date lies before it
  const std::uint32_t era = shifted / kDaysPer400Years;
  const std::uint32_t dayOfEra = shifted % kDaysPer400Years;
  const std::uint32_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / (kDaysPer400Years - 1)) / 365;
  const auto dayOfYear =
      static_cast<std::int32_t>(dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100));
  const std::int32_t monthFromMarch = (5 * dayOfYear + 2) / 153;
  DateParts parts;
  parts.day = dayOfYear - daysBeforeMonth(monthFromMarch) + 1;
  parts.month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
  parts.year = static_cast<std::int32_t>(era * 400 + yearOfEra) + (parts.month <= 2 ? 1 : 0);
  parts.hour = second / 3600;
  parts.minute = second / 60 % 60;
  parts.second = second % 60;
  parts.weekday = static_cast<std::int32_t>((shifted + kWeekdayOfEpoch) % 7) + 1;
  return parts;
}

double combineDate(std::int64_t days, std::int64_t seconds) {
  const std::int64_t carry = floorDivide(seconds, kSecondsPerDay);
  days += carry;
  const double time = static_cast<double>(seconds - carry * kSecondsPerDay) / kSecondsPerDay;
  return days < 0 ? static_cast<double>(days) - time : static_cast<double>(days) + time;
}

std::int64_t totalSeconds(double date) {
  const auto [day, second] = split(date);
  return std::int64_t{day} * kSecondsPerDay + second;
}

}  // namespace quorvane::vbs
