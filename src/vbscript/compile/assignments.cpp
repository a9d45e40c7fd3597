#include <algorithm>

#include "vbscript/compile/compiler.h"

namespace quorvane::vbs {

void RoutineCompiler::assign(const AssignStatement& statement) {
  const Expression& value = *statement.value;
  if (!statement.isSet && appendToVariable(*statement.target, value)) return;
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

void RoutineCompiler::assignName(const NameExpression& target, const Expression& value,
                                 bool isSet) {
  assignBound(bind(target.name), target.name, value, isSet);
}

void RoutineCompiler::assignBound(const Binding& binding, const Identifier& name,
                                  const Expression& value, bool isSet) {
  using Kind = Binding::Kind;
  const Temporaries temporaries(*this);
  switch (binding.kind) {
    case Kind::InRegister: {
      if (!isSet) return compileTo(value, binding.index);
      const Register source = operandAsObject(value);
      noteOperand(value);
      return emit(Opcode::SetVariable, binding.index, source);
    }
    case Kind::Global: {
      const Register source = isSet ? operandAsObject(value) : operand(value);
      noteOperand(value);
      return emit(isSet ? Opcode::SetGlobal : Opcode::LetGlobal, source, binding.index);
    }
    case Kind::Field: {
      const Register source = isSet ? operandAsObject(value) : operand(value);
      noteOperand(value);
      return emit(isSet ? Opcode::SetField : Opcode::LetField, source, binding.index, routine_.me);
    }
    case Kind::Own:
      return assignOwn(*binding.own, name, {}, value, isSet);
    case Kind::HostObject:
      return assignHost(binding.index, kDefaultMember, {}, value, isSet);
    case Kind::HostMember:
      return assignHost(binding.index, binding.member, {}, value, isSet);
    case Kind::Late: {
      const Register source = operand(value);
      emit(Opcode::LatePut, source, binding.index, isSet);
      return emitWord(
          Instruction::fromPair(script_.nameIndex(name), script_.optionExplicit() ? 1 : 0));
    }
    default: {
      const Register source = newTemporary();
      compileTo(value, source);
      emit(Opcode::Clear, source);
      return emitThrow(ErrorCode::IllegalAssignment, name);
    }
  }
}

void RoutineCompiler::assignMember(const MemberExpression& target, const Expression& value,
                                   bool isSet) {
  if (const ClassMember* member = scope_.ownMember(target)) {
    return assignOwn(*member, target.name, {}, value, isSet);
  }
  if (const Binding* host = scope_.hostObjectOf(target)) {
    return assignHost(host->index, scope_.hostMember(*host, target.name), {}, value, isSet);
  }
  if (!isSet && appendToMember(target, value)) return;
  const Temporaries temporaries(*this);
  const ExpressionFacts objectFacts = target.object ? facts_.of(*target.object) : ExpressionFacts();
  const Register source = operandBefore(value, objectFacts, kNoRegister);
  const Register object = objectOperand(target);
  noteObject(target);
  emitMember(Opcode::PutMember, object, source, isSet, target.name);
}

void RoutineCompiler::assignCall(const CallExpression& target, const Expression& value,
                                 bool isSet) {
  using Kind = Binding::Kind;
  if (const Binding* binding = bindName(*target.callee)) {
    const Identifier& name = static_cast<const NameExpression&>(*target.callee).name;
    switch (binding->kind) {
      case Kind::HostObject:
        return assignHost(binding->index, kDefaultMember, target.arguments, value, isSet);
      case Kind::HostMember:
        return assignHost(binding->index, binding->member, target.arguments, value, isSet);
      case Kind::Own:
        return assignOwn(*binding->own, name, target.arguments, value, isSet);
      case Kind::InRegister:
      case Kind::Global:
      case Kind::Field:
      case Kind::Late:
        return assignElement(target, value, isSet);
      default:
        if (binding->kind == Kind::Routine) return assignElement(target, value, isSet);
        return emitThrow(ErrorCode::TypeMismatch, name);
    }
  }
  if (target.callee->kind != ExpressionKind::Member) return assignElement(target, value, isSet);
  const auto& member = static_cast<const MemberExpression&>(*target.callee);
  if (const ClassMember* own = scope_.ownMember(member)) {
    return assignOwn(*own, member.name, target.arguments, value, isSet);
  }
  if (const Binding* host = scope_.hostObjectOf(member)) {
    return assignHost(host->index, scope_.hostMember(*host, member.name), target.arguments, value,
                      isSet);
  }
  const Temporaries temporaries(*this);
  const Register base = newTemporary();
  pushObject(member, base);
  pushArguments(target.arguments, Passing::Value, {});
  compileTo(value, newTemporary());
  noteObject(member);
  emitMember(Opcode::PutMemberArguments, base, static_cast<unsigned>(target.arguments.size()),
             isSet, member.name);
}

void RoutineCompiler::assignElement(const CallExpression& target, const Expression& value,
                                    bool isSet) {
  if (!isSet && appendToElement(target, value)) return;
  const Temporaries temporaries(*this);
  const auto& indexes = target.arguments;
  bool simple = !isSet && (indexes.size() == 1 || indexes.size() == 2);
  for (const auto& index : indexes) simple = simple && index;
  std::vector<Register> locks;
  if (!simple) {
    const ArrayPath path = pushPath(*target.callee);
    const Register first = pushArguments(indexes, Passing::Value, {});
    compileTo(value, newTemporary());
    const Register base = placeAt(path, locks);
    noteElement(*target.callee, indexes);
    emit(isSet ? Opcode::SetElementObject : Opcode::SetElementMany, base, first,
         static_cast<unsigned>(indexes.size()));
    return releaseLocks(locks);
  }
  ExpressionFacts later = facts_.of(indexes);
  if (target.callee->kind != ExpressionKind::Name) later.add(facts_.of(*target.callee));
  const Register source = operandBefore(value, later, kNoRegister);
  const ArrayPath path = pushPath(*target.callee);
  const Register first = indexes.size() == 2
                             ? operandBefore(*indexes[0], facts_.of(*indexes[1]), kNoRegister)
                             : operand(*indexes[0]);
  const Register second = indexes.size() == 2 ? operand(*indexes[1]) : kNoRegister;
  const Register base = placeAt(path, locks);
  noteElement(*target.callee, indexes);
  if (indexes.size() == 1) {
    emit(Opcode::SetElement, base, first, source);
  } else {
    emit(Opcode::SetElement2, base, first, source);
    emitWord(Instruction::fromPair(second, 0));
  }
  releaseLocks(locks);
}

void RoutineCompiler::assignHost(unsigned object, MemberId member,
                                 const std::vector<ExpressionPtr>& arguments,
                                 const Expression& value, bool isSet) {
  const Temporaries temporaries(*this);
  const Register first = pushArguments(arguments, Passing::Value, {});
  compileTo(value, newTemporary());
  emit(Opcode::PutHost, first, static_cast<unsigned>(arguments.size()), isSet);
  emitWord(Instruction::fromPair(object, static_cast<std::uint32_t>(member)));
}

/// A property or field of the class being compiled.
void RoutineCompiler::assignOwn(const ClassMember& member, const Identifier& name,
                                const std::vector<ExpressionPtr>& arguments,
                                const Expression& value, bool isSet) {
  const Temporaries temporaries(*this);
  if (member.kind == ClassMember::Kind::Field) {
    if (arguments.empty()) {
      const Register source = isSet ? operandAsObject(value) : operand(value);
      noteOperand(value);
      return emit(isSet ? Opcode::SetField : Opcode::LetField, source, member.slot, routine_.me);
    }
    const Register first = pushArguments(arguments, Passing::Value, {});
    compileTo(value, newTemporary());
    const Register base = newTemporary();
    emit(Opcode::RefField, base, member.slot, routine_.me);
    return emit(isSet ? Opcode::SetElementObject : Opcode::SetElementMany, base, first,
                static_cast<unsigned>(arguments.size()));
  }
  const Routine* routine = isSet ? member.set : member.let;
  if (!routine || arguments.size() + 1 != routine->parameterCount) {
    return emitThrow(routine ? ErrorCode::WrongArgumentCount : ErrorCode::NoPropertyOrMethod, name);
  }
  const Register first = pushArguments(arguments, Passing::Value, {});
  compileTo(value, newTemporary());
  emitPointer(Opcode::CallOwn, kNoRegister, first, static_cast<unsigned>(arguments.size()) + 1,
              routine);
}

}  // namespace quorvane::vbs
