#include "vbscript/machine/operations.h"

#include "vbscript/values/operators.h"

namespace quorvane::vbs::operation {

void clearOperands(const Instruction* pc, Value* base) {
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  if (pc->cIsTemporary() && needsCare(base[pc->c])) release(base[pc->c]);
}

// ---- Operators ----

void binary(CallStack& stack, const Instruction* pc, Value* base, BinaryFunction function) {
  Value result = function(base[pc->b].deref(), base[pc->c].deref());
  clearOperands(pc, base);
  put(stack, pc, base, std::move(result));
}

void binaryConstant(CallStack& stack, const Instruction* pc, Value* base, BinaryFunction function) {
  Value result = function(base[pc->b].deref(), stack.top()->routine->constants[pc->c]);
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  put(stack, pc, base, std::move(result));
}

void binaryInteger(CallStack& stack, const Instruction* pc, Value* base, BinaryFunction function) {
  Value result = function(base[pc->b].deref(), Value::integer(pc->integer));
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  put(stack, pc, base, std::move(result));
}

void unary(CallStack& stack, const Instruction* pc, Value* base, Value (*function)(const Value&)) {
  Value result = function(base[pc->b].deref());
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  put(stack, pc, base, std::move(result));
}

Value sameObject(const Value& left, const Value& right) {
  return Value::boolean(isSame(left, right));
}

}  // namespace quorvane::vbs::operation
