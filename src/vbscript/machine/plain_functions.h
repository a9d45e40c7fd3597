#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "vbscript/machine/registers.h"

/// Intrinsic functions of one argument where that is of the simplest kinds. They put their result
/// into a register that needs no care. False: not such a case, the library's function does it all.
namespace quorvane::vbs::plain_function {

using Function = bool (*)(Value& target, const Value& argument);

inline bool isWhole(const Value& value) {
  return value.is(Type::Integer) || value.is(Type::Long);
}

inline bool squareRoot(Value& target, const Value& argument) {
  if (!argument.is(Type::Double) && !isWhole(argument)) return false;
  const double number = argument.is(Type::Double) ? argument.asDouble() : argument.asInt();
  if (number < 0) return false;
  target.setDoubleUncounted(Type::Double, std::sqrt(number));
  return true;
}

inline bool absolute(Value& target, const Value& argument) {
  if (argument.is(Type::Double)) {
    target.setDoubleUncounted(Type::Double, std::fabs(argument.asDouble()));
    return true;
  }
  // The lowest Integer has no counterpart, and what lies below it is rare.
  if (!isWhole(argument) || argument.asInt() <= INT16_MIN) return false;
  target.setIntUncounted(argument.type(), std::abs(argument.asInt()));
  return true;
}

template <class Cut>
bool withoutFraction(Value& target, const Value& argument, Cut cut) {
  if (argument.is(Type::Double)) {
    target.setDoubleUncounted(Type::Double, cut(argument.asDouble()));
    return true;
  }
  if (!isWhole(argument)) return false;
  target.setIntUncounted(argument.type(), argument.asInt());
  return true;
}
inline bool floor(Value& target, const Value& argument) {
  return withoutFraction(target, argument, [](double number) { return std::floor(number); });
}
inline bool truncate(Value& target, const Value& argument) {
  return withoutFraction(target, argument, [](double number) { return std::trunc(number); });
}

inline bool length(Value& target, const Value& argument) {
  if (!argument.isString()) return false;
  const StringRep* text = argument.stringRep();
  const std::size_t units = !text                              ? 0
                            : text->encoding == Encoding::Ansi ? text->bytes
                                                               : text->bytes / 2;
  target.setIntUncounted(Type::Long, static_cast<std::int32_t>(units));
  return true;
}

/// Of the first byte.
inline bool code(Value& target, const Value& argument) {
  if (!argument.isString()) return false;
  const StringRep* text = argument.stringRep();
  if (!text || text->encoding != Encoding::Ansi || text->bytes == 0) return false;
  target.setIntUncounted(Type::Integer, static_cast<unsigned char>(*text->data()));
  return true;
}

inline bool character(Value& target, const Value& argument) {
  if (!isWhole(argument) || (argument.asInt() & ~0xFF) != 0) return false;
  new (&target) Value(String::ofByte(static_cast<char>(argument.asInt())));
  return true;
}

/// Of a vector of Variants.
inline bool upperBound(Value& target, const Value& argument) {
  if (!argument.isArray() || argument.asArray()->vectorCount == 0) return false;
  target.setIntUncounted(Type::Long,
                         static_cast<std::int32_t>(argument.asArray()->vectorCount - 1));
  return true;
}

}  // namespace quorvane::vbs::plain_function
