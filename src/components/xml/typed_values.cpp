#include "components/xml/typed_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>
#include <span>

#include "components/xml/errors.h"
#include "support/base64.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/number_text.h"
#include "vbscript/values/serial_date.h"
#include "vbscript/values/time_check.h"

namespace quorvane::xml {

using vbs::Value;

namespace {

enum class Family { Text, Whole, Real, Currency, Boolean, Date, Base64, Hex };

struct DataType {
  std::string_view name;
  Family family;
  vbs::Type subtype;  ///< of whole and real numbers
  double least = 0;   ///< of whole numbers
  double most = 0;
};

constexpr std::array kTypes = {
    DataType{"string", Family::Text, vbs::Type::String},
    DataType{"char", Family::Text, vbs::Type::String},
    DataType{"uri", Family::Text, vbs::Type::String},
    DataType{"uuid", Family::Text, vbs::Type::String},
    DataType{"id", Family::Text, vbs::Type::String},
    DataType{"idref", Family::Text, vbs::Type::String},
    DataType{"idrefs", Family::Text, vbs::Type::String},
    DataType{"entity", Family::Text, vbs::Type::String},
    DataType{"entities", Family::Text, vbs::Type::String},
    DataType{"nmtoken", Family::Text, vbs::Type::String},
    DataType{"nmtokens", Family::Text, vbs::Type::String},
    DataType{"enumeration", Family::Text, vbs::Type::String},
    DataType{"notation", Family::Text, vbs::Type::String},
    DataType{"int", Family::Whole, vbs::Type::Long, -2147483648.0, 2147483647.0},
    DataType{"i1", Family::Whole, vbs::Type::Integer, -128, 127},
    DataType{"i2", Family::Whole, vbs::Type::Integer, -32768, 32767},
    DataType{"i4", Family::Whole, vbs::Type::Long, -2147483648.0, 2147483647.0},
    DataType{"i8", Family::Whole, vbs::Type::Double, -9223372036854775808.0, 9223372036854775807.0},
    DataType{"ui1", Family::Whole, vbs::Type::Byte, 0, 255},
    DataType{"ui2", Family::Whole, vbs::Type::Long, 0, 65535},
    DataType{"ui4", Family::Whole, vbs::Type::Double, 0, 4294967295.0},
    DataType{"ui8", Family::Whole, vbs::Type::Double, 0, 18446744073709551615.0},
    DataType{"number", Family::Real, vbs::Type::Double},
    DataType{"float", Family::Real, vbs::Type::Double},
    DataType{"r8", Family::Real, vbs::Type::Double},
    DataType{"r4", Family::Real, vbs::Type::Single},
    DataType{"fixed.14.4", Family::Currency, vbs::Type::Currency},
    DataType{"boolean", Family::Boolean, vbs::Type::Boolean},
    DataType{"date", Family::Date, vbs::Type::Date},
    DataType{"dateTime", Family::Date, vbs::Type::Date},
    DataType{"dateTime.tz", Family::Date, vbs::Type::Date},
    DataType{"time", Family::Date, vbs::Type::Date},
    DataType{"time.tz", Family::Date, vbs::Type::Date},
    DataType{"bin.base64", Family::Base64, vbs::Type::Array},
    DataType{"bin.hex", Family::Hex, vbs::Type::Array},
};

const DataType* find(std::string_view name) {
  for (const DataType& type : kTypes) {
    if (equalsNoCase(type.name, name)) return &type;
  }
  return nullptr;
}

/// A number as documents have it: always with a point, whatever the locale of the run.
std::optional<double> number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return {};
  return value;
}

Value ofNumber(vbs::Type type, double value) {
  switch (type) {
    case vbs::Type::Byte:
      return Value::byte(static_cast<std::uint8_t>(value));
    case vbs::Type::Integer:
      return Value::integer(static_cast<std::int16_t>(value));
    case vbs::Type::Long:
      return Value::longInt(static_cast<std::int32_t>(value));
    case vbs::Type::Single:
      return Value::single(static_cast<float>(value));
    default:
      return Value::number(value);
  }
}

/// Takes signs and digits off the front of a text.
class Fields {
 public:
  explicit Fields(std::string_view text) : rest_(text) {}

