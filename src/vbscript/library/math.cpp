#include <bit>
#include <charconv>
#include <cmath>

#include "vbscript/library/arguments.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs::intrinsic {

namespace {

constexpr std::uint32_t kRandomMask = 0xFFFFFF;
constexpr std::uint32_t kRandomFactor = 0x43FD43FD;
constexpr std::uint32_t kRandomAddend = 0xC39EC3;

Value single(double number) {
  return Value::single(static_cast<float>(number));
}

Value randomNumber(const RandomSequence& sequence) {
  return single(static_cast<double>(sequence.state) / (kRandomMask + 1));
}

void step(RandomSequence& sequence) {
  sequence.state = (sequence.state * kRandomFactor + kRandomAddend) & kRandomMask;
}

/// A result that keeps the subtype of its argument.
Value likeArgument(const Value& argument, double number) {
  switch (argument.type()) {
    case Type::Single:
      return single(number);
    case Type::Date:
      return Value::date(number);
    default:
      return Value::number(number);
  }
}

bool isWhole(const Value& value) {
  return isOneOf(value, typeBit(Type::Byte) | typeBit(Type::Integer) | typeBit(Type::Long));
}

/// Empty and Boolean become Integers, whole numbers stay, others go through `change`.
template <class Change>
Value truncated(Args args, Change change) {
  const Operand number(args[0]);
  if (number->isNull()) return Value::null();
  if (isWhole(*number)) return *number;
  if (isOneOf(*number, typeBit(Type::Boolean) | typeBit(Type::Empty))) {
    return Value::whole(number->asInt());
  }
  if (number->is(Type::Currency)) {
    const double whole = change(static_cast<double>(number->asCurrency()) / 10000.0);
    return Value::currency(static_cast<std::int64_t>(whole) * 10000);
  }
  return likeArgument(*number, change(operandNumber(*number)));
}

double finite(double number) {
  if (!std::isfinite(number)) throwError(ErrorCode::Overflow);
  return number;
}

/// Digits of a number in base 2^`bits`; negative Integers show 16 bits, all else 32.
Value digitsOf(Args args, int base) {
  const Operand number(args[0]);
  if (number->isNull()) return Value::null();
  const bool small = isOneOf(*number, typeBit(Type::Integer) | typeBit(Type::Boolean));
  auto pattern = static_cast<std::uint32_t>(toLong(*number));
  if (small) pattern &= 0xFFFF;
  char buffer[16];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, pattern, base);
  const std::string_view digits(buffer, static_cast<std::size_t>(end.ptr - buffer));
  return String(digits).upper();
}

std::int64_t roundedCurrency(std::int64_t amount, int places) {
  if (places >= 4) return amount;
  std::int64_t unit = 1;
  for (int i = places; i < 4; ++i) unit *= 10;
  const std::int64_t rest = std::abs(amount % unit);
  std::int64_t quotient = amount / unit;
  if (rest * 2 > unit || (rest * 2 == unit && quotient % 2 != 0)) quotient += amount < 0 ? -1 : 1;
  return quotient * unit;
}

double roundedHalfToEven(double number, int places) {
  const double scale = std::pow(10.0, places);
  const double scaled = number * scale;
  return std::isfinite(scaled) ? std::nearbyint(scaled) / scale : number;
}

}  // namespace

Value abs(Runtime&, Args args) {
  const Operand number(args[0]);
  if (number->isNull()) return Value::null();
  if (isWhole(*number) && number->asInt() >= 0) return *number;
  if (number->is(Type::Currency)) {
    return number->asCurrency() < 0 ? negate(*number) : *number;
  }
  if (isOneOf(*number, kRealTypes | typeBit(Type::String))) {
    return likeArgument(*number, std::fabs(operandNumber(*number)));
  }
  return toDouble(*number) < 0 ? negate(*number) : Value::whole(toLong(*number));
}

Value sgn(Runtime&, Args args) {
  const double number = toDouble(args[0]);
  return Value::integer(static_cast<std::int16_t>((number > 0) - (number < 0)));
}

Value fix(Runtime&, Args args) {
  return truncated(args, [](double number) { return std::trunc(number); });
}

Value floor(Runtime&, Args args) {
  return truncated(args, [](double number) { return std::floor(number); });
}

Value round(Runtime&, Args args) {
  constexpr std::int32_t kMostPlaces = 22;
  const std::int32_t places = longOr(args, 1, 0);
  if (places < 0) throwError(ErrorCode::InvalidCall);
  const Operand number(args[0]);
  if (number->isNull()) return Value::null();
  if (isWhole(*number) || number->is(Type::Boolean)) return *number;
  if (number->isEmpty()) return Value::integer(0);
  if (number->is(Type::Currency)) {
    return Value::currency(roundedCurrency(number->asCurrency(), places));
  }
  const double exact = operandNumber(*number);
  return likeArgument(*number, places > kMostPlaces ? exact : roundedHalfToEven(exact, places));
}

Value sqr(Runtime&, Args args) {
  const double number = toDouble(args[0]);
  if (number < 0) throwError(ErrorCode::InvalidCall);
  return Value::number(std::sqrt(number));
}

Value log(Runtime&, Args args) {
  const double number = toDouble(args[0]);
  if (number <= 0) throwError(ErrorCode::InvalidCall);
  return Value::number(std::log(number));
}

Value exp(Runtime&, Args args) {
  return Value::number(finite(std::exp(toDouble(args[0]))));
}
Value sin(Runtime&, Args args) {
  return Value::number(std::sin(toDouble(args[0])));
}
Value cos(Runtime&, Args args) {
  return Value::number(std::cos(toDouble(args[0])));
}
Value tan(Runtime&, Args args) {
  return Value::number(finite(std::tan(toDouble(args[0]))));
}
Value atn(Runtime&, Args args) {
  return Value::number(std::atan(toDouble(args[0])));
}

Value hex(Runtime&, Args args) {
  return digitsOf(args, 16);
}
Value oct(Runtime&, Args args) {
  return digitsOf(args, 8);
}

Value rnd(Runtime& runtime, Args args) {
  const float number = given(args, 0) ? toSingle(args[0]) : 1.0f;
  if (number < 0) {
    const auto bits = std::bit_cast<std::uint32_t>(number);
    runtime.random.state = (bits + (bits >> 24)) & kRandomMask;
  }
  if (number != 0) step(runtime.random);
  return randomNumber(runtime.random);
}

Value randomize(Runtime& runtime, Args args) {
  const double number = given(args, 0) ? toDouble(args[0]) : runtime.host.secondsSinceMidnight();
  const auto high = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number) >> 32);
  const std::uint32_t mixed = (high & 0xFFFF) ^ (high >> 16);
  runtime.random.state = (runtime.random.state & 0xFF) | (mixed << 8 & kRandomMask);
  return Value();
}

}  // namespace quorvane::vbs::intrinsic
