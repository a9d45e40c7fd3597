#include "components/ado/odbc/values.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "components/ado/error_numbers.h"
#include "components/ado/exact_text.h"
#include "platform/odbc_headers.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::ado {

using vbs::Value;

std::string utf8Of(std::u16string_view text) {
  return vbs::String::fromWide(text).utf8();
}

std::u16string wideOf(std::string_view utf8) {
  return vbs::String::fromUtf8(utf8).wide();
}

namespace {

DataType typeOf(const OdbcColumn& column) {
  if (column.isMoney) return DataType::Currency;
  if (column.typeName == u"bool") return DataType::Boolean;  // which some drivers show as a text
  switch (column.type) {
    case SQL_BIT:
      return DataType::Boolean;
    case SQL_TINYINT:
      return column.isUnsigned ? DataType::UnsignedTinyInt : DataType::TinyInt;
    case SQL_SMALLINT:
      return column.isUnsigned ? DataType::Integer : DataType::SmallInt;
    case SQL_INTEGER:
      return column.isUnsigned ? DataType::BigInt : DataType::Integer;
    case SQL_BIGINT:
      return DataType::BigInt;
    case SQL_REAL:
      return DataType::Single;
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return DataType::Double;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return DataType::Numeric;
    case SQL_TYPE_DATE:
      return DataType::DbDate;
    case SQL_TYPE_TIME:
      return DataType::DbTime;
    case SQL_TYPE_TIMESTAMP:
      return DataType::DbTimeStamp;
    case SQL_GUID:
      return DataType::Guid;
    case SQL_BINARY:
      return DataType::Binary;
    case SQL_VARBINARY:
      return DataType::VarBinary;
    case SQL_LONGVARBINARY:
      return DataType::LongVarBinary;
    case SQL_CHAR:
      return DataType::Char;
    case SQL_VARCHAR:
      return DataType::VarChar;
    case SQL_LONGVARCHAR:
      return DataType::LongVarChar;
    case SQL_WCHAR:
      return DataType::WChar;
    case SQL_WLONGVARCHAR:
      return DataType::LongVarWChar;
    default:
      return DataType::VarWChar;
  }
}

/// DefinedSize of types that have one of their own.
std::int32_t sizeOf(DataType type) {
  switch (type) {
    case DataType::TinyInt:
    case DataType::UnsignedTinyInt:
      return 1;
    case DataType::SmallInt:
    case DataType::Boolean:
      return 2;
    case DataType::Integer:
    case DataType::Single:
      return 4;
    case DataType::DbDate:
    case DataType::DbTime:
      return 6;
    case DataType::Double:
    case DataType::BigInt:
    case DataType::Currency:
      return 8;
    case DataType::DbTimeStamp:
    case DataType::Guid:
      return 16;
    case DataType::Numeric:
      return 19;
    default:
      return 0;
  }
}

std::int32_t precisionOf(DataType type, const OdbcColumn& column) {
  switch (type) {
    case DataType::TinyInt:
    case DataType::UnsignedTinyInt:
      return 3;
    case DataType::SmallInt:
      return 5;
    case DataType::Integer:
      return 10;
    case DataType::BigInt:
    case DataType::Currency:
      return 19;
    case DataType::Single:
      return 7;
    case DataType::Double:
      return 15;
    case DataType::Numeric:
      return static_cast<std::int32_t>(column.size);
    default:
      return 255;
  }
}

/// The digits, sign and point of a number that a server may have put its currency to.
std::string plainNumber(std::u16string_view text) {
  std::string plain;
  for (const char16_t c : text) {
    if ((c >= u'0' && c <= u'9') || c == u'.' || c == u'-' || c == u'e' || c == u'E' || c == u'+') {
      plain += static_cast<char>(c);
    }
  }
  return plain;
}

Value dateOf(const OdbcMoment& moment) {
  const std::int64_t seconds = moment.hour * 3600 + moment.minute * 60 + moment.second;
  if (moment.timeAlone) return Value::date(vbs::combineDate(0, seconds));
  constexpr std::int32_t kFirstYear = 100;
  if (moment.year < kFirstYear || moment.month < 1 || moment.month > 12) return Value::null();
  const std::int32_t days = vbs::dayNumber(moment.year, moment.month, moment.day);
  const double date = vbs::combineDate(days, seconds);
  const double rest = moment.nanosecond / 1e9 / vbs::kSecondsPerDay;
  return Value::date(days < 0 ? date - rest : date + rest);
}

Value wholeOf(std::int64_t number, DataType type) {
  switch (type) {
    case DataType::Boolean:
      return Value::boolean(number != 0);
    case DataType::UnsignedTinyInt:
      return Value::byte(static_cast<std::uint8_t>(number));
    case DataType::TinyInt:
    case DataType::SmallInt:
      return Value::integer(static_cast<std::int16_t>(number));
    default:
      return number == static_cast<std::int32_t>(number)
                 ? Value::longInt(static_cast<std::int32_t>(number))
                 : Value::number(static_cast<double>(number));
  }
}

Value numberAs(double number, DataType type) {
  if (type == DataType::Single) return Value::single(static_cast<float>(number));
  const bool whole = type == DataType::BigInt && std::abs(number) <= INT32_MAX;
  return whole ? Value::longInt(static_cast<std::int32_t>(number)) : Value::number(number);
}

Value textAs(std::u16string_view text, DataType type) {
  switch (type) {
    case DataType::Boolean:
      return Value::boolean(!text.empty() && text != u"0" && text[0] != u'f' && text[0] != u'F');
    case DataType::Currency:
      return Value::currency(currencyOfText(plainNumber(text)));
    case DataType::Numeric:
      return Value::number(numberOfText(plainNumber(text)));
    case DataType::Guid:
      return text.starts_with(u"{")
                 ? Value(vbs::String::fromWide(text))
                 : Value(vbs::String::fromWide(u"{" + std::u16string(text) + u"}"));
    default:
      return Value(vbs::String::fromWide(text));
  }
}

struct ValueMaker {
  DataType type;
  Value operator()(std::monostate) const { return Value::null(); }
  Value operator()(bool value) const { return Value::boolean(value); }
  Value operator()(std::int64_t value) const { return wholeOf(value, type); }
  Value operator()(double value) const { return numberAs(value, type); }
  Value operator()(const OdbcDecimal& value) const { return textAs(wideOf(value.text), type); }
  Value operator()(const std::u16string& value) const { return textAs(value, type); }
  Value operator()(const std::string& value) const {
    return Value::array(vbs::ArrayRep::fromBytes(value));
  }
  Value operator()(const OdbcMoment& value) const { return dateOf(value); }
};

OdbcCell momentOf(double date) {
  if (!vbs::isDateInRange(date)) vbs::throwError(vbs::ErrorCode::Overflow);
  const vbs::DateParts parts = vbs::dateParts(date);
  return OdbcMoment{parts.year,   parts.month,  parts.day, parts.hour,
                    parts.minute, parts.second, 0,         false};
}

OdbcCell decimalOf(std::int64_t tenThousandths) {
  return OdbcDecimal{currencyText(tenThousandths), 19, 4};
}

/// States by their beginnings, the longer first.
struct Mapped {
  std::string_view state;
  std::int32_t number;
};

constexpr std::array kStates = {
    Mapped{"07002", kNoValue},  Mapped{"22001", kDataOverflow}, Mapped{"22003", kDataOverflow},
    Mapped{"22005", kMismatch}, Mapped{"22007", kMismatch},     Mapped{"22008", kMismatch},
    Mapped{"22018", kMismatch}, Mapped{"22P02", kMismatch},     Mapped{"42501", kNoPermission},
    Mapped{"42P01", kNoTable},  Mapped{"42S02", kNoTable},      Mapped{"57014", kTimedOut},
    Mapped{"HYT00", kTimedOut}, Mapped{"S0002", kNoTable},      Mapped{"S1T00", kTimedOut},
    Mapped{"22", kSyntax},      Mapped{"23", kIntegrity},       Mapped{"28", kWrongPassword},
    Mapped{"37", kSyntax},      Mapped{"42", kSyntax},          Mapped{"21", kSyntax},
    Mapped{"S0", kSyntax},
};

std::int32_t numberOf(std::string_view state) {
  for (const Mapped& mapped : kStates) {
    if (state.starts_with(mapped.state)) return mapped.number;
  }
  return kUnspecified;
}

/// In the words that pages know.
constexpr std::string_view kNoSource =
    "[Microsoft][ODBC Driver Manager] Data source name not found and no default driver specified";

/// A login that is refused, which drivers for one server report as one that is not there.
bool tellsOfLogin(const DatabaseError& error) {
  return error.sqlState == "08001" &&
         error.description.find("authentication failed") != error.description.npos;
}

DatabaseError errorOf(const OdbcRecord& record) {
  DatabaseError error;
  error.sqlState = utf8Of(record.state);
  error.number = numberOf(error.sqlState);
  error.description = utf8Of(record.text);
  while (error.description.ends_with('\n')) error.description.pop_back();
  error.source = kOdbcSource;
  error.native = record.native;
  if (error.sqlState == "IM002") error.description = kNoSource;
  if (tellsOfLogin(error)) error.number = kWrongPassword;
  return error;
}

}  // namespace

