#pragma once

#include <cstdint>

#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"
#include "vbscript/values/value.h"

/// What the operators' files share; for them only.
namespace quorvane::vbs {

/// An operand with references followed and objects replaced by their default value. Borrows the
/// original where it can.
class Operand {
 public:
  explicit Operand(const Value& value) : value_(&value.deref()) { settle(); }
  Operand(const Operand&) = delete;
  Operand& operator=(const Operand&) = delete;

  const Value& operator*() const { return *value_; }
  const Value* operator->() const { return value_; }

 private:
  friend struct Operands;
  enum class Later : std::uint8_t { Settles };
  Operand(const Value& value, Later) : value_(&value.deref()) {}

  void settle() {
    if (value_->isObject()) own(plainValue(*value_));
  }
  void own(Value value) {
    own_ = std::move(value);
    value_ = &own_;
  }

  Value own_;
  const Value* value_;
};

/// Both operands of an operator, as they are when it begins: a default value may take code that
/// changes the variable on the other side. The left one's comes first.
struct Operands {
  Operands(const Value& l, const Value& r)
      : left(l, Operand::Later::Settles), right(r, Operand::Later::Settles) {
    const bool leftRuns = left->isObject();
    const bool rightRuns = right->isObject();
    if (rightRuns) left.own(*left);
    if (leftRuns) right.own(*right);
    left.settle();
    right.settle();
  }

  Operand left;
  Operand right;
};

using TypeSet = std::uint64_t;
inline constexpr TypeSet typeBit(Type type) {
  return TypeSet{1} << static_cast<unsigned>(type);
}
/// The subtypes that hold a whole number in asInt().
inline constexpr TypeSet kWholeTypes =
    typeBit(Type::Boolean) | typeBit(Type::Byte) | typeBit(Type::Integer) | typeBit(Type::Long);
/// The subtypes that hold theirs in asDouble().
inline constexpr TypeSet kRealTypes =
    typeBit(Type::Single) | typeBit(Type::Double) | typeBit(Type::Date);
inline bool isOneOf(const Value& value, TypeSet types) {
  return (types >> static_cast<unsigned>(value.type())) & 1;
}

/// Error 13 that shows a text operand: "Type mismatch: '[string: "x"]'".
[[noreturn]] void throwMismatch(const Value& operand);

/// The number in a plain operand other than Null; a text must spell one.
double operandNumber(const Value& operand);

}  // namespace quorvane::vbs
