#include "vbscript/values/convert.h"

#include <array>
#include <charconv>
#include <cmath>
#include <iterator>

#include "vbscript/values/number_text.h"
#include "vbscript/values/object.h"
#include "vbscript/values/serial_date.h"
#include "vbscript/values/text_case.h"

namespace quorvane::vbs {

namespace {

constexpr int kMaxDefaultChain = 64;  ///< default values of default values

bool equalsLower(std::string_view text, std::string_view lower) {
  return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                    [](char a, char b) { return lowerAnsi(a) == b; });
}

std::optional<bool> parseBoolean(const String& text) {
  if (!text.isAnsi()) return std::nullopt;
  std::string_view word = text.ansi();
  if (word.size() > 2 && word.front() == '#' && word.back() == '#') {
    word = word.substr(1, word.size() - 2);
  }
  if (equalsLower(word, "true")) return true;
  if (equalsLower(word, "false")) return false;
  return std::nullopt;
}

double numberOf(const String& text, unsigned bits) {
  const auto number = parseNumber(text, bits);
  if (!number) throwError(ErrorCode::TypeMismatch);
  if (std::isinf(*number)) throwError(ErrorCode::Overflow);
  return *number;
}

/// The number of a plain value; hexadecimal texts are read as integers of `bits` bits.
double plainNumber(const Value& value, unsigned bits) {
  switch (value.type()) {
    case Type::Empty:
      return 0;
    case Type::Boolean:
    case Type::Byte:
    case Type::Integer:
    case Type::Long:
      return value.asInt();
    case Type::Single:
    case Type::Double:
    case Type::Date:
      return value.asDouble();
    case Type::Currency:
      return static_cast<double>(value.asCurrency()) / 10000.0;
    case Type::String:
      return numberOf(value.asString(), bits);
    case Type::Null:
      throwError(ErrorCode::InvalidNull);
    default:
      throwError(ErrorCode::TypeMismatch);
  }
}

/// Rounded to a whole number, halves to even.
double wholeNumber(const Value& value, double least, double most, unsigned bits) {
  const Value& plain = value.deref();
  const double number =
      plain.isObject() ? plainNumber(plainValue(plain), bits) : plainNumber(plain, bits);
  const double rounded = std::nearbyint(number);
  if (!(rounded >= least && rounded <= most)) throwError(ErrorCode::Overflow);
  return rounded;
}

String formatInt(std::int32_t number) {
  std::array<char, 16> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return String(std::string_view(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())));
}

/// A byte array's text is its bytes, two a character.
String textOfArray(const ArrayRep& array) {
  if (array.elementType != Type::Byte) throwError(ErrorCode::TypeMismatch);
  return String::fromWideBytes(array.bytes.raw());
}

}  // namespace

Value plainValue(const Value& value) {
  Value plain = value.deref();
  for (int i = 0; plain.isObject(); ++i) {
    if (!plain.asObject()) throwError(ErrorCode::ObjectNotSet);
    if (i == kMaxDefaultChain) throwError(ErrorCode::OutOfStackSpace);
    const Value holder = plain;  // the object must outlive the call
    plain = Value(holder.asObject()->defaultValue()).deref();
  }
  return plain;
}

double toDouble(const Value& value) {
  const Value& direct = value.deref();
  return direct.isObject() ? plainNumber(plainValue(direct), 0) : plainNumber(direct, 0);
}

float toSingle(const Value& value) {
  const double number = toDouble(value);
  const auto narrowed = static_cast<float>(number);
  if (std::isinf(narrowed)) throwError(ErrorCode::Overflow);
  return narrowed;
}

std::int32_t toLong(const Value& value) {
  const Value& direct = value.deref();
  if (direct.is(Type::Integer) || direct.is(Type::Long)) return direct.asInt();
  return static_cast<std::int32_t>(wholeNumber(direct, INT32_MIN, INT32_MAX, 32));
}

std::int16_t toInteger(const Value& value) {
  return static_cast<std::int16_t>(wholeNumber(value, INT16_MIN, INT16_MAX, 16));
}

std::uint8_t toByte(const Value& value) {
  const Value& direct = value.deref();
  if (direct.is(Type::Boolean)) return direct.asBoolean() ? UINT8_MAX : 0;
  return static_cast<std::uint8_t>(wholeNumber(direct, 0, UINT8_MAX, 0));
}

