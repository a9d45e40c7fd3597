#pragma once

#include "vbscript/values/value.h"

/// The operators on all subtypes: result types, widening on overflow, Null propagation. Operands
/// may be references or objects. All throw ScriptError.
namespace quorvane::vbs {

Value add(const Value& left, const Value& right);
Value subtract(const Value& left, const Value& right);
Value multiply(const Value& left, const Value& right);
Value divide(const Value& left, const Value& right);
Value integerDivide(const Value& left, const Value& right);
Value modulo(const Value& left, const Value& right);
Value power(const Value& left, const Value& right);
Value concatenate(const Value& left, const Value& right);
Value negate(const Value& value);
Value identity(const Value& value);  ///< unary plus
Value logicalNot(const Value& value);
Value logicalAnd(const Value& left, const Value& right);
Value logicalOr(const Value& left, const Value& right);
Value logicalXor(const Value& left, const Value& right);
Value logicalEqv(const Value& left, const Value& right);
Value logicalImp(const Value& left, const Value& right);

/// Less and so on as an ordering; Null when either side is Null.
enum class Ordering : std::int8_t { Less = -1, Equal = 0, Greater = 1, Null = 2 };
Ordering compare(const Value& left, const Value& right);
/// The same where one operand was written as a number or string literal: the other side is then
/// converted to the literal's subtype. Without a literal a number is less than any string.
Ordering compareWithLiteral(const Value& left, const Value& right, bool leftIsLiteral,
                            bool rightIsLiteral);

/// The truth of a condition: Null is false, a text that spells neither number nor Boolean error 13.
bool isTrue(const Value& condition);

/// `Is`: the same object. Error 424 when either side is none.
bool isSame(const Value& left, const Value& right);

/// Adds the text of `tail` to `target`, in place when nobody else holds its body.
void appendTo(Value& target, const Value& tail);

/// Whether `place` still holds the very text that was read from it before.
bool stillHolds(const Value& place, const Value& before);
/// `target` becomes `before & tail`, in place when it still holds `before`, its earlier value.
void appendToEarlier(Value& target, Value before, const Value& tail);

}  // namespace quorvane::vbs
