#include "components/ado/sql/stored_date.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "support/text.h"
#include "vbscript/values/date_text.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::ado {

namespace {

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// A run of digits, of letters, or one other character.
struct Part {
  std::string_view text;
  int number = -1;  ///< of digits
  int digits = 0;

  bool is(char c) const { return text.size() == 1 && text[0] == c; }
};

std::optional<std::vector<Part>> partsOf(std::string_view text) {
  constexpr std::size_t kMost = 24;
  std::vector<Part> parts;
  for (std::size_t at = 0; at < text.size();) {
    if (parts.size() == kMost) return std::nullopt;
    Part part;
    std::size_t end = at + 1;
    if (isDigit(text[at])) {
      while (end < text.size() && isDigit(text[end])) ++end;
      part.digits = static_cast<int>(end - at);
      if (part.digits > 9) return std::nullopt;
      part.number = 0;
      for (std::size_t i = at; i < end; ++i) part.number = part.number * 10 + (text[i] - '0');
    } else if (isLetter(text[at])) {
      while (end < text.size() && isLetter(text[end])) ++end;
    }
    part.text = text.substr(at, end - at);
    if (!part.is(' ')) parts.push_back(part);
    at = end;
  }
  return parts;
}

int monthOfName(std::string_view name) {
  static constexpr std::array<std::string_view, 12> kMonths = {
      "january", "february", "march",     "april",   "may",      "june",
      "july",    "august",   "september", "october", "november", "december"};
  if (name.size() < 3) return 0;
  for (int i = 0; i < 12; ++i) {
    if (startsWithNoCase(kMonths[i], name)) return i + 1;
  }
  return 0;
}

class DateReader {
 public:
  explicit DateReader(std::vector<Part> parts) : parts_(std::move(parts)) {}

  std::optional<double> read() {
    if (parts_.empty()) return std::nullopt;
    if (!timeFollows()) {
      if (!readDate()) return std::nullopt;
      if (const Part* part = peek(); part && equalsNoCase(part->text, "T")) ++at_;
    }
    if (peek() && !readTime()) return std::nullopt;
    if (peek()) return std::nullopt;
    return vbs::combineDate(days_, seconds_);
  }

 private:
  const Part* peek(std::size_t ahead = 0) const {
    return at_ + ahead < parts_.size() ? &parts_[at_ + ahead] : nullptr;
  }
  bool follows(std::size_t ahead, char c) const {
    const Part* part = peek(ahead);
    return part && part->is(c);
  }
  /// A number followed by ":", or by AM or PM.
  bool timeFollows() const {
    const Part* next = peek(1);
    return next &&
           (next->is(':') || equalsNoCase(next->text, "am") || equalsNoCase(next->text, "pm"));
  }
  std::optional<int> number() {
    const Part* part = peek();
    if (!part || part->number < 0) return std::nullopt;
    ++at_;
    return part->number;
  }
  void separator() {
    if (follows(0, '/') || follows(0, '-') || follows(0, '.') || follows(0, ',')) ++at_;
  }

  bool readDate() {
    const Part first = parts_[0];
    if (first.digits == 8) {
      ++at_;
      return take(first.number / 10000, first.number / 100 % 100, first.number % 100);
    }
    if (first.number < 0) {  // January 31, 2024
      ++at_;
      const int month = monthOfName(first.text);
      separator();
      const auto day = number();
      separator();
      const auto year = yearNumber();
      return month != 0 && day && year && take(*year, month, *day);
    }
    ++at_;
    separator();
    const Part* second = peek();
    if (!second) return false;
    const int named = monthOfName(second->text);
    if (named == 0 && second->number < 0) return false;
    ++at_;
    separator();
    if (first.digits > 2) {  // 2024-01-31
      const auto day = number();
      return day && take(first.number, named ? named : second->number, *day);
    }
    const auto year = yearNumber();
    if (!year) return false;
    if (named != 0) return take(*year, named, first.number);
    return take(*year, first.number, second->number) || take(*year, second->number, first.number);
  }

  std::optional<int> yearNumber() {
    const Part* part = peek();
    if (!part || part->number < 0) return std::nullopt;
    ++at_;
    return part->digits <= 2 ? vbs::fullYear(part->number) : part->number;
  }

