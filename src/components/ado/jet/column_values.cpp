#include "components/ado/jet/column_values.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

#include "platform/charset.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::ado::jet {

using vbs::Value;

namespace {

/// The number that bytes hold, the lowest first.
template <class Number>
Number numberOf(std::string_view bytes) {
  Number number{};
  std::memcpy(&number, bytes.data(), sizeof number);
  return number;
}

std::size_t bytesOf(ColumnType type) {
  switch (type) {
    case ColumnType::Boolean:
    case ColumnType::Byte:
      return 1;
    case ColumnType::Short:
      return 2;
    case ColumnType::Long:
    case ColumnType::Single:
    case ColumnType::Complex:
      return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::Date:
    case ColumnType::Large:
      return 8;
    case ColumnType::Guid:
      return 16;
    case ColumnType::Numeric:
      return 17;
    default:
      return 0;
  }
}

Value guid(std::string_view b) {
  const auto at = [&](std::size_t i) {
    return static_cast<unsigned>(static_cast<std::uint8_t>(b[i]));
  };
  std::array<char, 40> text;
  std::snprintf(text.data(), text.size(),
                "{%02X%02X%02X%02X-%02X%02X-%02X%02X-%02X%02X-%02X%02X%02X%02X%02X%02X}", at(3),
                at(2), at(1), at(0), at(5), at(4), at(7), at(6), at(8), at(9), at(10), at(11),
                at(12), at(13), at(14), at(15));
  return Value(text.data());
}

/// A sign and a number of 16 bytes: words from the highest on, in each the lowest byte first.
Value numeric(std::string_view bytes, int places) {
  std::array<std::uint32_t, 4> words;
  std::memcpy(words.data(), bytes.data() + 1, sizeof words);
  std::string digits;
  while (std::any_of(words.begin(), words.end(), [](std::uint32_t w) { return w != 0; })) {
    std::uint64_t rest = 0;
    for (std::uint32_t& word : words) {
      rest = rest << 32 | word;
      word = static_cast<std::uint32_t>(rest / 10);
      rest %= 10;
    }
    digits.insert(digits.begin(), static_cast<char>('0' + rest));
  }
  const auto behind = static_cast<std::size_t>(places);
  if (digits.size() <= behind) digits.insert(0, behind + 1 - digits.size(), '0');
  if (behind > 0) digits.insert(digits.size() - behind, ".");
  return Value(((bytes[0] & 0x80) != 0 ? "-" : "") + digits);
}

Value text(std::string_view bytes, const std::string& charset) {
  if (charset.empty()) return Value(textOfBytes(bytes));
  return Value(vbs::String::fromWide(charset::decode(charset, bytes, bytes.size()).text));
}

}  // namespace

vbs::String textOfBytes(std::string_view bytes) {
  const bool mayBeSqueezed = bytes.starts_with("\xFF\xFE");
  if (mayBeSqueezed) bytes.remove_prefix(2);
  std::u16string text;
  text.reserve(bytes.size());
  bool squeezed = mayBeSqueezed;  // one byte a character; a NUL turns that off and on
  for (std::size_t at = 0; at < bytes.size();) {
    const auto low = static_cast<std::uint8_t>(bytes[at++]);
    if (mayBeSqueezed && low == 0) {
      squeezed = !squeezed;
    } else if (squeezed) {
      text += low;
    } else if (at < bytes.size()) {
      text += static_cast<char16_t>(low | static_cast<std::uint8_t>(bytes[at++]) << 8);
    }
  }
  return vbs::String::fromWide(text);
}

std::string declaredTypeOf(const JetColumn& column, bool isOld) {
  const auto sized = [](const char* name, std::uint32_t size) {
    return size == 0 ? std::string(name) : name + ("(" + std::to_string(size) + ")");
  };
  switch (column.type) {
    case ColumnType::Boolean:
      return "YESNO";
    case ColumnType::Byte:
      return "BYTE";
    case ColumnType::Short:
      return "SHORT";
    case ColumnType::Long:
    case ColumnType::Complex:
      return "LONG";
    case ColumnType::Currency:
      return "CURRENCY";
    case ColumnType::Single:
      return "SINGLE";
    case ColumnType::Double:
      return "DOUBLE";
    case ColumnType::Date:
      return "DATETIME";
    case ColumnType::Binary:
      return sized("BINARY", column.bytes);
    case ColumnType::Text:
      return sized("TEXT", isOld ? column.bytes : column.bytes / 2);
    case ColumnType::Memo:
      return "MEMO";
    case ColumnType::Guid:
      return "GUID";
    case ColumnType::Numeric:
      return "DECIMAL(" + std::to_string(column.digits) + "," + std::to_string(column.places) + ")";
    case ColumnType::Large:
      return "BIGINT";
    default:
      return "OLEOBJECT";
  }
}

Value valueOfBytes(const JetColumn& column, std::string_view bytes, const std::string& charset) {
  const std::size_t size = bytesOf(column.type);
  if (size != 0 && bytes.size() != size) return {};
  switch (column.type) {
    case ColumnType::Boolean:
      return Value::boolean(bytes[0] != 0);
    case ColumnType::Byte:
      return Value::byte(numberOf<std::uint8_t>(bytes));
    case ColumnType::Short:
      return Value::integer(numberOf<std::int16_t>(bytes));
    case ColumnType::Long:
    case ColumnType::Complex:
      return Value::longInt(numberOf<std::int32_t>(bytes));
    case ColumnType::Currency:
      return Value::currency(numberOf<std::int64_t>(bytes));
    case ColumnType::Single:
      return Value::single(numberOf<float>(bytes));
    case ColumnType::Double:
      return Value::number(numberOf<double>(bytes));
    case ColumnType::Date: {
      const auto days = numberOf<double>(bytes);
      return vbs::isDateInRange(days) ? Value::date(days) : Value();
    }
    case ColumnType::Text:
    case ColumnType::Memo:
      return text(bytes, charset);
    case ColumnType::Guid:
      return guid(bytes);
    case ColumnType::Numeric:
      return numeric(bytes, column.places);
    case ColumnType::Large:
      return Value(std::to_string(numberOf<std::int64_t>(bytes)));
    default:
      return Value::array(vbs::ArrayRep::fromBytes(bytes));
  }
}

}  // namespace quorvane::ado::jet
