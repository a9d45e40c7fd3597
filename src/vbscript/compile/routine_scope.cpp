#include "vbscript/compile/routine_scope.h"

#include <algorithm>

#include "vbscript/compile/failure.h"
#include "vbscript/compile/script_compiler.h"
#include "vbscript/compile/tree.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

namespace {

Binding fieldBinding(const ClassMember& member) {
  Binding binding;
  binding.kind = Binding::Kind::Field;
  binding.index = member.slot;
  return binding;
}

/// What a member of the class stands for where its name stands alone.
Binding memberBinding(const ClassMember& member) {
  if (member.kind == ClassMember::Kind::Field) return fieldBinding(member);
  Binding binding;
  if (member.kind == ClassMember::Kind::Constant) {
    binding.kind = Binding::Kind::Constant;
    binding.constant = &member.constant;
  } else {
    binding.kind = Binding::Kind::Own;
    binding.own = &member;
  }
  return binding;
}

}  // namespace

RoutineScope::RoutineScope(ScriptCompiler& script, Routine& routine, const Mentions& mentions)
    : script_(script), routine_(routine), mentions_(mentions), bindings_(script.nameCount()) {}

// ---- Declaring ----

void RoutineScope::declareProcedure(const Procedure& tree) {
  declareParameters(tree);
  declareVariables();
  addStandIns();
}

void RoutineScope::declareMain() {
  isMain_ = !script_.context().asRoutine;
  routine_.isGlobalScope = script_.context().inGlobalScope;
  if (script_.context().outer) declareOuterVariables();
  declareVariables();
}

void RoutineScope::declareExpression() {
  routine_.isGlobalScope = !script_.context().outer;
  if (script_.context().outer) declareOuterVariables();
  routine_.result = variableCount_++;
  declareVariables();
}

void RoutineScope::addVariable(const Identifier& name, Binding::Kind kind) {
  Binding& binding = bindings_[name.id];
  binding = Binding();
  if (variableCount_ >= kMaxGlobals) failCompile(CompileErrorCode::OutOfMemory, {1, 1});
  binding.kind = kind;
  binding.index = variableCount_++;
  if (script_.keepsVariableNames()) {
    routine_.variables.push_back(
        {std::string(name.lower), binding.index, kind == Binding::Kind::Late});
  }
}

void RoutineScope::declareParameters(const Procedure& tree) {
  for (const auto& parameter : tree.parameters) addVariable(parameter.name);
  VBS_ASSERT(routine_.parameterCount == variableCount_);
  if (routine_.owner) routine_.me = variableCount_++;
  if (tree.kind != ProcedureKind::Function && tree.kind != ProcedureKind::PropertyGet) return;
  if (bindings_[tree.name.id].kind == Binding::Kind::InRegister) {
    routine_.result = variableCount_++;  // a parameter hides the function's name
    return;
  }
  addVariable(tree.name);
  routine_.result = bindings_[tree.name.id].index;
}

/// The variables of the routine around an Execute or Eval come in as references: the registers from
/// 0 on, in the order of `parameters`, which the machine reads.
void RoutineScope::declareOuterVariables() {
  const Routine& outer = *script_.context().outer;
  for (const Identifier* name : mentions_.names()) {
    const auto found =
        std::find_if(outer.variables.begin(), outer.variables.end(),
                     [&](const Routine::Variable& v) { return v.lower == name->lower; });
    constexpr unsigned kDeclares = Mentions::kDeclared | Mentions::kConstant;
    const bool declares = (mentions_.flags(name->id) & kDeclares) != 0;
    const bool isNew = found == outer.variables.end();
    // Another text may have brought what the routine would otherwise have a variable for.
    if (!isNew && found->isLate && !declares && script_.knownSymbol(name->lower)) continue;
    if (isNew && !declares && resolveUndeclared(*name).kind != Binding::Kind::InRegister) continue;
    addVariable(*name);
    routine_.parameters.push_back({std::string(name->lower), false, false});
    if (!isNew && found->index == outer.result) outerResult_ = bindings_[name->id].index;
  }
  routine_.parameterCount = variableCount_;
  routine_.owner = outer.owner;
  if (routine_.owner) routine_.me = variableCount_++;
}

void RoutineScope::declareConstants() {
  for (const auto* constant : mentions_.constants()) {
    Binding& binding = bindings_[constant->name.id];
    if (binding.kind != Binding::Kind::Unresolved)
      failCompile(CompileErrorCode::NameRedefined, constant->position);
    binding.kind = Binding::Kind::Constant;
    binding.constant = &constant->value;
  }
}

void RoutineScope::declareVariables() {
  const bool isOutermost = &routine_ == &script_.program().main();
  const bool globalScope = isOutermost && script_.context().inGlobalScope;
  // Constants that a text adds to the routine around it are variables there.
  const bool addsToOuter = isOutermost && script_.context().outer;
  if (!globalScope && !addsToOuter) declareConstants();
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
    if (found.kind == Binding::Kind::InRegister && found.index == kNoRegister) {
      addVariable(*name);
    } else {
      binding = found;
    }
    if (binding.kind == Binding::Kind::Late && !globalScope && !script_.optionExplicit())
      addVariable(*name, Binding::Kind::Late);
  }
}

