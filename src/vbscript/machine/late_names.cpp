#include "vbscript/machine/machine.h"
#include "vbscript/machine/operations.h"

// Names that are only known when they are met, because code that comes as text may bring them.

namespace quorvane::vbs {

/// The variable behind a late name, or null. `b` is the routine's own variable for it, or none.
Value* Machine::lateVariable(const Name& name, std::uint16_t own, Value* base) {
  if (stack_.top()->added) {
    const auto found = stack_.top()->added->find(name.lower);
    if (found != stack_.top()->added->end()) return found->second.get();
  }
  const GlobalSymbol* symbol = texts_.find(name.lower);
  if (symbol && symbol->kind == GlobalSymbol::Kind::Variable)
    return &stack_.globals()[symbol->slot];
  if (symbol || own == kNoRegister) return nullptr;
  return &base[own].deref();
}

void Machine::lateGet(const Instruction* pc, Value* base) {
  const Name& name = stack_.top()->routine->program->names[pc[1].low()];
  if (const Value* variable = lateVariable(name, pc->b, base))
    return operation::put(stack_, pc, base, *variable);
  const GlobalSymbol* symbol = texts_.find(name.lower);
  if (!symbol) {
    if (pc->c != 0) throwError(ErrorCode::VariableUndefined, name.text);
    return operation::put(stack_, pc, base, Value());
  }
  switch (symbol->kind) {
    case GlobalSymbol::Kind::Constant:
      return operation::put(stack_, pc, base, symbol->constant);
    case GlobalSymbol::Kind::Routine:
      return operation::put(stack_, pc, base, callRoutine(*symbol->routine, nullptr, {}));
    default:
      throwError(ErrorCode::TypeMismatch, name.text);
  }
}

void Machine::latePut(const Instruction* pc, Value* base) {
  const Name& name = stack_.top()->routine->program->names[pc[1].low()];
  const bool isSet = pc->c != 0;
  Value* variable = lateVariable(name, pc->b, base);
  if (!variable) {
    const bool undefined = pc[1].high() != 0 && !texts_.find(name.lower);
    throwError(undefined ? ErrorCode::VariableUndefined : ErrorCode::IllegalAssignment, name.text);
  }
  if (isSet) {
    operation::set(stack_, *variable, base[pc->a], pc->aIsTemporary(), pc);
  } else {
    operation::letFrom(stack_, *variable, base[pc->a], pc->aIsTemporary());
  }
}

void Machine::lateRef(const Instruction* pc, Value* base) {
  const Name& name = stack_.top()->routine->program->names[pc[1].low()];
  if (Value* variable = lateVariable(name, pc->b, base)) return refer(base[pc->a], *variable);
  lateGet(pc, base);
}

bool Machine::lateCall(const Instruction* pc, Value* base) {
  const Name& name = stack_.top()->routine->program->names[pc[1].low()];
  const auto own = static_cast<std::uint16_t>(pc[1].high());
  const bool isExplicit = (pc[1].high() >> 16) != 0;
  Value* const arguments = base + pc->b;
  const std::size_t count = pc->c;
  if (const Value* variable = lateVariable(name, own, base)) {
    const Value holder = *variable;
    const bool isElement = holder.isArray() && pc->a != kNoRegister;
    if (!holder.isObject() && !isElement) throwError(ErrorCode::TypeMismatch, name.text);
    if (count == 0 && isElement) throwError(ErrorCode::SubscriptOutOfRange, name.text);
    Value direct = holder;
    Value result = operation::elementValue(stack_, direct, {arguments, count}, pc);
    operation::finishCall(stack_, pc, base, std::move(result), arguments, count);
    return false;
  }
  const GlobalSymbol* symbol = texts_.find(name.lower);
  if (!symbol && isExplicit) throwError(ErrorCode::VariableUndefined, name.text);
  if (!symbol || symbol->kind != GlobalSymbol::Kind::Routine) {
    throwError(ErrorCode::TypeMismatch, name.text);
  }
  stack_.adjustArguments(*symbol->routine, arguments, count);
  stack_.top()->pc = pc + 2;
  stack_.enter(*symbol->routine, arguments, pc->a);
  return true;
}

}  // namespace quorvane::vbs
