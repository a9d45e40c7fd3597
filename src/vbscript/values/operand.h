#pragma once

#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"
#include "vbscript/values/value.h"

/// What the operators' files share; for them only.
namespace quorvane::vbs {

/// An operand with references followed and objects replaced by their default value. Borrows the
/// original where it can.
class Operand {
 public:
  explicit Operand(const Value& value) : value_(&value.deref()) {
    if (value_->isObject()) own(plainValue(*value_));
  }
  /// The left one of two: copied when the right one's default value may run code that changes it.
  Operand(const Value& value, const Value& right) : Operand(value) {
    if (value_ != &own_ && right.deref().isObject()) own(*value_);
  }
  Operand(const Operand&) = delete;
  Operand& operator=(const Operand&) = delete;

  const Value& operator*() const { return *value_; }
  const Value* operator->() const { return value_; }

 private:
  void own(Value value) {
    own_ = std::move(value);
    value_ = &own_;
  }

  Value own_;
  const Value* value_;
};

inline constexpr unsigned typeBit(Type type) {
  return 1u << static_cast<unsigned>(type);
}
/// The subtypes that hold a whole number in asInt().
inline constexpr unsigned kWholeTypes =
    typeBit(Type::Boolean) | typeBit(Type::Byte) | typeBit(Type::Integer) | typeBit(Type::Long);
/// The subtypes that hold theirs in asDouble().
inline constexpr unsigned kRealTypes =
    typeBit(Type::Single) | typeBit(Type::Double) | typeBit(Type::Date);
inline bool isOneOf(const Value& value, unsigned types) {
  return (types >> static_cast<unsigned>(value.type())) & 1u;
}

/// Error 13 that shows a text operand: "Type mismatch: '[string: "x"]'".
[[noreturn]] void throwMismatch(const Value& operand);

/// The number in a plain operand other than Null; a text must spell one.
double operandNumber(const Value& operand);

}  // namespace quorvane::vbs
