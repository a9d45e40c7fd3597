#include "vbscript/values/date_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "vbscript/values/convert.h"
#include "vbscript/values/text_case.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::vbs {

namespace {

constexpr std::size_t kMaxDateText = 100;  ///< longer texts spell no date

void appendPadded(std::string& out, int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  if (digits.size() < width) out.append(width - digits.size(), '0');
  out += digits;
}

void appendDatePart(std::string& out, const DateParts& parts, char letter, std::size_t count) {
  const Locale& locale = activeLocale();
  const auto month = static_cast<std::size_t>(parts.month - 1);
  const auto weekday = static_cast<std::size_t>(parts.weekday - 1);
  switch (letter) {
    case 'd':
      if (count <= 2) return appendPadded(out, parts.day, count);
      out += count == 3 ? locale.names.shortWeekdays[weekday] : locale.names.weekdays[weekday];
      return;
    case 'M':
      if (count <= 2) return appendPadded(out, parts.month, count);
      out += count == 3                                 ? locale.names.shortMonths[month]
             : locale.names.monthsOfDays[month].empty() ? locale.names.months[month]
                                                        : locale.names.monthsOfDays[month];
      return;
    default:
      return appendPadded(out, parts.year, 4);
  }
}

// ---- Texts to dates ----

enum class TokenKind : std::uint8_t { Number, Month, AmPm, Mark };

struct Token {
  TokenKind kind;
  char mark = 0;   ///< of a Mark
  int value = 0;   ///< number; month 1 to 12; 0 for AM, 12 for PM
  int digits = 0;  ///< of a Number
};

bool isAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

/// Whether the word, in lower case, is the name in any letter case.
bool isName(const std::string& word, std::string_view name) {
  if (name.ends_with('.')) name.remove_suffix(1);
  if (!std::all_of(name.begin(), name.end(), isAscii)) {
    return word == String::fromUtf8(name).lower().utf8();
  }
  return std::equal(word.begin(), word.end(), name.begin(), name.end(),
                    [](char lower, char c) { return lower == lowerAnsi(c); });
}

/// 1-based place of `word` among the names.
template <std::size_t N>
int findName(const std::string& word, const std::array<std::string_view, N>& names) {
  for (std::size_t i = 0; i < N; ++i) {
    if (isName(word, names[i])) return static_cast<int>(i) + 1;
  }
  return 0;
}

int findMonth(const std::string& word, const LocaleNames& names) {
  if (const int month = findName(word, names.months)) return month;
  if (const int month = findName(word, names.shortMonths)) return month;
  return names.monthsOfDays[0].empty() ? 0 : findName(word, names.monthsOfDays);
}

/// What stands behind the numbers of a date in writings without marks.
bool isUnit(std::string_view word) {
  static constexpr std::string_view kUnits[] = {"年", "月", "日", "년", "월", "일"};
  return std::find(std::begin(kUnits), std::end(kUnits), word) != std::end(kUnits);
}

bool isLetter(char c) {
  return !isAscii(c) || (c >= 'a' && c <= 'z');
}

/// Splits a text in lower case, in UTF-8.

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view text) : rest_(text) {}

  std::optional<std::vector<Token>> read() {
    while (!rest_.empty()) {
      const char c = rest_.front();
      if (c == ' ' || c == '\t') {
        rest_.remove_prefix(1);
      } else if (c >= '0' && c <= '9') {
        if (!readNumber()) return std::nullopt;
      } else if (isLetter(c)) {
        if (!readWord()) return std::nullopt;
      } else if (std::string_view("/-,.:").find(c) != std::string_view::npos) {
        tokens_.push_back({TokenKind::Mark, c});
        rest_.remove_prefix(1);
      } else {
        return std::nullopt;
      }
    }
    arrange();
    return tokens_;
  }

 private:
  /// AM or PM before a time goes behind it.
  void arrange() {
    const auto isTimePart = [](const Token& token) {
      return token.kind == TokenKind::Number ||
             (token.kind == TokenKind::Mark && token.mark == ':');
    };
    for (auto at = tokens_.begin(); tokens_.end() - at > 2; ++at) {
      const bool isBefore = at->kind == TokenKind::AmPm && at[1].kind == TokenKind::Number &&
                            at[2].kind == TokenKind::Mark && at[2].mark == ':';
      if (!isBefore) continue;
      std::rotate(at, at + 1, std::find_if_not(at + 1, tokens_.end(), isTimePart));
      return;
    }
  }

  bool readNumber() {
    Token token{TokenKind::Number};
    for (; !rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9'; rest_.remove_prefix(1)) {
      if (++token.digits > 5) return false;
      token.value = token.value * 10 + (rest_.front() - '0');
    }
    tokens_.push_back(token);
    return true;
  }

  bool readWord() {
    std::string word;
    for (; !rest_.empty() && isLetter(rest_.front()); rest_.remove_prefix(1)) {
      word.push_back(rest_.front());
    }
    const Locale& active = activeLocale();
    if (word == "am" || word == "a" || isName(word, active.am)) {
      tokens_.push_back({TokenKind::AmPm, 0, 0});
      return true;
    }
    if (word == "pm" || word == "p" || isName(word, active.pm)) {
      tokens_.push_back({TokenKind::AmPm, 0, 12});
      return true;
    }
    if (isUnit(word)) return true;
    const Locale& english = *findLocale(kDefaultLocale);
    for (const Locale* locale : {&active, &english}) {
      if (const int month = findMonth(word, locale->names)) {
        tokens_.push_back({TokenKind::Month, 0, month});
        return true;
      }
      if (findName(word, locale->names.weekdays)) return true;
      if (findName(word, locale->names.shortWeekdays)) return true;
    }
    return false;
  }

  std::string_view rest_;
  std::vector<Token> tokens_;
};

