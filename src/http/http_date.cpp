#include "http/http_date.h"

#include <array>
#include <chrono>
#include <string_view>

#include "support/calendar_time.h"

namespace quorvane {

namespace {

constexpr std::array<std::string_view, 8> kDayNames = {"Sun", "Mon", "Tue", "Wed",
                                                       "Thu", "Fri", "Sat", ""};

std::string dateText(std::string_view dayName, const CalendarTime& time) {
  const std::string digits = dateTimeText(time);  // "yyyy-MM-dd HH:mm:ss"
  const std::string_view fields = digits;
  std::string text;
  text.reserve(32);
  text += dayName;
  text += ", ";
  text += fields.substr(8, 2);
  text += ' ';
  text += kHttpMonths[static_cast<std::size_t>(time.month - 1)];
  text += ' ';
  text += fields.substr(0, 4);
  text += fields.substr(10);
  text += " GMT";
  return text;
}

}  // namespace

std::string httpDateText(const CalendarTime& utc) {
  return dateText(kDayNames[static_cast<std::size_t>(utc.weekday)], utc);
}

const std::string& HttpDates::now() {
  const TimePoint now = clock_.now();
  const TimePoint second = std::chrono::floor<std::chrono::seconds>(now);
  if (text_.empty() || second != second_) {
    text_ = standard(now);
    second_ = second;
  }
  return text_;
}

std::string HttpDates::of(const CalendarTime& time) {
  constexpr CalendarTime kZero;
  if (time == kZero) return now();
  const int mondayFirst = time.weekday == 0 ? 7 : time.weekday;
  return dateText(kDayNames[static_cast<std::size_t>(mondayFirst)], time);
}

}  // namespace quorvane
