#include "http/standard/dates.h"

#include <algorithm>
#include <array>

#include "http/http_date.h"
#include "support/text.h"

namespace quorvane {

namespace {

using namespace std::chrono;

constexpr std::array<std::string_view, 7> kDays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                "Thursday", "Friday", "Saturday"};

/// Takes a text apart from its front. What does not fit makes it fail for good.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool isDone() const { return !failed_ && rest_.empty(); }
  bool sees(char c) const { return rest_.starts_with(c); }

  void word(std::string_view expected) {
    if (!rest_.starts_with(expected)) failed_ = true;
    rest_.remove_prefix(std::min(expected.size(), rest_.size()));
  }

  /// So many digits.
  int number(std::size_t digits) {
    int value = 0;
    for (std::size_t i = 0; i < digits; ++i) {
      const char c = i < rest_.size() ? rest_[i] : ' ';
      if (!isDigit(c)) failed_ = true;
      value = value * 10 + (c - '0');
    }
    rest_.remove_prefix(std::min(digits, rest_.size()));
    return value;
  }

  /// Takes one of the names, of which so many characters count; how many stand before it.
  template <std::size_t size>
  unsigned oneOf(const std::array<std::string_view, size>& names, std::size_t characters) {
    for (unsigned i = 0; i < size; ++i) {
      const std::string_view name = names[i].substr(0, characters);
      if (!rest_.starts_with(name)) continue;
      rest_.remove_prefix(name.size());
      return i;
    }
    failed_ = true;
    return 0;
  }

 private:
  std::string_view rest_;
  bool failed_ = false;
};

struct Fields {
  int year = 0;
  unsigned month = 0;  ///< 0 to 11
  int day = 0;
  seconds time{};
  bool isTime = false;
};

void takeTime(Scanner& text, Fields& fields) {
  const int hour = text.number(2);
  text.word(":");
  const int minute = text.number(2);
  text.word(":");
  const int second = text.number(2);
  fields.time = hours(hour) + minutes(minute) + seconds(second);
  fields.isTime = hour < 24 && minute < 60 && second <= 60;  // a leap second is one
}

/// "Sun, 06 Nov 1994 08:49:37 GMT"
void takeFixed(Scanner& text, Fields& fields) {
  text.word(", ");
  fields.day = text.number(2);
  text.word(" ");
  fields.month = text.oneOf(kHttpMonths, 3);
  text.word(" ");
  fields.year = text.number(4);
  text.word(" ");
  takeTime(text, fields);
  text.word(" GMT");
}

/// "Sunday, 06-Nov-94 08:49:37 GMT"
void takeOld(Scanner& text, Fields& fields, TimePoint now) {
  text.word(", ");
  fields.day = text.number(2);
  text.word("-");
  fields.month = text.oneOf(kHttpMonths, 3);
  text.word("-");
  const int present = utcFields(now).year;
  fields.year = present - present % 100 + text.number(2);
  if (fields.year > present + 50) fields.year -= 100;
  text.word(" ");
  takeTime(text, fields);
  text.word(" GMT");
}

/// "Sun Nov  6 08:49:37 1994"
void takeOldest(Scanner& text, Fields& fields) {
  text.word(" ");
  fields.month = text.oneOf(kHttpMonths, 3);
  text.word(" ");
  const bool hasBlank = text.sees(' ');
  if (hasBlank) text.word(" ");
  fields.day = text.number(hasBlank ? 1 : 2);
  text.word(" ");
  takeTime(text, fields);
  text.word(" ");
  fields.year = text.number(4);
}

}  // namespace

std::optional<sys_seconds> parseHttpDate(std::string_view text, TimePoint now) {
  Scanner scanner(text);
  Fields fields;
  const std::size_t comma = text.find(',');
  const bool isOld = comma != std::string_view::npos && comma > 3;
  scanner.oneOf(kDays, isOld ? std::string_view::npos : 3);
  if (isOld) {
    takeOld(scanner, fields, now);
  } else if (comma == 3) {
    takeFixed(scanner, fields);
  } else {
    takeOldest(scanner, fields);
  }
  const year_month_day date = year(fields.year) / month(fields.month + 1) / fields.day;
  if (!scanner.isDone() || !fields.isTime || !date.ok()) return std::nullopt;
  return sys_days(date) + fields.time;
}

}  // namespace quorvane
