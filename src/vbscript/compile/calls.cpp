#include <algorithm>

#include "vbscript/compile/compiler.h"

namespace quorvane::vbs {

namespace {

/// Where a name is used as a call but cannot be called.
bool hasOmitted(const std::vector<ExpressionPtr>& arguments) {
  return std::any_of(arguments.begin(), arguments.end(),
                     [](const ExpressionPtr& argument) { return !argument; });
}

}  // namespace

bool RoutineCompiler::isVariable(const Binding& binding) const {
  return binding.kind == Binding::Kind::Register || binding.kind == Binding::Kind::Global ||
         binding.kind == Binding::Kind::Field;
}

// ---- Who is called ----

void RoutineCompiler::compileCall(const Expression& callee,
                                  const std::vector<ExpressionPtr>& arguments, Register target) {
  switch (callee.kind) {
    case ExpressionKind::Name:
      return callName(static_cast<const NameExpression&>(callee), arguments, target);
    case ExpressionKind::Member:
      return callMember(static_cast<const MemberExpression&>(callee), arguments, target);
    case ExpressionKind::Call: {
      const bool isElement = target != kNoRegister && !arguments.empty();
      if (isElement) return getElement(callee, arguments, target);
      return callValue(callee, arguments, target);
    }
    default:
      return callValue(callee, arguments, target);
  }
}

void RoutineCompiler::callName(const NameExpression& callee,
                               const std::vector<ExpressionPtr>& arguments, Register target) {
  using Kind = Binding::Kind;
  const Binding& binding = bind(callee.name);
  switch (binding.kind) {
    case Kind::Register:
      if (callsOwnFunction(binding, callee.name, arguments, target)) return;
      return callVariable(callee, arguments, target);
    case Kind::Global:
    case Kind::Field:
      return callVariable(callee, arguments, target);
    case Kind::Routine:
      return callRoutine(*binding.routine, &callee.name, arguments, target, false);
    case Kind::Own:
      return callOwn(*binding.own, callee.name, arguments, target);
    case Kind::HostObject:
      return callHost(binding.index, kDefaultMember, arguments, target);
    case Kind::HostMember:
      return callHost(binding.index, binding.member, arguments, target);
    case Kind::Intrinsic:
      return callIntrinsic(*binding.intrinsic, callee.name, arguments, target);
    case Kind::Scope:
      return callScopeFunction(binding.scope, callee.name, arguments, target);
    case Kind::Late: {
      const Temporaries temporaries(*this);
      const auto locks = newLocks(arguments);
      const Register first = pushArguments(arguments, Passing::Unknown, locks);
      emit(Opcode::LateCall, target, first, static_cast<unsigned>(arguments.size()));
      emitWord(Instruction::fromPair(
          script_.nameIndex(callee.name),
          std::uint32_t{binding.index} | (script_.optionExplicit() ? 0x10000u : 0u)));
      return releaseLocks(locks);
    }
    case Kind::Constant:
    case Kind::Class:
    case Kind::Unresolved:
      return emitThrow(ErrorCode::TypeMismatch, callee.name);
  }
}

/// A function's own name with parentheses, in its body, calls it again.
bool RoutineCompiler::callsOwnFunction(const Binding& binding, const Identifier& name,
                                       const std::vector<ExpressionPtr>& arguments,
                                       Register target) {
  if (binding.index != routine_.result && binding.index != outerResult_) return false;
  if (binding.index == kNoRegister) return false;
  if (const ClassMember* member = routine_.owner ? routine_.owner->find(name.lower) : nullptr) {
    if (!member->get) return false;
    callOwn(*member, name, arguments, target);
    return true;
  }
  const Binding global = script_.resolve(name);
  if (global.kind != Binding::Kind::Routine) return false;
  callRoutine(*global.routine, &name, arguments, target, false);
  return true;
}

void RoutineCompiler::callVariable(const Expression& callee,
                                   const std::vector<ExpressionPtr>& arguments, Register target) {
  if (target == kNoRegister || arguments.empty()) return callValue(callee, arguments, target);
  getElement(callee, arguments, target);
}

void RoutineCompiler::callValue(const Expression& callee,
                                const std::vector<ExpressionPtr>& arguments, Register target) {
  const Temporaries temporaries(*this);
  const auto locks = newLocks(arguments);
  const Register base = newTemporary();
  compileAsObject(callee, base);
  pushArguments(arguments, Passing::Unknown, locks);
  noteOperand(callee);
  emit(Opcode::CallValue, target, base, static_cast<unsigned>(arguments.size()));
  releaseLocks(locks);
}

void RoutineCompiler::getElement(const Expression& array, const std::vector<ExpressionPtr>& indexes,
                                 Register target) {
  const Temporaries temporaries(*this);
  const Binding* binding = bindName(array);
  const bool isPlace = binding && isVariable(*binding);
  const Register base = isPlace ? placeOf(array) : operandAsObject(array);
  if (indexes.size() > 2 || hasOmitted(indexes)) {
    const Register first = pushArguments(indexes, Passing::Value, {});
    noteElement(array, indexes);
    emit(Opcode::GetElementMany, target, base, first);
    return emitWord(Instruction::fromPair(static_cast<std::uint32_t>(indexes.size()), 0));
  }
  if (indexes.size() == 1) {
    const Register index = operand(*indexes[0]);
    noteElement(array, indexes);
    return emit(Opcode::GetElement, target, base, index);
  }
  const Register row = operandBefore(*indexes[0], *indexes[1], kNoRegister);
  const Register column = operand(*indexes[1]);
  noteElement(array, indexes);
  emit(Opcode::GetElement2, target, base, row);
  emitWord(Instruction::fromPair(column, 0));
}

void RoutineCompiler::callRoutine(const Routine& routine, const Identifier* name,
                                  const std::vector<ExpressionPtr>& arguments, Register target,
                                  bool own) {
  if (arguments.size() != routine.parameterCount) {
    return emitThrow(ErrorCode::WrongArgumentCount, *name);
  }
  const Temporaries temporaries(*this);
  const auto locks = newLocks(arguments);
  const Register first = pushArguments(arguments, routine, locks);
  const Opcode op = own                       ? Opcode::CallOwn
                    : script_.isReplaceable() ? Opcode::CallReplaceable
                                              : Opcode::Call;
  emitPointer(op, target, first, static_cast<unsigned>(arguments.size()), &routine);
  releaseLocks(locks);
}

void RoutineCompiler::callOwn(const ClassMember& member, const Identifier& name,
                              const std::vector<ExpressionPtr>& arguments, Register target) {
  if (member.get) return callRoutine(*member.get, &name, arguments, target, true);
  if (member.kind == ClassMember::Kind::Constant && target != kNoRegister) {
    return loadConstant(target, member.constant);
  }
  if (member.kind != ClassMember::Kind::Field) {
    return emitThrow(ErrorCode::NoPropertyOrMethod, name);
  }
  if (arguments.empty() && target != kNoRegister) {
    return emit(Opcode::LoadField, target, member.slot, routine_.me);
  }
  const Temporaries temporaries(*this);
  const Register base = newTemporary();
  emit(Opcode::LoadField, base, member.slot, routine_.me);
  pushArguments(arguments, Passing::Value, {});
  emit(Opcode::CallValue, target, base, static_cast<unsigned>(arguments.size()));
}

void RoutineCompiler::callIntrinsic(const Intrinsic& intrinsic, const Identifier& name,
                                    const std::vector<ExpressionPtr>& arguments, Register target) {
  const std::size_t count = arguments.size();
  if (count < intrinsic.minArgs || (count > intrinsic.maxArgs && intrinsic.maxArgs != 255)) {
    return emitThrow(ErrorCode::WrongArgumentCount, name);
  }
  const Temporaries temporaries(*this);
  if (count == 1 && arguments[0] && target != kNoRegister) {
    const Binding* binding = bindName(*arguments[0]);
    const bool isPlace = binding && isVariable(*binding);
    const Register argument = isPlace ? placeOf(*arguments[0]) : operand(*arguments[0], target);
    return emitPointer(Opcode::CallIntrinsicOne, target, argument, 0, &intrinsic);
  }
  const Register first = pushArguments(arguments, Passing::Library, {});
  emitPointer(Opcode::CallIntrinsic, target, first, static_cast<unsigned>(count), &intrinsic);
}

void RoutineCompiler::callScopeFunction(ScopeFunction function, const Identifier& name,
                                        const std::vector<ExpressionPtr>& arguments,
                                        Register target) {
  if (arguments.size() != 1 || !arguments[0]) {
    return emitThrow(ErrorCode::WrongArgumentCount, name);
  }
  const Temporaries temporaries(*this);
  const Register text = operand(*arguments[0]);
  const Register result = target == kNoRegister ? newTemporary() : target;
  switch (function) {
    case ScopeFunction::Eval:
      emit(Opcode::EvaluateText, result, text);
      break;
    case ScopeFunction::GetRef:
      emit(Opcode::GetRef, result, text);
      break;
    case ScopeFunction::Execute:
    case ScopeFunction::ExecuteGlobal:
      return emit(Opcode::ExecuteText, text, function == ScopeFunction::ExecuteGlobal);
  }
  if (target == kNoRegister) emit(Opcode::Clear, result);
}

void RoutineCompiler::callHost(unsigned object, MemberId member,
                               const std::vector<ExpressionPtr>& arguments, Register target) {
  const Temporaries temporaries(*this);
  const Register first = pushArguments(arguments, Passing::Host, {});
  emit(Opcode::CallHost, target, first, static_cast<unsigned>(arguments.size()));
  emitWord(Instruction::fromPair(object, static_cast<std::uint32_t>(member)));
}

void RoutineCompiler::callMember(const MemberExpression& callee,
                                 const std::vector<ExpressionPtr>& arguments, Register target) {
  if (const ClassMember* member = ownMember(callee)) {
    return callOwn(*member, callee.name, arguments, target);
  }
  if (const Binding* host = hostObjectOf(callee)) {
    return callHost(host->index, hostMember(*host, callee.name), arguments, target);
  }
  const Temporaries temporaries(*this);
  const auto locks = newLocks(arguments);
  const Register base = newTemporary();
  pushObject(callee, base);
  pushArguments(arguments, Passing::Unknown, locks);
  noteObject(callee);
  emitMember(Opcode::CallMember, target, base, static_cast<unsigned>(arguments.size()),
             callee.name);
  releaseLocks(locks);
}

// ---- Objects ----

const ClassMember* RoutineCompiler::ownMember(const MemberExpression& member) const {
  if (!routine_.owner || !member.object || member.object->kind != ExpressionKind::Me) {
    return nullptr;
  }
  return routine_.owner->find(member.name.lower);
}

const Binding* RoutineCompiler::hostObjectOf(const MemberExpression& member) const {
  if (!member.object) return nullptr;
  const Binding* binding = bindName(*member.object);
  if (!binding || binding->kind != Binding::Kind::HostObject) return nullptr;
  return hostMember(*binding, member.name) == kNoMember ? nullptr : binding;
}

MemberId RoutineCompiler::hostMember(const Binding& object, const Identifier& name) const {
  Object* host = script_.context().host[object.index].object;
  return host->shape() ? host->findMember(name.lower) : kNoMember;
}

RoutineCompiler::Register RoutineCompiler::objectOperand(const MemberExpression& member) {
  if (member.object) return operandAsObject(*member.object);
  if (!withs_.empty()) return withs_.back();
  const Register object = newTemporary();
  pushObject(member, object);
  return object;
}

void RoutineCompiler::pushObject(const MemberExpression& member, Register target) {
  if (member.object) return compileAsObject(*member.object, target);
  if (!withs_.empty()) return emit(Opcode::Copy, target, withs_.back());
  emitThrow(ErrorCode::InvalidReference, member.name);
}

void RoutineCompiler::compileAsObject(const Expression& expression, Register target) {
  static const std::vector<ExpressionPtr> kNone;
  if (expression.kind == ExpressionKind::Call) {
    const auto& call = static_cast<const CallExpression&>(expression);
    if (callsForObject(*call.callee, call.arguments, target)) return;
  } else if (callsForObject(expression, kNone, target)) {
    return;
  }
  compileTo(expression, target);
}

/// Calls a host's member for the object that it gives in place of its plain value. False when this
/// is no such member.
bool RoutineCompiler::callsForObject(const Expression& callee,
                                     const std::vector<ExpressionPtr>& arguments, Register target) {
  const Binding* host = bindName(callee);
  MemberId member = kNoMember;
  if (host && host->kind == Binding::Kind::HostMember) {
    member = host->member;
  } else if (host && host->kind == Binding::Kind::HostObject && !arguments.empty()) {
    member = kDefaultMember;
  } else if (callee.kind == ExpressionKind::Member) {
    const auto& access = static_cast<const MemberExpression&>(callee);
    host = hostObjectOf(access);
    if (host) member = hostMember(*host, access.name);
  }
  if (member == kNoMember) return false;
  const MemberId wanted = script_.context().host[host->index].object->objectMember(member);
  if (wanted == member) return false;
  callHost(host->index, wanted, arguments, target);
  return true;
}

RoutineCompiler::Register RoutineCompiler::operandAsObject(const Expression& expression) {
  const bool isCall = expression.kind == ExpressionKind::Call ||
                      expression.kind == ExpressionKind::Member ||
                      (expression.kind == ExpressionKind::Name &&
                       bindName(expression)->kind == Binding::Kind::HostMember);
  if (!isCall) return operand(expression);
  const Register target = newTemporary();
  compileAsObject(expression, target);
  return target;
}

void RoutineCompiler::noteObject(const MemberExpression& member) {
  if (member.object) noteOperand(*member.object);
}

// ---- Arguments ----

bool RoutineCompiler::passesElement(const Expression& argument) const {
  if (argument.kind != ExpressionKind::Call) return false;
  const auto& call = static_cast<const CallExpression&>(argument);
  const Identifier* name = variableBelow(argument);
  if (!name || call.arguments.empty() || hasOmitted(call.arguments)) return false;
  const Binding& binding = bind(*name);
  if (!isVariable(binding)) return false;
  return binding.kind != Binding::Kind::Register || binding.index != routine_.result;
}

std::vector<RoutineCompiler::Register> RoutineCompiler::newLocks(
    const std::vector<ExpressionPtr>& arguments) {
  std::vector<Register> locks;
  for (const auto& argument : arguments) {
    if (argument && passesElement(*argument)) locks.push_back(newTemporary());
  }
  return locks;
}

void RoutineCompiler::releaseLocks(const std::vector<Register>& locks) {
  for (const Register lock : locks) emit(Opcode::Clear, lock);
}

RoutineCompiler::Register RoutineCompiler::pushArguments(
    const std::vector<ExpressionPtr>& arguments, Passing passing,
    const std::vector<Register>& locks) {
  const auto first = static_cast<Register>(nextTemporary_);
  std::size_t nextLock = 0;
  for (const auto& argument : arguments) {
    pushArgument(argument, newTemporary(), passing, locks, nextLock);
  }
  return first;
}

RoutineCompiler::Register RoutineCompiler::pushArguments(
    const std::vector<ExpressionPtr>& arguments, const Routine& routine,
    const std::vector<Register>& locks) {
  const auto first = static_cast<Register>(nextTemporary_);
  std::size_t nextLock = 0;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const RoutineParameter& parameter = routine.parameters[i];
    Passing passing = parameter.byValue ? Passing::Value : Passing::Unknown;
    if (arguments[i] && parameter.readOnly) {
      // Nothing else can reach a local variable during the call, unless it is passed twice.
      const Identifier* name = variableBelow(*arguments[i]);
      const bool isLocal = name && !isMain_ && bind(*name).kind == Binding::Kind::Register;
      if ((isLocal && routine.allReadOnly) || (name && passesElement(*arguments[i]))) {
        passing = Passing::Value;
      }
    }
    pushArgument(arguments[i], newTemporary(), passing, locks, nextLock);
  }
  return first;
}

