#pragma once

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "vbscript/values/convert.h"
#include "vbscript/values/value.h"

/// Single registers and variables: what they may hold, and how that comes in and goes out.
namespace quorvane::vbs {

/// Whether a register needs more than being overwritten: it holds something counted, or refers to
/// a variable.
inline bool needsCare(const Value& value) {
  return __builtin_expect((static_cast<unsigned>(value.type()) & kCareBit) != 0, false);
}

/// Makes registers Empty that need no care.
template <std::size_t count>
[[gnu::always_inline]] inline void clearRegisters(Value* first) {
  static_assert(static_cast<int>(Type::Empty) == 0);
  std::memset(static_cast<void*>(first), 0, count * sizeof(Value));
}

/// Leaves the register Empty. The end of an object may run script code.
void release(Value& value);
/// Gives up an operand where it is a temporary.
[[gnu::always_inline]] inline void giveUp(Value& operand, bool isTemporary) {
  if (!isTemporary || !needsCare(operand)) return;
  if (operand.is(Type::Reference)) {
    operand.setIntUncounted(Type::Empty, 0);
  } else if (operand.isString()) {
    const Value ended(std::move(operand));
  } else {
    release(operand);
  }
}

inline void clearRange(Value* first, const Value* last) {
  for (; first < last; ++first) giveUp(*first, true);
}

/// Whether a register can be overwritten now: it holds a plain value, or held a text that others
/// hold as well and that it has let go of.
[[gnu::always_inline]] inline bool vacate(Value& value) {
  if (!needsCare(value)) return true;
  if (!value.isString()) return false;
  StringRep* const text = value.stringRep();
  if (text && text->references == 1) return false;
  if (text) --text->references;
  return true;
}

/// Whether the registers can be overwritten without a look. All that nobody uses must be so: a
/// reference left behind would lead what is put there to where it points.
inline bool areFree(const Value* first, const Value* last) {
  return std::none_of(first, last, needsCare);
}

/// What a register gives up: a temporary its content, a variable a copy. References are followed.
inline Value taken(Value& source, bool isTemporary) {
  if (source.is(Type::Reference) || !isTemporary) {
    Value copy = source.deref();
    if (isTemporary) release(source);
    return copy;
  }
  return std::move(source);
}
/// Puts a value in a hidden variable or temporary, as it is.
inline void hold(Value& target, Value value) {
  if (needsCare(target)) release(target);
  new (&target) Value(std::move(value));
}
/// Makes a register stand for a variable, or for what that stands for itself.
inline void refer(Value& target, Value& variable) {
  Value* const place = &variable.deref();
  if (needsCare(target) && !target.is(Type::Reference)) [[unlikely]]
    return hold(target, Value::reference(place));
  new (&target) Value(Value::reference(place));
}

/// What a variable gets of a value: of an object its default value, of an array whose elements may
/// be written through references a copy.
inline Value assigned(Value value) {
  if (value.isObject()) return plainValue(value);
  if (value.isArray() && value.asArray()->locks > 0) return Value::array(value.asArray()->clone());
  return value;
}
/// Whether the bits of a value are what a register gets of it: a variable takes an object's default
/// value, and may need its own copy of an array.
[[gnu::always_inline]] inline bool isTakenAsIs(const Value& value, bool isTemporary) {
  return isTemporary || !(value.isObject() || (value.isArray() && value.asArray()->locks > 0));
}
/// Error 13 for the array of a variable declared with bounds.
void checkAssignable(const Value& variable);

}  // namespace quorvane::vbs
