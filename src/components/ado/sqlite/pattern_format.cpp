#include "components/ado/sqlite/pattern_format.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

#include "support/text.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::ado {

namespace {

constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};
constexpr std::array<const char*, 7> kDays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                              "Thursday", "Friday", "Saturday"};

using Names = std::pair<std::string_view, std::string_view>;

constexpr std::array kDateFormats = {
    Names{"general date", "m/d/yyyy h:nn:ss AM/PM"},
    Names{"long date", "dddd, mmmm d, yyyy"},
    Names{"medium date", "dd-mmm-yy"},
    Names{"short date", "m/d/yyyy"},
    Names{"long time", "h:nn:ss AM/PM"},
    Names{"medium time", "hh:nn AM/PM"},
    Names{"short time", "hh:nn"},
};

constexpr std::array kNumberFormats = {
    Names{"general number", "general"}, Names{"currency", "$#,##0.00"}, Names{"fixed", "0.00"},
    Names{"standard", "#,##0.00"},      Names{"percent", "0.00%"},
};

template <std::size_t N>
std::string_view patternOf(const std::array<Names, N>& table, std::string_view pattern) {
  for (const Names& names : table) {
    if (equalsNoCase(names.first, pattern)) return names.second;
  }
  return pattern;
}

std::string digits(int number, std::size_t least) {
  std::string text = std::to_string(number);
  if (text.size() < least) text.insert(0, least - text.size(), '0');
  return text;
}

int dayOfYear(const vbs::DateParts& p) {
  return vbs::dayNumber(p.year, p.month, p.day) - vbs::dayNumber(p.year, 1, 1) + 1;
}

int weekOfYear(const vbs::DateParts& p) {
  const int first = (p.weekday - 1 - (dayOfYear(p) - 1) % 7 + 7) % 7;  // weekday of 1 January
  return (dayOfYear(p) - 1 + first) / 7 + 1;
}

/// Months and weekdays: the number, the short name, the name.
std::string named(int number, std::size_t length, const char* name) {
  if (length <= 2) return digits(number, length);
  return length == 3 ? std::string(name).substr(0, 3) : name;
}

class DateFormatter {
 public:
  DateFormatter(double days, std::string_view pattern)
      : p_(vbs::dateParts(days)), pattern_(pattern) {
    const std::string lower = lowerCase(pattern);
    twelve_ = lower.find("am/pm") != lower.npos || lower.find("a/p") != lower.npos ||
              lower.find("tt") != lower.npos;
  }

  std::string format() {
    while (at_ < pattern_.size()) step();
    return text_;
  }

 private:
  void step() {
    const char c = lowerChar(pattern_[at_]);
    if (c == '"' || c == '\'') return quoted();
    if (c == '\\') {
      if (++at_ < pattern_.size()) text_ += pattern_[at_++];
      return;
    }
    if (startsWithNoCase(pattern_.substr(at_), "am/pm")) return half(5, "AM", "PM");
    if (startsWithNoCase(pattern_.substr(at_), "a/p")) return half(3, "A", "P");
    if (startsWithNoCase(pattern_.substr(at_), "tt")) return half(2, "AM", "PM");
    std::size_t length = 1;
    while (at_ + length < pattern_.size() && lowerChar(pattern_[at_ + length]) == c) ++length;
    const std::string part = partOf(c, length);
    text_ += part.empty() ? std::string(pattern_.substr(at_, length)) : part;
    at_ += length;
  }

  void quoted() {
    const char mark = pattern_[at_];
    const std::size_t end = std::min(pattern_.find(mark, at_ + 1), pattern_.size());
    text_ += pattern_.substr(at_ + 1, end - at_ - 1);
    at_ = std::min(end + 1, pattern_.size());
  }

  void half(std::size_t length, const char* am, const char* pm) {
    text_ += p_.hour < 12 ? am : pm;
    at_ += length;
  }

  std::string partOf(char c, std::size_t length) {
    const bool behindHours = std::exchange(hours_, hours_ && (c == ':' || c == '.' || c == ' '));
    switch (c) {
      case 'd':
        return length > 2 ? named(p_.weekday, length, kDays[p_.weekday - 1])
                          : digits(p_.day, length);
      case 'm':
        if (behindHours && length <= 2) return digits(p_.minute, length);
        return named(p_.month, length, kMonths[p_.month - 1]);
      case 'y':
        if (length == 1) return std::to_string(dayOfYear(p_));
        return length == 2 ? digits(p_.year % 100, 2) : digits(p_.year, 4);
      case 'h':
        hours_ = true;
        return digits(twelve_ ? (p_.hour + 11) % 12 + 1 : p_.hour, length);
      case 'n':
        return digits(p_.minute, length);
      case 's':
        return digits(p_.second, length);
      case 'q':
        return std::to_string((p_.month + 2) / 3);
      case 'w':
        return std::to_string(length == 1 ? p_.weekday : weekOfYear(p_));
      default:
        return {};
    }
  }

