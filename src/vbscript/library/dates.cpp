#include <cmath>

#include "vbscript/library/arguments.h"
#include "vbscript/values/date_text.h"
#include "vbscript/values/serial_date.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::vbs::intrinsic {

namespace {

enum class Interval : std::uint8_t {
  Year,
  Quarter,
  Month,
  DayOfYear,
  Day,
  Weekday,
  Week,
  Hour,
  Minute,
  Second
};

Interval intervalAt(Args args, std::size_t index) {
  struct Row {
    std::string_view name;
    Interval interval;
  };
  static constexpr Row kRows[] = {
      {"yyyy", Interval::Year},   {"q", Interval::Quarter}, {"m", Interval::Month},
      {"y", Interval::DayOfYear}, {"d", Interval::Day},     {"w", Interval::Weekday},
      {"ww", Interval::Week},     {"h", Interval::Hour},    {"n", Interval::Minute},
      {"s", Interval::Second},
  };
  const std::string name = toString(args[index]).lower().narrow();
  for (const Row& row : kRows) {
    if (row.name == name) return row.interval;
  }
  throwError(ErrorCode::InvalidCall);
}

Value integer(std::int32_t number) {
  return Value::integer(static_cast<std::int16_t>(number));
}

double inRange(double date) {
  if (!isDateInRange(date)) throwError(ErrorCode::InvalidCall);
  return date;
}

/// A date from years and months of any size, the day clamped to the month or carried over.
double fromCalendar(std::int64_t year, std::int64_t month, std::int64_t day, bool clamp) {
  const std::int64_t months = year * 12 + (month - 1);
  const auto y = static_cast<std::int32_t>(months >= 0 ? months / 12 : (months - 11) / 12);
  const auto m = static_cast<std::int32_t>(months - std::int64_t{y} * 12) + 1;
  // Outside these years no day count leads back into range.
  if (y < -200 || y > 10200) throwError(ErrorCode::InvalidCall);
  if (clamp) day = std::min<std::int64_t>(day, daysInMonth(y, m));
  return inRange(static_cast<double>(dayNumber(y, m, 1) + day - 1));
}

std::int64_t wholeDay(double date) {
  const std::int64_t seconds = totalSeconds(date);
  return (seconds >= 0 ? seconds : seconds - (kSecondsPerDay - 1)) / kSecondsPerDay;
}

std::int64_t floorDivide(std::int64_t a, std::int64_t b) {
  return (a >= 0 ? a : a - (b - 1)) / b;
}

/// 1 is Sunday; what the argument leaves to the system comes from the locale.
std::int32_t firstWeekdayAt(Args args, std::size_t index) {
  const std::int32_t first = longOr(args, index, 1);
  if (first < 0 || first > 7) throwError(ErrorCode::InvalidCall);
  return first == 0 ? activeLocale().firstWeekday : first;
}

/// 1 to 7, counted from `first`.
std::int32_t weekdayFrom(std::int64_t day, std::int32_t first) {
  const std::int64_t sundayBased = day - 1 - floorDivide(day - 1, 7) * 7;  // 0 is Sunday
  return static_cast<std::int32_t>((sundayBased - (first - 1) + 7) % 7) + 1;
}

/// The day on which week 1 of a year begins.
std::int64_t firstWeekStart(std::int32_t year, std::int32_t firstDay, std::int32_t rule) {
  const std::int64_t newYear = dayNumber(year, 1, 1);
  const std::int32_t weekday = weekdayFrom(newYear, firstDay);
  const std::int64_t start = newYear - (weekday - 1);
  const std::int32_t daysInFirst = 8 - weekday;
  const bool counts =
      rule == 1 || (rule == 2 && daysInFirst >= 4) || (rule == 3 && daysInFirst == 7);
  return counts ? start : start + 7;
}

std::int32_t weekOfYear(const DateParts& parts, std::int32_t firstDay, std::int32_t rule) {
  const std::int64_t day = dayNumber(parts.year, parts.month, parts.day);
  std::int64_t start = firstWeekStart(parts.year, firstDay, rule);
  if (day < start) start = firstWeekStart(parts.year - 1, firstDay, rule);
  if (rule != 1 && day >= firstWeekStart(parts.year + 1, firstDay, rule)) return 1;
  return static_cast<std::int32_t>((day - start) / 7) + 1;
}

/// One part of a date; Null stays Null.
Value partOf(Args args, std::int32_t DateParts::*part) {
  const Operand date(args[0]);
  if (date->isNull()) return Value::null();
  return integer(dateParts(toDate(*date)).*part);
}

Value countValue(std::int64_t count) {
  if (count < INT32_MIN || count > INT32_MAX) throwError(ErrorCode::Overflow);
  return Value::longInt(static_cast<std::int32_t>(count));
}

std::int64_t secondsOf(Interval interval) {
  switch (interval) {
    case Interval::Hour:
      return 3600;
    case Interval::Minute:
      return 60;
    case Interval::Second:
      return 1;
    case Interval::Week:
      return std::int64_t{7} * kSecondsPerDay;
    default:
      return kSecondsPerDay;
  }
}

std::int64_t monthsOf(Interval interval) {
  switch (interval) {
    case Interval::Year:
      return 12;
    case Interval::Quarter:
      return 3;
    case Interval::Month:
      return 1;
    default:
      return 0;
  }
}

std::int64_t weeksBetween(double from, double to, std::int32_t firstDay) {
  const auto weekStart = [&](double date) {
    const std::int64_t day = wholeDay(date);
    return day - (weekdayFrom(day, firstDay) - 1);
  };
  return (weekStart(to) - weekStart(from)) / 7;
}

std::int64_t difference(Interval interval, double from, double to, std::int32_t firstDay) {
  const DateParts a = dateParts(from);
  const DateParts b = dateParts(to);
  switch (interval) {
    case Interval::Year:
      return b.year - a.year;
    case Interval::Quarter:
      return (b.year * 4 + (b.month - 1) / 3) - (a.year * 4 + (a.month - 1) / 3);
    case Interval::Month:
      return (b.year * 12 + b.month) - (a.year * 12 + a.month);
    case Interval::DayOfYear:
    case Interval::Day:
      return dayNumber(b.year, b.month, b.day) - dayNumber(a.year, a.month, a.day);
    case Interval::Weekday:
      return (dayNumber(b.year, b.month, b.day) - dayNumber(a.year, a.month, a.day)) / 7;
    case Interval::Week:
      return weeksBetween(from, to, firstDay);
    default:
      break;
  }
  const auto clock = [](const DateParts& p) {
    return dayNumber(p.year, p.month, p.day) * std::int64_t{kSecondsPerDay} +
           p.hour * std::int64_t{3600} + p.minute * std::int64_t{60} + p.second;
  };
  const std::int64_t unit = secondsOf(interval);
  return floorDivide(clock(b), unit) - floorDivide(clock(a), unit);
}

/// A date, or what a text spells as one; a number is no text of a date.
double dateOfText(const Value& value) {
  const Operand plain(value);
  if (plain->is(Type::Date)) return plain->asDouble();
  const auto date = parseDate(toString(*plain));
  if (!date) throwError(ErrorCode::TypeMismatch);
  return *date;
}

std::int32_t nameIndex(const Value& value, std::int32_t most) {
  const std::int32_t number = toLong(value);
  if (number < 1 || number > most) throwError(ErrorCode::InvalidCall);
  return number - 1;
}

}  // namespace

