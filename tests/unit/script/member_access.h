#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "script/script_values.h"
#include "vbscript/values/object.h"

namespace quorvane {

/// Uses objects' members as a script would.

template <class... A>
std::vector<vbs::Value> values(A&&... args) {
  std::vector<vbs::Value> list;
  (list.emplace_back(std::forward<A>(args)), ...);
  return list;
}

inline vbs::Value get(vbs::Object& object, std::string_view member,
                      std::vector<vbs::Value> args = {}) {
  return object.invoke(object.findMember(member), vbs::CallKind::Get, args);
}

inline void put(vbs::Object& object, std::string_view member, std::vector<vbs::Value> args,
                vbs::CallKind kind = vbs::CallKind::Let) {
  object.invoke(object.findMember(member), kind, args);
}

inline std::string text(const vbs::Value& value) {
  return script_values::text(value);
}

inline std::string getText(vbs::Object& object, std::string_view member,
                           std::vector<vbs::Value> args = {}) {
  return text(get(object, member, std::move(args)));
}

/// The number of the script error that `run` ends with; 0 when it ends well.
template <class Run>
std::int32_t errorOf(Run run) {
  try {
    run();
  } catch (const vbs::ScriptError& error) {
    return error.number;
  }
  return 0;
}

}  // namespace quorvane
