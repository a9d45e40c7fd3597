#include "vbscript/compile/assignments.h"

#include "vbscript/compile/lowering.h"
#include "vbscript/compile/script_compiler.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

void AssignmentLowering::assign(const AssignStatement& statement) {
  const Expression& value = *statement.value;
  if (!statement.isSet && parts_.appends.appendToVariable(*statement.target, value)) return;
  switch (statement.target->kind) {
    case ExpressionKind::Name:
      return assignName(static_cast<const NameExpression&>(*statement.target), value,
                        statement.isSet);
    case ExpressionKind::Member:
      return assignMember(static_cast<const MemberExpression&>(*statement.target), value,
                          statement.isSet);
    default:
      return assignCall(static_cast<const CallExpression&>(*statement.target), value,
                        statement.isSet);
  }
}

void AssignmentLowering::assignName(const NameExpression& target, const Expression& value,
                                    bool isSet) {
  using Kind = Binding::Kind;
  const Identifier& name = target.name;
  const Binding& binding = scope_.bind(name);
  const Temporaries temporaries(frame_);
  switch (binding.kind) {
    case Kind::InRegister:
    case Kind::Global:
    case Kind::Field:
      return assignVariable(binding, value, isSet);
    case Kind::Own:
      return assignOwn(*binding.own, name, {}, value, isSet);
    case Kind::HostObject:
      return assignHost(binding.index, kDefaultMember, {}, value, isSet);
    case Kind::HostMember:
      return assignHost(binding.index, binding.member, {}, value, isSet);
    case Kind::Late: {
      const Register source = parts_.expressions.operand(value);
      code_.emit(Opcode::LatePut, source, binding.index, isSet);
      return code_.emitPair(script_.nameIndex(name), script_.optionExplicit() ? 1 : 0);
    }
    default: {
      const Register source = frame_.newTemporary();
      parts_.expressions.compileTo(value, source);
      code_.emit(Opcode::Clear, source);
      return code_.emitThrow(ErrorCode::IllegalAssignment, name);
    }
  }
}

/// A register with the value; errors of storing it name it.
Register AssignmentLowering::valueToStore(const Expression& value, bool isSet) {
  const Register source =
      isSet ? parts_.objects.operandAsObject(value) : parts_.expressions.operand(value);
  notes_.noteOperand(value);
  return source;
}

void AssignmentLowering::assignVariable(const Binding& binding, const Expression& value,
                                        bool isSet) {
  if (binding.kind == Binding::Kind::InRegister) {
    if (!isSet) return parts_.expressions.compileTo(value, binding.index);
    const Register source = valueToStore(value, true);
    return code_.emit(Opcode::SetVariable, binding.index, source);
  }
  const Register source = valueToStore(value, isSet);
  if (binding.kind == Binding::Kind::Global) {
    return code_.emit(isSet ? Opcode::SetGlobal : Opcode::LetGlobal, source, binding.index);
  }
  VBS_ASSERT(binding.kind == Binding::Kind::Field);
  code_.emit(isSet ? Opcode::SetField : Opcode::LetField, source, binding.index, routine_.me);
}

void AssignmentLowering::assignMember(const MemberExpression& target, const Expression& value,
                                      bool isSet) {
  if (const ClassMember* member = scope_.ownMember(target)) {
    return assignOwn(*member, target.name, {}, value, isSet);
  }
  if (const Binding* host = scope_.hostObjectOf(target)) {
    return assignHost(host->index, scope_.hostMember(*host, target.name), {}, value, isSet);
  }
  if (!isSet && parts_.appends.appendToMember(target, value)) return;
  const Temporaries temporaries(frame_);
  const ExpressionFacts objectFacts = target.object ? facts_.of(*target.object) : ExpressionFacts();
  const Register source = parts_.expressions.operandBefore(value, objectFacts);
  const Register object = isSet
                              ? parts_.objects.objectOperand(target)
                              : parts_.objects.objectFor(Opcode::PutElementMember, source, target);
  parts_.objects.noteObject(target);
  code_.putMember(object, source, isSet, target.name);
}

