#pragma once

#include <concepts>
#include <string>
#include <vector>

#include "../values/testing.h"
#include "testing/fake_host.h"
#include "vbscript/library/library.h"

namespace quorvane {

namespace vbs::testing {

inline Value argument(Value value) {
  return value;
}
inline Value argument(const char* text) {
  return Value(text);
}
inline Value argument(bool truth) {
  return Value::boolean(truth);
}
inline Value argument(int number) {
  return Value::whole(number);
}
inline Value argument(double number) {
  return Value::number(number);
}

/// Calls intrinsic functions by name.
class LibraryTest : public ::testing::Test {
 protected:
  template <class... A>
  Value call(std::string_view name, A... arguments) {
    const Intrinsic* function = findIntrinsic(name);
    if (!function) throwError(ErrorCode::NotDefined, name);
    std::vector<Value> values{argument(arguments)...};
    return function->call(runtime_, values);
  }

  /// The result as show() gives it, or "error 5".
  template <class... A>
  std::string run(std::string_view name, A... arguments) {
    try {
      return show(call(name, arguments...));
    } catch (const ScriptError& error) {
      return "error " + std::to_string(error.number);
    }
  }

  FakeHost host_;
  TextScope scope_{host_};
  Runtime runtime_{host_, {}};
  const Value null_ = Value::null();
  const Value missing_ = Value::missing();
};

}  // namespace vbs::testing

}  // namespace quorvane
