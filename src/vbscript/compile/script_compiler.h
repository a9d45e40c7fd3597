#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "vbscript/compile/binding.h"
#include "vbscript/compile/mentions.h"
#include "vbscript/compile/program.h"
#include "vbscript/syntax/parser.h"

namespace quorvane::vbs {

/// Compiles a whole text: owns what its names stand for at script level, which routines and classes
/// it declares, and how its code refers to names. Has each routine compiled by a RoutineCompiler of
/// its own. `program` is filled; `context` and `names` outlive it.
class ScriptCompiler {
 public:
  ScriptCompiler(Program& program, const CompileContext& context, const NameTable& names);

  void compile(const Script& script);
  void compileExpression(const Expression& expression);

  // What routines ask.
  Program& program() { return program_; }
  const CompileContext& context() const { return context_; }
  std::size_t nameCount() const { return nameCount_; }
  bool optionExplicit() const { return optionExplicit_; }
  /// Whether reading a member or an indexed variable may run code of the script: its classes have
  /// properties, and its variables may hold procedures.
  bool valuesRunCode() const { return valuesRunCode_; }
  bool lateNames() const { return lateNames_; }
  bool keepsVariableNames() const { return keepsVariableNames_; }
  /// What code that ran before has under the name, or null.
  const GlobalSymbol* knownSymbol(std::string_view lower) const;
  /// What `name` means outside any routine; Unresolved when it is not known.
  Binding resolve(const Identifier& name);
  /// Whether code that uses the name like this has a variable of its own all the same: what the
  /// library has can be hidden by one, and so can a member of the host's that takes no value.
  bool yieldsToVariable(const Binding& binding, const Identifier& name, std::uint8_t flags) const;
  std::uint32_t nameIndex(const Identifier& name);
  /// Of a text that only errors show.
  std::uint32_t nameIndex(std::string shown);
  bool isReplaceable() const { return lateNames_; }

 private:
  struct PendingRoutine {
    const Procedure* tree;
    Routine* routine;
    const ScriptClass* owner;
    Mentions mentions;
  };

  Routine& addRoutine(const Procedure& tree, const ScriptClass* owner);
  ScriptClass& addClass(const ClassDeclaration& tree);
  void addFields(ScriptClass& scriptClass, const ClassDeclaration& tree);
  void addClassProcedure(ScriptClass& scriptClass, const Procedure& procedure, Routine& routine);
  void declareRoutines(const Script& script);
  void declareVariables(const Mentions& mentions);
  void declareImplicit(const Mentions& mentions);
  void declare(const Identifier& name, GlobalSymbol symbol);
  std::uint16_t newSlot(SourcePosition position);
  void noteDynamicCode(const Mentions& mentions);
  void findReadOnlyParameters();
  bool removeWrittenThrough(PendingRoutine& pending);
  bool parameterIsReadOnly(const Identifier& callee, std::size_t position);
  Binding bindSymbol(const GlobalSymbol& symbol) const;
  /// What the host or the library has under the name.
  Binding resolveHost(std::string_view lower) const;
  static Binding resolveLibrary(std::string_view lower);
  void compileMain(const Block& body, const Mentions& mentions);

  Program& program_;
  const CompileContext& context_;
  std::size_t nameCount_;
  bool optionExplicit_ = false;
  bool lateNames_ = false;
  bool valuesRunCode_ = false;
  bool keepsVariableNames_ = false;
  std::vector<Binding> resolved_;           ///< by name
  std::vector<std::uint32_t> nameIndexes_;  ///< by name; 0: none yet, else index + 1
  NameMap<std::uint32_t> shownIndexes_;     ///< of texts that only errors show
  std::vector<PendingRoutine> pending_;
};

}  // namespace quorvane::vbs
