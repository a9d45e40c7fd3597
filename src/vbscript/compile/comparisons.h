#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// Lowers comparisons and conditions: a comparison that decides about a jump is one operation with
/// it.
class ComparisonLowering : LoweringPart {
 public:
  explicit ComparisonLowering(Lowering& parts) : LoweringPart(parts) {}

  static bool isComparison(const Expression& expression);
  void compileComparison(const BinaryExpression& binary, Register target);
  /// Jumps to `label` when the truth of `condition` is `when`.
  void jumpOn(const Expression& condition, bool when, Label& label);
  /// Jumps to `label` when that the value equals the subject of a Select is `when`.
  void jumpOnCase(Register subject, const Expression& value, bool when, Label& label);

 private:
  void jumpOnComparison(const BinaryExpression& binary, bool when, unsigned flags, Label& label);
  void jumpOnPair(const BinaryExpression& binary, bool when, Label& label);
  /// A comparison's sides in registers, or the right one among the constants, and the flags that a
  /// jump on them has.
  struct Sides {
    BinaryOperator operation;
    Register left;
    std::uint16_t right;
    bool isConstant;
    unsigned flags = 0;
  };
  bool decides(const Expression& left, const Expression& right) const;
  Sides pushSides(const BinaryExpression& binary, Register scratch);
  void compileByJump(const Sides& sides, Register target);
  void emitJump(const Sides& sides, Label& label);
};

}  // namespace quorvane::vbs
