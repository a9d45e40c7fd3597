#include <cmath>
#include <utility>

#include "vbscript/values/operand.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs {

namespace {

/// An operand of a logical operator: its bits and the subtype they came in.
struct Bits {
  std::int32_t bits = 0;
  Type type = Type::Null;  ///< Null, Boolean, Byte, Integer or Long

  bool isNull() const { return type == Type::Null; }
};

Bits bitsOf(const Value& value) {
  const Operand operand(value);
  switch (operand->type()) {
    case Type::Null:
      return {};
    case Type::Empty:
      return {0, Type::Long};
    case Type::Boolean:
    case Type::Byte:
    case Type::Integer:
    case Type::Long:
      return {operand->asInt(), operand->type()};
    case Type::String:
      try {
        return {toLong(*operand), Type::Long};
      } catch (const ScriptError& error) {
        if (error.number != static_cast<std::int32_t>(ErrorCode::TypeMismatch)) throw;
      }
      throwMismatch(*operand);
    default:
      return {toLong(*operand), Type::Long};
  }
}

std::pair<Bits, Bits> bitsOfBoth(const Value& left, const Value& right) {
  const Operands both(left, right);
  const Bits a = bitsOf(*both.left);
  return {a, bitsOf(*both.right)};
}

Type commonType(const Bits& a, const Bits& b) {
  if (a.isNull()) return b.type;
  if (b.isNull() || a.type == b.type) return a.type;
  return a.type == Type::Long || b.type == Type::Long ? Type::Long : Type::Integer;
}

Value make(std::int32_t bits, Type type) {
  switch (type) {
    case Type::Boolean:
      return Value::boolean(bits != 0);
    case Type::Byte:
      return Value::byte(static_cast<std::uint8_t>(bits));
    case Type::Integer:
      return Value::integer(static_cast<std::int16_t>(bits));
    default:
      return Value::longInt(bits);
  }
}

/// `operation` on both sides; Null when either is.
template <class Operation>
Value bitwise(const Value& left, const Value& right, Operation operation) {
  const auto [a, b] = bitsOfBoth(left, right);
  if (a.isNull() || b.isNull()) return Value::null();
  return make(operation(a.bits, b.bits), commonType(a, b));
}

}  // namespace

Value logicalNot(const Value& value) {
  const Bits a = bitsOf(value);
  return a.isNull() ? Value::null() : make(~a.bits, a.type);
}

Value logicalAnd(const Value& left, const Value& right) {
  const auto [a, b] = bitsOfBoth(left, right);
  if (a.isNull() != b.isNull()) {
    // A zero decides whatever the unknown side may be.
    const Bits& known = a.isNull() ? b : a;
    return known.bits == 0 ? make(0, known.type) : Value::null();
  }
  return a.isNull() ? Value::null() : make(a.bits & b.bits, commonType(a, b));
}

Value logicalOr(const Value& left, const Value& right) {
  const auto [a, b] = bitsOfBoth(left, right);
  if (a.isNull() != b.isNull()) {
    const Bits& known = a.isNull() ? b : a;
    return known.bits != 0 ? make(known.bits, known.type) : Value::null();
  }
  return a.isNull() ? Value::null() : make(a.bits | b.bits, commonType(a, b));
}

Value logicalXor(const Value& left, const Value& right) {
  return bitwise(left, right, [](std::int32_t a, std::int32_t b) { return a ^ b; });
}

Value logicalEqv(const Value& left, const Value& right) {
  return bitwise(left, right, [](std::int32_t a, std::int32_t b) { return ~(a ^ b); });
}

Value logicalImp(const Value& left, const Value& right) {
  const auto [a, b] = bitsOfBoth(left, right);
  if (a.isNull()) return b.bits != 0 ? make(b.bits, b.type) : Value::null();
  if (b.isNull()) return a.bits != -1 ? make(~a.bits, a.type) : Value::null();
  return make(~a.bits | b.bits, commonType(a, b));
}

}  // namespace quorvane::vbs
