#include "script/script_values.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

#include "vbscript/values/convert.h"
#include "vbscript/values/locale.h"

namespace quorvane {

namespace script_values {
namespace {

constexpr double kSecondsPerDay = 86400;
constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

}  // namespace

std::string text(const vbs::Value& value) {
  std::string result;
  if (value.deref().isNull()) vbs::throwError(vbs::ErrorCode::InvalidNull);
  appendText(result, value);
  return result;
}

void appendText(std::string& out, const vbs::Value& value) {
  const vbs::Value& plain = value.deref();
  switch (plain.type()) {
    case vbs::Type::Null:
      return;
    case vbs::Type::Byte:
    case vbs::Type::Integer:
    case vbs::Type::Long: {
      std::array<char, 16> digits{};
      const auto [end, error] =
          std::to_chars(digits.data(), digits.data() + digits.size(), plain.asInt());
      out.append(digits.data(), end);
      return;
    }
    default: {
      const vbs::String string = vbs::toString(plain);
      if (string.isAnsi()) {
        out.append(string.ansi());
      } else {
        out.append(string.narrow());
      }
    }
  }
}

bool hasArgument(vbs::Args args, std::size_t index) {
  return index < args.size() && !args[index].deref().isMissing();
}

std::string textArgument(vbs::Args args, std::size_t index) {
  return hasArgument(args, index) ? text(args[index]) : std::string();
}

CalendarTime calendarTime(double days) {
  // Before day zero the fraction still counts forward from midnight: -1.25 is 6:00 on the 29th.
  const double wholeDays = std::trunc(days);
  const auto seconds = static_cast<int>(std::lround(std::abs(days - wholeDays) * kSecondsPerDay));
  const auto day = kDayZero + std::chrono::days{static_cast<int>(wholeDays)} +
                   std::chrono::days{seconds / static_cast<int>(kSecondsPerDay)};
  const std::chrono::hh_mm_ss clock{
      std::chrono::seconds{seconds % static_cast<int>(kSecondsPerDay)}};
  const std::chrono::year_month_day date{day};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count()),
          static_cast<int>(std::chrono::weekday{day}.c_encoding())};
}

std::size_t place(const vbs::Value& number, std::size_t count) {
  const std::int32_t wanted = vbs::toLong(number);
  if (wanted < 1 || static_cast<std::size_t>(wanted) > count) {
    vbs::throwError(vbs::ErrorCode::SubscriptOutOfRange);
  }
  return static_cast<std::size_t>(wanted) - 1;
}

double days(const CalendarTime& time) {
  const std::chrono::sys_days day{std::chrono::year{time.year} /
                                  std::chrono::month{static_cast<unsigned>(time.month)} /
                                  std::chrono::day{static_cast<unsigned>(time.day)}};
  const double wholeDays = static_cast<double>((day - kDayZero).count());
  const double fraction = (time.hour * 3600 + time.minute * 60 + time.second) / kSecondsPerDay;
  return wholeDays < 0 ? wholeDays - fraction : wholeDays + fraction;
}

void useLocale(std::int32_t id) {
  const vbs::Locale* locale = vbs::findLocale(id);
  if (!locale) vbs::throwError(vbs::ErrorCode::NoDefaultLocale);
  vbs::setActiveLocale(*locale);
}

}  // namespace script_values

}  // namespace quorvane