Column columnOf(const OdbcColumn& described) {
  Column column;
  column.name = utf8Of(described.name);
  column.type = typeOf(described);
  column.size = sizeOf(column.type);
  if (column.size == 0) {
    constexpr std::uint64_t kMost = INT32_MAX;
    column.size = static_cast<std::int32_t>(std::min(described.size, kMost));
    if (column.size == 0) column.size = INT32_MAX;
  }
  column.precision = precisionOf(column.type, described);
  if (column.type == DataType::Numeric) column.scale = described.digits;
  if (column.type == DataType::Currency) column.scale = 4;
  column.nullable = described.nullable;
  column.autonumber = described.autonumber;
  column.table = utf8Of(described.table);
  column.column = utf8Of(described.column);
  return column;
}

Value valueOf(const OdbcCell& cell, const Column& column) {
  return std::visit(ValueMaker{column.type}, cell);
}

OdbcCell cellOf(const Value& given) {
  const Value value = vbs::plainValue(given);
  switch (value.type()) {
    case vbs::Type::Empty:
    case vbs::Type::Null:
      return {};
    case vbs::Type::Boolean:
      return value.asBoolean();
    case vbs::Type::Byte:
    case vbs::Type::Integer:
    case vbs::Type::Long:
      return std::int64_t{value.asInt()};
    case vbs::Type::Single:
    case vbs::Type::Double:
      return value.asDouble();
    case vbs::Type::Currency:
      return decimalOf(value.asCurrency());
    case vbs::Type::Date:
      return momentOf(value.asDouble());
    case vbs::Type::Array:
      return vbs::toBytes(*value.asArray());
    default:
      return vbs::toString(value).wide();
  }
}

DatabaseError errorOf(const OdbcFailure& failure) {
  DatabaseError error = errorOf(failure.records.front());
  for (std::size_t i = 1; i < failure.records.size(); ++i) {
    error.further.push_back(errorOf(failure.records[i]));
  }
  return error;
}

}  // namespace quorvane::ado