bool isMark(const Token& token, char mark) {
  return token.kind == TokenKind::Mark && token.mark == mark;
}
bool isNumber(const Token& token) {
  return token.kind == TokenKind::Number;
}

/// Day number of a date when it exists.
std::optional<double> dayOf(int year, int month, int day) {
  if (year > 9999 || month < 1 || month > 12 || day < 1) return std::nullopt;
  if (year < 100) year = fullYear(year);
  if (day > daysInMonth(year, month)) return std::nullopt;
  return dayNumber(year, month, day);
}

/// Takes the time out of the tokens: "h:m[:s] [AM|PM]", "h AM", and "h.m[.s]".
class TimeReader {
 public:
  explicit TimeReader(std::vector<Token>& tokens) : tokens_(tokens) {}

  /// False when what looks like a time is none. `found` tells whether there was one.
  bool read(bool& found, double& time) {
    found = false;
    const std::size_t start = findStart();
    if (start == tokens_.size()) {
      return std::none_of(tokens_.begin(), tokens_.end(), [](const Token& t) {
        return t.kind == TokenKind::AmPm || isMark(t, ':');
      });
    }
    found = true;
    std::size_t next = readFields(start);
    if (next < tokens_.size() && tokens_[next].kind == TokenKind::AmPm) {
      if (fields_[0] > 12) return false;
      fields_[0] = fields_[0] % 12 + tokens_[next].value;
      ++next;
    }
    if (fields_[0] > 23 || fields_[1] > 59 || fields_[2] > 59) return false;
    time = combineDate(0, fields_[0] * 3600 + fields_[1] * 60 + fields_[2]);
    const auto at = tokens_.begin();
    tokens_.erase(at + static_cast<std::ptrdiff_t>(start), at + static_cast<std::ptrdiff_t>(next));
    return std::none_of(tokens_.begin(), tokens_.end(),
                        [](const Token& t) { return t.kind == TokenKind::AmPm || isMark(t, ':'); });
  }

 private:
  std::size_t findStart() const {
    for (std::size_t i = 0; i + 1 < tokens_.size(); ++i) {
      if (!isNumber(tokens_[i])) continue;
      const Token& next = tokens_[i + 1];
      if (isMark(next, ':') || next.kind == TokenKind::AmPm) return i;
    }
    return isDottedTime() ? 0 : tokens_.size();
  }

  /// Nothing but two or three numbers with points between: a time where they could be one.
  bool isDottedTime() const {
    if (activeLocale().dateSeparator == '.') return false;
    const std::size_t numbers = (tokens_.size() + 1) / 2;
    if (tokens_.size() % 2 == 0 || numbers < 2 || numbers > 3) return false;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      if (i % 2 == 0 ? !isNumber(tokens_[i]) : !isMark(tokens_[i], '.')) return false;
      if (i % 2 == 0 && tokens_[i].value > (i == 0 ? 23 : 59)) return false;
    }
    return true;
  }

  std::size_t readFields(std::size_t start) {
    std::size_t next = start;
    const bool dotted = isMark(tokens_[start + 1], '.');
    for (std::size_t field = 0; field < 3; ++field) {
      fields_[field] = tokens_[next++].value;
      const bool more = next + 1 < tokens_.size() && isMark(tokens_[next], dotted ? '.' : ':') &&
                        isNumber(tokens_[next + 1]);
      if (!more || field == 2) break;
      ++next;
    }
    return next;
  }

  std::vector<Token>& tokens_;
  std::array<int, 3> fields_{};
};

std::optional<double> fromMonthName(int month, const std::vector<Token>& numbers) {
  if (numbers.size() == 1) {
    if (const auto day = dayOf(currentYear(), month, numbers[0].value)) {
      if (numbers[0].digits <= 2) return day;
    }
    return dayOf(numbers[0].value, month, 1);
  }
  const Token& a = numbers[0];
  const Token& b = numbers[1];
  if (a.digits > 2) return dayOf(a.value, month, b.value);
  if (const auto day = dayOf(b.value, month, a.value)) return day;
  return dayOf(a.value, month, b.value);
}

std::optional<double> fromTwoNumbers(const Token& a, const Token& b) {
  const bool dayFirst = activeLocale().dateOrder == DateOrder::DayMonthYear;
  const Token& month = dayFirst ? b : a;
  const Token& day = dayFirst ? a : b;
  if (a.digits <= 2 && b.digits <= 2) {
    if (const auto date = dayOf(currentYear(), month.value, day.value)) return date;
    if (const auto date = dayOf(currentYear(), day.value, month.value)) return date;
  }
  if (a.digits > 2) return dayOf(a.value, b.value, 1);
  return dayOf(b.value, a.value, 1);
}

