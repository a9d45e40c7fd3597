#include "vbscript/compile/compiler.h"
#include "vbscript/library/functions.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

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
    case Kind::InRegister:
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
  if (!scope_.isResult(binding)) return false;
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
  const bool isPlace = binding && binding->isVariable();
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
  const Register row = operandBefore(*indexes[0], facts_.of(*indexes[1]), kNoRegister);
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
    const bool isPlace = binding && binding->isVariable();
    const Register argument = isPlace ? placeOf(*arguments[0]) : operand(*arguments[0], target);
    return emitPointer(Opcode::CallIntrinsicOne, target, argument, 0, &intrinsic);
  }
  const Register first = pushLibraryArguments(intrinsic, arguments);
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
  if (const ClassMember* member = scope_.ownMember(callee)) {
    return callOwn(*member, callee.name, arguments, target);
  }
  if (const Binding* host = scope_.hostObjectOf(callee)) {
    return callHost(host->index, scope_.hostMember(*host, callee.name), arguments, target);
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

Register RoutineCompiler::objectOperand(const MemberExpression& member) {
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
    host = scope_.hostObjectOf(access);
    if (host) member = scope_.hostMember(*host, access.name);
  }
  if (member == kNoMember) return false;
  const MemberId wanted = script_.context().host[host->index].object->objectMember(member);
  if (wanted == member) return false;
  callHost(host->index, wanted, arguments, target);
  return true;
}

Register RoutineCompiler::operandAsObject(const Expression& expression) {
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

std::vector<Register> RoutineCompiler::newLocks(const std::vector<ExpressionPtr>& arguments) {
  std::vector<Register> locks;
  for (const auto& argument : arguments) {
    if (argument && scope_.passesElement(*argument)) locks.push_back(newTemporary());
  }
  return locks;
}

void RoutineCompiler::releaseLocks(const std::vector<Register>& locks) {
  for (const Register lock : locks) emit(Opcode::Clear, lock);
}

Register RoutineCompiler::pushArguments(const std::vector<ExpressionPtr>& arguments,
                                        Passing passing, const std::vector<Register>& locks) {
  const auto first = static_cast<Register>(nextTemporary_);
  std::size_t nextLock = 0;
  for (const auto& argument : arguments) {
    pushArgument(argument, newTemporary(), passing, locks, nextLock);
  }
  return first;
}

Register RoutineCompiler::pushArguments(const std::vector<ExpressionPtr>& arguments,
                                        const Routine& routine,
                                        const std::vector<Register>& locks) {
  const auto first = static_cast<Register>(nextTemporary_);
  std::size_t nextLock = 0;
  std::optional<ExpressionFacts> all;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const RoutineParameter& parameter = routine.parameters[i];
    Passing passing = parameter.byValue ? Passing::Value : Passing::Unknown;
    if (arguments[i] && parameter.readOnly) {
      // Nothing else can reach a local variable during the call, unless it is passed twice; another
      // argument may change it before.
      const Binding* variable = bindName(*arguments[i]);
      const bool isLocal =
          variable && !scope_.isMain() && variable->kind == Binding::Kind::InRegister;
      if (isLocal && routine.allReadOnly && !all) all = facts_.of(arguments);
      if ((isLocal && routine.allReadOnly && !all->writes.mayHold(variable->index)) ||
          scope_.passesElement(*arguments[i])) {
        passing = Passing::Value;
      }
    }
    pushArgument(arguments[i], newTemporary(), passing, locks, nextLock);
  }
  return first;
}

/// A function of the library gets values: a variable goes by reference where nothing changes it
/// before it is read. LBound and UBound look at the array where it is.
Register RoutineCompiler::pushLibraryArguments(const Intrinsic& function,
                                               const std::vector<ExpressionPtr>& arguments) {
  std::vector<const Expression*> expressions;
  std::size_t defaults = 0;  // of arguments, that may run when the function reads them
  for (const auto& argument : arguments) {
    expressions.push_back(argument.get());
    if (argument && facts_.runsDefault(*argument)) ++defaults;
  }
  const bool looksAtArray =
      function.call == intrinsic::lBound || function.call == intrinsic::uBound;
  const auto behind = facts_.behind(expressions);
  const auto first = static_cast<Register>(nextTemporary_);
  std::size_t nextLock = 0;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const Binding* variable = arguments[i] ? bindName(*arguments[i]) : nullptr;
    bool stays = true;
    if (variable && variable->isVariable() && !looksAtArray) {
      ExpressionFacts later = behind[i];
      later.runsCode |= defaults > (facts_.runsDefault(*arguments[i]) ? 1 : 0);
      stays = !facts_.mayChange(later, *variable);
    }
    pushArgument(arguments[i], newTemporary(), stays ? Passing::Library : Passing::Value, {},
                 nextLock);
  }
  return first;
}

