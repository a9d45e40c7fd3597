#pragma once

#include <vector>

#include "vbscript/compile/routine_scope.h"

namespace quorvane::vbs {

/// What errors of a routine's code are told about: owns the table that says which stretch of code
/// belongs to which statement and where On Error Resume Next goes on, and the names that error
/// texts show. Every note is about the next instruction.
class ErrorNotes {
 public:
  ErrorNotes(ScriptCompiler& script, Routine& routine, const RoutineScope& scope)
      : script_(script), routine_(routine), scope_(scope) {}

  void beginStatement(SourcePosition position);
  /// The number of the statement begun last.
  std::size_t statement() const { return routine_.statements.size() - 1; }
  /// An error of that statement goes on there, and not in the next statement in order of code.
  void resumeAt(std::size_t statement, std::uint32_t position);

  /// Errors name this expression.
  void noteOperand(const Expression& expression);
  /// Errors name this array and the variable that is its only index.
  void noteElement(const Expression& array, const std::vector<ExpressionPtr>& indexes);

  /// Once all code is written.
  void finish();

 private:
  std::uint32_t position() const { return static_cast<std::uint32_t>(routine_.code.size()); }

  ScriptCompiler& script_;
  Routine& routine_;
  const RoutineScope& scope_;
};

}  // namespace quorvane::vbs