std::int64_t toCurrency(const Value& value) {
  const Value plain = plainValue(value);
  if (plain.is(Type::Currency)) return plain.asCurrency();
  if (plain.isString()) {
    if (const auto amount = parseCurrency(plain.asString())) return *amount;
  }
  return currencyFrom(plainNumber(plain, 0));
}

double toDate(const Value& value) {
  const Value plain = plainValue(value);
  if (plain.is(Type::Date)) return plain.asDouble();
  if (plain.isString()) {
    if (const auto date = parseDate(plain.asString())) return *date;
  }
  const double number = plainNumber(plain, 0);
  if (!isDateInRange(number)) throwError(ErrorCode::Overflow);
  return number;
}

bool toBoolean(const Value& value) {
  const Value& direct = value.deref();
  if (direct.is(Type::Boolean)) return direct.asBoolean();
  const Value plain = plainValue(direct);
  if (plain.isString()) {
    if (const auto truth = parseBoolean(plain.asString())) return *truth;
  }
  return plainNumber(plain, 0) != 0;
}

String convertedText(const Value& value) {
  const Value& direct = value.deref();
  switch (direct.type()) {
    case Type::String:
      return direct.asString();
    case Type::Empty:
      return String();
    case Type::Byte:
    case Type::Integer:
    case Type::Long:
      return formatInt(direct.asInt());
    case Type::Single:
      return formatSingle(static_cast<float>(direct.asDouble()));
    case Type::Double:
      return formatDouble(direct.asDouble());
    case Type::Currency:
      return formatCurrency(direct.asCurrency());
    case Type::Date:
      return formatDate(direct.asDouble());
    case Type::Boolean:
      return String(direct.asBoolean() ? "True" : "False");
    case Type::Error:
      return String("Error " + std::to_string(direct.asInt()));
    case Type::Object:
      return toString(plainValue(direct));
    case Type::Array:
      return textOfArray(*direct.asArray());
    case Type::Null:
      throwError(ErrorCode::InvalidNull);
    default:
      break;
  }
  throwError(ErrorCode::InternalError);
}

Object* toObject(const Value& value) {
  const Value& direct = value.deref();
  if (!direct.isObject()) throwError(ErrorCode::ObjectRequired);
  if (!direct.asObject()) throwError(ErrorCode::ObjectNotSet);
  return direct.asObject();
}

std::string_view typeName(const Value& value) {
  const Value& direct = value.deref();
  switch (direct.type()) {
    case Type::Empty:
      return "Empty";
    case Type::Null:
      return "Null";
    case Type::Integer:
      return "Integer";
    case Type::Long:
      return "Long";
    case Type::Single:
      return "Single";
    case Type::Double:
      return "Double";
    case Type::Currency:
      return "Currency";
    case Type::Date:
      return "Date";
    case Type::String:
      return "String";
    case Type::Object:
      return direct.asObject() ? direct.asObject()->typeName() : "Nothing";
    case Type::Error:
      return "Error";
    case Type::Boolean:
      return "Boolean";
    case Type::Array:
      return direct.asArray()->elementType == Type::Byte ? "Byte()" : "Variant()";
    case Type::Byte:
      return "Byte";
    default:
      break;
  }
  throwError(ErrorCode::InternalError);
}

std::int16_t varType(const Value& value) {
  constexpr std::int16_t kArrayOfBytes = 8192 + 17;
  constexpr std::int16_t kArrayOfVariants = 8192 + 12;
  const Value& direct = value.deref();
  switch (direct.type()) {
    case Type::Empty:
      return 0;
    case Type::Null:
      return 1;
    case Type::Integer:
      return 2;
    case Type::Long:
      return 3;
    case Type::Single:
      return 4;
    case Type::Double:
      return 5;
    case Type::Currency:
      return 6;
    case Type::Date:
      return 7;
    case Type::String:
      return 8;
    case Type::Object:
      return 9;
    case Type::Error:
      return 10;
    case Type::Boolean:
      return 11;
    case Type::Byte:
      return 17;
    case Type::Array:
      return direct.asArray()->elementType == Type::Byte ? kArrayOfBytes : kArrayOfVariants;
    default:
      break;
  }
  throwError(ErrorCode::InternalError);
}

std::string toBytes(const ArrayRep& array) {
  if (array.elementType == Type::Byte) return std::string(array.bytes.raw());
  std::string bytes;
  bytes.reserve(array.count);
  for (std::size_t i = 0; i < array.count; ++i) {
    bytes += static_cast<char>(toByte(array.element(i)));
  }
  return bytes;
}

}  // namespace quorvane::vbs
