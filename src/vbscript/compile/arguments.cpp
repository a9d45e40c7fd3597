#include "vbscript/compile/arguments.h"

#include "vbscript/compile/lowering.h"
#include "vbscript/library/functions.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

std::vector<Register> ArgumentLowering::newLocks(const Arguments& arguments) {
  std::vector<Register> locks;
  for (const auto& argument : arguments) {
    if (argument && scope_.passesElement(*argument)) locks.push_back(frame_.newTemporary());
  }
  return locks;
}

Register ArgumentLowering::pushArguments(const Arguments& arguments, Passing passing,
                                         const std::vector<Register>& locks) {
  const Register first = frame_.nextTemporary();
  std::size_t nextLock = 0;
  for (const auto& argument : arguments) {
    pushArgument(argument, frame_.newTemporary(), passing, locks, nextLock);
  }
  return first;
}

Register ArgumentLowering::pushRoutineArguments(const Arguments& arguments, const Routine& callee,
                                                const std::vector<Register>& locks) {
  VBS_ASSERT(arguments.size() == callee.parameters.size());
  // Nothing else can reach a local variable during the call, unless it is passed twice; another
  // argument may change it before.
  const bool copiesLocals = callee.allReadOnly && !scope_.isMain();
  const ExpressionFacts all = copiesLocals ? facts_.of(arguments) : ExpressionFacts();
  const Register first = frame_.nextTemporary();
  std::size_t nextLock = 0;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const RoutineParameter& parameter = callee.parameters[i];
    bool byValue = parameter.byValue;
    if (arguments[i] && parameter.readOnly) {
      const Binding* variable = scope_.bindName(*arguments[i]);
      const bool isLocal = variable && variable->kind == Binding::Kind::InRegister;
      byValue |= scope_.passesElement(*arguments[i]) ||
                 (copiesLocals && isLocal && !all.writes.mayHold(variable->index));
    }
    pushArgument(arguments[i], frame_.newTemporary(), byValue ? Passing::Value : Passing::Unknown,
                 locks, nextLock);
  }
  return first;
}

Register ArgumentLowering::pushLibraryArguments(const Intrinsic& function,
                                                const Arguments& arguments) {
  std::vector<const Expression*> expressions;
  std::size_t defaults = 0;  // of arguments, that may run when the function reads them
  for (const auto& argument : arguments) {
    expressions.push_back(argument.get());
    if (argument && facts_.runsDefault(*argument)) ++defaults;
  }
  const bool looksAtArray =
      function.call == intrinsic::lBound || function.call == intrinsic::uBound;
  const auto behind = facts_.behind(expressions);
  const Register first = frame_.nextTemporary();
  std::size_t nextLock = 0;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const Binding* variable = arguments[i] ? scope_.bindName(*arguments[i]) : nullptr;
    bool stays = true;
    if (variable && variable->isVariable() && !looksAtArray) {
      ExpressionFacts later = behind[i];
      later.runsCode |= defaults > (facts_.runsDefault(*arguments[i]) ? 1 : 0);
      stays = !facts_.mayChange(later, *variable);
    }
    pushArgument(arguments[i], frame_.newTemporary(), stays ? Passing::Library : Passing::Value, {},
                 nextLock);
  }
  return first;
}

void ArgumentLowering::pushArgument(const ExpressionPtr& argument, Register target, Passing passing,
                                    const std::vector<Register>& locks, std::size_t& nextLock) {
  if (!argument) return code_.loadConstant(target, Value::missing());
  const bool isElement = scope_.passesElement(*argument);
  const std::size_t lock = isElement ? nextLock++ : 0;
  if (passing == Passing::Value) return parts_.expressions.compileTo(*argument, target);
  if (const Binding* binding = scope_.bindName(*argument)) {
    if (binding->isVariable()) return parts_.places.refer(*binding, target);
    if (binding->kind == Binding::Kind::Late) {
      const auto& name = static_cast<const NameExpression&>(*argument).name;
      return parts_.places.referLate(*binding, name, target);
    }
  }
  if (!isElement || passing != Passing::Unknown || lock >= locks.size()) {
    return parts_.expressions.compileTo(*argument, target);
  }
  parts_.places.referToElement(static_cast<const CallExpression&>(*argument), target, locks[lock]);
}

}  // namespace quorvane::vbs