Value now(Runtime& runtime, Args) {
  return Value::date(runtime.host.now());
}

Value date(Runtime& runtime, Args) {
  return Value::date(std::trunc(runtime.host.now()));
}

Value time(Runtime& runtime, Args) {
  const double moment = runtime.host.now();
  return Value::date(std::fabs(moment - std::trunc(moment)));
}

Value timer(Runtime& runtime, Args) {
  return Value::single(static_cast<float>(runtime.host.secondsSinceMidnight()));
}

Value year(Runtime&, Args args) {
  return partOf(args, &DateParts::year);
}
Value month(Runtime&, Args args) {
  return partOf(args, &DateParts::month);
}
Value day(Runtime&, Args args) {
  return partOf(args, &DateParts::day);
}
Value hour(Runtime&, Args args) {
  return partOf(args, &DateParts::hour);
}
Value minute(Runtime&, Args args) {
  return partOf(args, &DateParts::minute);
}
Value second(Runtime&, Args args) {
  return partOf(args, &DateParts::second);
}

Value weekday(Runtime&, Args args) {
  const Operand date(args[0]);
  const std::int32_t first = firstWeekdayAt(args, 1);
  if (date->isNull()) return Value::null();
  return integer((dateParts(toDate(*date)).weekday - first + 7) % 7 + 1);
}

