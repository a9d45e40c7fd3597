#include <algorithm>

#include "vbscript/compile/compiler.h"

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

bool isComparison(BinaryOperator operation) {
  return operation >= BinaryOperator::Equal && operation <= BinaryOperator::GreaterOrEqual;
}

/// The comparison with its sides exchanged.
BinaryOperator mirrored(BinaryOperator operation) {
  switch (operation) {
    case BinaryOperator::Less:
      return BinaryOperator::Greater;
    case BinaryOperator::LessOrEqual:
      return BinaryOperator::GreaterOrEqual;
    case BinaryOperator::Greater:
      return BinaryOperator::Less;
    case BinaryOperator::GreaterOrEqual:
      return BinaryOperator::LessOrEqual;
    default:
      return operation;
  }
}

/// How the machine spells a comparison.
struct Comparison {
  Opcode registers;
  Opcode constant;
  Opcode jumpRegisters;
  Opcode jumpConstant;
};

Comparison comparisonOf(BinaryOperator operation) {
  switch (operation) {
    case BinaryOperator::NotEqual:
      return {Opcode::NotEqual, Opcode::NotEqualConstant, Opcode::JumpNotEqual,
              Opcode::JumpNotEqualConstant};
    case BinaryOperator::Less:
      return {Opcode::Less, Opcode::LessConstant, Opcode::JumpLess, Opcode::JumpLessConstant};
    case BinaryOperator::LessOrEqual:
      return {Opcode::LessOrEqual, Opcode::LessOrEqualConstant, Opcode::JumpLessOrEqual,
              Opcode::JumpLessOrEqualConstant};
    case BinaryOperator::Greater:
      return {Opcode::Greater, Opcode::GreaterConstant, Opcode::JumpGreater,
              Opcode::JumpGreaterConstant};
    case BinaryOperator::GreaterOrEqual:
      return {Opcode::GreaterOrEqual, Opcode::GreaterOrEqualConstant, Opcode::JumpGreaterOrEqual,
              Opcode::JumpGreaterOrEqualConstant};
    default:
      return {Opcode::Equal, Opcode::EqualConstant, Opcode::JumpEqual, Opcode::JumpEqualConstant};
  }
}

bool isNumber(const Value& value) {
  return value.is(Type::Integer) || value.is(Type::Long) || value.is(Type::Double);
}

}  // namespace

// ---- Values ----

void RoutineCompiler::compileTo(const Expression& expression, Register target) {
  switch (expression.kind) {
    case ExpressionKind::Literal:
      return compileLiteral(static_cast<const LiteralExpression&>(expression).value, target);
    case ExpressionKind::Name:
      return compileName(static_cast<const NameExpression&>(expression), target);
    case ExpressionKind::Member:
      return compileMember(static_cast<const MemberExpression&>(expression), target);
    case ExpressionKind::Call: {
      const auto& call = static_cast<const CallExpression&>(expression);
      return compileCall(*call.callee, call.arguments, target);
    }
    case ExpressionKind::New:
      return compileNew(static_cast<const NewExpression&>(expression), target);
    case ExpressionKind::Me:
      if (routine_.me == kNoRegister) {
        emit(Opcode::Throw, static_cast<unsigned>(ErrorCode::ObjectRequired));
        return emitWord(Instruction::fromPair(kNoName, 0));
      }
      return emit(isTemporary(target) ? Opcode::Copy : Opcode::Let, target, routine_.me);
    case ExpressionKind::Unary:
      return compileUnary(static_cast<const UnaryExpression&>(expression), target);
    case ExpressionKind::Binary:
      return compileBinary(static_cast<const BinaryExpression&>(expression), target);
    case ExpressionKind::Parenthesized:
      return compileTo(*static_cast<const ParenthesizedExpression&>(expression).inner, target);
  }
}

Register RoutineCompiler::operand(const Expression& expression, Register scratch) {
  const Expression& inner = unwrapped(expression);
  if (const Binding* binding = bindName(inner)) {
    if (binding->kind == Binding::Kind::InRegister) return binding->index;
  }
  if (inner.kind == ExpressionKind::Me && routine_.me != kNoRegister) return routine_.me;
  const Register target = isTemporary(scratch) ? scratch : newTemporary();
  compileTo(inner, target);
  return target;
}

