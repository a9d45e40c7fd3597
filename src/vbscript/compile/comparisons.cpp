#include "vbscript/compile/comparisons.h"

#include <utility>

#include "vbscript/compile/lowering.h"
#include "vbscript/values/text_hash.h"

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

/// The comparison that holds where this one does not.
BinaryOperator opposite(BinaryOperator operation) {
  switch (operation) {
    case BinaryOperator::Equal:
      return BinaryOperator::NotEqual;
    case BinaryOperator::NotEqual:
      return BinaryOperator::Equal;
    case BinaryOperator::Less:
      return BinaryOperator::GreaterOrEqual;
    case BinaryOperator::LessOrEqual:
      return BinaryOperator::Greater;
    case BinaryOperator::Greater:
      return BinaryOperator::LessOrEqual;
    default:
      return BinaryOperator::Less;
  }
}

/// How the machine spells a comparison.
struct Comparison {
  Opcode registers;
  Opcode constant;
  Opcode jumpRegisters;
  Opcode jumpConstant;
  Opcode jumpInteger;
  Opcode jumpText;  ///< as jumpConstant unless the question is equality
};

Comparison comparisonOf(BinaryOperator operation) {
#define VBS_COMPARISON(name, text)                                                          \
  Comparison {                                                                              \
    Opcode::name, Opcode::name##Constant, Opcode::Jump##name, Opcode::Jump##name##Constant, \
        Opcode::Jump##name##Integer, Opcode::Jump##text                                     \
  }
  switch (operation) {
    case BinaryOperator::NotEqual:
      return VBS_COMPARISON(NotEqual, NotEqualText);
    case BinaryOperator::Less:
      return VBS_COMPARISON(Less, LessConstant);
    case BinaryOperator::LessOrEqual:
      return VBS_COMPARISON(LessOrEqual, LessOrEqualConstant);
    case BinaryOperator::Greater:
      return VBS_COMPARISON(Greater, GreaterConstant);
    case BinaryOperator::GreaterOrEqual:
      return VBS_COMPARISON(GreaterOrEqual, GreaterOrEqualConstant);
    default:
      return VBS_COMPARISON(Equal, EqualText);
  }
#undef VBS_COMPARISON
}

/// Whether an expression can only be True, False or Null.
bool isTruth(const Expression& expression) {
  const Expression& inner = unwrapped(expression);
  if (inner.kind == ExpressionKind::Unary) {
    const auto& unary = static_cast<const UnaryExpression&>(inner);
    return unary.operation == UnaryOperator::Not && isTruth(*unary.operand);
  }
  if (inner.kind != ExpressionKind::Binary) return false;
  const auto& binary = static_cast<const BinaryExpression&>(inner);
  if (ComparisonLowering::isComparison(binary) || binary.operation == BinaryOperator::Is) {
    return true;
  }
  const bool joins =
      binary.operation == BinaryOperator::And || binary.operation == BinaryOperator::Or;
  return joins && isTruth(*binary.left) && isTruth(*binary.right);
}

/// Two truths joined by And or Or.
bool isPairOfTruths(const Expression& expression) {
  if (expression.kind != ExpressionKind::Binary || !isTruth(expression)) return false;
  const BinaryOperator operation = static_cast<const BinaryExpression&>(expression).operation;
  return operation == BinaryOperator::And || operation == BinaryOperator::Or;
}

/// Whether the machine compares texts with this one in a few steps.
bool isShortText(const Value& constant) {
  if (!constant.isString() || !constant.stringRep()) return false;
  const StringRep& text = *constant.stringRep();
  return text.encoding == Encoding::Ansi && text.bytes - 1 < text_hash::kMostReached;
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
                    sides.flags, done);
  code_.loadConstant(truth, Value::boolean(false));
  code_.place(done);
  code_.emit(Opcode::Let, target, truth);
}

void ComparisonLowering::jumpOn(const Expression& condition, bool when, Label& label) {
  const Temporaries temporaries(frame_);
  const Expression& outer = unwrapped(condition);
  // Null is untrue, and so is Not of Null.
  const unsigned flags = when ? 0 : kJumpOnNull;
  if (isComparison(outer)) {
    return jumpOnComparison(static_cast<const BinaryExpression&>(outer), when, flags, label);
  }
  if (outer.kind == ExpressionKind::Unary) {
    const auto& unary = static_cast<const UnaryExpression&>(outer);
    const Expression& inner = unwrapped(*unary.operand);
    if (unary.operation == UnaryOperator::Not && isComparison(inner)) {
      return jumpOnComparison(static_cast<const BinaryExpression&>(inner), !when, flags, label);
    }
    if (unary.operation == UnaryOperator::Not) {
      const Register value = parts_.expressions.operand(inner);
      return code_.emitWideJump(when ? Opcode::JumpIfNot : Opcode::JumpUnlessNot, value, label);
    }
  }
  if (isPairOfTruths(outer)) {
    return jumpOnPair(static_cast<const BinaryExpression&>(outer), when, label);
  }
  const Register value = parts_.expressions.operand(outer);
  code_.emitWideJump(when ? Opcode::JumpIf : Opcode::JumpUnless, value, label);
}

/// Jumps when what the comparison says is `when`.
void ComparisonLowering::jumpOnComparison(const BinaryExpression& binary, bool when, unsigned flags,
                                          Label& label) {
  Sides sides = pushSides(binary, kNoRegister);
  if (!when) sides.operation = opposite(sides.operation);
  sides.flags |= flags;
  emitJump(sides, label);
}

/// Jumps when what two truths make together is `when`. Both are always found out; the right one is
/// a jump of its own then, before the left one's.
void ComparisonLowering::jumpOnPair(const BinaryExpression& binary, bool when, Label& label) {
  const bool oneDecides = (binary.operation == BinaryOperator::Or) == when;
  Label undecided;
  const Register left = parts_.expressions.operand(*binary.left);
  jumpOn(*binary.right, oneDecides == when, oneDecides ? label : undecided);
  code_.emitWideJump(when ? Opcode::JumpIf : Opcode::JumpUnless, left, label);
  if (!oneDecides) code_.place(undecided);
}

void ComparisonLowering::emitJump(const Sides& sides, Label& label) {
  const Comparison comparison = comparisonOf(sides.operation);
  if (!sides.isConstant) {
    return code_.emitFarJump(comparison.jumpRegisters, sides.left, sides.right, sides.flags, label);
  }
  const Value& constant = routine_.constants[sides.right];
  if (!constant.is(Type::Integer)) {
    const Opcode jump = isShortText(constant) ? comparison.jumpText : comparison.jumpConstant;
    return code_.emitFarJump(jump, sides.left, sides.right, sides.flags, label);
  }
  const auto number = static_cast<std::uint16_t>(constant.asInt());
  code_.emitFarJump(comparison.jumpInteger, sides.left, number, sides.flags, label);
}

void ComparisonLowering::jumpOnCase(Register subject, const Expression& value, bool when,
                                    Label& label) {
  const Temporaries temporaries(frame_);
  const BinaryOperator operation = when ? BinaryOperator::Equal : BinaryOperator::NotEqual;
  const unsigned flags = when ? 0 : kJumpOnNull;
  if (const Value* constant = scope_.literal(value)) {
    if (const auto near = code_.nearConstant(*constant)) {
      const unsigned named = isWritten(value) ? 0 : kJumpOnNamed;
      return emitJump({operation, subject, *near, true, flags | named}, label);
    }
  }
  const Register r = parts_.expressions.operand(value);
  emitJump({operation, subject, r, false, flags}, label);
}

}  // namespace quorvane::vbs
