#include "vbscript/compile/comparisons.h"

#include <utility>

#include "vbscript/compile/lowering.h"

namespace quorvane::vbs {

namespace {

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

bool isWritten(const Expression& expression) {
  return unwrapped(expression).kind == ExpressionKind::Literal;
}

/// Beside a text, a Boolean or a date counts as a literal only where the text is one too.
bool countsBesideText(const Value& value) {
  return value.is(Type::Boolean) || value.is(Type::Date);
}

}  // namespace

/// Whether the left one of two constants goes to the right: the one that decides, a literal before
/// what a Const names, and of two literals the one that is no text.
bool ComparisonLowering::decides(const Expression& left, const Expression& right) const {
  const Value* constant = scope_.literal(left);
  const Value* other = scope_.literal(right);
  if (!constant || !other) return constant != nullptr;
  if (isWritten(left) != isWritten(right)) return isWritten(left);
  return !constant->isString() && other->isString();
}

bool ComparisonLowering::isComparison(const Expression& expression) {
  if (expression.kind != ExpressionKind::Binary) return false;
  const BinaryOperator operation = static_cast<const BinaryExpression&>(expression).operation;
  return operation >= BinaryOperator::Equal && operation <= BinaryOperator::GreaterOrEqual;
}

ComparisonLowering::Sides ComparisonLowering::pushSides(const BinaryExpression& binary,
                                                        Register scratch) {
  const Expression* left = binary.left.get();
  const Expression* right = binary.right.get();
  BinaryOperator operation = binary.operation;
  if (decides(*left, *right)) {
    std::swap(left, right);
    operation = mirrored(operation);
  }
  const Register l = parts_.expressions.operandBefore(*left, facts_.of(*right), scratch);
  if (const Value* constant = scope_.literal(*right)) {
    const bool isLiteral = isWritten(*right);
    const Value* other = isWritten(*left) ? scope_.literal(*left) : nullptr;
    const bool areBoth = isLiteral && other && other->isString() && countsBesideText(*constant);
    const unsigned flags = areBoth ? kJumpOnLiterals : isLiteral ? 0 : kJumpOnNamed;
    if (const auto near = code_.nearConstant(*constant)) return {operation, l, *near, true, flags};
    const Register r = frame_.newTemporary();
    code_.loadConstant(r, *constant);
    return {operation, l, r, false};
  }
  const Register r = parts_.expressions.operand(*right, l == scratch ? kNoRegister : scratch);
  return {operation, l, r, false};
}

void ComparisonLowering::compileComparison(const BinaryExpression& binary, Register target) {
  const Temporaries temporaries(frame_);
  Sides sides = pushSides(binary, target);
  const Comparison comparison = comparisonOf(sides.operation);
  if (sides.flags == kJumpOnLiterals) return compileByJump(sides, target);
  if (sides.flags == kJumpOnNamed) {
    const std::uint16_t constant = std::exchange(sides.right, frame_.newTemporary());
    code_.emit(Opcode::LoadConstant, sides.right, constant);
    sides.isConstant = false;
  }
  code_.emit(sides.isConstant ? comparison.constant : comparison.registers, target, sides.left,
             sides.right);
}

void ComparisonLowering::compileByJump(const Sides& sides, Register target) {
  Label done;
  const Register truth = frame_.newTemporary();
  code_.loadConstant(truth, Value::boolean(true));
  code_.emitFarJump(comparisonOf(sides.operation).jumpConstant, sides.left, sides.right,
                    kJumpWhenTrue | sides.flags, done);
  code_.loadConstant(truth, Value::boolean(false));
  code_.place(done);
  code_.emit(Opcode::Let, target, truth);
}

void ComparisonLowering::jumpOn(const Expression& condition, bool when, Label& label) {
  const Temporaries temporaries(frame_);
  const Expression& outer = unwrapped(condition);
  if (isComparison(outer)) {
    return jumpOnComparison(static_cast<const BinaryExpression&>(outer), when ? kJumpWhenTrue : 0,
                            label);
  }
  if (outer.kind == ExpressionKind::Unary) {
    const auto& unary = static_cast<const UnaryExpression&>(outer);
    const Expression& inner = unwrapped(*unary.operand);
    if (unary.operation == UnaryOperator::Not && isComparison(inner)) {
      // Not of a comparison turns the jump round. Not of Null is Null and stays untrue.
      const unsigned flags = (when ? 0 : kJumpWhenTrue) | kJumpNullHolds;
      return jumpOnComparison(static_cast<const BinaryExpression&>(inner), flags, label);
    }
  }
  const Register value = parts_.expressions.operand(outer);
  code_.emitWideJump(when ? Opcode::JumpIf : Opcode::JumpUnless, value, label);
}

void ComparisonLowering::jumpOnComparison(const BinaryExpression& binary, unsigned flags,
                                          Label& label) {
  const Sides sides = pushSides(binary, kNoRegister);
  const Comparison comparison = comparisonOf(sides.operation);
  code_.emitFarJump(sides.isConstant ? comparison.jumpConstant : comparison.jumpRegisters,
                    sides.left, sides.right, flags | sides.flags, label);
}

void ComparisonLowering::jumpOnCase(Register subject, const Expression& value, Label& body) {
  const Temporaries temporaries(frame_);
  if (const Value* constant = scope_.literal(value)) {
    if (const auto near = code_.nearConstant(*constant)) {
      const unsigned flags = kJumpWhenTrue | (isWritten(value) ? 0 : kJumpOnNamed);
      return code_.emitFarJump(Opcode::JumpEqualConstant, subject, *near, flags, body);
    }
  }
  const Register r = parts_.expressions.operand(value);
  code_.emitFarJump(Opcode::JumpEqual, subject, r, kJumpWhenTrue, body);
}

}  // namespace quorvane::vbs