void AssignmentLowering::assignCall(const CallExpression& target, const Expression& value,
                                    bool isSet) {
  if (target.callee->kind == ExpressionKind::Name) return assignNameCall(target, value, isSet);
  if (target.callee->kind != ExpressionKind::Member) return assignElement(target, value, isSet);
  const auto& member = static_cast<const MemberExpression&>(*target.callee);
  if (const ClassMember* own = scope_.ownMember(member)) {
    return assignOwn(*own, member.name, target.arguments, value, isSet);
  }
  if (const Binding* host = scope_.hostObjectOf(member)) {
    return assignHost(host->index, scope_.hostMember(*host, member.name), target.arguments, value,
                      isSet);
  }
  const Temporaries temporaries(frame_);
  const Register base = frame_.newTemporary();
  parts_.objects.pushObject(member, base);
  parts_.arguments.pushArguments(target.arguments, Passing::Value);
  parts_.expressions.compileTo(value, frame_.newTemporary());
  parts_.objects.noteObject(member);
  code_.emitMember(Opcode::PutMemberArguments, base, static_cast<unsigned>(target.arguments.size()),
                   isSet, member.name);
}

/// `name(arguments) = value`
void AssignmentLowering::assignNameCall(const CallExpression& target, const Expression& value,
                                        bool isSet) {
  using Kind = Binding::Kind;
  const Identifier& name = static_cast<const NameExpression&>(*target.callee).name;
  const Binding& binding = scope_.bind(name);
  switch (binding.kind) {
    case Kind::HostObject:
      return assignHost(binding.index, kDefaultMember, target.arguments, value, isSet);
    case Kind::HostMember:
      return assignHost(binding.index, binding.member, target.arguments, value, isSet);
    case Kind::Own:
      return assignOwn(*binding.own, name, target.arguments, value, isSet);
    case Kind::InRegister:
    case Kind::Global:
    case Kind::Field:
    case Kind::Late:
    case Kind::Routine:
      return assignElement(target, value, isSet);
    default:
      return code_.emitThrow(ErrorCode::TypeMismatch, name);
  }
}

/// `a(i) = a(i) + 1`: an operation that does it at once where it can, in front of the three that do
/// it with all its turns.
void AssignmentLowering::addInPlace(const CallExpression& target, const Expression& value) {
  if (value.kind != ExpressionKind::Binary) return;
  const auto& sum = static_cast<const BinaryExpression&>(value);
  const bool isAdd = sum.operation == BinaryOperator::Add;
  if (!isAdd && sum.operation != BinaryOperator::Subtract) return;
  const Value* number = scope_.literal(*sum.right);
  if (!number || !number->is(Type::Integer) || !parts_.appends.isSameElement(target, *sum.left)) {
    return;
  }
  const Binding* array = scope_.bindName(*target.callee);
  const Binding* index = scope_.bindName(*target.arguments[0]);
  const auto isNear = [](const Binding* b) { return b && b->kind == Binding::Kind::InRegister; };
  if (!isNear(array) || !isNear(index) || number->asInt() == INT16_MIN) return;
  const std::int32_t added = isAdd ? number->asInt() : -number->asInt();
  code_.emit(Opcode::AddToElement, array->index, index->index, static_cast<std::uint16_t>(added));
}

