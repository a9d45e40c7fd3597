#include "vbscript/machine/operations.h"

#include <new>

#include "vbscript/values/convert.h"

namespace quorvane::vbs::operation {

/// A temporary takes anything as it is.
void put(CallStack& stack, const Instruction* pc, Value* base, Value result) {
  Value& target = base[pc->a];
  const bool mayChange = result.isObject() || result.isArray();
  if (mayChange && !pc->aIsTemporary()) result = assigned(std::move(result));
  if (needsCare(target)) return store(stack, target, std::move(result));
  new (&target) Value(std::move(result));
}

void store(CallStack& stack, Value& target, Value result) {
  checkAssignable(target);
  target.deref() = std::move(result);
  stack.raisePending();
}

void let(CallStack& stack, Value& target, const Value& source) {
  checkAssignable(target);
  target.deref() = assigned(source.deref());
  stack.raisePending();
}

void letFrom(CallStack& stack, Value& target, Value& source, bool isTemporary) {
  const bool moves = isTemporary && !source.isObject() && !source.is(Type::Reference);
  if (!moves) {
    let(stack, target, source);
    if (isTemporary) release(source);
    return;
  }
  checkAssignable(target);
  target.deref() = assigned(std::move(source));
  stack.raisePending();
}

void set(CallStack& stack, Value& target, Value& source, bool isTemporary, const Instruction* pc) {
  if (!source.deref().isObject()) stack.throwNamed(ErrorCode::ObjectRequired, pc);
  checkAssignable(target);
  target.deref() = taken(source, isTemporary);
  stack.raisePending();
}

void plain(const Instruction* pc, Value* base) {
  Value value = taken(base[pc->b], pc->bIsTemporary());
  hold(base[pc->a], value.isObject() ? plainValue(value) : std::move(value));
}

void finishCall(CallStack& stack, const Instruction* pc, Value* base, Value result,
                Value* firstUsed, std::size_t used) {
  clearRange(firstUsed, firstUsed + used);
  if (pc->a == kNoRegister) {
    result = Value();
    return stack.raisePending();
  }
  Value& target = pc->a.of(base);
  if (!result.isObject() && !result.isArray() && vacate(target)) {
    new (&target) Value(std::move(result));
    stack.raisePending();
  } else {
    put(stack, pc, base, std::move(result));
  }
}

}  // namespace quorvane::vbs::operation
