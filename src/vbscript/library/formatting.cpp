#include <cstdio>

#include "vbscript/library/arguments.h"
#include "vbscript/values/date_text.h"
#include "vbscript/values/number_text.h"
#include "vbscript/values/serial_date.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::vbs::intrinsic {

namespace {

constexpr std::int32_t kUseDefault = -2;
constexpr std::int32_t kDefaultPlaces = 2;
constexpr std::int32_t kMostPlaces = 255;

/// The arguments that the three number formats share.
struct NumberFormat {
  std::int32_t places;
  bool leadingDigit;
  bool parentheses;
  bool grouped;
};

bool tristateAt(Args args, std::size_t index, bool standard) {
  const std::int32_t state = longOr(args, index, kUseDefault);
  if (state < kUseDefault || state > 0) throwError(ErrorCode::InvalidCall);
  return state == kUseDefault ? standard : state == -1;
}

NumberFormat formatAt(Args args, bool parentheses, std::int32_t usualPlaces = kDefaultPlaces) {
  std::int32_t places = longOr(args, 1, -1);
  if (places < -1 || places > kMostPlaces) throwError(ErrorCode::InvalidCall);
  if (places == -1) places = usualPlaces;
  return {places, tristateAt(args, 2, true), tristateAt(args, 3, parentheses),
          tristateAt(args, 4, true)};
}

double numberAt(Args args) {
  const Operand number(args[0]);
  if (number->isNull()) throwError(ErrorCode::TypeMismatch);
  if (number->isString() && !parseNumber(number->asString())) throwError(ErrorCode::TypeMismatch);
  return operandNumber(*number);
}

std::string grouped(std::string_view digits, std::string_view separator) {
  std::string result;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) result += separator;
    result.push_back(digits[i]);
  }
  return result;
}

/// The size of a number laid out, without its sign.
std::string magnitude(std::string_view fixed, const NumberFormat& format) {
  const Locale& locale = activeLocale();
  const auto point = std::min(fixed.find('.'), fixed.size());
  std::string whole(fixed.substr(0, point));
  const std::string_view fraction = fixed.substr(std::min(point + 1, fixed.size()));
  if (whole == "0" && !format.leadingDigit && !fraction.empty()) whole.clear();
  if (format.grouped) whole = grouped(whole, locale.thousandsSeparator);
  if (!fraction.empty()) (whole += locale.decimalPoint) += fraction;
  return whole;
}

/// `n` and `$` of a currency pattern filled in.
std::string filled(std::string_view pattern, std::string_view number) {
  std::string result;
  for (const char c : pattern) {
    if (c == 'n') {
      result += number;
    } else if (c == '$') {
      result += activeLocale().currencySymbol;
    } else {
      result.push_back(c);
    }
  }
  return result;
}

std::string formatted(double number, const NumberFormat& format, std::string_view suffix) {
  std::string fixed = fixedText(number, format.places);
  const bool negative = fixed.starts_with('-');
  if (negative) fixed.erase(0, 1);
  std::string text = magnitude(fixed, format) + std::string(suffix);
  if (!negative) return text;
  return format.parentheses ? "(" + text + ")" : "-" + text;
}

}  // namespace

Value formatNumber(Runtime&, Args args) {
  return String::fromUtf8(formatted(numberAt(args), formatAt(args, false), ""));
}

Value formatPercent(Runtime&, Args args) {
  return String::fromUtf8(formatted(numberAt(args) * 100, formatAt(args, false), "%"));
}

Value formatCurrency(Runtime&, Args args) {
  const Locale& locale = activeLocale();
  const bool usual = locale.negativeCurrency.starts_with('(');
  const NumberFormat format = formatAt(args, usual, locale.currencyPlaces);
  std::string fixed = fixedText(numberAt(args), format.places);
  const bool negative = fixed.starts_with('-');
  if (negative) fixed.erase(0, 1);
  const std::string text = filled(locale.positiveCurrency, magnitude(fixed, format));
  if (!negative) return String::fromUtf8(text);
  if (format.parentheses) return String::fromUtf8("(" + text + ")");
  if (usual) return String::fromUtf8("-" + text);
  return String::fromUtf8(filled(locale.negativeCurrency, magnitude(fixed, format)));
}

Value formatDateTime(Runtime&, Args args) {
  enum Form : std::int32_t { General, LongDate, ShortDate, LongTime, ShortTime };
  const std::int32_t form = longOr(args, 1, General);
  if (form < General || form > ShortTime) throwError(ErrorCode::InvalidCall);
  const Operand moment(args[0]);
  if (moment->isNull()) throwError(ErrorCode::TypeMismatch);
  const double date = toDate(*moment);
  const DateParts parts = dateParts(date);
  switch (form) {
    case LongDate:
      return formatDatePattern(parts, activeLocale().longDate);
    case ShortDate:
      return formatDatePattern(parts, activeLocale().shortDate);
    case LongTime:
      return formatTimeOfDay(parts);
    case ShortTime: {
      char buffer[32];
      std::snprintf(buffer, sizeof buffer, "%02d:%02d", parts.hour, parts.minute);
      return String(buffer);
    }
    default:
      return formatDate(date);
  }
}

}  // namespace quorvane::vbs::intrinsic
