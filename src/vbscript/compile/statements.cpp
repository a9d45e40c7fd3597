#include <algorithm>

#include "vbscript/compile/compiler.h"

namespace quorvane::vbs {

void RoutineCompiler::compileBlock(const Block& block) {
  for (std::size_t i = 0; i < block.size();) {
    beginStatement(block[i]->position);
    const std::size_t next = compileConstantWrites(block, i);
    if (next == i) compileStatement(*block[i]);
    i = std::max(next, i + 1);
  }
}

void RoutineCompiler::compileStatement(const Statement& statement) {
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
      return assign(static_cast<const AssignStatement&>(statement));
    case StatementKind::Call: {
      const auto& call = static_cast<const CallStatement&>(statement);
      return compileCall(*call.callee, call.arguments, kNoRegister);
    }
    case StatementKind::If:
      return compileIf(static_cast<const IfStatement&>(statement));
    case StatementKind::Select:
      return compileSelect(static_cast<const SelectStatement&>(statement));
    case StatementKind::For:
      return compileFor(static_cast<const ForStatement&>(statement));
    case StatementKind::ForEach:
      return compileForEach(static_cast<const ForEachStatement&>(statement));
    case StatementKind::Do:
      return compileDo(static_cast<const DoStatement&>(statement));
    case StatementKind::Exit:
      return compileExit(static_cast<const ExitStatement&>(statement));
    case StatementKind::With:
      return compileWith(static_cast<const WithStatement&>(statement));
    case StatementKind::OnError:
      return emit(static_cast<const OnErrorStatement&>(statement).resumeNext
                      ? Opcode::OnErrorResumeNext
                      : Opcode::OnErrorGoToZero);
  }
}

/// An error in a condition continues in the block that it heads, because the next statement in
/// order of code is that block's first.
void RoutineCompiler::compileIf(const IfStatement& statement) {
  Label end;
  for (std::size_t i = 0; i < statement.branches.size(); ++i) {
    const auto& branch = statement.branches[i];
    Label next;
    beginStatement(branch.position);
    jumpOn(*branch.condition, false, next);
    compileBlock(branch.body);
    const bool isLast = i + 1 == statement.branches.size() && statement.otherwise.empty();
    beginStatement(branch.position);
    if (!isLast) jumpTo(end);
    place(next);
  }
  compileBlock(statement.otherwise);
  place(end);
  beginStatement(statement.position);
}

void RoutineCompiler::compileSelect(const SelectStatement& statement) {
  const std::uint16_t outside = hiddenInUse_;
  const Register subject = hidden();
  {
    const Temporaries temporaries(*this);
    const Register value = newTemporary();
    compileTo(*statement.subject, value);
    emit(Opcode::Plain, subject, value);
  }
  const std::size_t header = routine_.statements.size() - 1;
  Label end;
  for (std::size_t i = 0; i < statement.cases.size(); ++i) {
    const auto& choice = statement.cases[i];
    Label body;
    Label next;
    beginStatement(choice.position);
    for (const auto& value : choice.values) compileCaseTest(subject, *value, body);
    jumpTo(next);
    place(body);
    // A subject that fails goes on in the first block.
    if (i == 0) routine_.statements[header].resume = static_cast<std::uint32_t>(body.target);
    beginStatement(choice.position);
    compileBlock(choice.body);
    beginStatement(choice.position);
    jumpTo(end);
    place(next);
  }
  compileBlock(statement.otherwise);
  place(end);
  beginStatement(statement.position);
  emit(Opcode::Clear, subject);
  hiddenInUse_ = outside;
}

void RoutineCompiler::compileCaseTest(Register subject, const Expression& value, Label& body) {
  const Temporaries temporaries(*this);
  constexpr unsigned kWhenTrue = 1;
  if (const Value* constant = literal(value)) {
    const std::uint32_t index = constantIndex(*constant);
    if (index <= UINT16_MAX) {
      return emitFarJump(Opcode::JumpEqualConstant, subject, index, kWhenTrue, body);
    }
  }
  const Register r = operand(value);
  emitFarJump(Opcode::JumpEqual, subject, r, kWhenTrue, body);
}

/// The register of a loop's variable, or one that refers to it as long as the loop runs.
Register RoutineCompiler::loopVariable(const Identifier& name, SourcePosition) {
  const Binding& binding = bind(name);
  if (binding.kind == Binding::Kind::InRegister) return binding.index;
  const Register reference = hidden();
  switch (binding.kind) {
    case Binding::Kind::Global:
    case Binding::Kind::Field:
      refer(binding, reference);
      break;
    case Binding::Kind::Late:
      emitName(Opcode::LateRef, reference, binding.index, script_.optionExplicit(), name);
      break;
    default:
      emitThrow(ErrorCode::IllegalAssignment, name);
      break;
  }
  return reference;
}

