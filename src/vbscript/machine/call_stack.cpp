#include "vbscript/machine/call_stack.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "vbscript/library/library.h"
#include "vbscript/machine/operations.h"
#include "vbscript/values/convert.h"

namespace quorvane::vbs {

namespace {

struct SpareStack : RunPart {
  std::unique_ptr<StackMemory> memory;
};

std::unique_ptr<StackMemory>& spareStack() {
  return runContext.parts.get<SpareStack>().memory;
}

}  // namespace

// ---- Memory ----

StackMemory::StackMemory(std::size_t frames)
    : values_(static_cast<Value*>(std::calloc(kValues + kSpare, sizeof(Value)))),
      frameCount_(frames),
      frames_(new Frame[frames]) {
  static_assert(static_cast<int>(Type::Empty) == 0);  // zeroed memory is values without content
  if (!values_) throw std::bad_alloc();
}

StackMemory::~StackMemory() {
  std::free(values_);
}

std::unique_ptr<StackMemory> StackMemory::take(std::size_t frames) {
  auto& spare = spareStack();
  if (spare && spare->frameCount_ == frames) return std::move(spare);
  return std::unique_ptr<StackMemory>(new StackMemory(frames));
}

void StackMemory::giveBack(std::unique_ptr<StackMemory> memory) {
  spareStack() = std::move(memory);
}

// ---- Time ----

void TimeLimit::look() {
  if (!isOver_ && !host_.mustEnd() && host_.steadyNow() < deadline_) return;
  isOver_ = true;
  throw RunStopped{};
}

// ---- Frames ----

CallStack::CallStack(Host& host, std::uint32_t depth)
    : time(host),
      memory_(StackMemory::take(std::size_t{depth} + 2)),
      top_(memory_->frames()),
      lastFrame_(memory_->framesEnd() - 1),
      registersEnd_(memory_->valuesEnd()),
      globals_(memory_->values()) {
  static const Routine kNothing;
  *top_ = Frame();
  top_->base = globals_ + kMaxGlobals;
  top_->routine = &kNothing;
}

CallStack::~CallStack() {
  StackMemory::giveBack(std::move(memory_));
}

void CallStack::look() {
  time.look();
  countRoom(top_, above());
}

void CallStack::look(const Routine& callee, const Value* base) {
  const Value* const end = base + callee.registerCount;
  if (top_ >= lastFrame_ || end > registersEnd_) {
    time.lookSoon();
    overflow();
  }
  time.look();
  countRoom(top_ + 1, end);
}

/// Of a routine that counts as several calls, or has more variables than are cleared always.
void CallStack::prepare(const Routine& callee, Value* base) {
  if (callee.cost > 1 && time.isDue(callee.cost - 1)) look(callee, base);
  Value* const end = &callee.firstTemporary.of(base);
  Value* variable = &callee.firstCleared.of(base) + Routine::kClearedAlways;
  for (; variable < end; ++variable) clearRegisters<1>(variable);
}

/// As many calls as there are frames and registers for above these.
void CallStack::countRoom(const Frame* top, const Value* above) {
  const auto registers = (registersEnd_ - above) / Routine::kRegistersPerCall;
  time.lookWithin(static_cast<std::int32_t>(std::min(lastFrame_ - top, registers)));
}

void CallStack::overflow() {
  throwError(ErrorCode::OutOfStackSpace);
}

void CallStack::adjustArguments(const Routine& callee, Value* base, std::size_t count) {
  if (count != callee.parameterCount) throwError(ErrorCode::WrongArgumentCount);
  for (std::size_t i = 0; i < count; ++i) {
    if (!base[i].is(Type::Reference)) continue;
    const Value* variable = base[i].target();
    if (!callee.parameters[i].byValue && !(callee.allReadOnly && isLocal(variable))) continue;
    new (&base[i]) Value(*variable);
  }
}

void CallStack::leave(std::uint16_t result) {
  Value value;
  if (result != kNoRegister) value = std::move(top_->base[result]);
  const std::uint16_t target = top_->target();
  if (top_->added) dropAdded();
  pop();  // whose pc is behind the call: an error of what follows belongs to that statement
  acceptResult(target, std::move(value));
}

void CallStack::dropAdded() {
  delete std::exchange(top_->added, nullptr);
}

void CallStack::abandon() {
  VBS_ASSERT(!isEmpty());
  const bool ownsGlobals = top_->base == globals_;
  Value* first = ownsGlobals ? globals_ + kMaxGlobals : top_->base;
  clearRange(first, top_->base + top_->routine->registerCount);
  if (top_->added) dropAdded();
  --top_;
}

void CallStack::acceptResult(std::uint16_t target, Value result) {
  if (target == kNoRegister) {
    result = Value();
    return raisePending();
  }
  const bool isVariable = target < top_->routine->firstTemporary;
  if (isVariable && result.isObject()) result = plainValue(result);
  Value& accepting = top_->base[target];
  if (needsCare(accepting)) return operation::store(*this, accepting, std::move(result));
  new (&accepting) Value(std::move(result));
}

// ---- Errors ----

const StatementEntry* CallStack::statement() const {
  const Routine& routine = *top_->routine;
  VBS_ASSERT(top_->pc > routine.code.data() && isRunning(top_->pc - 1));
  return routine.statementAt(static_cast<std::uint32_t>(top_->pc - 1 - routine.code.data()));
}

void CallStack::complete(ScriptError& error) const {
  if (error.line != 0) return;
  if (intrinsic) nameIntrinsic(error, *intrinsic);
  if (const StatementEntry* entry = statement()) {
    error.line = entry->position.line;
    error.column = entry->position.column;
  }
}

void CallStack::keepPending(const ScriptError& error) {
  if (!pending_) pending_ = error;
}

void CallStack::throwPending() {
  ScriptError error = std::move(*pending_);
  pending_.reset();
  throw error;
}

OperandName CallStack::operandName(const Instruction* pc) const {
  const Routine& routine = *top_->routine;
  return routine.operandNameAt(static_cast<std::uint32_t>(pc - routine.code.data()));
}

const std::string& CallStack::shownName(std::uint32_t name) const {
  return top_->routine->program->names[name].text;
}

void CallStack::throwNamed(ErrorCode code, const Instruction* pc) const {
  const OperandName operand = operandName(pc);
  if (operand.name == kNoName) throwError(code);
  throwError(code, shownName(operand.name));
}

void CallStack::throwCode(const Instruction* pc) const {
  const auto code = static_cast<ErrorCode>(std::uint16_t{pc->a});
  const std::uint32_t name = pc[1].low();
  if (name == kNoName) throwError(code);
  throwError(code, shownName(name));
}

}  // namespace quorvane::vbs