void AssignmentLowering::assignElement(const CallExpression& target, const Expression& value,
                                       bool isSet) {
  if (!isSet && parts_.appends.appendToElement(target, value)) return;
  if (!isSet) addInPlace(target, value);
  const Arguments& indexes = target.arguments;
  const bool isMany = indexes.empty() || indexes.size() > 2 || hasOmitted(indexes);
  if (isSet || isMany) return assignElementMany(target, value, isSet);
  const Temporaries temporaries(frame_);
  ExpressionLowering& expressions = parts_.expressions;
  ExpressionFacts later = facts_.of(indexes);
  if (target.callee->kind != ExpressionKind::Name) later.add(facts_.of(*target.callee));
  const auto constant = indexes.size() == 1 ? nearConstantOf(value) : std::nullopt;
  const Register source = constant ? kNoRegister : expressions.operandBefore(value, later);
  const auto path = parts_.places.pushPath(*target.callee);
  std::vector<Register> locks;
  if (indexes.size() == 1) {
    const Register index = expressions.operand(*indexes[0]);
    const Register base = parts_.places.placeAt(path, locks);
    notes_.noteElement(*target.callee, indexes);
    code_.emit(constant ? Opcode::SetElementConstant : Opcode::SetElement, base, index,
               constant.value_or(source));
  } else {
    const Register row = expressions.operandBefore(*indexes[0], facts_.of(*indexes[1]));
    const Register column = expressions.operand(*indexes[1]);
    const Register base = parts_.places.placeAt(path, locks);
    notes_.noteElement(*target.callee, indexes);
    code_.emit(Opcode::SetElement2, base, row, source);
    code_.emitPair(column, 0);
  }
  parts_.places.releaseLocks(locks);
}

/// The number of a constant that can be stored from where it is.
std::optional<std::uint16_t> AssignmentLowering::nearConstantOf(const Expression& value) {
  const Value* constant = scope_.literal(value);
  return constant ? code_.nearConstant(*constant) : std::nullopt;
}

/// With any indexes, and with Set: they are evaluated before the value.
void AssignmentLowering::assignElementMany(const CallExpression& target, const Expression& value,
                                           bool isSet) {
  const Temporaries temporaries(frame_);
  const auto path = parts_.places.pushPath(*target.callee);
  const Register first = parts_.arguments.pushArguments(target.arguments, Passing::Value);
  parts_.expressions.compileTo(value, frame_.newTemporary());
  std::vector<Register> locks;
  const Register base = parts_.places.placeAt(path, locks);
  notes_.noteElement(*target.callee, target.arguments);
  code_.emit(isSet ? Opcode::SetElementObject : Opcode::SetElementMany, base, first,
             static_cast<unsigned>(target.arguments.size()));
  parts_.places.releaseLocks(locks);
}

void AssignmentLowering::assignHost(unsigned object, MemberId member, const Arguments& arguments,
                                    const Expression& value, bool isSet) {
  VBS_ASSERT(object < script_.context().host.size());
  const Temporaries temporaries(frame_);
  const Register first = parts_.arguments.pushArguments(arguments, Passing::Value);
  parts_.expressions.compileTo(value, frame_.newTemporary());
  code_.emit(Opcode::PutHost, first, static_cast<unsigned>(arguments.size()), isSet);
  code_.emitPair(object, static_cast<std::uint32_t>(member));
}

/// A property or field of the class being compiled.
void AssignmentLowering::assignOwn(const ClassMember& member, const Identifier& name,
                                   const Arguments& arguments, const Expression& value,
                                   bool isSet) {
  const Temporaries temporaries(frame_);
  if (member.kind == ClassMember::Kind::Field) {
    if (arguments.empty()) {
      const Register source = valueToStore(value, isSet);
      return code_.emit(isSet ? Opcode::SetField : Opcode::LetField, source, member.slot,
                        routine_.me);
    }
    const Register first = parts_.arguments.pushArguments(arguments, Passing::Value);
    parts_.expressions.compileTo(value, frame_.newTemporary());
    const Register base = frame_.newTemporary();
    code_.emit(Opcode::RefField, base, member.slot, routine_.me);
    return code_.emit(isSet ? Opcode::SetElementObject : Opcode::SetElementMany, base, first,
                      static_cast<unsigned>(arguments.size()));
  }
  const Routine* routine = isSet ? member.set : member.let;
  if (!routine || arguments.size() + 1 != routine->parameterCount) {
    return code_.emitThrow(routine ? ErrorCode::WrongArgumentCount : ErrorCode::NoPropertyOrMethod,
                           name);
  }
  const Register first = parts_.arguments.pushArguments(arguments, Passing::Value);
  parts_.expressions.compileTo(value, frame_.newTemporary());
  code_.emitPointer(Opcode::CallOwn, kNoRegister, first,
                    static_cast<unsigned>(arguments.size()) + 1, routine);
}

}  // namespace quorvane::vbs
