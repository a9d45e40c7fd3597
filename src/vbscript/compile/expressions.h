#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// Lowers expressions to code that leaves a value in a register. A register below the temporaries
/// is a variable: what is left there is assigned to it.
class ExpressionLowering : LoweringPart {
 public:
  explicit ExpressionLowering(Lowering& parts) : LoweringPart(parts) {}

  void compileTo(const Expression& expression, Register target);
  /// A register with the value: a variable's own, or `scratch`, or a new temporary.
  Register operand(const Expression& expression, Register scratch = kNoRegister);
  /// The same, safe from what evaluating something with the facts `next` may do to variables.
  Register operandBefore(const Expression& expression, const ExpressionFacts& next,
                         Register scratch = kNoRegister);

 private:
  void lower(const Expression& expression, Register target);
  void compileLiteral(const Value& value, Register target);
  void compileName(const NameExpression& name, Register target);
  void compileMe(Register target);
  void compileNew(const NewExpression& expression, Register target);
  void compileUnary(const UnaryExpression& unary, Register target);
  void compileBinary(const BinaryExpression& binary, Register target);
  void compileWithNumber(Opcode op, const Expression& left, const Value& number, Register target);
};

}  // namespace quorvane::vbs
