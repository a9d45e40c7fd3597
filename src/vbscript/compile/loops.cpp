#include "vbscript/compile/loops.h"

#include <algorithm>

#include "vbscript/compile/lowering.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

/// The register of a loop's variable, or one that refers to it as long as the loop runs.
Register LoopLowering::loopVariable(const Identifier& name) {
  const Binding& binding = scope_.bind(name);
  if (binding.kind == Binding::Kind::InRegister) return binding.index;
  const Register reference = frame_.newHidden();
  if (binding.isVariable()) {
    parts_.places.refer(binding, reference);
  } else if (binding.kind == Binding::Kind::Late) {
    parts_.places.referLate(binding, name, reference);
  } else {
    code_.emitThrow(ErrorCode::IllegalAssignment, name);
  }
  return reference;
}

void LoopLowering::compileBody(const Block& body, ExitKind kind, Label& exit) {
  loops_.push_back({kind, &exit, frame_.hiddenInUse()});
  parts_.statements.compileBlock(body);
  loops_.pop_back();
}

// ---- For ----

/// Leaves the plain values of step and limit in their registers, and what the loop starts at in
/// `from`. Objects give their values in the order of the bounds.
void LoopLowering::pushBounds(const ForStatement& statement, Register from, Register limit,
                              Register step) {
  ExpressionLowering& expressions = parts_.expressions;
  expressions.compileTo(*statement.from, from);
  const Register last = frame_.newTemporary();
  expressions.compileTo(*statement.to, last);
  Register by = kNoRegister;
  if (statement.step) expressions.compileTo(*statement.step, by = frame_.newTemporary());
  const bool lastRuns = facts_.runsDefault(*statement.to);
  const bool stepRuns = statement.step && facts_.runsDefault(*statement.step);
  const bool fromRuns = facts_.runsDefault(*statement.from);
  if (fromRuns && (lastRuns || stepRuns)) code_.emit(Opcode::Plain, from, from);
  if (lastRuns && stepRuns) code_.emit(Opcode::Plain, last, last);
  if (statement.step) {
    code_.emit(Opcode::Plain, step, by);
  } else {
    code_.loadConstant(step, Value::integer(1));
  }
  code_.emit(Opcode::Plain, limit, last);
}

/// A loop whose bounds fail runs its body once, and then finds its limit missing (error 92).
void LoopLowering::compileFor(const ForStatement& statement) {
  const HiddenVariables hidden(frame_);
  const Register limit = frame_.newHidden();
  const Register step = frame_.newHidden();
  VBS_ASSERT(step == limit + 1);
  Label body;
  Label exit;
  code_.emit(Opcode::Clear, limit);
  code_.emit(Opcode::Clear, step);
  const Register variable = loopVariable(statement.variable);
  {
    const Temporaries temporaries(frame_);
    const Register from = frame_.newTemporary();
    pushBounds(statement, from, limit, step);
    code_.emitFarJump(Opcode::ForPrepare, variable, limit, from, exit);
  }
  code_.place(body);
  notes_.beginStatement(statement.position);
  compileBody(statement.body, ExitKind::For, exit);
  notes_.beginStatement(statement.end);
  code_.emitFarJump(statement.step ? Opcode::ForLoop : Opcode::ForNext, variable, limit, 0, body);
  code_.place(exit);
  notes_.beginStatement(statement.end);
}

void LoopLowering::compileForEach(const ForEachStatement& statement) {
  const HiddenVariables hidden(frame_);
  const Register walk = frame_.newHidden();
  frame_.newHidden();  // where it has come to
  Label body;
  Label next;
  Label exit;
  code_.emit(Opcode::Clear, walk);
  const Register variable = loopVariable(statement.variable);
  {
    const Temporaries temporaries(frame_);
    const Expression& walked = *statement.collection;
    const bool isPlace = scope_.variableOf(walked).has_value();
    const Register collection =
        isPlace ? parts_.places.placeOf(walked) : parts_.objects.operandAsObject(walked);
    notes_.noteOperand(walked);
    code_.emit(Opcode::ForEachPrepare, walk, collection, scope_.isOnlyRead(walked));
    code_.jumpTo(next);
  }
  code_.place(body);
  notes_.beginStatement(statement.position);
  compileBody(statement.body, ExitKind::For, exit);
  code_.place(next);
  notes_.beginStatement(statement.end);
  code_.emitFarJump(Opcode::ForEachNext, variable, walk, 0, body);
  code_.place(exit);
  notes_.beginStatement(statement.end);
  code_.emit(Opcode::Clear, walk);
}

// ---- Do ----

void LoopLowering::compileDo(const DoStatement& statement) {
  using Test = DoStatement::Test;
  Label body;
  Label test;
  Label exit;
  if (statement.test == Test::Before) code_.jumpTo(test);
  code_.place(body);
  notes_.beginStatement(statement.position);
  if (statement.isWhileWend) {
    parts_.statements.compileBlock(statement.body);  // no Exit leaves it
  } else {
    compileBody(statement.body, ExitKind::Do, exit);
  }
  code_.place(test);
  notes_.beginStatement(statement.test == Test::Before ? statement.position : statement.end);
  if (statement.test == Test::None) {
    code_.jumpTo(body);
  } else {
    // A test in the loop's head that fails goes on in the body.
    if (statement.test == Test::Before) notes_.resumeAt(notes_.statement(), body.target());
    parts_.comparisons.jumpOn(*statement.condition, !statement.until, body);
  }
  code_.place(exit);
  notes_.beginStatement(statement.end);
}

// ---- Exit ----

void LoopLowering::compileExit(const ExitStatement& statement) {
  if (statement.what != ExitKind::Do && statement.what != ExitKind::For) {
    return code_.leave(scope_.isMain());
  }
  const auto loop = std::find_if(loops_.rbegin(), loops_.rend(),
                                 [&](const Loop& around) { return around.kind == statement.what; });
  VBS_ASSERT(loop != loops_.rend());
  if (loop == loops_.rend()) return;
  // Blocks that are left give their objects up.
  for (std::uint16_t i = loop->hiddenOutside; i < frame_.hiddenInUse(); ++i) {
    code_.emit(Opcode::Clear, frame_.hiddenAt(i));
  }
  code_.jumpTo(*loop->exit);
}

}  // namespace quorvane::vbs
