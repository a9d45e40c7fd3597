#pragma once

#include <string>

#include "components/arguments.h"

/// Values of scripts as this family of objects takes and gives them: texts are UTF-8 inside.
namespace quorvane::ado {

using arguments::isGiven;

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
