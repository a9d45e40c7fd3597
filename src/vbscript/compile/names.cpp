#include <algorithm>

#include "vbscript/compile/compiler.h"
#include "vbscript/syntax/compile_errors.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

namespace {

constexpr auto kOutOfMemory = static_cast<std::int32_t>(CompileErrorCode::OutOfMemory);

}  // namespace

RoutineCompiler::RoutineCompiler(ScriptCompiler& script, Routine& routine, const Mentions& mentions)
    : script_(script),
      routine_(routine),
      mentions_(mentions),
      scope_(script, routine, mentions),
      facts_(scope_) {}

// ---- The frame ----

void RoutineCompiler::compileProcedure(const Procedure& tree) {
  scope_.declareProcedure(tree);
  beginFrame(scope_.variableCount());
  beginStatement(tree.position);
  dimArrays();
  compileBlock(tree.body);
  finish(tree.end);
}

void RoutineCompiler::compileMain(const Block& body) {
  scope_.declareMain();
  beginFrame(scope_.isMain() ? kMaxGlobals : scope_.variableCount());
  beginStatement({1, 1});
  dimArrays();
  if (script_.context().outer) setOuterConstants();
  compileBlock(body);
  finish({1, 1});
}

void RoutineCompiler::compileMainExpression(const Expression& expression) {
  scope_.declareExpression();
  beginFrame(scope_.variableCount());
  beginStatement(expression.position);
  const Temporaries temporaries(*this);
  const Register value = newTemporary();
  compileTo(expression, value);
  emit(Opcode::Hold, routine_.result, value);
  finish(expression.position);
}

/// What Const declares in a text that runs within a routine stays known to that routine.
void RoutineCompiler::setOuterConstants() {
  for (const auto* constant : mentions_.constants()) {
    loadConstant(bind(constant->name).index, constant->value);
  }
}

void RoutineCompiler::beginFrame(std::uint16_t firstHidden) {
  firstHidden_ = firstHidden;
  routine_.firstTemporary = static_cast<std::uint16_t>(firstHidden + mentions_.hiddenVariables());
  // Global variables keep what earlier runs left.
  routine_.firstCleared = scope_.isMain() ? kMaxGlobals : routine_.parameterCount;
  nextTemporary_ = routine_.firstTemporary;
  routine_.registerCount = nextTemporary_;
}

Register RoutineCompiler::newTemporary() {
  if (nextTemporary_ + 1 >= kNoRegister) failCompile(kOutOfMemory, {1, 1});
  const auto r = static_cast<Register>(nextTemporary_++);
  routine_.registerCount = std::max(routine_.registerCount, nextTemporary_);
  return r;
}

Register RoutineCompiler::hidden() {
  return static_cast<Register>(firstHidden_ + hiddenInUse_++);
}

/// Arrays declared with bounds exist from the start: Dim does nothing where it stands.
void RoutineCompiler::dimArrays() {
  for (const auto* variable : mentions_.declarations()) {
    if (!variable->isArray) continue;
    const Temporaries temporaries(*this);
    const Binding& binding = bind(variable->name);
    Register target = binding.index;
    if (binding.kind == Binding::Kind::Global) {
      target = newTemporary();
      emit(Opcode::RefGlobal, target, binding.index);
    }
    const auto first = static_cast<Register>(nextTemporary_);
    for (const std::int32_t bound : variable->bounds) {
      loadConstant(newTemporary(), Value::whole(bound));
    }
    emit(Opcode::DimArray, target, first, static_cast<unsigned>(variable->bounds.size()));
  }
}

void RoutineCompiler::finish(SourcePosition end) {
  beginStatement(end);
  emit(scope_.isMain() ? Opcode::Halt : Opcode::Return);
  auto& statements = routine_.statements;
  for (std::size_t i = 0; i < statements.size(); ++i) {
    if (statements[i].resume != 0) continue;
    statements[i].resume = i + 1 < statements.size()
                               ? statements[i + 1].start
                               : static_cast<std::uint32_t>(routine_.code.size() - 1);
  }
}

// ---- Code ----

void RoutineCompiler::beginStatement(SourcePosition position) {
  const auto at = static_cast<std::uint32_t>(routine_.code.size());
  auto& statements = routine_.statements;
  if (!statements.empty() && statements.back().start == at && statements.back().resume == 0) {
    statements.back().position = position;
    return;
  }
  statements.push_back({at, 0, position});
}

void RoutineCompiler::emit(Opcode op, unsigned a, unsigned b, unsigned c) {
  VBS_ASSERT(a <= UINT16_MAX && b <= UINT16_MAX && c <= UINT16_MAX);
  Instruction code;
  code.op = op;
  code.a = static_cast<std::uint16_t>(a);
  code.b = static_cast<std::uint16_t>(b);
  code.c = static_cast<std::uint16_t>(c);
  code.temporaries =
      static_cast<std::uint8_t>((isTemporary(code.a) ? 1 : 0) | (isTemporary(code.b) ? 2 : 0) |
                                (isTemporary(code.c) ? 4 : 0));
  routine_.code.push_back(code);
}

void RoutineCompiler::emitName(Opcode op, unsigned a, unsigned b, unsigned c,
                               const Identifier& name) {
  emit(op, a, b, c);
  emitWord(Instruction::fromPair(script_.nameIndex(name), 0));
}

