#include "support/calendar_time.h"

#include <charconv>

namespace quorvane {

namespace {

constexpr std::string_view kForm = "yyyy-MM-dd HH:mm:ss";

// Where the fields begin, counted from the end: the year may have more digits.
constexpr std::size_t kMonth = 14;
constexpr std::size_t kDay = 11;
constexpr std::size_t kHour = 8;
constexpr std::size_t kMinute = 5;
constexpr std::size_t kSecond = 2;

void putTwoDigits(std::string& text, std::size_t fromEnd, int value) {
  const std::size_t at = text.size() - fromEnd;
  text[at] = static_cast<char>('0' + value / 10);
  text[at + 1] = static_cast<char>('0' + value % 10);
}

void putTimeOfDay(std::string& text, const CalendarTime& time) {
  putTwoDigits(text, kHour, time.hour);
  putTwoDigits(text, kMinute, time.minute);
  putTwoDigits(text, kSecond, time.second);
}

/// Four digits, more of years that have more.
std::string yearText(int year) {
  std::string text = std::to_string(year);
  if (text.size() < 4) text.insert(0, 4 - text.size(), '0');
  return text;
}

/// Reads a number of fixed width, digits only.
bool readNumber(std::string_view text, std::size_t at, std::size_t width, int& value) {
  const char* first = text.data() + at;
  if (*first < '0' || *first > '9') return false;
  const auto [end, error] = std::from_chars(first, first + width, value);
  return error == std::errc{} && end == first + width;
}

bool isDate(int year, int month, int day) {
  return std::chrono::year_month_day(std::chrono::year(year),
                                     std::chrono::month(static_cast<unsigned>(month)),
                                     std::chrono::day(static_cast<unsigned>(day)))
      .ok();
}

/// 0 is Sunday.
int weekdayOf(int year, int month, int day) {
  const std::chrono::sys_days date = std::chrono::year(year) /
                                     std::chrono::month(static_cast<unsigned>(month)) /
                                     std::chrono::day(static_cast<unsigned>(day));
  return static_cast<int>(std::chrono::weekday(date).c_encoding());
}

}  // namespace

CalendarTime utcFields(TimePoint t) {
  const auto day = std::chrono::floor<std::chrono::days>(t);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss time{std::chrono::floor<std::chrono::seconds>(t - day)};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count()),
          static_cast<int>(std::chrono::weekday{day}.c_encoding())};
}

std::string timeOfDayText(const CalendarTime& time) {
  std::string text(kForm.substr(kForm.size() - kHour));
  putTimeOfDay(text, time);
  return text;
}

std::string dateTimeText(const CalendarTime& time) {
  std::string text = yearText(time.year).append(kForm.substr(4));
  putTwoDigits(text, kMonth, time.month);
  putTwoDigits(text, kDay, time.day);
  putTimeOfDay(text, time);
  return text;
}

std::optional<CalendarTime> parseDateTimeText(std::string_view text) {
  if (text.size() != kForm.size()) return std::nullopt;
  for (const std::size_t at : {4u, 7u, 10u, 13u, 16u}) {
    if (text[at] != kForm[at]) return std::nullopt;
  }
  CalendarTime time;
  const bool readable = readNumber(text, 0, 4, time.year) && readNumber(text, 5, 2, time.month) &&
                        readNumber(text, 8, 2, time.day) && readNumber(text, 11, 2, time.hour) &&
                        readNumber(text, 14, 2, time.minute) &&
                        readNumber(text, 17, 2, time.second);
  if (!readable || !isDate(time.year, time.month, time.day)) return std::nullopt;
  if (time.hour > 23 || time.minute > 59 || time.second > 59) return std::nullopt;
  time.weekday = weekdayOf(time.year, time.month, time.day);
  return time;
}

}  // namespace quorvane
