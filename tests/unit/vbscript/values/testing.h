#pragma once

#include <gtest/gtest.h>

#include <string>

#include "vbscript/values/convert.h"
#include "vbscript/values/error.h"
#include "vbscript/values/text_locale.h"
#include "vbscript/values/value.h"

namespace quorvane {

namespace vbs::testing {

/// "Integer 5", "String abc", "Null": a value as tests compare it.
inline std::string show(const Value& value) {
  const std::string name(typeName(value));
  if (value.isNull() || value.isEmpty() || value.isObject() || value.isArray()) return name;
  return name + " " + toString(value).narrow();
}

/// The number of the script error that `action` throws, 0 when it throws none.
template <class Action>
int errorOf(Action action) {
  try {
    action();
  } catch (const ScriptError& error) {
    return error.number;
  }
  return 0;
}

}  // namespace vbs::testing

}  // namespace quorvane
