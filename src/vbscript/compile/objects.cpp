#include "vbscript/compile/objects.h"

#include "vbscript/compile/lowering.h"
#include "vbscript/compile/script_compiler.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

void ObjectLowering::compileMember(const MemberExpression& member, Register target) {
  if (scope_.ownMember(member) || scope_.hostObjectOf(member)) {
    return parts_.calls.callMember(member, {}, target);
  }
  const Temporaries temporaries(frame_);
  const Register object = objectFor(Opcode::GetElementMember, target, member);
  noteObject(member);
  code_.getMember(target, object, frame_.nextTemporary(), member.name);
}

/// The element of a variable that an expression is, with one index; else null.
const CallExpression* ObjectLowering::elementOfVariable(const Expression& expression) {
  if (expression.kind != ExpressionKind::Call) return nullptr;
  const auto& call = static_cast<const CallExpression&>(expression);
  const Binding* array = scope_.bindName(*call.callee);
  if (!array || !array->isVariable() || scope_.isResult(*array)) return nullptr;
  return call.arguments.size() == 1 && call.arguments[0] ? &call : nullptr;
}

Register ObjectLowering::objectFor(Opcode shortcut, Register value,
                                   const MemberExpression& member) {
  const CallExpression* element = member.object ? elementOfVariable(*member.object) : nullptr;
  if (!element) return objectOperand(member);
  const Register array = parts_.places.placeOf(*element->callee);
  const Register index = parts_.expressions.operand(*element->arguments[0]);
  const Register object = frame_.newTemporary();
  code_.emit(shortcut, value, array, index);
  notes_.noteElement(*element->callee, element->arguments);
  code_.emit(Opcode::GetElement, object, array, index);
  return object;
}

Register ObjectLowering::objectOperand(const MemberExpression& member) {
  if (member.object) return operandAsObject(*member.object);
  if (!withs_.empty()) return withs_.back();
  const Register object = frame_.newTemporary();
  pushObject(member, object);
  return object;
}

void ObjectLowering::pushObject(const MemberExpression& member, Register target) {
  if (member.object) return compileAsObject(*member.object, target);
  if (!withs_.empty()) return code_.emit(Opcode::Copy, target, withs_.back());
  code_.emitThrow(ErrorCode::InvalidReference, member.name);
}

void ObjectLowering::noteObject(const MemberExpression& member) {
  if (member.object) notes_.noteOperand(*member.object);
}

void ObjectLowering::compileAsObject(const Expression& expression, Register target) {
  bool isCalled = false;
  if (expression.kind == ExpressionKind::Call) {
    const auto& call = static_cast<const CallExpression&>(expression);
    isCalled = callsForObject(*call.callee, call.arguments, target);
  } else {
    isCalled = callsForObject(expression, {}, target);
  }
  if (!isCalled) parts_.expressions.compileTo(expression, target);
}

Register ObjectLowering::operandAsObject(const Expression& expression) {
  const bool isCall = expression.kind == ExpressionKind::Call ||
                      expression.kind == ExpressionKind::Member ||
                      (expression.kind == ExpressionKind::Name &&
                       scope_.bindName(expression)->kind == Binding::Kind::HostMember);
  if (!isCall) return parts_.expressions.operand(expression);
  const Register target = frame_.newTemporary();
  compileAsObject(expression, target);
  return target;
}

/// Calls a host's member for the object that it gives in place of its plain value. False when this
/// is no such member.
bool ObjectLowering::callsForObject(const Expression& callee, const Arguments& arguments,
                                    Register target) {
  const Binding* host = scope_.bindName(callee);
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
  parts_.calls.callHost(host->index, wanted, arguments, target);
  return true;
}

void ObjectLowering::compileWithBlock(const WithStatement& statement) {
  const HiddenVariables hidden(frame_);
  const Register object = frame_.newHidden();
  {
    const Temporaries temporaries(frame_);
    code_.emit(Opcode::Clear, object);
    const Register value = operandAsObject(*statement.object);
    notes_.noteOperand(*statement.object);
    code_.emit(Opcode::SetVariable, object, value);
  }
  withs_.push_back(object);
  parts_.statements.compileBlock(statement.body);
  VBS_ASSERT(withs_.back() == object);
  withs_.pop_back();
  notes_.beginStatement(statement.position);
  code_.emit(Opcode::Clear, object);
}

}  // namespace quorvane::vbs