Register RoutineCompiler::operandBefore(const Expression& expression, const ExpressionFacts& next,
                                        Register scratch) {
  const Register r = operand(expression, scratch);
  const Binding* variable = bindName(unwrapped(expression));
  if (isTemporary(r) || !variable || !facts_.mayChange(next, *variable)) return r;
  const Register copy = isTemporary(scratch) ? scratch : newTemporary();
  emit(Opcode::Copy, copy, r);
  return copy;
}

/// A variable takes Nothing by Set only.
void RoutineCompiler::compileLiteral(const Value& value, Register target) {
  if (!value.isObject() || isTemporary(target)) return loadConstant(target, value);
  const Temporaries temporaries(*this);
  const Register nothing = newTemporary();
  loadConstant(nothing, value);
  emit(Opcode::Let, target, nothing);
}

void RoutineCompiler::compileName(const NameExpression& name, Register target) {
  using Kind = Binding::Kind;
  const Binding& binding = bind(name.name);
  switch (binding.kind) {
    case Kind::InRegister:
      return emit(isTemporary(target) ? Opcode::Copy : Opcode::Let, target, binding.index);
    case Kind::Global:
      return emit(Opcode::LoadGlobal, target, binding.index);
    case Kind::Field:
      return emit(Opcode::LoadField, target, binding.index, routine_.me);
    case Kind::Constant:
      return loadConstant(target, *binding.constant);
    case Kind::HostObject:
      return emit(Opcode::LoadHost, target, binding.index);
    case Kind::Late:
      return emitName(Opcode::LateGet, target, binding.index, script_.optionExplicit(), name.name);
    case Kind::Class:
    case Kind::Unresolved:
      return emitThrow(ErrorCode::TypeMismatch, name.name);
    case Kind::Routine:
    case Kind::Own:
    case Kind::HostMember:
    case Kind::Intrinsic:
    case Kind::Scope:
      return callName(name, {}, target);
  }
}

void RoutineCompiler::compileMember(const MemberExpression& member, Register target) {
  if (scope_.ownMember(member) || scope_.hostObjectOf(member))
    return callMember(member, {}, target);
  const Temporaries temporaries(*this);
  const Register object = objectOperand(member);
  noteObject(member);
  emitMember(Opcode::GetMember, target, object, 0, member.name);
}

void RoutineCompiler::compileNew(const NewExpression& expression, Register target) {
  const Binding binding = script_.resolve(expression.className);
  if (binding.kind == Binding::Kind::Class) {
    return emitPointer(Opcode::New, target, 0, 0, binding.scriptClass);
  }
  emitName(Opcode::NewNamed, target, 0, 0, expression.className);
}

void RoutineCompiler::compileUnary(const UnaryExpression& unary, Register target) {
  const Temporaries temporaries(*this);
  const Register value = operand(*unary.operand, target);
  switch (unary.operation) {
    case UnaryOperator::Negate:
      return emit(Opcode::Negate, target, value);
    case UnaryOperator::Plus:
      return emit(Opcode::Identity, target, value);
    case UnaryOperator::Not:
      return emit(Opcode::Not, target, value);
  }
}

