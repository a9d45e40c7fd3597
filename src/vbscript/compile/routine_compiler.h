#pragma once

#include "vbscript/compile/lowering.h"

namespace quorvane::vbs {

/// Compiles one routine: owns the order of the steps (names, frame, code, end) and all parts that
/// take them. Used once.
class RoutineCompiler {
 public:
  /// All three outlive it.
  RoutineCompiler(ScriptCompiler& script, Routine& routine, const Mentions& mentions);

  void compileProcedure(const Procedure& tree);
  void compileMain(const Block& body);
  /// Leaves the expression's value as the result.
  void compileMainExpression(const Expression& expression);

 private:
  void beginFrame(std::uint16_t variables, SourcePosition position);
  void dimArrays();
  void setOuterConstants();
  void finish(SourcePosition end);

  const Mentions& mentions_;
  Lowering parts_;
};

}  // namespace quorvane::vbs
