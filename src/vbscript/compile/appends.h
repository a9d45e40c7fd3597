#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// Lowers assignments that make a text grow, `s = s & a & b`, to operations that append in place: a
/// loop of them takes time in proportion to what it adds.
class AppendLowering : LoweringPart {
 public:
  explicit AppendLowering(Lowering& parts) : LoweringPart(parts) {}

  // False, and no code: the assignment is no such one.
  /// `s = s & a & b`
  bool appendToVariable(const Expression& target, const Expression& value);
  /// `t(i) = t(i) & a & b`
  bool appendToElement(const CallExpression& target, const Expression& value);
  /// `o.t = o.t & a & b`
  bool appendToMember(const MemberExpression& target, const Expression& value);

  /// Whether both are the element of one variable under one plain index.
  bool isSameElement(const CallExpression& target, const Expression& other) const;

 private:
  bool isSamePlainIndex(const Expression& a, const Expression& b) const;
  Register tailOf(const std::vector<const Expression*>& parts);
  struct Growth {
    Register before;
    Register tail;
  };
  Growth pushGrowth(const Expression& first, std::vector<const Expression*> parts);
};

}  // namespace quorvane::vbs
