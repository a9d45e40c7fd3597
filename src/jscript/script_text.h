#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::jscript {

/// A JScript text made ready to run, line for line as it was:
///
///     Session("a") = 1        ->  Session[qv$key("", "a")] = 1
///     list.Item(2) = 1        ->  list[qv$key("Item", 2)] = 1
///     list.Item(2)            ->  list[qv$call("Item")](2)
///     with (list) Item(2)     ->  with (list) (qv$call("Item")&&Item(2))
///
/// The first two are no assignments to the language that runs it; by the others an object of the
/// host learns whether a member is read or called.
struct ScriptText {
  std::string code;                   ///< UTF-8
  std::vector<std::string> declared;  ///< functions and variables at script level
  std::vector<std::string> free;      ///< names that it uses and nowhere declares
};

/// `source` is UTF-8. Whatever it is, there is a text: faults are left to the compiler.
ScriptText madeReady(std::string_view source);

/// The components that a text made ready creates by names written out.
std::vector<std::string> createdComponents(std::string_view code);

}  // namespace quorvane::jscript
