#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// Lowers the use of values as objects: reads members, and owns which objects the With blocks
/// around the code hold.
class ObjectLowering : LoweringPart {
 public:
  explicit ObjectLowering(Lowering& parts) : LoweringPart(parts) {}

  void compileMember(const MemberExpression& member, Register target);
  /// Where the value is used as an object or as an array.
  void compileAsObject(const Expression& expression, Register target);
  Register operandAsObject(const Expression& expression);
  /// The object whose member this is.
  void pushObject(const MemberExpression& member, Register target);
  Register objectOperand(const MemberExpression& member);
  /// The same for reading or writing the member next, of which `value` is the register. Where it is
  /// one of an element, the operation `shortcut` stands before the element is read.
  Register objectFor(Opcode shortcut, Register value, const MemberExpression& member);
  /// The next instruction's errors name it.
  void noteObject(const MemberExpression& member);

  void compileWithBlock(const WithStatement& statement);
  bool isInWith() const { return !withs_.empty(); }

 private:
  const CallExpression* elementOfVariable(const Expression& expression);
  bool callsForObject(const Expression& callee, const Arguments& arguments, Register target);

  std::vector<Register> withs_;  ///< hidden variables, the innermost last
};

}  // namespace quorvane::vbs
