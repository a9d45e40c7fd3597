#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vbscript/compile/bytecode.h"
#include "vbscript/compile/script_class.h"

namespace quorvane::vbs {

/// A table of names that can be asked with views.
struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const {
    return std::hash<std::string_view>()(name);
  }
};
template <class T>
using NameMap = std::unordered_map<std::string, T, NameHash, std::equal_to<>>;

/// A name at script level.
struct GlobalSymbol {
  enum class Kind : std::uint8_t { Variable, Constant, Routine, Class };
  Kind kind = Kind::Variable;
  bool isLocal = false;  ///< a class from a text that ran within a routine: the next may replace it
  std::uint16_t slot = 0;
  const vbs::Routine* routine = nullptr;
  const ScriptClass* scriptClass = nullptr;
  Value constant;
};

/// A name as scripts wrote it and as it is compared.
struct Name {
  std::string text;
  std::string lower;
};

/// An object published under a name.
struct HostObject {
  std::string lower;
  Object* object = nullptr;
  bool globalMembers = false;
};
using HostObjects = std::span<const HostObject>;

/// A compiled script. Fixed once made but for what its routines learn while they run, the look-up
/// caches and operations that become others (see docs/engine.md); all engines that
/// run it live on one thread.
class Program {
 public:
  std::string source;
  std::vector<std::unique_ptr<Routine>> routines;  ///< the first is the main code
  std::vector<std::unique_ptr<ScriptClass>> classes;
  std::vector<Name> names;        ///< that instructions refer to
  NameMap<GlobalSymbol> globals;  ///< that this script adds
  std::uint16_t globalsEnd = 0;   ///< first slot behind all globals known to it
  bool definesCode = false;       ///< has routines or classes that later code may use

  const Routine& main() const { return *routines.front(); }
};

/// The names at script level of all programs that an engine has run, the latest first.
class GlobalNames {
 public:
  void add(const Program& program);  ///< which outlives this
  const GlobalSymbol* find(std::string_view lower) const;

 private:
  const Program* first_ = nullptr;  ///< its own table serves: most runs have no other
  NameMap<const GlobalSymbol*> later_;
};

/// What surrounds a text that is compiled.
struct CompileContext {
  HostObjects host;
  const GlobalNames* known = nullptr;  ///< null: nothing has run yet
  std::uint16_t firstSlot = 0;         ///< for new globals
  const Routine* outer = nullptr;      ///< Execute and Eval: the routine they stand in
  bool inGlobalScope = true;           ///< new variables are globals
  bool asRoutine = false;              ///< runs above other code: globals are not registers
};

/// Throws CompileError.
std::shared_ptr<Program> compileScript(std::string_view source, const CompileContext& context);
/// The main code leaves the expression's value as its result. Throws CompileError.
std::shared_ptr<Program> compileExpression(std::string_view source, const CompileContext& context);

}  // namespace quorvane::vbs