void RoutineCompiler::compileBinary(const BinaryExpression& binary, Register target) {
  if (isComparison(binary.operation)) return compileComparison(binary, target);
  if (binary.operation == BinaryOperator::Concatenate) return compileConcatenation(binary, target);
  const Temporaries temporaries(*this);
  const Opcode op = operationOf(binary.operation);
  const Expression* left = binary.left.get();
  const Expression* right = binary.right.get();
  const bool commutes =
      binary.operation == BinaryOperator::Add || binary.operation == BinaryOperator::Multiply;
  if (commutes && literal(*left) && isNumber(*literal(*left)) && !literal(*right)) {
    std::swap(left, right);
  }
  const Value* constant = literal(*right);
  if (constant && isNumber(*constant) && withConstant(op) != Opcode::Halt) {
    const Register l = operand(*left, target);
    const bool additive = op == Opcode::Add || op == Opcode::Subtract;
    if (additive && constant->is(Type::Integer)) {
      const Opcode immediate = op == Opcode::Add ? Opcode::AddInteger : Opcode::SubtractInteger;
      return emit(immediate, target, l, static_cast<std::uint16_t>(constant->asInt()));
    }
    const std::uint32_t index = constantIndex(*constant);
    if (index <= UINT16_MAX) return emit(withConstant(op), target, l, index);
    const Register r = newTemporary();
    loadConstant(r, *constant);
    return emit(op, target, l, r);
  }
  const Register l = operandBefore(*left, facts_.of(*right), target);
  const Register r = operand(*right, l == target ? kNoRegister : target);
  emit(op, target, l, r);
}

// ---- Comparisons ----

void RoutineCompiler::compileComparison(const BinaryExpression& binary, Register target) {
  const Temporaries temporaries(*this);
  const Expression* left = binary.left.get();
  const Expression* right = binary.right.get();
  BinaryOperator operation = binary.operation;
  if (literal(*left) && !literal(*right)) {
    std::swap(left, right);
    operation = mirrored(operation);
  }
  const Comparison comparison = comparisonOf(operation);
  if (const Value* constant = literal(*right)) {
    const Register l = operand(*left, target);
    const std::uint32_t index = constantIndex(*constant);
    if (index <= UINT16_MAX) return emit(comparison.constant, target, l, index);
    const Register r = newTemporary();
    loadConstant(r, *constant);
    return emit(comparison.registers, target, l, r);
  }
  const Register l = operandBefore(*left, facts_.of(*right), target);
  const Register r = operand(*right, l == target ? kNoRegister : target);
  emit(comparison.registers, target, l, r);
}

void RoutineCompiler::jumpOn(const Expression& condition, bool when, Label& label) {
  bool nullValue = false;
  const Expression* at = &unwrapped(condition);
  if (at->kind == ExpressionKind::Unary) {
    const auto& unary = static_cast<const UnaryExpression&>(*at);
    const Expression& inner = unwrapped(*unary.operand);
    const bool comparison = inner.kind == ExpressionKind::Binary &&
                            isComparison(static_cast<const BinaryExpression&>(inner).operation);
    if (unary.operation == UnaryOperator::Not && comparison) {
      // Not of a comparison turns the jump round. Not of Null is Null and stays untrue.
      at = &inner;
      when = !when;
      nullValue = true;
    }
  }
  const Temporaries temporaries(*this);
  if (at->kind == ExpressionKind::Binary) {
    const auto& binary = static_cast<const BinaryExpression&>(*at);
    if (isComparison(binary.operation)) return jumpOnComparison(binary, when, nullValue, label);
  }
  const Register value = operand(*at);
  emitWideJump(when ? Opcode::JumpIf : Opcode::JumpUnless, value, label);
}

void RoutineCompiler::jumpOnComparison(const BinaryExpression& binary, bool when, bool nullValue,
                                       Label& label) {
  const Expression* left = binary.left.get();
  const Expression* right = binary.right.get();
  BinaryOperator operation = binary.operation;
  if (literal(*left) && !literal(*right)) {
    std::swap(left, right);
    operation = mirrored(operation);
  }
  const Comparison comparison = comparisonOf(operation);
  const unsigned flags = (when ? 1u : 0u) | (nullValue ? 2u : 0u);
  if (const Value* constant = literal(*right)) {
    const Register l = operand(*left);
    const std::uint32_t index = constantIndex(*constant);
    if (index <= UINT16_MAX) {
      return emitFarJump(comparison.jumpConstant, l, index, flags, label);
    }
    const Register r = newTemporary();
    loadConstant(r, *constant);
    return emitFarJump(comparison.jumpRegisters, l, r, flags, label);
  }
  const Register l = operandBefore(*left, facts_.of(*right), kNoRegister);
  const Register r = operand(*right);
  emitFarJump(comparison.jumpRegisters, l, r, flags, label);
}

}  // namespace quorvane::vbs
