#include "vbscript/compile/statements.h"

#include <algorithm>

#include "vbscript/compile/lowering.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

void StatementLowering::compileBlock(const Block& block) {
  for (std::size_t i = 0; i < block.size();) {
    notes_.beginStatement(block[i]->position);
    const std::size_t next = parts_.concatenations.compileConstantWrites(block, i);
    if (next == i) compileStatement(*block[i]);
    VBS_ASSERT(frame_.isClear());
    i = std::max(next, i + 1);
  }
}

void StatementLowering::compileStatement(const Statement& statement) {
  switch (statement.kind) {
    case StatementKind::Dim:
    case StatementKind::Const:
    case StatementKind::Stop:
      return;
    case StatementKind::ReDim:
      return compileReDim(static_cast<const ReDimStatement&>(statement));
    case StatementKind::Erase:
      return compileErase(static_cast<const EraseStatement&>(statement));
    case StatementKind::Assign:
      return parts_.assignments.assign(static_cast<const AssignStatement&>(statement));
    case StatementKind::Call: {
      const auto& call = static_cast<const CallStatement&>(statement);
      return parts_.calls.compileCall(*call.callee, call.arguments, kNoRegister);
    }
    case StatementKind::If:
      return compileIf(static_cast<const IfStatement&>(statement));
    case StatementKind::Select:
      return compileSelect(static_cast<const SelectStatement&>(statement));
    case StatementKind::For:
      return parts_.loops.compileFor(static_cast<const ForStatement&>(statement));
    case StatementKind::ForEach:
      return parts_.loops.compileForEach(static_cast<const ForEachStatement&>(statement));
    case StatementKind::Do:
      return parts_.loops.compileDo(static_cast<const DoStatement&>(statement));
    case StatementKind::Exit:
      return parts_.loops.compileExit(static_cast<const ExitStatement&>(statement));
    case StatementKind::With:
      return parts_.objects.compileWithBlock(static_cast<const WithStatement&>(statement));
    case StatementKind::OnError:
      return code_.emit(static_cast<const OnErrorStatement&>(statement).resumeNext
                            ? Opcode::OnErrorResumeNext
                            : Opcode::OnErrorGoToZero);
  }
}

/// An error in a condition continues in the block that it heads, because the next statement in
/// order of code is that block's first.
void StatementLowering::compileIf(const IfStatement& statement) {
  Label end;
  for (std::size_t i = 0; i < statement.branches.size(); ++i) {
    const auto& branch = statement.branches[i];
    Label next;
    notes_.beginStatement(branch.position);
    parts_.comparisons.jumpOn(*branch.condition, false, next);
    compileBlock(branch.body);
    const bool isLast = i + 1 == statement.branches.size() && statement.otherwise.empty();
    notes_.beginStatement(branch.position);
    if (!isLast) code_.jumpTo(end);
    code_.place(next);
  }
  compileBlock(statement.otherwise);
  code_.place(end);
  notes_.beginStatement(statement.position);
}

void StatementLowering::compileSelect(const SelectStatement& statement) {
  const HiddenVariables hidden(frame_);
  const Register subject = frame_.newHidden();
  {
    const Temporaries temporaries(frame_);
    const Register value = frame_.newTemporary();
    parts_.expressions.compileTo(*statement.subject, value);
    code_.emit(Opcode::Plain, subject, value);
  }
  const std::size_t header = notes_.statement();
  Label end;
  for (const auto& choice : statement.cases) {
    Label body;
    Label next;
    notes_.beginStatement(choice.position);
    for (const auto& value : choice.values) {
      const bool isLast = &value == &choice.values.back();
      parts_.comparisons.jumpOnCase(subject, *value, !isLast, isLast ? next : body);
    }
    code_.place(body);
    notes_.beginStatement(choice.position);
    compileBlock(choice.body);
    notes_.beginStatement(choice.position);
    code_.jumpTo(end);
    code_.place(next);
  }
  compileBlock(statement.otherwise);
  code_.place(end);
  notes_.resumeAt(header, end.target());  // no block runs when the subject fails
  notes_.beginStatement(statement.position);
  code_.emit(Opcode::Clear, subject);
}

void StatementLowering::compileReDim(const ReDimStatement& statement) {
  for (const auto& resized : statement.targets) {
    const Temporaries temporaries(frame_);
    const Register first = parts_.arguments.pushArguments(resized.bounds, Passing::Value);
    const Register array = parts_.places.placeOf(*resized.variable);
    notes_.noteOperand(*resized.variable);
    code_.emit(statement.preserve ? Opcode::ReDimPreserve : Opcode::ReDim, array, first,
               static_cast<unsigned>(resized.bounds.size()));
  }
}

void StatementLowering::compileErase(const EraseStatement& statement) {
  for (const auto& erased : statement.targets) {
    const Temporaries temporaries(frame_);
    std::vector<Register> locks;
    const Register array = parts_.places.placeAt(parts_.places.pushPath(*erased), locks);
    notes_.noteOperand(*erased);
    code_.emit(Opcode::Erase, array);
    parts_.places.releaseLocks(locks);
  }
}

}  // namespace quorvane::vbs