  bool take(int year, int month, int day) {
    if (year < 100 || year > 9999 || month < 1 || month > 12) return false;
    if (day < 1 || day > vbs::daysInMonth(year, month)) return false;
    days_ = vbs::dayNumber(year, month, day);
    return true;
  }

  bool readTime() {
    const auto hour = number();
    int minute = 0;
    int second = 0;
    if (!hour) return false;
    if (follows(0, ':')) {
      ++at_;
      const auto minutes = number();
      if (!minutes) return false;
      minute = *minutes;
      if (follows(0, ':')) {
        ++at_;
        const auto seconds = number();
        if (!seconds) return false;
        second = *seconds;
        if (follows(0, '.')) {  // fractions are not held
          ++at_;
          if (!number()) return false;
        }
      }
    }
    int hours = *hour;
    if (const Part* part = peek()) {
      const bool afternoon = equalsNoCase(part->text, "pm");
      if (afternoon || equalsNoCase(part->text, "am")) {
        if (hours < 1 || hours > 12) return false;
        hours = hours % 12 + (afternoon ? 12 : 0);
        ++at_;
      } else if (equalsNoCase(part->text, "z")) {
        ++at_;
      }
    }
    if (hours > 23 || minute > 59 || second > 59) return false;
    seconds_ = (hours * 60 + minute) * 60 + second;
    return true;
  }

  std::vector<Part> parts_;
  std::size_t at_ = 0;
  std::int32_t days_ = 0;
  std::int32_t seconds_ = 0;
};

/// Two digits at a place, or -1.
int twoDigits(std::string_view text, std::size_t at) {
  if (!isDigit(text[at]) || !isDigit(text[at + 1])) return -1;
  return (text[at] - '0') * 10 + (text[at + 1] - '0');
}

/// What storedDate() writes, read in one go: results are full of it.
std::optional<double> exactDate(std::string_view text) {
  const bool hasTime = text.size() == 19;
  if ((text.size() != 10 && !hasTime) || text[4] != '-' || text[7] != '-') return std::nullopt;
  const int century = twoDigits(text, 0);
  const int year = twoDigits(text, 2);
  const int month = twoDigits(text, 5);
  const int day = twoDigits(text, 8);
  if (century < 1 || year < 0 || month < 1 || month > 12 || day < 1) return std::nullopt;
  if (day > vbs::daysInMonth(century * 100 + year, month)) return std::nullopt;
  const std::int32_t days = vbs::dayNumber(century * 100 + year, month, day);
  if (!hasTime) return days;
  if (text[10] != ' ' || text[13] != ':' || text[16] != ':') return std::nullopt;
  const int hour = twoDigits(text, 11);
  const int minute = twoDigits(text, 14);
  const int second = twoDigits(text, 17);
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) {
    return std::nullopt;
  }
  return vbs::combineDate(days, (hour * 60 + minute) * 60 + second);
}

}  // namespace

std::optional<std::string> storedDate(double days) {
  if (!vbs::isDateInRange(days)) return std::nullopt;
  const vbs::DateParts p = vbs::dateParts(days);
  std::array<char, 64> text;
  const bool midnight = p.hour == 0 && p.minute == 0 && p.second == 0;
  const int length =
      midnight ? std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", p.year, p.month, p.day)
               : std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", p.year,
                               p.month, p.day, p.hour, p.minute, p.second);
  return std::string(text.data(), static_cast<std::size_t>(length));
}

std::optional<double> dateOfText(std::string_view text) {
  if (text.size() < 4) return std::nullopt;
  if (const auto days = exactDate(text)) return days;
  auto parts = partsOf(text);
  return parts ? DateReader(std::move(*parts)).read() : std::nullopt;
}

std::optional<std::string> storedDate(std::string_view text) {
  const auto days = dateOfText(text);
  return days ? storedDate(*days) : std::nullopt;
}

std::optional<double> dateOfStored(std::string_view text) {
  if (text.size() < 10 || text[4] != '-' || text[7] != '-' || !isDigit(text[0])) {
    return std::nullopt;
  }
  return dateOfText(text);
}

}  // namespace quorvane::ado