void RoutineCompiler::emitMember(Opcode op, unsigned a, unsigned b, unsigned c,
                                 const Identifier& name) {
  MemberCache& cache = routine_.caches.emplace_back();
  cache.name = script_.nameIndex(name);
  emitPointer(op, a, b, c, &cache);
}

void RoutineCompiler::emitPointer(Opcode op, unsigned a, unsigned b, unsigned c,
                                  const void* pointer) {
  emit(op, a, b, c);
  emitWord(Instruction::fromPointer(pointer));
}

void RoutineCompiler::emitThrow(ErrorCode code, const Identifier& name) {
  emitName(Opcode::Throw, static_cast<unsigned>(code), 0, 0, name);
}

void RoutineCompiler::emitWideJump(Opcode op, unsigned a, Label& label) {
  const auto at = static_cast<std::uint32_t>(routine_.code.size());
  emit(op, a);
  label.jumps.push_back(at);
  if (label.target >= 0) patch(at, label.target);
}

void RoutineCompiler::emitFarJump(Opcode op, unsigned a, unsigned b, unsigned c, Label& label) {
  const auto at = static_cast<std::uint32_t>(routine_.code.size());
  emit(op, a, b, c);
  emitWord({});
  label.jumps.push_back(at);
  if (label.target >= 0) patch(at, label.target);
}

void RoutineCompiler::place(Label& label) {
  VBS_ASSERT(label.target < 0);
  label.target = static_cast<std::int64_t>(routine_.code.size());
  for (const std::uint32_t at : label.jumps) patch(at, label.target);
}

void RoutineCompiler::patch(std::uint32_t at, std::int64_t target) {
  Instruction& jump = routine_.code[at];
  const auto distance = static_cast<std::uint32_t>(target - at);
  if (jump.op == Opcode::Jump || jump.op == Opcode::JumpIf || jump.op == Opcode::JumpUnless) {
    jump.b = static_cast<std::uint16_t>(distance);
    jump.c = static_cast<std::uint16_t>(distance >> 16);
  } else {
    routine_.code[at + 1] = Instruction::fromPair(distance, 0);
  }
}

std::uint32_t RoutineCompiler::constantIndex(const Value& value) {
  auto& constants = routine_.constants;
  // Only a short look back: most repetition is close by, and long scripts stay cheap to compile.
  const std::size_t first = constants.size() > 16 ? constants.size() - 16 : 0;
  for (std::size_t i = constants.size(); i-- > first;) {
    const Value& known = constants[i];
    if (known.type() != value.type()) continue;
    const bool same = value.isString() ? known.stringRep() == value.stringRep() ||
                                             known.asString() == value.asString()
                      : value.isObject() ? known.asObject() == value.asObject()
                                         : known.asCurrency() == value.asCurrency();
    if (same && !value.isArray()) return static_cast<std::uint32_t>(i);
  }
  constants.push_back(value);
  return static_cast<std::uint32_t>(constants.size() - 1);
}

void RoutineCompiler::loadConstant(Register target, const Value& value) {
  if (value.is(Type::Integer)) {
    return emit(Opcode::LoadInteger, target, static_cast<std::uint16_t>(value.asInt()));
  }
  const std::uint32_t index = constantIndex(value);
  if (index <= UINT16_MAX) return emit(Opcode::LoadConstant, target, index);
  emit(Opcode::LoadFarConstant, target, index & 0xFFFF, index >> 16);
}

namespace {

/// How error texts show an expression: `a.b(...).c`; nothing when it does not begin with a name.
std::string shownText(const Expression& expression) {
  switch (expression.kind) {
    case ExpressionKind::Name:
      return std::string(static_cast<const NameExpression&>(expression).name.text);
    case ExpressionKind::Me:
      return "Me";
    case ExpressionKind::Member: {
      const auto& member = static_cast<const MemberExpression&>(expression);
      std::string text = member.object ? shownText(*member.object) : std::string();
      if (!text.empty()) text += '.';
      return text.append(member.name.text);
    }
    case ExpressionKind::Call: {
      std::string text = shownText(*static_cast<const CallExpression&>(expression).callee);
      return text.empty() ? text : text + "(...)";
    }
    default:
      return {};
  }
}

}  // namespace

/// The next instruction's errors name this expression.
void RoutineCompiler::noteOperand(const Expression& expression) {
  const auto at = static_cast<std::uint32_t>(routine_.code.size());
  if (expression.kind == ExpressionKind::Name) {
    const Identifier& name = static_cast<const NameExpression&>(expression).name;
    routine_.operandNames.push_back({at, script_.nameIndex(name)});
    return;
  }
  constexpr std::size_t kLongestShown = 255;
  std::string text = shownText(expression);
  if (text.empty() || text.size() > kLongestShown) return;
  routine_.operandNames.push_back({at, script_.nameIndex(std::move(text))});
}

/// The next instruction's errors name this array and the variable that is its only index.
void RoutineCompiler::noteElement(const Expression& array,
                                  const std::vector<ExpressionPtr>& indexes) {
  noteOperand(array);
  const Binding* index = indexes.size() == 1 && indexes[0] ? bindName(*indexes[0]) : nullptr;
  if (!index || !index->isVariable()) return;
  auto& names = routine_.operandNames;
  const auto at = static_cast<std::uint32_t>(routine_.code.size());
  if (names.empty() || names.back().start != at) names.push_back({at});
  names.back().index = script_.nameIndex(static_cast<const NameExpression&>(*indexes[0]).name);
}

}  // namespace quorvane::vbs