  bool take(char sign) {
    if (!rest_.starts_with(sign)) return false;
    rest_.remove_prefix(1);
    return true;
  }
  std::optional<std::int32_t> digits(std::size_t count) {
    std::int32_t value = 0;
    if (rest_.size() < count) return {};
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + count, value);
    if (error != std::errc() || end != rest_.data() + count || rest_[0] == '-') return {};
    rest_.remove_prefix(count);
    return value;
  }
  void skipDigits() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of("0123456789"), rest_.size()));
  }
  bool atEnd() const { return rest_.empty(); }
  bool contains(char sign) const { return rest_.find(sign) != rest_.npos; }

 private:
  std::string_view rest_;
};

/// "10:11", "10:11:12", "10:11:12.5", each with "Z" or an offset; in seconds.
std::optional<std::int64_t> timeOfDay(Fields& fields) {
  const auto hour = fields.digits(2);
  if (!hour || *hour > 24 || !fields.take(':')) return {};
  const auto minute = fields.digits(2);
  if (!minute || *minute > 59) return {};
  std::int64_t seconds = std::int64_t{*hour} * 3600 + std::int64_t{*minute} * 60;
  if (fields.take(':')) {
    const auto second = fields.digits(2);
    if (!second || *second > 60) return {};
    seconds += *second;
    if (fields.take('.')) fields.skipDigits();
  }
  if (fields.take('Z') || fields.atEnd()) return seconds;
  const bool east = fields.take('+');
  if (!east && !fields.take('-')) return {};
  const auto hours = fields.digits(2);
  fields.take(':');
  const auto minutes = fields.digits(2);
  if (!hours || !minutes) return {};
  const std::int64_t offset = std::int64_t{*hours} * 3600 + std::int64_t{*minutes} * 60;
  return east ? seconds - offset : seconds + offset;
}

std::optional<double> date(std::string_view text) {
  Fields fields(text);
  std::int32_t days = 0;
  if (fields.contains('-') && text.find(':') > 4) {
    const auto year = fields.digits(4);
    if (!year || *year < 100 || !fields.take('-')) return {};
    const auto month = fields.digits(2);
    if (!month || *month < 1 || *month > 12 || !fields.take('-')) return {};
    const auto day = fields.digits(2);
    if (!day || *day < 1 || *day > vbs::daysInMonth(*year, *month)) return {};
    days = vbs::dayNumber(*year, *month, *day);
    if (fields.atEnd()) return days;
    if (!fields.take('T') && !fields.take('t')) return {};
  }
  const auto seconds = timeOfDay(fields);
  if (!seconds || !fields.atEnd()) return {};
  const double whole = vbs::combineDate(days, *seconds);
  return vbs::isDateInRange(whole) ? std::optional(whole) : std::nullopt;
}

std::string dateText(std::string_view type, double days) {
  const vbs::DateParts parts = vbs::dateParts(days);
  std::array<char, 32> text{};
  if (type.starts_with("dateTime")) {
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d", parts.year,
                  parts.month, parts.day, parts.hour, parts.minute, parts.second);
  } else if (type == "date") {
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", parts.year, parts.month, parts.day);
  } else {
    std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", parts.hour, parts.minute,
                  parts.second);
  }
  return text.data();
}

/// The customary component breaks lines.
std::string base64Lines(std::string_view bytes) {
  constexpr std::size_t kLine = 72;
  const std::string digits = encodeBase64(bytes);
  std::string text;
  text.reserve(digits.size() + digits.size() / kLine);
  for (std::size_t at = 0; at < digits.size(); at += kLine) {
    if (at > 0) text += '\n';
    text.append(digits, at, kLine);
  }
  return text;
}

