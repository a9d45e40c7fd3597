#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// Lowers what is written to or passed by reference: variables, fields, and elements of arrays,
/// whose arrays are locked as long as code refers to them.
class PlaceLowering : LoweringPart {
 public:
  explicit PlaceLowering(Lowering& parts) : LoweringPart(parts) {}

  /// A register with the variable itself, or a reference to it, or failing that its value.
  Register placeOf(const Expression& expression);
  Register placeOfName(const Binding& binding, const Identifier& name);
  void refer(const Binding& variable, Register target);
  void referLate(const Binding& binding, const Identifier& name, Register target);
  /// `lock` is left for the caller to release.
  void referToElement(const CallExpression& element, Register target, Register lock);

  /// The way to an array that may be an element of others.
  struct ArrayPath {
    const Expression* root;
    Register value;  ///< what stands there in place of a variable, or none
    std::vector<const CallExpression*> levels;
    std::vector<Register> indexes;  ///< first registers, by level
  };
  /// Evaluates the indexes on the way to an array, from left to right, and what stands there in
  /// place of a variable.
  ArrayPath pushPath(const Expression& array);
  /// A register with the array at the end of the path, or a reference to it: what follows locks the
  /// arrays on the way until the caller releases `locks`. Evaluates nothing, which might move them.
  Register placeAt(const ArrayPath& path, std::vector<Register>& locks);
  void releaseLocks(const std::vector<Register>& locks);
};

}  // namespace quorvane::vbs
