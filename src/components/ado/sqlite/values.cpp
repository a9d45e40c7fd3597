#include "components/ado/sqlite/values.h"

#include <cmath>
#include <limits>
#include <string>

#include "components/ado/sql/stored_date.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::ado {

using vbs::Type;
using vbs::Value;

namespace {

/// Where a plain value goes: a parameter, or a function's result.
class Sink {
 public:
  virtual void null() = 0;
  virtual void integer(std::int64_t number) = 0;
  virtual void real(double number) = 0;
  virtual void text(std::string_view utf8) = 0;
  virtual void blob(std::string_view bytes) = 0;

 protected:
  ~Sink() = default;
};

class ParameterSink final : public Sink {
 public:
  ParameterSink(sqlite3_stmt* statement, int place) : statement_(statement), place_(place) {}
  void null() override { sqlite3_bind_null(statement_, place_); }
  void integer(std::int64_t number) override { sqlite3_bind_int64(statement_, place_, number); }
  void real(double number) override { sqlite3_bind_double(statement_, place_, number); }
  void text(std::string_view t) override {
    sqlite3_bind_text64(statement_, place_, t.data(), t.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
  void blob(std::string_view b) override {
    sqlite3_bind_blob64(statement_, place_, b.empty() ? "" : b.data(), b.size(), SQLITE_TRANSIENT);
  }

 private:
  sqlite3_stmt* statement_;
  int place_;
};

class ResultSink final : public Sink {
 public:
  explicit ResultSink(sqlite3_context* context) : context_(context) {}
  void null() override { sqlite3_result_null(context_); }
  void integer(std::int64_t number) override { sqlite3_result_int64(context_, number); }
  void real(double number) override { sqlite3_result_double(context_, number); }
  void text(std::string_view t) override {
    sqlite3_result_text64(context_, t.data(), t.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
  void blob(std::string_view b) override {
    sqlite3_result_blob64(context_, b.data(), b.size(), SQLITE_TRANSIENT);
  }

 private:
  sqlite3_context* context_;
};

void putCurrency(Sink& sink, std::int64_t tenThousandths) {
  if (tenThousandths % 10000 == 0) {
    sink.integer(tenThousandths / 10000);
  } else {
    sink.real(static_cast<double>(tenThousandths) / 10000.0);
  }
}

void put(Sink& sink, const Value& given) {
  const Value value = vbs::plainValue(given);
  switch (value.type()) {
    case Type::Empty:
    case Type::Null:
      return sink.null();
    case Type::Integer:
    case Type::Long:
    case Type::Byte:
    case Type::Boolean:
      return sink.integer(value.asInt());
    case Type::Single:
    case Type::Double:
      return sink.real(value.asDouble());
    case Type::Currency:
      return putCurrency(sink, value.asCurrency());
    case Type::Date: {
      const auto text = storedDate(value.asDouble());
      return text ? sink.text(*text) : sink.null();
    }
    case Type::String:
      return sink.text(value.asString().utf8());
    case Type::Array:
      if (value.asArray()->elementType == Type::Byte)
        return sink.blob(value.asArray()->bytes.raw());
      vbs::throwError(vbs::ErrorCode::TypeMismatch);
    case Type::Error:
      if (value.isMissing()) return sink.null();
      vbs::throwError(vbs::ErrorCode::TypeMismatch);
    default:
      vbs::throwError(vbs::ErrorCode::TypeMismatch);
  }
}

std::string_view textOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text ? text : "", static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

std::string_view bytesOf(sqlite3_value* value) {
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
  return {bytes ? bytes : "", static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

Value whole(std::int64_t number) {
  if (number >= INT32_MIN && number <= INT32_MAX) {
    return Value::longInt(static_cast<std::int32_t>(number));
  }
  return Value::number(static_cast<double>(number));
}

bool isNumber(sqlite3_value* value) {
  const int type = sqlite3_value_type(value);
  return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

Value booleanOf(sqlite3_value* value) {
  if (isNumber(value)) return Value::boolean(sqlite3_value_double(value) != 0);
  const std::string_view text = textOf(value);
  if (equalsNoCase(text, "true") || equalsNoCase(text, "yes")) return Value::boolean(true);
  return Value::boolean(sqlite3_value_double(value) != 0);
}

Value dateOf(sqlite3_value* value) {
  if (isNumber(value)) {
    const double days = sqlite3_value_double(value);
    return vbs::isDateInRange(days) ? Value::date(days) : Value::number(days);
  }
  const std::string_view text = textOf(value);
  const auto date = dateOfText(text);
  return date ? Value::date(*date) : Value(vbs::String::fromUtf8(text));
}

/// Rounded to the four places that Currency has.
Value currencyOf(sqlite3_value* value) {
  const double scaled = sqlite3_value_double(value) * 10000.0;
  if (!isNumber(value) || std::abs(scaled) >= 9.2e18) return valueOf(value);
  if (sqlite3_value_type(value) == SQLITE_INTEGER) {
    return Value::currency(sqlite3_value_int64(value) * 10000);
  }
  return Value::currency(std::llround(scaled));
}

Value integerOf(sqlite3_value* value, std::int64_t least, std::int64_t most, DataType type) {
  if (sqlite3_value_type(value) != SQLITE_INTEGER) return valueOf(value);
  const std::int64_t number = sqlite3_value_int64(value);
  if (number < least || number > most) return whole(number);
  const auto fits = static_cast<std::int32_t>(number);
  return type == DataType::SmallInt ? Value::integer(static_cast<std::int16_t>(fits))
                                    : Value::byte(static_cast<std::uint8_t>(fits));
}

}  // namespace

void bindValue(sqlite3_stmt* statement, int place, const Value& value) {
  ParameterSink sink(statement, place);
  put(sink, value);
}

void resultValue(sqlite3_context* context, const Value& value) {
  ResultSink sink(context);
  put(sink, value);
}

Value valueOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return whole(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
      return Value::number(sqlite3_value_double(value));
    case SQLITE_TEXT:
      return Value(vbs::String::fromUtf8(textOf(value)));
    case SQLITE_BLOB:
      return Value::array(vbs::ArrayRep::fromBytes(bytesOf(value)));
    default:
      return Value::null();
  }
}

Value valueOf(sqlite3_value* value, DataType type) {
  const int held = sqlite3_value_type(value);
  if (held == SQLITE_NULL) return Value::null();
  switch (type) {
    case DataType::Boolean:
      return booleanOf(value);
    case DataType::Date:
    case DataType::DbDate:
    case DataType::DbTime:
    case DataType::DbTimeStamp:
      return held == SQLITE_BLOB ? valueOf(value) : dateOf(value);
    case DataType::Currency:
      return currencyOf(value);
    case DataType::SmallInt:
      return integerOf(value, INT16_MIN, INT16_MAX, type);
    case DataType::UnsignedTinyInt:
      return integerOf(value, 0, 255, type);
    case DataType::Single:
      return isNumber(value) ? Value::single(static_cast<float>(sqlite3_value_double(value)))
                             : valueOf(value);
    case DataType::Double:
    case DataType::Numeric:
      return isNumber(value) ? Value::number(sqlite3_value_double(value)) : valueOf(value);
    case DataType::VarWChar:
    case DataType::LongVarWChar:
    case DataType::WChar:
    case DataType::Guid:
      return held == SQLITE_BLOB ? valueOf(value) : Value(vbs::String::fromUtf8(textOf(value)));
    default:
      return valueOf(value);
  }
}

}  // namespace quorvane::ado
