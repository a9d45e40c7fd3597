#include "vbscript/compile/expressions.h"

#include "vbscript/compile/lowering.h"
#include "vbscript/compile/script_compiler.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

namespace {

/// The operation with a constant on the right, or Halt when there is none.
Opcode withConstant(Opcode op) {
  switch (op) {
    case Opcode::Add:
      return Opcode::AddConstant;
    case Opcode::Subtract:
      return Opcode::SubtractConstant;
    case Opcode::Multiply:
      return Opcode::MultiplyConstant;
    case Opcode::Divide:
      return Opcode::DivideConstant;
    case Opcode::IntegerDivide:
      return Opcode::IntegerDivideConstant;
    case Opcode::Modulo:
      return Opcode::ModuloConstant;
    default:
      return Opcode::Halt;
  }
}

Opcode operationOf(BinaryOperator operation) {
  switch (operation) {
    case BinaryOperator::Add:
      return Opcode::Add;
    case BinaryOperator::Subtract:
      return Opcode::Subtract;
    case BinaryOperator::Multiply:
      return Opcode::Multiply;
    case BinaryOperator::Divide:
      return Opcode::Divide;
    case BinaryOperator::IntegerDivide:
      return Opcode::IntegerDivide;
    case BinaryOperator::Modulo:
      return Opcode::Modulo;
    case BinaryOperator::Power:
      return Opcode::Power;
    case BinaryOperator::Is:
      return Opcode::Is;
    case BinaryOperator::And:
      return Opcode::And;
    case BinaryOperator::Or:
      return Opcode::Or;
    case BinaryOperator::Xor:
      return Opcode::Xor;
    case BinaryOperator::Eqv:
      return Opcode::Eqv;
    case BinaryOperator::Imp:
      return Opcode::Imp;
    default:
      return Opcode::Concatenate;
  }
}

bool isNumber(const Value& value) {
  return value.is(Type::Integer) || value.is(Type::Long) || value.is(Type::Double);
}

}  // namespace

void ExpressionLowering::compileTo(const Expression& expression, Register target) {
  VBS_ASSERT(target < routine_.registerCount);
  const Register free = frame_.nextTemporary();
  lower(expression, target);
  VBS_ASSERT(frame_.nextTemporary() == free);
}

void ExpressionLowering::lower(const Expression& expression, Register target) {
  switch (expression.kind) {
    case ExpressionKind::Literal:
      return compileLiteral(static_cast<const LiteralExpression&>(expression).value, target);
    case ExpressionKind::Name:
      return compileName(static_cast<const NameExpression&>(expression), target);
    case ExpressionKind::Member:
      return parts_.objects.compileMember(static_cast<const MemberExpression&>(expression), target);
    case ExpressionKind::Call: {
      const auto& call = static_cast<const CallExpression&>(expression);
      return parts_.calls.compileCall(*call.callee, call.arguments, target);
    }
    case ExpressionKind::New:
      return compileNew(static_cast<const NewExpression&>(expression), target);
    case ExpressionKind::Me:
      return compileMe(target);
    case ExpressionKind::Unary:
      return compileUnary(static_cast<const UnaryExpression&>(expression), target);
    case ExpressionKind::Binary:
      return compileBinary(static_cast<const BinaryExpression&>(expression), target);
    case ExpressionKind::Parenthesized:
      return lower(*static_cast<const ParenthesizedExpression&>(expression).inner, target);
  }
}

Register ExpressionLowering::operand(const Expression& expression, Register scratch) {
  const Expression& inner = unwrapped(expression);
  if (const Binding* binding = scope_.bindName(inner)) {
    if (binding->kind == Binding::Kind::InRegister) return binding->index;
  }
  if (inner.kind == ExpressionKind::Me && routine_.me != kNoRegister) return routine_.me;
  const Register target = routine_.isTemporary(scratch) ? scratch : frame_.newTemporary();
  compileTo(inner, target);
  return target;
}

Register ExpressionLowering::operandBefore(const Expression& expression,
                                           const ExpressionFacts& next, Register scratch) {
  const Register r = operand(expression, scratch);
  const Binding* variable = scope_.bindName(unwrapped(expression));
  if (routine_.isTemporary(r) || !variable || !facts_.mayChange(next, *variable)) return r;
  const Register copy = routine_.isTemporary(scratch) ? scratch : frame_.newTemporary();
  code_.emit(Opcode::Copy, copy, r);
  return copy;
}

void ExpressionLowering::compileMe(Register target) {
  if (routine_.me == kNoRegister) {
    code_.emit(Opcode::Throw, static_cast<unsigned>(ErrorCode::ObjectRequired));
    return code_.emitPair(kNoName, 0);
  }
  code_.emit(routine_.isTemporary(target) ? Opcode::Copy : Opcode::Let, target, routine_.me);
}

