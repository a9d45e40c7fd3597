#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// Lowers assignments, with and without Set, by what stands on the left. The value is evaluated
/// before the target's indexes and its object.
class AssignmentLowering : LoweringPart {
 public:
  explicit AssignmentLowering(Lowering& parts) : LoweringPart(parts) {}

  void assign(const AssignStatement& statement);

 private:
  std::optional<std::uint16_t> nearConstantOf(const Expression& value);
  void assignName(const NameExpression& target, const Expression& value, bool isSet);
  void assignVariable(const Binding& binding, const Expression& value, bool isSet);
  void assignMember(const MemberExpression& target, const Expression& value, bool isSet);
  void assignCall(const CallExpression& target, const Expression& value, bool isSet);
  void assignNameCall(const CallExpression& target, const Expression& value, bool isSet);
  void addInPlace(const CallExpression& target, const Expression& value);
  void assignElement(const CallExpression& target, const Expression& value, bool isSet);
  void assignElementMany(const CallExpression& target, const Expression& value, bool isSet);
  void assignHost(unsigned object, MemberId member, const Arguments& arguments,
                  const Expression& value, bool isSet);
  void assignOwn(const ClassMember& member, const Identifier& name, const Arguments& arguments,
                 const Expression& value, bool isSet);
  Register valueToStore(const Expression& value, bool isSet);
};

}  // namespace quorvane::vbs
