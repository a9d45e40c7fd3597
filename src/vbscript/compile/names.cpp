#include <algorithm>

#include "vbscript/compile/compiler.h"
#include "vbscript/syntax/compile_errors.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

namespace {

constexpr auto kOutOfMemory = static_cast<std::int32_t>(CompileErrorCode::OutOfMemory);
constexpr auto kNameRedefined = static_cast<std::int32_t>(CompileErrorCode::NameRedefined);

}  // namespace

RoutineCompiler::RoutineCompiler(ScriptCompiler& script, Routine& routine, const Mentions& mentions)
    : script_(script), routine_(routine), mentions_(mentions), bindings_(script.nameCount()) {}

// ---- The frame ----

void RoutineCompiler::compileProcedure(const Procedure& tree) {
  declareParameters(tree);
  declareVariables();
  beginFrame(variableCount_);
  beginStatement(tree.position);
  dimArrays();
  compileBlock(tree.body);
  finish(tree.end);
}

void RoutineCompiler::compileMain(const Block& body) {
  isMain_ = !script_.context().asRoutine;
  routine_.isGlobalScope = script_.context().inGlobalScope;
  if (script_.context().outer) declareOuterVariables();
  declareVariables();
  beginFrame(isMain_ ? kMaxGlobals : variableCount_);
  beginStatement({1, 1});
  dimArrays();
  if (script_.context().outer) setOuterConstants();
  compileBlock(body);
  finish({1, 1});
}

void RoutineCompiler::compileMainExpression(const Expression& expression) {
  routine_.isGlobalScope = !script_.context().outer;
  if (script_.context().outer) declareOuterVariables();
  routine_.result = variableCount_++;
  declareVariables();
  beginFrame(variableCount_);
  beginStatement(expression.position);
  const Temporaries temporaries(*this);
  const Register value = newTemporary();
  compileTo(expression, value);
  emit(Opcode::Hold, routine_.result, value);
  finish(expression.position);
}

void RoutineCompiler::addVariable(const Identifier& name) {
  Binding& binding = bindings_[name.id];
  binding = Binding();
  binding.kind = Binding::Kind::Register;
  binding.index = variableCount_++;
  if (script_.keepsVariableNames()) {
    routine_.variables.push_back({std::string(name.lower), binding.index});
  }
}

void RoutineCompiler::declareParameters(const Procedure& tree) {
  for (const auto& parameter : tree.parameters) addVariable(parameter.name);
  if (routine_.owner) routine_.me = variableCount_++;
  if (tree.kind != ProcedureKind::Function && tree.kind != ProcedureKind::PropertyGet) return;
  if (bindings_[tree.name.id].kind == Binding::Kind::Register) {
    routine_.result = variableCount_++;  // a parameter hides the function's name
    return;
  }
  addVariable(tree.name);
  routine_.result = bindings_[tree.name.id].index;
}

/// The variables of the routine around an Execute or Eval come in as references: the registers
/// from 0 on, in the order of `parameters`, which the machine reads.
void RoutineCompiler::declareOuterVariables() {
  const Routine& outer = *script_.context().outer;
  for (const Identifier* name : mentions_.names()) {
    const auto found =
        std::find_if(outer.variables.begin(), outer.variables.end(),
                     [&](const Routine::Variable& v) { return v.lower == name->lower; });
    constexpr unsigned kDeclares = Mentions::kDeclared | Mentions::kConstant;
    const bool declares = (mentions_.flags(name->id) & kDeclares) != 0;
    const bool isNew = found == outer.variables.end();
    if (isNew && !declares && resolveUndeclared(*name).kind != Binding::Kind::Register) continue;
    addVariable(*name);
    routine_.parameters.push_back({std::string(name->lower), false, false});
    if (!isNew && found->index == outer.result) outerResult_ = bindings_[name->id].index;
  }
  routine_.parameterCount = variableCount_;
  routine_.owner = outer.owner;
  if (routine_.owner) routine_.me = variableCount_++;
}

/// What Const declares in a text that runs within a routine stays known to that routine.
void RoutineCompiler::setOuterConstants() {
  for (const auto* constant : mentions_.constants()) {
    loadConstant(bind(constant->name).index, constant->value);
  }
}