Value monthName(Runtime&, Args args) {
  const bool isShort = booleanOr(args, 1, false);
  const auto index = static_cast<std::size_t>(nameIndex(args[0], 12));
  const Locale& locale = activeLocale();
  return String::fromUtf8(isShort ? locale.names.shortMonths[index] : locale.names.months[index]);
}

Value weekdayName(Runtime&, Args args) {
  const std::int32_t offset = nameIndex(args[0], 7);
  // Unlike elsewhere the system's first day is what an omitted argument means.
  const std::int32_t first = given(args, 2) ? firstWeekdayAt(args, 2) : activeLocale().firstWeekday;
  const auto index = static_cast<std::size_t>((first - 1 + offset) % 7);
  const Locale& locale = activeLocale();
  return String::fromUtf8(booleanOr(args, 1, false) ? locale.names.shortWeekdays[index]
                                                    : locale.names.weekdays[index]);
}

Value dateSerial(Runtime&, Args args) {
  const int year = fullYear(toInteger(args[0]));
  return Value::date(fromCalendar(year, toInteger(args[1]), toInteger(args[2]), false));
}

Value timeSerial(Runtime&, Args args) {
  const std::int64_t seconds =
      toInteger(args[0]) * 3600 + toInteger(args[1]) * 60 + toInteger(args[2]);
  return Value::date(combineDate(0, seconds));
}

Value dateValue(Runtime&, Args args) {
  const DateParts parts = dateParts(dateOfText(args[0]));
  return Value::date(dayNumber(parts.year, parts.month, parts.day));
}

Value timeValue(Runtime&, Args args) {
  const DateParts parts = dateParts(dateOfText(args[0]));
  return Value::date(combineDate(0, parts.hour * 3600 + parts.minute * 60 + parts.second));
}

Value dateAdd(Runtime&, Args args) {
  const Interval interval = intervalAt(args, 0);
  const Operand base(args[2]);
  if (base->isNull()) return Value::null();
  const std::int64_t count = toLong(args[1]);
  const double date = toDate(*base);
  const std::int64_t months = monthsOf(interval) * count;
  if (monthsOf(interval) != 0) {
    const DateParts parts = dateParts(date);
    const double day = fromCalendar(parts.year, parts.month + months, parts.day, true);
    const std::int64_t seconds = parts.hour * 3600 + parts.minute * 60 + parts.second;
    return Value::date(inRange(combineDate(static_cast<std::int64_t>(day), seconds)));
  }
  const DateParts parts = dateParts(date);
  const std::int64_t seconds = parts.hour * 3600 + parts.minute * 60 + parts.second;
  const std::int64_t day = dayNumber(parts.year, parts.month, parts.day);
  return Value::date(inRange(combineDate(day, seconds + secondsOf(interval) * count)));
}

Value dateDiff(Runtime&, Args args) {
  const Interval interval = intervalAt(args, 0);
  const Operands both(args[1], args[2]);
  const auto& [from, to] = both;
  const std::int32_t firstDay = firstWeekdayAt(args, 3);
  if (from->isNull() || to->isNull()) return Value::null();
  return countValue(difference(interval, toDate(*from), toDate(*to), firstDay));
}

Value datePart(Runtime&, Args args) {
  const Interval interval = intervalAt(args, 0);
  const Operand date(args[1]);
  const std::int32_t firstDay = firstWeekdayAt(args, 2);
  const std::int32_t rule = longOr(args, 3, 1);
  if (rule < 0 || rule > 3) throwError(ErrorCode::InvalidCall);
  if (date->isNull()) return Value::null();
  const DateParts parts = dateParts(toDate(*date));
  const std::int32_t dayOfAll = dayNumber(parts.year, parts.month, parts.day);
  switch (interval) {
    case Interval::Year:
      return integer(parts.year);
    case Interval::Quarter:
      return integer((parts.month - 1) / 3 + 1);
    case Interval::Month:
      return integer(parts.month);
    case Interval::DayOfYear:
      return integer(dayOfAll - dayNumber(parts.year, 1, 1) + 1);
    case Interval::Day:
      return integer(parts.day);
    case Interval::Weekday:
      return integer(weekdayFrom(dayOfAll, firstDay));
    case Interval::Week:
      return integer(weekOfYear(parts, firstDay, rule == 0 ? 1 : rule));
    case Interval::Hour:
      return integer(parts.hour);
    case Interval::Minute:
      return integer(parts.minute);
    case Interval::Second:
      return integer(parts.second);
  }
  throwError(ErrorCode::InternalError);
}

}  // namespace quorvane::vbs::intrinsic