void RoutineCompiler::pushArgument(const ExpressionPtr& argument, Register target, Passing passing,
                                   const std::vector<Register>& locks, std::size_t& nextLock) {
  if (!argument) return loadConstant(target, Value::missing());
  const Binding* binding = bindName(*argument);
  const bool element = scope_.passesElement(*argument);
  const std::size_t lock = element ? nextLock++ : 0;
  if (passing == Passing::Value) return compileTo(*argument, target);
  if (binding) {
    switch (binding->kind) {
      case Binding::Kind::InRegister:
      case Binding::Kind::Global:
      case Binding::Kind::Field:
        return refer(*binding, target);
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
  const ArrayPath path = pushPath(*call.callee);
  const Register first = pushArguments(call.arguments, Passing::Value, {});
  std::vector<Register> placeLocks;
  const Register base = placeAt(path, placeLocks);
  noteElement(*call.callee, call.arguments);
  emit(Opcode::RefElement, target, base, first);
  emitWord(Instruction::fromPair(static_cast<std::uint32_t>(call.arguments.size()), locks[lock]));
  releaseLocks(placeLocks);
}

Register RoutineCompiler::placeOf(const Expression& expression) {
  if (const Binding* binding = bindName(expression)) {
    const bool isPlace = binding->isVariable() || binding->kind == Binding::Kind::Late;
    if (isPlace) return placeOfName(*binding, static_cast<const NameExpression&>(expression).name);
  }
  if (expression.kind == ExpressionKind::Member) {
    const ClassMember* own = scope_.ownMember(static_cast<const MemberExpression&>(expression));
    if (own && own->kind == ClassMember::Kind::Field) {
      const Register place = newTemporary();
      emit(Opcode::RefField, place, own->slot, routine_.me);
      return place;
    }
  }
  return operand(expression);
}

Register RoutineCompiler::placeOfName(const Binding& binding, const Identifier& name) {
  if (binding.kind == Binding::Kind::InRegister) return binding.index;
  const Register place = newTemporary();
  if (binding.isVariable()) {
    refer(binding, place);
  } else {
    emitName(Opcode::LateRef, place, binding.index, script_.optionExplicit(), name);
  }
  return place;
}

void RoutineCompiler::refer(const Binding& variable, Register target) {
  switch (variable.kind) {
    case Binding::Kind::Global:
      return emit(Opcode::RefGlobal, target, variable.index);
    case Binding::Kind::Field:
      return emit(Opcode::RefField, target, variable.index, routine_.me);
    default:
      VBS_ASSERT(variable.kind == Binding::Kind::InRegister);
      return emit(Opcode::RefVariable, target, variable.index);
  }
}

/// Evaluates the indexes on the way to an array, from left to right, and what stands there in place
/// of a variable.
RoutineCompiler::ArrayPath RoutineCompiler::pushPath(const Expression& array) {
  const Identifier* root = variableBelow(array);
  ArrayPath path{&array, kNoRegister, {}, {}};
  if (!root || !bind(*root).isVariable()) {
    if (array.kind != ExpressionKind::Name && !scope_.variableOf(array))
      path.value = placeOf(array);
    return path;
  }
  while (path.root->kind == ExpressionKind::Call) {
    const auto* level = static_cast<const CallExpression*>(path.root);
    path.levels.insert(path.levels.begin(), level);
    path.root = level->callee.get();
  }
  for (const auto* level : path.levels) {
    path.indexes.push_back(pushArguments(level->arguments, Passing::Value, {}));
  }
  return path;
}

/// A register with the array at the end of the path, or a reference to it: what follows locks the
/// arrays on the way until the caller releases `locks`. Evaluates nothing, which might move them.
Register RoutineCompiler::placeAt(const ArrayPath& path, std::vector<Register>& locks) {
  if (path.value != kNoRegister) return path.value;
  Register place = placeOf(*path.root);
  const Expression* array = path.root;
  for (std::size_t i = 0; i < path.levels.size(); ++i) {
    const CallExpression& level = *path.levels[i];
    const Register element = newTemporary();
    locks.push_back(newTemporary());
    noteElement(*array, level.arguments);
    emit(Opcode::RefElement, element, place, path.indexes[i]);
    emitWord(
        Instruction::fromPair(static_cast<std::uint32_t>(level.arguments.size()), locks.back()));
    place = element;
  }
  return place;
}

}  // namespace quorvane::vbs