void RoutineCompiler::declareVariables() {
  const bool globalScope =
      &routine_ == &script_.program().main() && script_.context().inGlobalScope;
  // Constants that a text adds to the routine around it are variables there: see setOuterConstants.
  if (!globalScope && !script_.context().outer) {
    for (const auto* constant : mentions_.constants()) {
      Binding& binding = bindings_[constant->name.id];
      if (binding.kind != Binding::Kind::Unresolved) {
        failCompile(kNameRedefined, constant->position);
      }
      binding.kind = Binding::Kind::Constant;
      binding.constant = &constant->value;
    }
  }
  if (!globalScope) {
    for (const auto* variable : mentions_.declarations()) {
      if (bindings_[variable->name.id].kind == Binding::Kind::Unresolved) {
        addVariable(variable->name);
      }
    }
  }
  for (const Identifier* name : mentions_.names()) {
    Binding& binding = bindings_[name->id];
    if (binding.kind != Binding::Kind::Unresolved) continue;
    const Binding found = resolveUndeclared(*name);
    if (found.kind == Binding::Kind::Register && found.index == kNoRegister) {
      addVariable(*name);
    } else {
      binding = found;
    }
    if (binding.kind == Binding::Kind::Late && !globalScope && !script_.optionExplicit()) {
      addVariable(*name);
      bindings_[name->id].kind = Binding::Kind::Late;
    }
  }
}

/// A Register without an index asks for a variable of the routine's own.
Binding RoutineCompiler::resolveUndeclared(const Identifier& name) {
  using Kind = Binding::Kind;
  Binding binding;
  const std::uint8_t flags = mentions_.flags(name.id);
  if (routine_.owner || (script_.context().outer && script_.context().outer->owner)) {
    const ScriptClass* owner = routine_.owner ? routine_.owner : script_.context().outer->owner;
    if (const ClassMember* member = owner->find(name.lower)) {
      binding.kind = Kind::Own;
      binding.own = member;
      if (member->kind == ClassMember::Kind::Field) {
        binding.kind = Kind::Field;
        binding.index = member->slot;
      } else if (member->kind == ClassMember::Kind::Constant) {
        binding.kind = Kind::Constant;
        binding.constant = &member->constant;
      }
      return binding;
    }
  }
  binding = script_.resolve(name);
  if (isMain_ && binding.kind == Kind::Global) binding.kind = Kind::Register;
  const bool writes = (flags & (Mentions::kAssigned | Mentions::kReDimmed)) != 0;
  const bool shadowsLibrary = writes && ScriptCompiler::isOfLibrary(binding, name.lower);
  if (binding.kind != Kind::Unresolved && !shadowsLibrary) return binding;
  binding = Binding();
  const bool declares = (flags & Mentions::kReDimmed) != 0;
  const bool isVariable = flags != Mentions::kCalled && (!script_.optionExplicit() || declares);
  binding.kind = isVariable && !script_.lateNames() ? Kind::Register : Kind::Late;
  return binding;
}

void RoutineCompiler::beginFrame(std::uint16_t firstHidden) {
  firstHidden_ = firstHidden;
  routine_.firstTemporary = static_cast<std::uint16_t>(firstHidden + mentions_.hiddenVariables());
  // Global variables keep what earlier runs left.
  routine_.firstCleared = isMain_ ? kMaxGlobals : routine_.parameterCount;
  nextTemporary_ = routine_.firstTemporary;
  routine_.registerCount = nextTemporary_;
}

RoutineCompiler::Register RoutineCompiler::newTemporary() {
  if (nextTemporary_ + 1 >= kNoRegister) failCompile(kOutOfMemory, {1, 1});
  const auto r = static_cast<Register>(nextTemporary_++);
  routine_.registerCount = std::max(routine_.registerCount, nextTemporary_);
  return r;
}

RoutineCompiler::Register RoutineCompiler::hidden() {
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
  emit(isMain_ ? Opcode::Halt : Opcode::Return);
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
  if (!index || !isVariable(*index)) return;
  auto& names = routine_.operandNames;
  const auto at = static_cast<std::uint32_t>(routine_.code.size());
  if (names.empty() || names.back().start != at) names.push_back({at});
  names.back().index = script_.nameIndex(static_cast<const NameExpression&>(*indexes[0]).name);
}

}  // namespace quorvane::vbs