/// InRegister without an index asks for a variable of the routine's own.
Binding RoutineScope::resolveUndeclared(const Identifier& name) {
  using Kind = Binding::Kind;
  const Routine* outer = script_.context().outer;
  const ScriptClass* owner = routine_.owner || !outer ? routine_.owner : outer->owner;
  if (const ClassMember* member = owner ? owner->find(name.lower) : nullptr) {
    return memberBinding(*member);
  }
  const std::uint8_t flags = mentions_.flags(name.id);
  Binding binding = script_.resolve(name);
  if (isMain_ && binding.kind == Kind::Global) binding.kind = Kind::InRegister;
  const bool yields = script_.yieldsToVariable(binding, name, flags);
  if (binding.kind != Kind::Unresolved && !yields) return binding;
  binding = Binding();
  const bool declares = (flags & Mentions::kReDimmed) != 0;
  const bool isVariable = flags != Mentions::kCalled && (!script_.optionExplicit() || declares);
  binding.kind = isVariable && !script_.lateNames() ? Kind::InRegister : Kind::Late;
  return binding;
}

void RoutineScope::addStandIns() {
  for (const Identifier* name : mentions_.names()) {
    const Binding& binding = bindings_[name->id];
    if (binding.kind != Binding::Kind::Global || !mentions_.isIndexedInLoop(name->id)) continue;
    if (variableCount_ >= kMaxGlobals) return;
    standIns_.push_back({binding.index, variableCount_++});
  }
}

// ---- Names ----

Register RoutineScope::standIn(const Binding& global) const {
  VBS_ASSERT(global.kind == Binding::Kind::Global);
  const auto found = std::find_if(standIns_.begin(), standIns_.end(), [&](const StandIn& known) {
    return known.global == global.index;
  });
  return found == standIns_.end() ? kNoRegister : found->reference;
}

bool RoutineScope::valuesRunCode() const {
  return script_.valuesRunCode();
}

const Binding* RoutineScope::bindName(const Expression& expression) const {
  if (expression.kind != ExpressionKind::Name) return nullptr;
  return &bind(static_cast<const NameExpression&>(expression).name);
}

std::optional<Binding> RoutineScope::variableOf(const Expression& expression) const {
  if (const Binding* binding = bindName(expression)) {
    return binding->isVariable() ? std::optional(*binding) : std::nullopt;
  }
  if (expression.kind != ExpressionKind::Member) return std::nullopt;
  const ClassMember* own = ownMember(static_cast<const MemberExpression&>(expression));
  if (!own || own->kind != ClassMember::Kind::Field) return std::nullopt;
  return fieldBinding(*own);
}

const Value* RoutineScope::literal(const Expression& expression) const {
  const Expression& inner = unwrapped(expression);
  if (inner.kind == ExpressionKind::Literal) {
    return &static_cast<const LiteralExpression&>(inner).value;
  }
  const Binding* binding = bindName(inner);
  return binding && binding->kind == Binding::Kind::Constant ? binding->constant : nullptr;
}

const ClassMember* RoutineScope::ownMember(const MemberExpression& member) const {
  if (!routine_.owner || !member.object || member.object->kind != ExpressionKind::Me) {
    return nullptr;
  }
  return routine_.owner->find(member.name.lower);
}

const Binding* RoutineScope::hostObjectOf(const MemberExpression& member) const {
  if (!member.object) return nullptr;
  const Binding* binding = bindName(*member.object);
  if (!binding || binding->kind != Binding::Kind::HostObject) return nullptr;
  return hostMember(*binding, member.name) == kNoMember ? nullptr : binding;
}

MemberId RoutineScope::hostMember(const Binding& object, const Identifier& name) const {
  VBS_ASSERT(object.index < script_.context().host.size());
  Object* host = script_.context().host[object.index].object;
  return host->shape() ? host->findMember(name.lower) : kNoMember;
}

// ---- Variables ----

bool RoutineScope::isShared(const Binding& variable) const {
  VBS_ASSERT(variable.isVariable());
  if (isMain_ || variable.kind != Binding::Kind::InRegister) return true;
  return variable.index < routine_.parameterCount && !routine_.parameters[variable.index].byValue;
}

bool RoutineScope::isResult(const Binding& binding) const {
  if (binding.kind != Binding::Kind::InRegister) return false;
  return binding.index == routine_.result || binding.index == outerResult_;
}

bool RoutineScope::isOnlyRead(const Expression& expression) const {
  const Binding* binding = bindName(expression);
  if (!binding || binding->kind != Binding::Kind::InRegister || isMain_) return false;
  constexpr unsigned kUses = Mentions::kWritten | Mentions::kPassed;
  return (mentions_.flags(static_cast<const NameExpression&>(expression).name.id) & kUses) == 0;
}

bool RoutineScope::passesElement(const Expression& argument) const {
  if (argument.kind != ExpressionKind::Call) return false;
  const auto& call = static_cast<const CallExpression&>(argument);
  const Identifier* name = variableBelow(argument);
  if (!name || call.arguments.empty() || hasOmitted(call.arguments)) return false;
  const Binding& binding = bind(*name);
  if (!binding.isVariable()) return false;
  return binding.kind != Binding::Kind::InRegister || binding.index != routine_.result;
}

}  // namespace quorvane::vbs
