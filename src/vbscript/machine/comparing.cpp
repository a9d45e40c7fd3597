#include "vbscript/machine/operations.h"

#include <cstring>
#include <optional>

#include "vbscript/values/convert.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs::operation {

namespace {

enum class Relation : std::uint8_t { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

Relation relationOf(Opcode op) {
  switch (op) {
    case Opcode::Equal:
    case Opcode::EqualConstant:
    case Opcode::JumpEqual:
    case Opcode::JumpEqualConstant:
    case Opcode::JumpEqualInteger:
      return Relation::Equal;
    case Opcode::NotEqual:
    case Opcode::NotEqualConstant:
    case Opcode::JumpNotEqual:
    case Opcode::JumpNotEqualConstant:
    case Opcode::JumpNotEqualInteger:
      return Relation::NotEqual;
    case Opcode::Less:
    case Opcode::LessConstant:
    case Opcode::JumpLess:
    case Opcode::JumpLessConstant:
    case Opcode::JumpLessInteger:
      return Relation::Less;
    case Opcode::LessOrEqual:
    case Opcode::LessOrEqualConstant:
    case Opcode::JumpLessOrEqual:
    case Opcode::JumpLessOrEqualConstant:
    case Opcode::JumpLessOrEqualInteger:
      return Relation::LessOrEqual;
    case Opcode::Greater:
    case Opcode::GreaterConstant:
    case Opcode::JumpGreater:
    case Opcode::JumpGreaterConstant:
    case Opcode::JumpGreaterInteger:
      return Relation::Greater;
    default:
      return Relation::GreaterOrEqual;
  }
}

bool holdsFor(Relation relation, Ordering ordering) {
  const int sign = static_cast<int>(ordering);
  switch (relation) {
    case Relation::Equal:
      return sign == 0;
    case Relation::NotEqual:
      return sign != 0;
    case Relation::Less:
      return sign < 0;
    case Relation::LessOrEqual:
      return sign <= 0;
    case Relation::Greater:
      return sign > 0;
    case Relation::GreaterOrEqual:
      return sign >= 0;
  }
  return false;
}

bool isConstantForm(Opcode op) {
  return (op >= Opcode::EqualConstant && op <= Opcode::GreaterOrEqualConstant) ||
         (op >= Opcode::JumpEqualConstant && op <= Opcode::JumpGreaterOrEqualInteger);
}

/// A number or a text, as a literal in the script's text can be.
bool isLiteralType(const Value& value) {
  return value.isString() || value.is(Type::Integer) || value.is(Type::Long) ||
         value.is(Type::Double);
}

/// `flags` as a jump has them.
Ordering order(Opcode op, unsigned flags, const Value& left, const Value& right) {
  if (!isConstantForm(op) || (flags & kJumpOnNamed) != 0) return compare(left, right);
  const bool areLiterals = (flags & kJumpOnLiterals) != 0;
  if (!areLiterals && !isLiteralType(right)) return compare(left, right);
  return compareWithLiteral(left, right, areLiterals, true);
}

/// Equality of two texts is decided without putting them in order.
std::optional<bool> sameText(const Value& left, const Value& right) {
  if (!left.isString() || !right.isString()) return std::nullopt;
  const StringRep* l = left.stringRep();
  const StringRep* r = right.stringRep();
  if (l == r) return true;
  if (!l || !r) return (l ? l->bytes : r->bytes) == 0;
  if (l->encoding != Encoding::Ansi || r->encoding != Encoding::Ansi) return std::nullopt;
  if (l->bytes != r->bytes) return false;
  countWork(l->bytes);
  return std::memcmp(l->data(), r->data(), l->bytes) == 0;
}

}  // namespace

void compareTwo(CallStack& stack, const Instruction* pc, Value* base, Opcode op, const Value& right,
                bool rightIsTemporary) {
  const Value& left = base[pc->b].deref();
  const Relation relation = relationOf(op);
  Value result;
  if (const auto same = sameText(left, right.deref()); same && relation <= Relation::NotEqual) {
    result = Value::boolean(*same == (relation == Relation::Equal));
  } else {
    const Ordering ordering = order(op, 0, left, right.deref());
    result =
        ordering == Ordering::Null ? Value::null() : Value::boolean(holdsFor(relation, ordering));
  }
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  if (rightIsTemporary && needsCare(right)) release(base[pc->c]);
  put(stack, pc, base, std::move(result));
}

bool jumpCompare(const Instruction* pc, Value* base, Opcode op, const Value& right,
                 bool rightIsTemporary) {
  const Value& left = base[pc->a].deref();
  const Relation relation = relationOf(op);
  bool result = false;
  if (const auto same = sameText(left, right.deref()); same && relation <= Relation::NotEqual) {
    result = *same == (relation == Relation::Equal);
  } else {
    const Ordering ordering = order(op, pc->c, left, right.deref());
    const bool onNull = (pc->c & kJumpOnNull) != 0;
    result = ordering == Ordering::Null ? onNull : holdsFor(relation, ordering);
  }
  if (pc->aIsTemporary() && needsCare(base[pc->a])) release(base[pc->a]);
  if (rightIsTemporary && needsCare(right)) release(base[pc->b]);
  return result;
}

bool jumpCompareInteger(const Instruction* pc, Value* base, Opcode op) {
  return jumpCompare(pc, base, op, Value::integer(pc->integer), false);
}

bool truth(const Instruction* pc, Value* base) {
  return isTrue(taken(base[pc->a], pc->aIsTemporary()));
}

bool truthOfNot(const Instruction* pc, Value* base) {
  return isTrue(logicalNot(taken(base[pc->a], pc->aIsTemporary())));
}

}  // namespace quorvane::vbs::operation
