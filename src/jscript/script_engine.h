#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/values/error.h"
#include "vbscript/values/object.h"

namespace quorvane::jscript {

/// One page's world of JScript, in which objects of the host can be used as in VBScript. Its time
/// and its memory are those of the run in progress. One thread only.
///
/// What the library does in one piece does not look at the time: an array of more than 4 million
/// elements has no use of its own functions but a loop (RangeError), and a match of a regular
/// expression fails after 50 million steps.
///
/// Whatever fails in a script comes out as a ScriptError; what ends the whole run (the time limit,
/// an object's EndOfRun) passes through as it is, and no `catch` of the script stops it.
class ScriptEngine {
 public:
  ScriptEngine();
  ~ScriptEngine();  ///< objects of the script that others still hold are empty then
  ScriptEngine(const ScriptEngine&) = delete;
  ScriptEngine& operator=(const ScriptEngine&) = delete;

  /// Makes an object known, as vbs::Engine::addObject() does.
  void addObject(std::string_view name, vbs::Object& object, bool globalMembers);

  /// Gives `names`, as far as objects made known have them and the script does not, these values.
  void findNames(const std::vector<std::string>& names);
  /// The same for a procedure of another language.
  void addProcedure(std::string_view name, const vbs::Value& procedure);
  /// The same for a variable: what reads it, and what writes it with one argument.
  void addVariable(std::string_view name, const vbs::Value& get, const vbs::Value& put);

  /// Throws what run() would throw for a text that is none; nothing of it runs.
  void compile(std::string_view code);
  /// Runs a text that madeReady() has seen.
  void run(std::string_view code);

  /// Uses a name of the script's global scope, as vbs::Object::invoke() uses a member.
  vbs::Value use(std::string_view name, vbs::CallKind kind, vbs::Args args);

  /// Where what failed last did, as a line of the text; 0: not known.
  std::uint32_t failedLine() const;

  class World;

 private:
  std::shared_ptr<World> world_;
};

/// Thrown for what is to be kept and ends with its page.
struct NotKept : vbs::ScriptError {};
/// Throws it for an object of a script, and for an array that holds one.
void requireKeepable(const vbs::Value& value);

/// Why a text does not compile, and at which of its lines (0: not known).
struct CompileFault {
  vbs::ScriptError error;
  std::uint32_t line = 0;
};
/// Nothing where it does.
std::optional<CompileFault> findFault(std::string_view code);

}  // namespace quorvane::jscript
