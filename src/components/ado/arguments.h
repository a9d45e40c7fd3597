#pragma once

#include <cstdint>
#include <string>

#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

/// Arguments as members of many optional ones see them.
namespace quorvane::ado {

inline bool isGiven(vbs::Args args, std::size_t place) {
  return place < args.size() && !args[place].deref().isMissing();
}

inline std::int32_t longAt(vbs::Args args, std::size_t place, std::int32_t otherwise) {
  return isGiven(args, place) ? vbs::toLong(args[place]) : otherwise;
}

inline std::string utf8Of(const vbs::Value& value) {
  return vbs::toString(value).utf8();
}

inline vbs::Value textValue(std::string_view utf8) {
  return vbs::Value(vbs::String::fromUtf8(utf8));
}

/// The object of a class, or null.
template <class T>
T* objectOf(const vbs::Value& value) {
  const vbs::Value& plain = value.deref();
  return plain.isObject() ? dynamic_cast<T*>(plain.asObject()) : nullptr;
}

}  // namespace quorvane::ado