/// A loop whose bounds fail runs its body once, and then finds its limit missing (error 92).
void RoutineCompiler::compileFor(const ForStatement& statement) {
  const std::uint16_t outside = hiddenInUse_;
  const Register limit = hidden();
  const Register step = hidden();
  Label body;
  Label exit;
  Register variable = kNoRegister;
  {
    const Temporaries temporaries(*this);
    emit(Opcode::Clear, limit);
    emit(Opcode::Clear, step);
    variable = loopVariable(statement.variable, statement.position);
    const Register from = newTemporary();
    compileTo(*statement.from, from);
    const Register last = newTemporary();
    compileTo(*statement.to, last);
    const bool fromRuns = facts_.runsDefault(*statement.from);
    const bool lastRuns = facts_.runsDefault(*statement.to);
    const bool stepRuns = statement.step && facts_.runsDefault(*statement.step);
    Register by = kNoRegister;
    if (statement.step) compileTo(*statement.step, by = newTemporary());
    // The values of objects in their order.
    if (fromRuns && (lastRuns || stepRuns)) emit(Opcode::Plain, from, from);
    if (lastRuns && stepRuns) emit(Opcode::Plain, last, last);
    if (statement.step) {
      emit(Opcode::Plain, step, by);
    } else {
      loadConstant(step, Value::integer(1));
    }
    emit(Opcode::Plain, limit, last);
    emitFarJump(Opcode::ForPrepare, variable, limit, from, exit);
  }
  loops_.push_back({ExitKind::For, &exit, outside});
  place(body);
  beginStatement(statement.position);
  compileBlock(statement.body);
  loops_.pop_back();
  beginStatement(statement.end);
  emitFarJump(Opcode::ForLoop, variable, limit, 0, body);
  place(exit);
  beginStatement(statement.end);
  hiddenInUse_ = outside;
}

void RoutineCompiler::compileForEach(const ForEachStatement& statement) {
  const std::uint16_t outside = hiddenInUse_;
  const Register walk = hidden();
  hidden();
  Label body;
  Label next;
  Label exit;
  Register variable = kNoRegister;
  {
    const Temporaries temporaries(*this);
    emit(Opcode::Clear, walk);
    variable = loopVariable(statement.variable, statement.position);
    const bool isPlace = scope_.variableOf(*statement.collection).has_value();
    const Register collection =
        isPlace ? placeOf(*statement.collection) : operandAsObject(*statement.collection);
    noteOperand(*statement.collection);
    emit(Opcode::ForEachPrepare, walk, collection, scope_.isOnlyRead(*statement.collection));
    jumpTo(next);
  }
  loops_.push_back({ExitKind::For, &exit, outside});
  place(body);
  beginStatement(statement.position);
  compileBlock(statement.body);
  loops_.pop_back();
  place(next);
  beginStatement(statement.end);
  emitFarJump(Opcode::ForEachNext, variable, walk, 0, body);
  place(exit);
  beginStatement(statement.end);
  emit(Opcode::Clear, walk);
  hiddenInUse_ = outside;
}

void RoutineCompiler::compileDo(const DoStatement& statement) {
  using Test = DoStatement::Test;
  Label body;
  Label test;
  Label exit;
  if (statement.test == Test::Before) jumpTo(test);
  if (!statement.isWhileWend) loops_.push_back({ExitKind::Do, &exit, hiddenInUse_});
  place(body);
  beginStatement(statement.position);
  const auto bodyStart = static_cast<std::uint32_t>(routine_.code.size());
  compileBlock(statement.body);
  if (!statement.isWhileWend) loops_.pop_back();
  place(test);
  beginStatement(statement.test == Test::Before ? statement.position : statement.end);
  if (statement.test == Test::None) {
    jumpTo(body);
  } else {
    // A test in the loop's head that fails goes on in the body.
    const std::size_t entry = routine_.statements.size() - 1;
    if (statement.test == Test::Before) {
      routine_.statements[entry].resume =
          bodyStart == routine_.statements[entry].start ? 0 : bodyStart;
    }
    jumpOn(*statement.condition, !statement.until, body);
  }
  place(exit);
  beginStatement(statement.end);
}

void RoutineCompiler::compileExit(const ExitStatement& statement) {
  if (statement.what != ExitKind::Do && statement.what != ExitKind::For) {
    return emit(scope_.isMain() ? Opcode::Halt : Opcode::Return);
  }
  for (auto loop = loops_.rbegin(); loop != loops_.rend(); ++loop) {
    if (loop->kind != statement.what) continue;
    // Blocks that are left give their objects up. The loop's own variables come first.
    constexpr std::uint16_t kLoopVariables = 3;
    const bool owns = loop->kind == ExitKind::For;
    const auto inner = static_cast<std::uint16_t>(loop->hiddenInUse + (owns ? kLoopVariables : 0));
    for (std::uint16_t i = inner; i < hiddenInUse_; ++i) {
      emit(Opcode::Clear, static_cast<unsigned>(firstHidden_ + i));
    }
    return jumpTo(*loop->exit);
  }
}

void RoutineCompiler::compileWith(const WithStatement& statement) {
  const std::uint16_t outside = hiddenInUse_;
  const Register object = hidden();
  {
    const Temporaries temporaries(*this);
    emit(Opcode::Clear, object);
    const Register value = operandAsObject(*statement.object);
    noteOperand(*statement.object);
    emit(Opcode::Hold, object, value);
  }
  withs_.push_back(object);
  compileBlock(statement.body);
  withs_.pop_back();
  beginStatement(statement.position);
  emit(Opcode::Clear, object);
  hiddenInUse_ = outside;
}

void RoutineCompiler::compileReDim(const ReDimStatement& statement) {
  for (const auto& resized : statement.targets) {
    const Temporaries temporaries(*this);
    const Register first = pushArguments(resized.bounds, Passing::Value, {});
    const Register array = placeOf(*resized.variable);
    noteOperand(*resized.variable);
    emit(statement.preserve ? Opcode::ReDimPreserve : Opcode::ReDim, array, first,
         static_cast<unsigned>(resized.bounds.size()));
  }
}

void RoutineCompiler::compileErase(const EraseStatement& statement) {
  for (const auto& erased : statement.targets) {
    const Temporaries temporaries(*this);
    std::vector<Register> locks;
    const Register array = placeAt(pushPath(*erased), locks);
    noteOperand(*erased);
    emit(Opcode::Erase, array);
    releaseLocks(locks);
  }
}

}  // namespace quorvane::vbs