void RoutineCompiler::pushArgument(const ExpressionPtr& argument, Register target, Passing passing,
                                   const std::vector<Register>& locks, std::size_t& nextLock) {
  if (!argument) return loadConstant(target, Value::missing());
  const Binding* binding = bindName(*argument);
  const bool element = passesElement(*argument);
  const std::size_t lock = element ? nextLock++ : 0;
  if (passing == Passing::Value) return compileTo(*argument, target);
  if (binding) {
    switch (binding->kind) {
      case Binding::Kind::Register:
        return emit(Opcode::RefVariable, target, binding->index);
      case Binding::Kind::Global:
        return emit(Opcode::RefGlobal, target, binding->index);
      case Binding::Kind::Field:
        return emit(Opcode::RefField, target, binding->index, routine_.me);
      case Binding::Kind::Late:
        return emitName(Opcode::LateRef, target, binding->index, script_.optionExplicit(),
                        static_cast<const NameExpression&>(*argument).name);
      default:
        return compileTo(*argument, target);
    }
  }
  if (!element || passing != Passing::Unknown || lock >= locks.size()) {
    return compileTo(*argument, target);
  }
  const Temporaries temporaries(*this);
  const auto& call = static_cast<const CallExpression&>(*argument);
  const Register first = pushArguments(call.arguments, Passing::Value, {});
  std::vector<Register> placeLocks;
  const Register base = placeOf(*call.callee, placeLocks);
  noteElement(*call.callee, call.arguments);
  emit(Opcode::RefElement, target, base, first);
  emitWord(Instruction::fromPair(static_cast<std::uint32_t>(call.arguments.size()), locks[lock]));
  releaseLocks(placeLocks);
}

