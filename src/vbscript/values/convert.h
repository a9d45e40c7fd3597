#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "vbscript/values/value.h"

/// Conversions between the subtypes with VBScript's rules. Every function follows references,
/// asks objects for their default value, and throws ScriptError: 13 for what cannot be converted,
/// 6 for what does not fit, 94 for Null.
namespace quorvane::vbs {

double toDouble(const Value& value);
float toSingle(const Value& value);
std::int32_t toLong(const Value& value);      ///< halves to even
std::int16_t toInteger(const Value& value);   ///< halves to even
std::uint8_t toByte(const Value& value);      ///< halves to even
std::int64_t toCurrency(const Value& value);  ///< ten-thousandths, halves to even
double toDate(const Value& value);            ///< days since 30 December 1899
bool toBoolean(const Value& value);
String convertedText(const Value& value);  ///< as toString(), which is quick about texts
inline String toString(const Value& value) {
  const Value& direct = value.deref();
  return direct.isString() ? direct.asString() : convertedText(direct);
}
Object* toObject(const Value& value);  ///< not counted; 424 when it is no object, 91 for Nothing

/// The bytes of an array: of bytes, or of values that each are one.
std::string toBytes(const ArrayRep& array);

/// The value with references followed and an object replaced by its default value, again and
/// again, up to a bound.
Value plainValue(const Value& value);

/// The number that a text spells, with blanks, sign, thousands separators, exponent, &H and &O;
/// nothing when it spells none.
std::optional<double> parseNumber(const String& text);
/// The date that a text spells in the active locale.
std::optional<double> parseDate(const String& text);

/// Fifteen significant digits, as CStr and Write show a Double.
String formatDouble(double number);
String formatSingle(float number);
String formatCurrency(std::int64_t tenThousandths);
String formatDate(double days);  ///< general date of the active locale

/// What TypeName and VarType show.
std::string_view typeName(const Value& value);
std::int16_t varType(const Value& value);

}  // namespace quorvane::vbs