std::optional<std::string> fromHex(std::string_view text) {
  std::string bytes;
  int high = -1;
  for (const char c : text) {
    if (std::isspace(static_cast<unsigned char>(c))) continue;
    if (!std::isxdigit(static_cast<unsigned char>(c))) return {};
    const int digit = c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10;
    if (high < 0) {
      high = digit;
    } else {
      bytes += static_cast<char>(high << 4 | digit);
      high = -1;
    }
  }
  return high < 0 ? std::optional(bytes) : std::nullopt;
}

/// The characters of a text that base64 does not have are no text of it.
bool isBase64(std::string_view text) {
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (!std::isalnum(byte) && !std::isspace(byte) && c != '+' && c != '/' && c != '=')
      return false;
  }
  return true;
}

Value bytesValue(std::string_view bytes) {
  return Value::array(vbs::ArrayRep::fromBytes(bytes));
}

std::optional<Value> valueOf(const DataType& type, std::string_view text) {
  switch (type.family) {
    case Family::Text:
      break;
    case Family::Whole:
    case Family::Real: {
      const auto value = number(text);
      const bool whole = type.family == Family::Whole;
      if (!value ||
          (whole && (*value < type.least || *value > type.most || *value != std::trunc(*value)))) {
        return {};
      }
      return ofNumber(type.subtype, *value);
    }
    case Family::Currency: {
      const auto amount = number(text);
      if (!amount || std::abs(*amount) > 922337203685477.0) return {};
      return Value::currency(vbs::currencyFrom(*amount));
    }
    case Family::Boolean:
      if (text == "1" || text == "true") return Value::boolean(true);
      if (text == "0" || text == "false") return Value::boolean(false);
      return {};
    case Family::Date: {
      const auto days = date(text);
      return days ? std::optional(Value::date(*days)) : std::nullopt;
    }
    case Family::Base64:
      return isBase64(text) ? std::optional(bytesValue(decodeBase64(text))) : std::nullopt;
    case Family::Hex: {
      const auto bytes = fromHex(text);
      return bytes ? std::optional(bytesValue(*bytes)) : std::nullopt;
    }
  }
  return Value(vbs::String::fromUtf8(text));
}

std::string bytesArgument(const Value& value) {
  const Value plain = vbs::plainValue(value);
  if (!plain.isArray()) vbs::throwError(vbs::ErrorCode::TypeMismatch);
  return vbs::toBytes(*plain.asArray());
}

std::string numberText(double value) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return {text.data(), end};
}

}  // namespace

bool isDataType(std::string_view type) {
  return find(type) != nullptr;
}

Value typedValue(std::string_view type, const std::string& text) {
  vbs::countWork(text.size());
  const DataType* known = find(type);
  if (!known || known->family == Family::Text) return vbs::String::fromUtf8(text);
  const auto value = valueOf(*known, trimmed(text, " \t\r\n"));
  if (!value)
    fail("Error parsing '" + text.substr(0, 256) + "' as " + std::string(type) + " datatype.");
  return *value;
}

std::string typedText(std::string_view type, const Value& value) {
  const DataType* known = find(type);
  const Family family = known ? known->family : Family::Text;
  if (family == Family::Base64) return base64Lines(bytesArgument(value));
  if (family == Family::Hex) {
    const std::string bytes = bytesArgument(value);
    return hexDigits({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  }
  const Value plain = vbs::plainValue(value);
  if (family == Family::Text || plain.isString()) return vbs::toString(plain).utf8();
  switch (family) {
    case Family::Whole:
      return numberText(std::nearbyint(vbs::toDouble(plain)));
    case Family::Boolean:
      return vbs::toBoolean(plain) ? "1" : "0";
    case Family::Date:
      return dateText(known->name, vbs::toDate(plain));
    default:
      return numberText(vbs::toDouble(plain));
  }
}

}  // namespace quorvane::xml
