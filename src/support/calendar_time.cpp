#include "support/calendar_time.h"

#include <array>
#include <charconv>

namespace quorvane {

namespace {

void appendPadded(std::string& text, int value, int width) {
  std::array<char, 16> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  const auto length = static_cast<int>(end - digits.data());
  if (length < width) text.append(static_cast<std::size_t>(width - length), '0');
  text.append(digits.data(), end);
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
  std::string text;
  appendPadded(text, time.hour, 2);
  text += ':';
  appendPadded(text, time.minute, 2);
  text += ':';
  appendPadded(text, time.second, 2);
  return text;
}

std::string dateTimeText(const CalendarTime& time) {
  std::string text;
  appendPadded(text, time.year, 4);
  text += '-';
  appendPadded(text, time.month, 2);
  text += '-';
  appendPadded(text, time.day, 2);
  text += ' ';
  return text + timeOfDayText(time);
}

std::optional<CalendarTime> parseDateTimeText(std::string_view text) {
  constexpr std::string_view kForm = "yyyy-MM-dd HH:mm:ss";
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
