#pragma once

#include <optional>
#include <string_view>

#include "vbscript/library/functions.h"
#include "vbscript/values/error.h"
#include "vbscript/values/operand.h"

/// How intrinsic functions read their arguments; for their files only.
namespace quorvane::vbs::intrinsic {

/// Whether the argument was written.
inline bool given(Args args, std::size_t index) {
  return index < args.size() && !args[index].deref().isMissing();
}

inline std::int32_t longOr(Args args, std::size_t index, std::int32_t fallback) {
  return given(args, index) ? toLong(args[index]) : fallback;
}

inline bool booleanOr(Args args, std::size_t index, bool fallback) {
  return given(args, index) ? toBoolean(args[index]) : fallback;
}

/// The bytes of a text that holds one a character; nothing for all else. They live as long as the
/// argument.
inline std::optional<std::string_view> bytesOf(const Value& value) {
  const Value& direct = value.deref();
  if (!direct.isString()) return std::nullopt;
  const StringRep* const text = direct.stringRep();
  if (!text) return std::string_view();
  if (text->encoding != Encoding::Ansi) return std::nullopt;
  return std::string_view(text->data(), text->bytes);
}

/// A count or length: error 5 below zero.
inline std::size_t countAt(Args args, std::size_t index) {
  const std::int32_t count = toLong(args[index]);
  if (count < 0) throwError(ErrorCode::InvalidCall);
  return static_cast<std::size_t>(count);
}

/// The `compare` argument: true for vbTextCompare, error 5 for what is no mode.
inline bool ignoresCase(Args args, std::size_t index) {
  const std::int32_t mode = longOr(args, index, 0);
  if (mode != 0 && mode != 1) throwError(ErrorCode::InvalidCall);
  return mode == 1;
}

inline Value lengthValue(std::size_t length) {
  return Value::longInt(static_cast<std::int32_t>(length));
}

}  // namespace quorvane::vbs::intrinsic
