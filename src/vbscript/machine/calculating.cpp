#include "vbscript/machine/operations.h"

#include "vbscript/values/operators.h"

namespace quorvane::vbs::operation {

namespace {

/// Gives up the temporaries among operands b and c.
void clearOperands(const Instruction* pc, Value* base) {
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  if (pc->cIsTemporary() && needsCare(base[pc->c])) release(base[pc->c]);
}

}  // namespace

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
  const auto number = static_cast<std::int16_t>(pc->c);
  Value result = function(base[pc->b].deref(), Value::integer(number));
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

// ---- Texts ----

void concatenateTwo(CallStack& stack, const Instruction* pc, Value* base) {
  Value& left = base[pc->b];
  if (pc->bIsTemporary() && left.isString()) {
    // Nobody else sees a temporary: its text may grow in place.
    appendTo(left, base[pc->c].deref());
    Value result = std::move(left);
    if (pc->cIsTemporary() && needsCare(base[pc->c])) release(base[pc->c]);
    return put(stack, pc, base, std::move(result));
  }
  binary(stack, pc, base, concatenate);
}

void concatenateMany(CallStack& stack, const Instruction* pc, Value* base) {
  Value* const first = base + pc->b;
  Value* const last = first + pc->c;
  std::size_t bytes = 0;
  bool simple = true;
  for (const Value* piece = first; piece != last; ++piece) {
    const Value& text = piece->deref();
    simple = simple && text.isString() &&
             (!text.stringRep() || text.stringRep()->encoding == Encoding::Ansi);
    if (!simple) break;
    bytes += text.stringRep() ? text.stringRep()->bytes : 0;
  }
  Value result;
  if (simple) {
    String text = String::withCapacity(Encoding::Ansi, bytes);
    for (const Value* piece = first; piece != last; ++piece) {
      const StringRep* rep = piece->deref().stringRep();
      if (rep) text.appendAnsi({rep->data(), rep->bytes});
    }
    result = Value(std::move(text));
  } else {
    result = concatenate(first[0], first[1]);
    for (Value* piece = first + 2; piece != last; ++piece) appendTo(result, piece->deref());
  }
  clearRange(first, last);
  put(stack, pc, base, std::move(result));
}

void append(CallStack& stack, const Instruction* pc, Value* base) {
  Value& target = base[pc->a].deref();
  Value& tail = base[pc->b].deref();
  appendTo(target, tail);
  if (pc->aIsTemporary()) release(base[pc->a]);
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  stack.raisePending();
}

void appendSaved(CallStack& stack, const Instruction* pc, Value* base) {
  appendToEarlier(base[pc->a], std::move(base[pc->b]), base[pc->c]);
  if (pc->aIsTemporary()) release(base[pc->a]);
  if (pc->cIsTemporary() && needsCare(base[pc->c])) release(base[pc->c]);
  stack.raisePending();
}

}  // namespace quorvane::vbs::operation