RoutineCompiler::Register RoutineCompiler::placeOf(const Expression& expression) {
  if (const Binding* binding = bindName(expression)) {
    const bool isPlace = isVariable(*binding) || binding->kind == Binding::Kind::Late;
    if (isPlace) return placeOfName(*binding, static_cast<const NameExpression&>(expression).name);
  }
  if (expression.kind == ExpressionKind::Member) {
    const ClassMember* own = ownMember(static_cast<const MemberExpression&>(expression));
    if (own && own->kind == ClassMember::Kind::Field) {
      const Register place = newTemporary();
      emit(Opcode::RefField, place, own->slot, routine_.me);
      return place;
    }
  }
  return operand(expression);
}

RoutineCompiler::Register RoutineCompiler::placeOf(const Expression& expression,
                                                   std::vector<Register>& locks) {
  const Identifier* root = variableBelow(expression);
  const bool isElement = expression.kind == ExpressionKind::Call && root && isVariable(bind(*root));
  return isElement ? placeOfElement(expression, locks) : placeOf(expression);
}

RoutineCompiler::Register RoutineCompiler::placeOfName(const Binding& binding,
                                                       const Identifier& name) {
  if (binding.kind == Binding::Kind::Register) return binding.index;
  const Register place = newTemporary();
  if (binding.kind == Binding::Kind::Global) {
    emit(Opcode::RefGlobal, place, binding.index);
  } else if (binding.kind == Binding::Kind::Field) {
    emit(Opcode::RefField, place, binding.index, routine_.me);
  } else {
    emitName(Opcode::LateRef, place, binding.index, script_.optionExplicit(), name);
  }
  return place;
}

RoutineCompiler::Register RoutineCompiler::placeOfElement(const Expression& expression,
                                                          std::vector<Register>& locks) {
  std::vector<const CallExpression*> levels;
  const Expression* at = &expression;
  while (at->kind == ExpressionKind::Call) {
    levels.insert(levels.begin(), static_cast<const CallExpression*>(at));
    at = levels.front()->callee.get();
  }
  // All indexes come first: evaluating them may move the arrays.
  std::vector<Register> indexes;
  indexes.reserve(levels.size());
  for (const auto* level : levels) {
    indexes.push_back(pushArguments(level->arguments, Passing::Value, {}));
  }
  Register place = placeOf(*at);
  for (std::size_t i = 0; i < levels.size(); ++i) {
    const Register element = newTemporary();
    locks.push_back(newTemporary());
    noteElement(*at, levels[i]->arguments);
    emit(Opcode::RefElement, element, place, indexes[i]);
    emitWord(Instruction::fromPair(static_cast<std::uint32_t>(levels[i]->arguments.size()),
                                   locks.back()));
    place = element;
  }
  return place;
}

}  // namespace quorvane::vbs
