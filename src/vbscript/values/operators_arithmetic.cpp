#include <algorithm>
#include <cmath>

#include "vbscript/values/number_text.h"
#include "vbscript/values/operand.h"
#include "vbscript/values/operators.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::vbs {

namespace {

constexpr std::int64_t kCurrencyScale = 10000;

/// What a subtype counts as in arithmetic.
Type arithmeticType(const Value& operand) {
  switch (operand.type()) {
    case Type::Empty:
    case Type::Boolean:
      return Type::Integer;
    case Type::String:
      return Type::Double;
    case Type::Error:
    case Type::Array:
      throwMismatch(operand);
    default:
      return operand.type();
  }
}

/// The subtype of `+`, `-` and `*` before overflow.
Type widerType(Type a, Type b) {
  const auto either = [&](Type t) { return a == t || b == t; };
  if (either(Type::Date)) return Type::Date;
  if (either(Type::Currency)) return Type::Currency;
  if (either(Type::Double)) return Type::Double;
  if (either(Type::Single)) return either(Type::Long) ? Type::Double : Type::Single;
  if (either(Type::Long)) return Type::Long;
  return either(Type::Integer) ? Type::Integer : Type::Byte;
}

/// A whole result in the given subtype, or the next wider one that holds it.
Value wholeResult(std::int64_t number, Type type) {
  if (type == Type::Byte && number >= 0 && number <= UINT8_MAX) {
    return Value::byte(static_cast<std::uint8_t>(number));
  }
  if (number < INT32_MIN || number > INT32_MAX) return Value::number(static_cast<double>(number));
  const auto narrow = static_cast<std::int32_t>(number);
  return type == Type::Long ? Value::longInt(narrow) : Value::whole(narrow);
}

Value doubleResult(double number) {
  if (!std::isfinite(number)) throwError(ErrorCode::Overflow);
  return Value::number(number);
}

Value realResult(double number, Type type) {
  if (type == Type::Date && isDateInRange(number)) return Value::date(number);
  if (type == Type::Single && std::isfinite(static_cast<float>(number))) {
    return Value::single(static_cast<float>(number));
  }
  return doubleResult(number);
}

std::int64_t operandCurrency(const Value& operand) {
  if (operand.is(Type::Currency)) return operand.asCurrency();
  return currencyFrom(operandNumber(operand));
}

template <class Whole, class Real>
Value compute(const Value& a, const Value& b, Type type, Whole whole, Real real) {
  switch (type) {
    case Type::Byte:
    case Type::Integer:
    case Type::Long:
      // Empty carries a zero.
      return wholeResult(whole(std::int64_t{a.asInt()}, std::int64_t{b.asInt()}), type);
    default:
      return realResult(real(operandNumber(a), operandNumber(b)), type);
  }
}

Value addCurrency(std::int64_t a, std::int64_t b) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) throwError(ErrorCode::Overflow);
  return Value::currency(sum);
}

Value subtractCurrency(std::int64_t a, std::int64_t b) {
  std::int64_t difference = 0;
  if (__builtin_sub_overflow(a, b, &difference)) throwError(ErrorCode::Overflow);
  return Value::currency(difference);
}

std::int64_t roundedTenThousandths(std::int64_t product) {
  std::int64_t quotient = product / kCurrencyScale;
  const std::int64_t rest = std::abs(product % kCurrencyScale);
  const std::int64_t half = kCurrencyScale / 2;
  if (rest > half || (rest == half && quotient % 2 != 0)) quotient += product < 0 ? -1 : 1;
  return quotient;
}

/// a * b / 10000 without leaving 64 bits: each factor is split into whole and fraction.
Value multiplyCurrency(std::int64_t a, std::int64_t b) {
  const std::int64_t wholeA = a / kCurrencyScale;
  const std::int64_t wholeB = b / kCurrencyScale;
  const std::int64_t fractionA = a % kCurrencyScale;
  const std::int64_t fractionB = b % kCurrencyScale;
  std::int64_t product = 0;
  bool overflow = __builtin_mul_overflow(wholeA, b, &product);
  overflow |= __builtin_add_overflow(product, fractionA * wholeB, &product);
  overflow |=
      __builtin_add_overflow(product, roundedTenThousandths(fractionA * fractionB), &product);
  if (overflow) throwError(ErrorCode::Overflow);
  return Value::currency(product);
}

/// Single stays Single only beside subtypes whose every number it holds.
bool dividesToSingle(Type a, Type b) {
  const auto small = [](Type t) {
    return t == Type::Byte || t == Type::Integer || t == Type::Single;
  };
  return small(a) && small(b) && (a == Type::Single || b == Type::Single);
}

struct WholeOperands {
  std::int64_t left;
  std::int64_t right;
  Type type;
};

std::int64_t roundedOperand(const Value& operand) {
  if (isOneOf(operand, kWholeTypes | typeBit(Type::Empty))) return operand.asInt();
  const double number = std::nearbyint(operandNumber(operand));
  if (!(number >= INT32_MIN && number <= INT32_MAX)) throwError(ErrorCode::Overflow);
  return static_cast<std::int64_t>(number);
}

/// Operands of `\` and Mod: rounded to Long when they are not whole already.
WholeOperands wholeOperands(const Value& a, const Value& b) {
  const Type wider = widerType(arithmeticType(a), arithmeticType(b));
  const bool small = wider == Type::Byte || wider == Type::Integer;
  const WholeOperands result{roundedOperand(a), roundedOperand(b), small ? wider : Type::Long};
  if (result.right == 0) throwError(ErrorCode::DivisionByZero);
  return result;
}

