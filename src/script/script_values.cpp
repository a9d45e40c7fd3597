#include "script/script_values.h"

#include <array>
#include <charconv>
#include <utility>

#include "vbscript/values/convert.h"
#include "vbscript/values/serial_date.h"
#include "vbscript/values/text_locale.h"

namespace quorvane {

namespace script_values {

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
      vbs::runContext.memory.require(string.length());
      if (string.isAnsi()) {
        out.append(string.ansi());
      } else {
        out.append(string.narrow());
      }
    }
  }
}

void eachBinaryPiece(const vbs::Value& value,
                     const std::function<void(std::string_view bytes)>& take) {
  constexpr std::size_t kPiece = std::size_t{64} << 10;
  // Held: default values of its elements may take code.
  const vbs::Value data(value.deref());  // NOLINT(performance-unnecessary-copy-initialization)
  if (data.isArray() && data.asArray()->elementType == vbs::Type::Byte) {
    return take(data.asArray()->bytes.raw());
  }
  std::string piece;
  if (data.isArray()) {
    const vbs::ArrayRep& array = *data.asArray();
    for (std::size_t i = 0; i < array.count; ++i) {
      piece += static_cast<char>(vbs::toByte(array.element(i)));
    }
    return take(piece);
  }
  const vbs::String text = vbs::toString(data);
  if (!text.isAnsi()) return take(text.raw());
  for (const char c : text.ansi()) {
    const char16_t unit = vbs::ansiToUnit(static_cast<unsigned char>(c));
    piece += static_cast<char>(unit & 0xFF);
    piece += static_cast<char>(unit >> 8);
    if (piece.size() < kPiece) continue;
    take(piece);
    piece.clear();
  }
  take(piece);
}

bool hasArgument(vbs::Args args, std::size_t index) {
  return index < args.size() && !args[index].deref().isMissing();
}

std::string textArgument(vbs::Args args, std::size_t index) {
  return hasArgument(args, index) ? text(args[index]) : std::string();
}

CalendarTime calendarTime(double days) {
  const vbs::DateParts parts = vbs::dateParts(days);
  return {parts.year,   parts.month,  parts.day,        parts.hour,
          parts.minute, parts.second, parts.weekday - 1};
}

std::size_t place(const vbs::Value& number, std::size_t count) {
  const std::int32_t wanted = vbs::toLong(number);
  if (wanted < 1 || static_cast<std::size_t>(wanted) > count) {
    vbs::throwError(vbs::ErrorCode::SubscriptOutOfRange);
  }
  return static_cast<std::size_t>(wanted) - 1;
}

double days(const CalendarTime& time) {
  return vbs::combineDate(vbs::dayNumber(time.year, time.month, time.day),
                          time.hour * 3600 + time.minute * 60 + time.second);
}

void useLocale(std::int32_t id) {
  const vbs::Locale* locale = vbs::findLocale(id);
  if (!locale) vbs::throwError(vbs::ErrorCode::NoDefaultLocale);
  vbs::setActiveLocale(*locale);
}

void fail(vbs::ErrorCode code, std::string description) {
  throw vbs::ScriptError{static_cast<std::int32_t>(code), std::move(description), {}, {}};
}

}  // namespace script_values

}  // namespace quorvane