/// A variable takes Nothing by Set only.
void ExpressionLowering::compileLiteral(const Value& value, Register target) {
  if (!value.isObject() || routine_.isTemporary(target)) return code_.loadConstant(target, value);
  const Temporaries temporaries(frame_);
  const Register nothing = frame_.newTemporary();
  code_.loadConstant(nothing, value);
  code_.emit(Opcode::Let, target, nothing);
}

void ExpressionLowering::compileName(const NameExpression& name, Register target) {
  using Kind = Binding::Kind;
  const Binding& binding = scope_.bind(name.name);
  switch (binding.kind) {
    case Kind::InRegister:
      return code_.emit(routine_.isTemporary(target) ? Opcode::Copy : Opcode::Let, target,
                        binding.index);
    case Kind::Global:
      return code_.emit(Opcode::LoadGlobal, target, binding.index);
    case Kind::Field:
      return code_.emit(Opcode::LoadField, target, binding.index, routine_.me);
    case Kind::Constant:
      return code_.loadConstant(target, *binding.constant);
    case Kind::HostObject:
      return code_.emit(Opcode::LoadHost, target, binding.index);
    case Kind::Late:
      return code_.emitName(Opcode::LateGet, target, binding.index, script_.optionExplicit(),
                            name.name);
    case Kind::Class:
    case Kind::Unresolved:
      return code_.emitThrow(ErrorCode::TypeMismatch, name.name);
    case Kind::Routine:
    case Kind::Own:
    case Kind::HostMember:
    case Kind::Intrinsic:
    case Kind::Scope:
      return parts_.calls.callName(name, {}, target);
  }
}

void ExpressionLowering::compileNew(const NewExpression& expression, Register target) {
  const Binding binding = script_.resolve(expression.className);
  const bool isBuiltIn = expression.className.lower == kRegExpClass;
  if (binding.kind == Binding::Kind::Class && !isBuiltIn) {
    return code_.emitPointer(Opcode::New, target, 0, 0, binding.scriptClass);
  }
  code_.emitName(Opcode::NewNamed, target, script_.optionExplicit(), 0, expression.className);
}

void ExpressionLowering::compileUnary(const UnaryExpression& unary, Register target) {
  const Temporaries temporaries(frame_);
  const Register value = operand(*unary.operand, target);
  switch (unary.operation) {
    case UnaryOperator::Negate:
      return code_.emit(Opcode::Negate, target, value);
    case UnaryOperator::Plus:
      return code_.emit(Opcode::Identity, target, value);
    case UnaryOperator::Not:
      return code_.emit(Opcode::Not, target, value);
  }
}

void ExpressionLowering::compileBinary(const BinaryExpression& binary, Register target) {
  if (ComparisonLowering::isComparison(binary))
    return parts_.comparisons.compileComparison(binary, target);
  if (binary.operation == BinaryOperator::Concatenate)
    return parts_.concatenations.compileConcatenation(binary, target);
  const Opcode op = operationOf(binary.operation);
  const Value* left = scope_.literal(*binary.left);
  const Value* right = scope_.literal(*binary.right);
  const bool takesNumber = withConstant(op) != Opcode::Halt;
  if (right && isNumber(*right) && takesNumber) {
    return compileWithNumber(op, *binary.left, *right, target);
  }
  const bool commutes = op == Opcode::Add || op == Opcode::Multiply;
  if (left && isNumber(*left) && !right && commutes) {
    return compileWithNumber(op, *binary.right, *left, target);
  }
  const Temporaries temporaries(frame_);
  const Register l = operandBefore(*binary.left, facts_.of(*binary.right), target);
  const Register r = operand(*binary.right, l == target ? kNoRegister : target);
  code_.emit(op, target, l, r);
}

/// The number stands on the right.
void ExpressionLowering::compileWithNumber(Opcode op, const Expression& left, const Value& number,
                                           Register target) {
  const Temporaries temporaries(frame_);
  const Register l = operand(left, target);
  const bool additive = op == Opcode::Add || op == Opcode::Subtract;
  if (additive && number.is(Type::Integer)) {
    const Opcode immediate = op == Opcode::Add ? Opcode::AddInteger : Opcode::SubtractInteger;
    return code_.emit(immediate, target, l, static_cast<std::uint16_t>(number.asInt()));
  }
  if (const auto near = code_.nearConstant(number)) {
    return code_.emit(withConstant(op), target, l, *near);
  }
  const Register r = frame_.newTemporary();
  code_.loadConstant(r, number);
  code_.emit(op, target, l, r);
}

}  // namespace quorvane::vbs