bool eitherNull(const Value& a, const Value& b) {
  return a.isNull() || b.isNull();
}

/// `+` joins two texts; Empty beside a text counts as one.
bool joinsTexts(const Value& a, const Value& b) {
  constexpr TypeSet kTexts = typeBit(Type::String) | typeBit(Type::Empty);
  return isOneOf(a, kTexts) && isOneOf(b, kTexts) && (a.isString() || b.isString());
}

}  // namespace

void throwMismatch(const Value& operand) {
  if (!operand.isString()) throwError(ErrorCode::TypeMismatch);
  constexpr std::size_t kShown = 40;
  const String text = operand.asString();
  std::string shown = text.substr(0, kShown).narrow();
  if (text.length() > kShown) shown += "...";
  throwError(ErrorCode::TypeMismatch, "[string: \"" + shown + "\"]");
}

double operandNumber(const Value& operand) {
  if (isOneOf(operand, kWholeTypes | typeBit(Type::Empty))) return operand.asInt();
  if (isOneOf(operand, kRealTypes)) return operand.asDouble();
  if (!operand.isString()) return toDouble(operand);
  const auto number = parseNumber(operand.asString());
  if (!number) throwMismatch(operand);
  if (std::isinf(*number)) throwError(ErrorCode::Overflow);
  return *number;
}

Value add(const Value& left, const Value& right) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  if (joinsTexts(*a, *b)) return String::joined(toString(*a), toString(*b));
  if (eitherNull(*a, *b)) return Value::null();
  const Type type = widerType(arithmeticType(*a), arithmeticType(*b));
  if (type == Type::Currency) return addCurrency(operandCurrency(*a), operandCurrency(*b));
  return compute(
      *a, *b, type, [](std::int64_t x, std::int64_t y) { return x + y; },
      [](double x, double y) { return x + y; });
}

Value subtract(const Value& left, const Value& right) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  if (eitherNull(*a, *b)) return Value::null();
  Type type = widerType(arithmeticType(*a), arithmeticType(*b));
  if (type == Type::Currency) return subtractCurrency(operandCurrency(*a), operandCurrency(*b));
  if (a->is(Type::Date) && b->is(Type::Date)) type = Type::Double;
  return compute(
      *a, *b, type, [](std::int64_t x, std::int64_t y) { return x - y; },
      [](double x, double y) { return x - y; });
}

Value multiply(const Value& left, const Value& right) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  if (eitherNull(*a, *b)) return Value::null();
  const Type typeA = arithmeticType(*a);
  const Type typeB = arithmeticType(*b);
  Type type = widerType(typeA, typeB);
  if (type == Type::Currency) {
    const auto isReal = [](Type t) { return t == Type::Single || t == Type::Double; };
    if (!isReal(typeA) && !isReal(typeB)) {
      return multiplyCurrency(operandCurrency(*a), operandCurrency(*b));
    }
    type = Type::Double;
  }
  if (type == Type::Date) type = Type::Double;
  return compute(
      *a, *b, type, [](std::int64_t x, std::int64_t y) { return x * y; },
      [](double x, double y) { return x * y; });
}

Value divide(const Value& left, const Value& right) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  if (eitherNull(*a, *b)) return Value::null();
  const bool single = dividesToSingle(arithmeticType(*a), arithmeticType(*b));
  const double dividend = operandNumber(*a);
  const double divisor = operandNumber(*b);
  if (divisor == 0) {
    throwError(dividend == 0 ? ErrorCode::Overflow : ErrorCode::DivisionByZero);
  }
  return realResult(dividend / divisor, single ? Type::Single : Type::Double);
}

Value integerDivide(const Value& left, const Value& right) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  if (eitherNull(*a, *b)) return Value::null();
  const auto [dividend, divisor, type] = wholeOperands(*a, *b);
  const std::int64_t quotient = dividend / divisor;
  if (quotient > INT32_MAX) throwError(ErrorCode::Overflow);
  return wholeResult(quotient, type);
}

Value modulo(const Value& left, const Value& right) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  if (eitherNull(*a, *b)) return Value::null();
  const auto [dividend, divisor, type] = wholeOperands(*a, *b);
  return wholeResult(dividend % divisor, type);
}

Value power(const Value& left, const Value& right) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  if (eitherNull(*a, *b)) return Value::null();
  const double base = operandNumber(*a);
  const double exponent = operandNumber(*b);
  const bool fractional = exponent != std::trunc(exponent);
  if ((base == 0 && exponent < 0) || (base < 0 && fractional)) throwError(ErrorCode::InvalidCall);
  return doubleResult(std::pow(base, exponent));
}

Value negate(const Value& value) {
  const Operand operand(value);
  switch (operand->type()) {
    case Type::Null:
      return Value::null();
    case Type::Currency:
      return subtractCurrency(0, operand->asCurrency());
    case Type::Single:
    case Type::Double:
    case Type::Date:
    case Type::String:
      return realResult(-operandNumber(*operand), arithmeticType(*operand));
    default:
      return wholeResult(-std::int64_t{operand->asInt()},
                         arithmeticType(*operand) == Type::Long ? Type::Long : Type::Integer);
  }
}

Value identity(const Value& value) {
  const Operand operand(value);
  if (!operand->isNull()) arithmeticType(*operand);
  return *operand;
}

}  // namespace quorvane::vbs
