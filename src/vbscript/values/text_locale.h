#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "vbscript/values/host.h"
#include "vbscript/values/run_context.h"

/// What depends on language and country when values become text and back. A run starts in its
/// host's locale; SetLocale changes the rest of the run.
namespace quorvane::vbs {

enum class DateOrder : std::uint8_t { MonthDayYear, DayMonthYear, YearMonthDay };

/// With AM and PM as needed; of 24 hours as needed; of 24 hours, two digits always.
enum class HourForm : std::uint8_t { Twelve, AsNeeded, TwoDigits };

struct LocaleNames {
  std::array<std::string_view, 12> months;
  std::array<std::string_view, 12> shortMonths;
  std::array<std::string_view, 7> weekdays;  ///< Sunday first
  std::array<std::string_view, 7> shortWeekdays;
  std::array<std::string_view, 12> monthsOfDays{};  ///< as a day's; empty: like the months
};

/// All texts are UTF-8. Patterns stand for the parts of a date by letters: d dd
/// dddd, M MM MMMM, yyyy; all else stands for itself, and so do letters between apostrophes.
struct Locale {
  std::int32_t id;
  std::string_view tag;  ///< "en-us"
  char decimalPoint;
  std::string_view thousandsSeparator;
  DateOrder dateOrder;
  char dateSeparator;
  std::string_view shortDate;
  std::string_view longDate;
  HourForm hours;
  std::string_view currencySymbol;
  std::string_view positiveCurrency;  ///< "$n": where symbol and number stand
  std::string_view negativeCurrency;  ///< "($n)"
  const LocaleNames& names;
  std::int32_t firstWeekday;  ///< 1 is Sunday; what vbUseSystem means
  std::int32_t currencyPlaces = 2;
  std::string_view am = "AM";
  std::string_view pm = "PM";
  bool halfComesFirst = false;  ///< AM or PM stands before the time
};

inline constexpr std::int32_t kDefaultLocale = 1033;

/// Null when the locale is not known.
const Locale* findLocale(std::int32_t id);
const Locale* findLocale(std::string_view lowerTag);

/// The locale of the running script on this thread.
const Locale& activeLocale();
void setActiveLocale(const Locale& locale);

/// The year that a text without one means, of the running script's clock.
std::int32_t currentYear();

/// While it lives, conversions on this thread use this host's locale and clock.
class TextScope {
 public:
  explicit TextScope(Host& host);
  ~TextScope();
  TextScope(const TextScope&) = delete;
  TextScope& operator=(const TextScope&) = delete;

 private:
  TextContext before_;
};

}  // namespace quorvane::vbs
