#pragma once

#include <optional>
#include <vector>

#include "vbscript/compile/binding.h"
#include "vbscript/compile/mentions.h"
#include "vbscript/compile/script_class.h"

namespace quorvane::vbs {

class ScriptCompiler;

/// What the names in one routine stand for. Owns the meaning of every name that the routine
/// mentions and gives its variables their registers, all before any code is made; afterwards it
/// only answers. `script`, `routine` and `mentions` outlive it.
class RoutineScope {
 public:
  RoutineScope(ScriptCompiler& script, Routine& routine, const Mentions& mentions);

  // One of these, once.
  void declareProcedure(const Procedure& tree);
  void declareMain();
  void declareExpression();

  /// Whether the variables are the engine's globals.
  bool isMain() const { return isMain_; }
  std::uint16_t variableCount() const { return variableCount_; }
  bool valuesRunCode() const;

  // Names.
  const Binding& bind(const Identifier& name) const { return bindings_[name.id]; }
  /// Null for what is no name.
  const Binding* bindName(const Expression& expression) const;
  /// What an expression stands for that is a variable or, with or without Me, a field of the class.
  std::optional<Binding> variableOf(const Expression& expression) const;
  /// The value of a literal or constant, or null.
  const Value* literal(const Expression& expression) const;
  /// The member of the class being compiled that `Me.member` is, or null.
  const ClassMember* ownMember(const MemberExpression& member) const;
  /// The object of the host whose member this is, or null.
  const Binding* hostObjectOf(const MemberExpression& member) const;
  MemberId hostMember(const Binding& object, const Identifier& name) const;

  /// The variable of the routine that refers to a global one as long as the routine runs, or
  /// kNoRegister. Globals whose elements a loop uses have one.
  Register standIn(const Binding& global) const;
  struct StandIn {
    Register global;
    Register reference;
  };
  const std::vector<StandIn>& standIns() const { return standIns_; }

  // Variables.
  /// Whether code outside the routine can reach the variable while the routine runs. A parameter
  /// may stand for any variable of its callers.
  bool isShared(const Binding& variable) const;
  /// Whether this is the result of the function, whose name with parentheses is a call.
  bool isResult(const Binding& binding) const;
  /// Whether the expression is a local variable that the routine never writes or passes on.
  bool isOnlyRead(const Expression& expression) const;
  /// Whether the argument is an element of a variable, as calls get by reference.
  bool passesElement(const Expression& argument) const;

 private:
  void declareParameters(const Procedure& tree);
  void declareOuterVariables();
  void declareVariables();
  void declareConstants();
  Binding resolveUndeclared(const Identifier& name);
  void addVariable(const Identifier& name, Binding::Kind kind = Binding::Kind::InRegister);
  void addStandIns();

  ScriptCompiler& script_;
  Routine& routine_;
  const Mentions& mentions_;
  std::vector<Binding> bindings_;  ///< by name
  std::vector<StandIn> standIns_;
  std::uint16_t variableCount_ = 0;
  Register outerResult_ = kNoRegister;  ///< result of the function around an Execute or Eval
  bool isMain_ = false;
};

}  // namespace quorvane::vbs
