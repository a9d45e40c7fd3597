#include "vbscript/compile/calls.h"

#include "vbscript/compile/lowering.h"
#include "vbscript/compile/script_compiler.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

namespace {

/// Some functions of one argument have an operation of their own.
Opcode operationOf(const Intrinsic& function) {
  static constexpr std::pair<std::string_view, Opcode> kOperations[] = {
      {"sqr", Opcode::Sqr}, {"abs", Opcode::Abs}, {"int", Opcode::Int}, {"fix", Opcode::Fix},
      {"len", Opcode::Len}, {"asc", Opcode::Asc}, {"chr", Opcode::Chr}, {"ubound", Opcode::UBound},
  };
  for (const auto& [name, operation] : kOperations) {
    if (function.name == name) return operation;
  }
  return Opcode::CallIntrinsicOne;
}

}  // namespace

void CallLowering::compileCall(const Expression& callee, const Arguments& arguments,
                               Register target) {
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

void CallLowering::callName(const NameExpression& callee, const Arguments& arguments,
                            Register target) {
  using Kind = Binding::Kind;
  const Binding& binding = scope_.bind(callee.name);
  switch (binding.kind) {
    case Kind::InRegister:
      if (callsOwnFunction(binding, callee.name, arguments, target)) return;
      return callVariable(callee, arguments, target);
    case Kind::Global:
    case Kind::Field:
      return callVariable(callee, arguments, target);
    case Kind::Routine:
      return callRoutine(*binding.routine, callee.name, arguments, target, false);
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
    case Kind::Late:
      return callLate(binding, callee.name, arguments, target);
    case Kind::Constant:
    case Kind::Class:
    case Kind::Unresolved:
      return code_.emitThrow(ErrorCode::TypeMismatch, callee.name);
  }
}

void CallLowering::callLate(const Binding& binding, const Identifier& name,
                            const Arguments& arguments, Register target) {
  const Temporaries temporaries(frame_);
  const auto locks = parts_.arguments.newLocks(arguments);
  const Register first = parts_.arguments.pushArguments(arguments, Passing::Unknown, locks);
  code_.emit(Opcode::LateCall, target, first, static_cast<unsigned>(arguments.size()));
  code_.emitPair(script_.nameIndex(name),
                 std::uint32_t{binding.index} | (script_.optionExplicit() ? 0x10000u : 0u));
  parts_.places.releaseLocks(locks);
}

/// A function's own name with parentheses, in its body, calls it again.
bool CallLowering::callsOwnFunction(const Binding& binding, const Identifier& name,
                                    const Arguments& arguments, Register target) {
  if (!scope_.isResult(binding)) return false;
  if (const ClassMember* member = routine_.owner ? routine_.owner->find(name.lower) : nullptr) {
    if (!member->get) return false;
    callOwn(*member, name, arguments, target);
    return true;
  }
  const Binding global = script_.resolve(name);
  if (global.kind != Binding::Kind::Routine) return false;
  callRoutine(*global.routine, name, arguments, target, false);
  return true;
}

void CallLowering::callVariable(const Expression& callee, const Arguments& arguments,
                                Register target) {
  if (target == kNoRegister || arguments.empty()) return callValue(callee, arguments, target);
  getElement(callee, arguments, target);
}

void CallLowering::callValue(const Expression& callee, const Arguments& arguments,
                             Register target) {
  const Temporaries temporaries(frame_);
  const auto locks = parts_.arguments.newLocks(arguments);
  const Register base = frame_.newTemporary();
  parts_.objects.compileAsObject(callee, base);
  parts_.arguments.pushArguments(arguments, Passing::Unknown, locks);
  notes_.noteOperand(callee);
  code_.emit(Opcode::CallValue, target, base, static_cast<unsigned>(arguments.size()));
  parts_.places.releaseLocks(locks);
}

void CallLowering::getElement(const Expression& array, const Arguments& indexes, Register target) {
  const Temporaries temporaries(frame_);
  const Binding* binding = scope_.bindName(array);
  const bool isPlace = binding && binding->isVariable();
  const Register base =
      isPlace ? parts_.places.placeOf(array) : parts_.objects.operandAsObject(array);
  if (indexes.size() > 2 || hasOmitted(indexes)) {
    const Register first = parts_.arguments.pushArguments(indexes, Passing::Value);
    notes_.noteElement(array, indexes);
    code_.emit(Opcode::GetElementMany, target, base, first);
    return code_.emitPair(static_cast<std::uint32_t>(indexes.size()), 0);
  }
  if (indexes.size() == 1) {
    const Register index = parts_.expressions.operand(*indexes[0]);
    notes_.noteElement(array, indexes);
    return code_.emit(Opcode::GetElement, target, base, index);
  }
  const Register row = parts_.expressions.operandBefore(*indexes[0], facts_.of(*indexes[1]));
  const Register column = parts_.expressions.operand(*indexes[1]);
  notes_.noteElement(array, indexes);
  code_.emit(Opcode::GetElement2, target, base, row);
  code_.emitPair(column, 0);
}

void CallLowering::callRoutine(const Routine& routine, const Identifier& name,
                               const Arguments& arguments, Register target, bool own) {
  if (arguments.size() != routine.parameterCount) {
    return code_.emitThrow(ErrorCode::WrongArgumentCount, name);
  }
  VBS_ASSERT(!own || routine_.me != kNoRegister);
  const Temporaries temporaries(frame_);
  const auto locks = parts_.arguments.newLocks(arguments);
  const Register first = parts_.arguments.pushRoutineArguments(arguments, routine, locks);
  const Opcode op = own                       ? Opcode::CallOwn
                    : script_.isReplaceable() ? Opcode::CallReplaceable
                                              : Opcode::Call;
  code_.emitPointer(op, target, first, static_cast<unsigned>(arguments.size()), &routine);
  parts_.places.releaseLocks(locks);
}

void CallLowering::callOwn(const ClassMember& member, const Identifier& name,
                           const Arguments& arguments, Register target) {
  if (member.get) return callRoutine(*member.get, name, arguments, target, true);
  if (member.kind == ClassMember::Kind::Constant && target != kNoRegister) {
    return code_.loadConstant(target, member.constant);
  }
  if (member.kind != ClassMember::Kind::Field) {
    return code_.emitThrow(ErrorCode::NoPropertyOrMethod, name);
  }
  if (arguments.empty() && target != kNoRegister) {
    return code_.emit(Opcode::LoadField, target, member.slot, routine_.me);
  }
  const Temporaries temporaries(frame_);
  const Register base = frame_.newTemporary();
  code_.emit(Opcode::LoadField, base, member.slot, routine_.me);
  parts_.arguments.pushArguments(arguments, Passing::Value);
  code_.emit(Opcode::CallValue, target, base, static_cast<unsigned>(arguments.size()));
}

void CallLowering::callIntrinsic(const Intrinsic& intrinsic, const Identifier& name,
                                 const Arguments& arguments, Register target) {
  const std::size_t count = arguments.size();
  if (count < intrinsic.minArgs || (count > intrinsic.maxArgs && intrinsic.maxArgs != 255)) {
    return code_.emitThrow(ErrorCode::WrongArgumentCount, name);
  }
  if (target == kNoRegister && isConversion(intrinsic)) {
    return code_.emitThrow(ErrorCode::UnsupportedType, name);
  }
  const Temporaries temporaries(frame_);
  if (count == 1 && arguments[0] && target != kNoRegister) {
    const Binding* binding = scope_.bindName(*arguments[0]);
    const bool isPlace = binding && binding->isVariable();
    const Register argument = isPlace ? parts_.places.placeOf(*arguments[0])
                                      : parts_.expressions.operand(*arguments[0], target);
    return code_.emitPointer(operationOf(intrinsic), target, argument, 0, &intrinsic);
  }
  const bool isMid = intrinsic.name == "mid" && count == 3 && target != kNoRegister;
  Label done;
  if (isMid) takeCharacter(arguments, target, done);
  const Register first = parts_.arguments.pushLibraryArguments(intrinsic, arguments);
  code_.emitPointer(isMid ? Opcode::Mid : Opcode::CallIntrinsic, target, first,
                    static_cast<unsigned>(count), &intrinsic);
  if (isMid) code_.place(done);
}

/// One character of a text by its place, as loops over texts ask for it, is tried without a call.
void CallLowering::takeCharacter(const Arguments& arguments, Register target, Label& done) {
  const auto inRegister = [&](const ExpressionPtr& argument) {
    const Binding* binding = argument ? scope_.bindName(*argument) : nullptr;
    return binding && binding->kind == Binding::Kind::InRegister ? binding->index : kNoRegister;
  };
  const Value* count = arguments[2] ? scope_.literal(*arguments[2]) : nullptr;
  const Register text = inRegister(arguments[0]);
  const Register place = inRegister(arguments[1]);
  if (text == kNoRegister || place == kNoRegister || !count || !count->is(Type::Integer) ||
      count->asInt() != 1) {
    return;
  }
  code_.emitFarJump(Opcode::Character, target, text, place, done);
}

void CallLowering::callScopeFunction(ScopeFunction function, const Identifier& name,
                                     const Arguments& arguments, Register target) {
  if (arguments.size() != 1 || !arguments[0]) {
    return code_.emitThrow(ErrorCode::WrongArgumentCount, name);
  }
  const Temporaries temporaries(frame_);
  const Register text = parts_.expressions.operand(*arguments[0]);
  const Register result = target == kNoRegister ? frame_.newTemporary() : target;
  switch (function) {
    case ScopeFunction::Eval:
      code_.emit(Opcode::EvaluateText, result, text);
      break;
    case ScopeFunction::GetRef:
      code_.emit(Opcode::GetRef, result, text);
      break;
    case ScopeFunction::Execute:
    case ScopeFunction::ExecuteGlobal:
      return code_.emit(Opcode::ExecuteText, text, function == ScopeFunction::ExecuteGlobal);
  }
  if (target == kNoRegister) code_.emit(Opcode::Clear, result);
}

void CallLowering::callHost(unsigned object, MemberId member, const Arguments& arguments,
                            Register target) {
  VBS_ASSERT(object < script_.context().host.size());
  const Temporaries temporaries(frame_);
  const Register first = parts_.arguments.pushArguments(arguments, Passing::Host);
  code_.emitHostCall(target, first, static_cast<unsigned>(arguments.size()), object, member);
}

bool CallLowering::isInRegister(const Expression* expression) const {
  const Binding* binding = expression ? scope_.bindName(*expression) : nullptr;
  return binding && binding->kind == Binding::Kind::InRegister && !scope_.isResult(*binding);
}

/// The object whose member is called. With one simple argument the call may be done here: the
/// machine finds the operands in the operations that follow.
void CallLowering::pushReceiver(const MemberExpression& callee, const Arguments& arguments,
                                Register target) {
  const Expression* argument = arguments.size() == 1 ? arguments[0].get() : nullptr;
  if (!argument || !isInRegister(callee.object.get())) {
    return parts_.objects.pushObject(callee, target);
  }
  const Register object = scope_.bindName(*callee.object)->index;
  if (isInRegister(argument)) return code_.emit(Opcode::CallNative, target, object);
  if (argument->kind == ExpressionKind::Call) {
    const auto& element = static_cast<const CallExpression&>(*argument);
    const bool isSimple = isInRegister(element.callee.get()) && element.arguments.size() == 1 &&
                          isInRegister(element.arguments[0].get());
    if (isSimple) return code_.emit(Opcode::CallNativeElement, target, object);
  }
  parts_.objects.pushObject(callee, target);
}

void CallLowering::callMember(const MemberExpression& callee, const Arguments& arguments,
                              Register target) {
  if (const ClassMember* member = scope_.ownMember(callee)) {
    return callOwn(*member, callee.name, arguments, target);
  }
  if (const Binding* host = scope_.hostObjectOf(callee)) {
    return callHost(host->index, scope_.hostMember(*host, callee.name), arguments, target);
  }
  const Temporaries temporaries(frame_);
  const auto locks = parts_.arguments.newLocks(arguments);
  const Register base = frame_.newTemporary();
  pushReceiver(callee, arguments, base);
  parts_.arguments.pushArguments(arguments, Passing::Unknown, locks);
  parts_.objects.noteObject(callee);
  code_.emitMember(Opcode::CallMember, target, base, static_cast<unsigned>(arguments.size()),
                   callee.name);
  parts_.places.releaseLocks(locks);
}

}  // namespace quorvane::vbs
