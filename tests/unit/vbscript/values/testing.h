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

/// A host whose clock stands still.
class StillHost : public Host {
 public:
  double now() override { return time; }
  double secondsSinceMidnight() override { return seconds; }
  std::chrono::steady_clock::time_point steadyNow() override { return {}; }
  Value createObject(std::string_view progId) override {
    throwError(ErrorCode::CannotCreateObject, progId);
  }
  Value getObject(std::string_view, std::string_view) override {
    throwError(ErrorCode::CannotCreateObject);
  }

  double time = 37986.5;  ///< 31 December 2003, noon
  double seconds = 43200.25;
};

}  // namespace vbs::testing

}  // namespace quorvane
