#include "vbscript/compile/routine_compiler.h"

#include "vbscript/compile/script_compiler.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

LoweringPart::LoweringPart(Lowering& parts)
    : parts_(parts),
      script_(parts.script),
      routine_(parts.routine),
      scope_(parts.scope),
      facts_(parts.facts),
      frame_(parts.frame),
      code_(parts.code),
      notes_(parts.notes) {}

Lowering::Lowering(ScriptCompiler& scriptCompiler, Routine& target, const Mentions& mentions)
    : script(scriptCompiler),
      routine(target),
      scope(script, routine, mentions),
      facts(scope),
      frame(routine),
      code(script, routine),
      notes(script, routine, scope),
      expressions(*this),
      comparisons(*this),
      concatenations(*this),
      appends(*this),
      objects(*this),
      places(*this),
      arguments(*this),
      calls(*this),
      assignments(*this),
      loops(*this),
      statements(*this) {}

RoutineCompiler::RoutineCompiler(ScriptCompiler& script, Routine& routine, const Mentions& mentions)
    : mentions_(mentions), parts_(script, routine, mentions) {}

void RoutineCompiler::compileProcedure(const Procedure& tree) {
  parts_.scope.declareProcedure(tree);
  beginFrame(parts_.scope.variableCount(), tree.position);
  for (const auto& [global, reference] : parts_.scope.standIns()) {
    parts_.code.emit(Opcode::RefGlobal, reference, global);
  }
  dimArrays();
  parts_.statements.compileBlock(tree.body);
  finish(tree.end);
}

void RoutineCompiler::compileMain(const Block& body) {
  parts_.scope.declareMain();
  beginFrame(parts_.scope.isMain() ? kMaxGlobals : parts_.scope.variableCount(), {1, 1});
  dimArrays();
  if (parts_.script.context().outer) setOuterConstants();
  parts_.statements.compileBlock(body);
  finish({1, 1});
}

void RoutineCompiler::compileMainExpression(const Expression& expression) {
  parts_.scope.declareExpression();
  beginFrame(parts_.scope.variableCount(), expression.position);
  {
    const FrameLayout::Temporaries temporaries(parts_.frame);
    const Register value = parts_.frame.newTemporary();
    parts_.expressions.compileTo(expression, value);
    parts_.code.emit(Opcode::Hold, parts_.routine.result, value);
  }
  finish(expression.position);
}

void RoutineCompiler::beginFrame(std::uint16_t variables, SourcePosition position) {
  parts_.frame.begin(variables, mentions_.hiddenVariables());
  // Global variables keep what earlier runs left.
  Routine& routine = parts_.routine;
  routine.firstCleared = parts_.scope.isMain() ? kMaxGlobals : routine.parameterCount;
  parts_.notes.beginStatement(position);
}

/// Arrays declared with bounds exist from the start: Dim does nothing where it stands.
void RoutineCompiler::dimArrays() {
  FrameLayout& frame = parts_.frame;
  for (const auto* variable : mentions_.declarations()) {
    if (!variable->isArray) continue;
    const FrameLayout::Temporaries temporaries(frame);
    const Register target =
        parts_.places.placeOfName(parts_.scope.bind(variable->name), variable->name);
    const Register first = frame.nextTemporary();
    for (const std::int32_t bound : variable->bounds) {
      parts_.code.loadConstant(frame.newTemporary(), Value::whole(bound));
    }
    parts_.code.emit(Opcode::DimArray, target, first,
                     static_cast<unsigned>(variable->bounds.size()));
  }
}

/// What Const declares in a text that runs within a routine stays known to that routine.
void RoutineCompiler::setOuterConstants() {
  for (const auto* constant : mentions_.constants()) {
    parts_.code.loadConstant(parts_.scope.bind(constant->name).index, constant->value);
  }
}

void RoutineCompiler::finish(SourcePosition end) {
  VBS_ASSERT(parts_.frame.isClear() && parts_.frame.hiddenInUse() == 0);
  parts_.notes.beginStatement(end);
  parts_.code.finish(parts_.scope.isMain());
  parts_.notes.finish();
  Routine& routine = parts_.routine;
  routine.cost = static_cast<std::int32_t>(1 + routine.registerCount / Routine::kRegistersPerCall);
  const bool clearsMore = routine.firstTemporary > routine.firstCleared + Routine::kClearedAlways;
  routine.isLarge = routine.cost > 1 || clearsMore;
}

}  // namespace quorvane::vbs