  vbs::DateParts p_;
  std::string_view pattern_;
  std::string text_;
  std::size_t at_ = 0;
  bool twelve_ = false;
  bool hours_ = false;  ///< hours stand before this place
};

std::string withThousands(std::string text) {
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  const std::size_t point = std::min(text.find('.'), text.size());
  for (std::size_t at = point; at > first + 3; at -= 3) text.insert(at - 3, 1, ',');
  return text;
}

std::string fixedPlaces(double number, int places) {
  std::array<char, 400> text;
  const int length = std::snprintf(text.data(), text.size(), "%.*f", places, number);
  return {text.data(), static_cast<std::size_t>(length)};
}

std::string shortest(double number) {
  std::array<char, 40> text;
  const int length = std::snprintf(text.data(), text.size(), "%.15g", number);
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace

std::string formattedDate(double days, std::string_view pattern) {
  return DateFormatter(days, patternOf(kDateFormats, pattern)).format();
}

std::string formattedNumber(double number, std::string_view written) {
  std::string_view pattern = patternOf(kNumberFormats, written);
  pattern = pattern.substr(0, pattern.find(';'));  // one form for all signs
  const std::size_t first = pattern.find_first_of("0#");
  if (first == pattern.npos) return shortest(number);
  const std::size_t last = pattern.find_last_of("0#");
  const std::string_view core = pattern.substr(first, last - first + 1);
  const bool percent = pattern.find('%') != pattern.npos;
  const std::size_t point = core.find('.');
  const std::string_view wholePart = core.substr(0, point);
  std::size_t required = 0;
  std::size_t places = 0;
  if (point != core.npos) {
    for (const char c : core.substr(point + 1)) places += c == '0' || c == '#' ? 1 : 0;
    for (const char c : core.substr(point + 1)) required += c == '0' ? 1 : 0;
  }
  const auto shown = static_cast<int>(std::min<std::size_t>(places, 30));
  std::string text = fixedPlaces(std::abs(percent ? number * 100 : number), shown);
  for (std::size_t extra = places - required; extra > 0 && text.ends_with('0'); --extra) {
    text.pop_back();
  }
  if (text.ends_with('.')) text.pop_back();
  std::size_t least = 0;
  for (const char c : wholePart) least += c == '0' ? 1 : 0;
  const std::size_t digitsBefore = std::min(text.find('.'), text.size());
  if (digitsBefore < least) text.insert(0, std::min<std::size_t>(least - digitsBefore, 30), '0');
  if (least == 0 && text.starts_with("0.")) text.erase(0, 1);
  if (wholePart.find(',') != wholePart.npos) text = withThousands(text);
  const bool negative = number < 0 && text.find_first_of("123456789") != text.npos;
  return (negative ? "-" : "") + std::string(pattern.substr(0, first)) + text +
         std::string(pattern.substr(last + 1));
}

std::string dateInStyle(double days, int style) {
  static constexpr std::pair<int, const char*> kStyles[] = {
      {1, "mm/dd/yy"},
      {101, "mm\\/dd\\/yyyy"},
      {2, "yy.mm.dd"},
      {102, "yyyy.mm.dd"},
      {3, "dd/mm/yy"},
      {103, "dd/mm/yyyy"},
      {4, "dd.mm.yy"},
      {104, "dd.mm.yyyy"},
      {5, "dd-mm-yy"},
      {105, "dd-mm-yyyy"},
      {6, "dd mmm yy"},
      {106, "dd mmm yyyy"},
      {7, "mmm dd, yy"},
      {107, "mmm dd, yyyy"},
      {8, "hh:nn:ss"},
      {108, "hh:nn:ss"},
      {10, "mm-dd-yy"},
      {110, "mm-dd-yyyy"},
      {11, "yy/mm/dd"},
      {111, "yyyy/mm/dd"},
      {12, "yymmdd"},
      {112, "yyyymmdd"},
      {20, "yyyy-mm-dd hh:nn:ss"},
      {120, "yyyy-mm-dd hh:nn:ss"},
      {21, "yyyy-mm-dd hh:nn:ss.000"},
      {121, "yyyy-mm-dd hh:nn:ss.000"},
      {23, "yyyy-mm-dd"},
      {24, "hh:nn:ss"},
      {114, "hh:nn:ss:000"},
      {126, "yyyy-mm-dd\\Thh:nn:ss"},
      {127, "yyyy-mm-dd\\Thh:nn:ss"},
  };
  for (const auto& [number, pattern] : kStyles) {
    if (number == style) return formattedDate(days, pattern);
  }
  return formattedDate(days, "mmm d yyyy h:nnAM/PM");
}

}  // namespace quorvane::ado