std::optional<double> fromThreeNumbers(const std::vector<Token>& n) {
  const int a = n[0].value;
  const int b = n[1].value;
  const int c = n[2].value;
  const auto monthDayYear = dayOf(c, a, b);
  const auto dayMonthYear = dayOf(c, b, a);
  auto yearMonthDay = dayOf(a, b, c);
  if (!yearMonthDay) yearMonthDay = dayOf(a, c, b);
  if (n[0].digits > 2) return yearMonthDay;
  const DateOrder order = activeLocale().dateOrder;
  if (order == DateOrder::YearMonthDay && yearMonthDay) return yearMonthDay;
  const bool dayFirst = order == DateOrder::DayMonthYear;
  for (const auto& candidate : {dayFirst ? dayMonthYear : monthDayYear,
                                dayFirst ? monthDayYear : dayMonthYear, yearMonthDay}) {
    if (candidate) return candidate;
  }
  return std::nullopt;
}

/// The date that the tokens left over by the time spell.
std::optional<double> readDate(const std::vector<Token>& tokens) {
  std::vector<Token> numbers;
  int month = 0;
  bool markBefore = true;  // no mark at the start, and no two in a row
  for (const Token& token : tokens) {
    if (token.kind == TokenKind::Mark) {
      if (markBefore && token.mark != ',') return std::nullopt;
      markBefore = token.mark != ',';
      continue;
    }
    markBefore = false;
    if (isNumber(token)) {
      numbers.push_back(token);
    } else if (month != 0) {
      return std::nullopt;
    } else {
      month = token.value;
    }
  }
  const bool endsWithPoint = !tokens.empty() && isMark(tokens.back(), '.');
  if (endsWithPoint && activeLocale().dateSeparator == '.') markBefore = false;
  if (markBefore || numbers.empty()) return std::nullopt;
  if (month != 0) return numbers.size() <= 2 ? fromMonthName(month, numbers) : std::nullopt;
  if (numbers.size() == 2) return fromTwoNumbers(numbers[0], numbers[1]);
  return numbers.size() == 3 ? fromThreeNumbers(numbers) : std::nullopt;
}

}  // namespace

int fullYear(int year) {
  return year < 0 || year > 99 ? year : year < 30 ? 2000 + year : 1900 + year;
}

String formatDatePattern(const DateParts& parts, std::string_view pattern) {
  std::string out;
  for (std::size_t i = 0; i < pattern.size();) {
    const char c = pattern[i];
    if (c == '\'') {
      const std::size_t end = std::min(pattern.find('\'', i + 1), pattern.size() - 1);
      out += pattern.substr(i + 1, end - i - 1);
      i = end + 1;
    } else if (c == 'd' || c == 'M' || c == 'y') {
      const std::size_t end = std::min(pattern.find_first_not_of(c, i), pattern.size());
      appendDatePart(out, parts, c, end - i);
      i = end;
    } else {
      out.push_back(c);
      ++i;
    }
  }
  return String::fromUtf8(out);
}

String formatTimeOfDay(const DateParts& parts) {
  const Locale& locale = activeLocale();
  std::string out;
  const bool twelve = locale.hours == HourForm::Twelve;
  const std::string_view half = parts.hour < 12 ? locale.am : locale.pm;
  if (twelve && locale.halfComesFirst) out.append(half).append(" ");
  appendPadded(out, twelve ? (parts.hour + 11) % 12 + 1 : parts.hour,
               locale.hours == HourForm::TwoDigits ? 2 : 1);
  out.push_back(':');
  appendPadded(out, parts.minute, 2);
  out.push_back(':');
  appendPadded(out, parts.second, 2);
  if (twelve && !locale.halfComesFirst) out.append(" ").append(half);
  return String::fromUtf8(out);
}

std::optional<double> parseDate(const String& text) {
  if (text.length() > kMaxDateText) return std::nullopt;
  const std::string lower = text.lower().utf8();
  auto tokens = Tokenizer(lower).read();
  if (!tokens || tokens->empty()) return std::nullopt;
  bool hasTime = false;
  double time = 0;
  if (!TimeReader(*tokens).read(hasTime, time)) return std::nullopt;
  if (hasTime && tokens->empty()) return time;
  const auto day = readDate(*tokens);
  if (!day) return std::nullopt;
  return *day < 0 ? *day - time : *day + time;
}

String formatDate(double days) {
  const DateParts parts = dateParts(days);
  const bool midnight = parts.hour == 0 && parts.minute == 0 && parts.second == 0;
  const bool dayZero = parts.year == 1899 && parts.month == 12 && parts.day == 30;
  if (dayZero) return formatTimeOfDay(parts);
  String text = formatDatePattern(parts, activeLocale().shortDate);
  if (midnight) return text;
  text.appendAnsi(" ");
  text.append(formatTimeOfDay(parts));
  return text;
}

}  // namespace quorvane::vbs
