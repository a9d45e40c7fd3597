#pragma once

#include <string>
#include <string_view>

#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

/// Arguments that a script may leave out, at the end or between commas.
namespace quorvane::arguments {

inline bool isGiven(vbs::Args args, std::size_t at) {
  return at < args.size() && !args[at].deref().isMissing();
}

inline std::int32_t number(vbs::Args args, std::size_t at, std::int32_t otherwise) {
  return isGiven(args, at) ? vbs::toLong(args[at]) : otherwise;
}

inline bool flag(vbs::Args args, std::size_t at, bool otherwise) {
  return isGiven(args, at) ? vbs::toBoolean(args[at]) : otherwise;
}

/// In the system's bytes, as file names and the like want it.
inline std::string text(vbs::Args args, std::size_t at, std::string_view otherwise = {}) {
  return isGiven(args, at) ? vbs::toString(args[at]).narrow() : std::string(otherwise);
}

/// The content of a byte array; lasts as long as the value. Error 5 for anything else.
inline std::string_view bytes(const vbs::Value& given) {
  const vbs::Value& value = given.deref();
  if (!value.isArray() || value.asArray()->elementType != vbs::Type::Byte) {
    vbs::throwError(vbs::ErrorCode::InvalidCall);
  }
  return value.asArray()->bytes.raw();
}

}  // namespace quorvane::arguments
