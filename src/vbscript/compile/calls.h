#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// Lowers calls, and what the tree cannot tell from them: elements of arrays and default members.
/// `target` is none where the value is dropped.
class CallLowering : LoweringPart {
 public:
  explicit CallLowering(Lowering& parts) : LoweringPart(parts) {}

  void compileCall(const Expression& callee, const Arguments& arguments, Register target);
  void callName(const NameExpression& callee, const Arguments& arguments, Register target);
  void callMember(const MemberExpression& callee, const Arguments& arguments, Register target);
  void callHost(unsigned object, MemberId member, const Arguments& arguments, Register target);

 private:
  bool callsOwnFunction(const Binding& binding, const Identifier& name, const Arguments& arguments,
                        Register target);
  void callVariable(const Expression& callee, const Arguments& arguments, Register target);
  void callValue(const Expression& callee, const Arguments& arguments, Register target);
  void callRoutine(const Routine& routine, const Identifier& name, const Arguments& arguments,
                   Register target, bool own);
  void callOwn(const ClassMember& member, const Identifier& name, const Arguments& arguments,
               Register target);
  void callIntrinsic(const Intrinsic& intrinsic, const Identifier& name, const Arguments& arguments,
                     Register target);
  void takeCharacter(const Arguments& arguments, Register target, Label& done);
  void callScopeFunction(ScopeFunction function, const Identifier& name, const Arguments& arguments,
                         Register target);
  void callLate(const Binding& binding, const Identifier& name, const Arguments& arguments,
                Register target);
  void getElement(const Expression& array, const Arguments& indexes, Register target);
  bool isInRegister(const Expression* expression) const;
  void pushReceiver(const MemberExpression& callee, const Arguments& arguments, Register target);
};

}  // namespace quorvane::vbs
