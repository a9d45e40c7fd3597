#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "vbscript/compile/program.h"
#include "vbscript/machine/registers.h"
#include "vbscript/machine/time_limit.h"

namespace quorvane::vbs {

struct Intrinsic;

/// Variables that Execute gave to a running routine and that its own code does not mention.
using AddedVariables = NameMap<std::unique_ptr<Value>>;

/// One routine in progress.
struct Frame {
  const Instruction* pc = nullptr;  ///< where it goes on when what it called returns
  Value* base = nullptr;
  const Routine* routine = nullptr;
  AddedVariables* added = nullptr;  ///< owned; null in frames that nobody uses
  /// The caller's register for the result (its offset), and above it the marks below. One number,
  /// because each call writes it and each return asks whether there is more in it than a register.
  std::uint32_t link = kNoTarget;
  static constexpr std::uint32_t kNoTarget = std::uint32_t{kNoRegister} * sizeof(Value);
  static constexpr std::uint32_t kResumesNext = 1u << 20;
  static constexpr std::uint32_t kHasAdded = 2u << 20;

  OperandPlace target() const { return OperandPlace::atOffset(link & (kResumesNext - 1)); }
  bool resumesNext() const { return (link & kResumesNext) != 0; }
  AddedVariables& variablesToAddTo() {
    if (!added) added = new AddedVariables;
    link |= kHasAdded;
    return *added;
  }
};

/// The memory of one call stack. Large but touched only as far as scripts go, and handed from one
/// engine to the next on the same thread. Registers that nobody uses are free.
class StackMemory {
 public:
  static std::unique_ptr<StackMemory> take(std::size_t frames);
  static void giveBack(std::unique_ptr<StackMemory> memory);

  /// Registers behind the last that a frame may have.
  static constexpr std::size_t kSpare = 4;

  ~StackMemory();
  Value* values() const { return values_; }
  Value* valuesEnd() const { return values_ + kValues; }
  Frame* frames() const { return frames_.get(); }
  Frame* framesEnd() const { return frames_.get() + frameCount_; }

 private:
  explicit StackMemory(std::size_t frames);
  static constexpr std::size_t kValues = std::size_t{1} << 19;
  Value* values_;
  std::size_t frameCount_;
  std::unique_ptr<Frame[]> frames_;
};

/// The routines in progress. Owns the frames and their registers (those of the main code begin with
/// the global variables), the time that is left to them, and what an error needs to know of them:
/// the statement it belongs to, the names it shows, and the error of a Class_Terminate that waits
/// for the statement that let the object go.
class CallStack {
 public:
  CallStack(Host& host, std::uint32_t depth);
  CallStack(const CallStack&) = delete;
  CallStack& operator=(const CallStack&) = delete;
  ~CallStack();

  /// The current frame. Before the first one stands a frame of no routine.
  Frame* top() { return top_; }
  const Frame* top() const { return top_; }
  Value* globals() { return globals_; }
  /// The first register above those of the current frame.
  Value* above() { return top_->base + top_->routine->registerCount; }

  /// Makes a frame whose registers begin at `base`, where the arguments stand. Its result goes to
  /// the caller's register `target`. Error 28 when there is no room, RunStopped when the time is
  /// over; the caller's frame is then still the current one.
  void enter(const Routine& callee, Value* base, OperandPlace target) {
    push(callee, base, target);
    top_->pc = callee.code.data();
  }
  /// The same for one who goes on at the callee's first instruction: the frame's pc is not set.
  ///
  /// One count says when to look at both time and room: it never lasts longer than the room does.
  [[gnu::always_inline]] void push(const Routine& callee, Value* base, OperandPlace target) {
    if (time.isDue()) [[unlikely]]
      look(callee, base);
    if (callee.isLarge) [[unlikely]]
      prepare(callee, base);
    VBS_ASSERT(top_ < lastFrame_ && base + callee.registerCount <= registersEnd_);
    VBS_ASSERT(areFree(base + callee.firstCleared, base + callee.registerCount));
    ++top_;
    VBS_ASSERT(!top_->added);
    top_->base = base;
    top_->routine = &callee;
    top_->link = target.offset();
    // There may be fewer variables. Behind them are registers that nobody uses.
    clearRegisters<Routine::kClearedAlways>(&callee.firstCleared.of(base));
  }
  /// When a turn of a loop finds that a look at the time is due: RunStopped when that is over.
  void look();
  void enterMethod(const Routine& callee, Value* base, OperandPlace target, Object& me) {
    enter(callee, base, target);
    new (&base[callee.me]) Value(Value::object(&me));
  }
  /// Arguments of a call whose callee was not known to the compiler: ByVal parameters get copies,
  /// and so do parameters that are only read, where nothing can change the variable meanwhile.
  void adjustArguments(const Routine& callee, Value* base, std::size_t count);
  /// Whether this is a variable of the current frame that no other code can reach.
  bool isLocal(const Value* variable) const {
    if (top_->base == globals_) return false;
    return variable >= top_->base && variable < &top_->routine->firstTemporary.of(top_->base);
  }
  /// Error 28 unless so many registers are there from `first` on.
  void reserve(const Value* first, std::size_t count) const {
    if (first + count > registersEnd_) overflow();
  }
  [[noreturn]] static void overflow();

  /// Leaves the current frame, whose registers hold nothing counted any more.
  void pop() {
    VBS_ASSERT(!top_->added && temporariesAreFree());
    VBS_ASSERT(top_ > memory_->frames());
    --top_;
  }
  /// Leaves the current frame, whose registers hold nothing counted, when its result can go to the
  /// caller as it is and there is nothing else to do.
  [[gnu::always_inline]] bool returnPlain(const Value& result) {
    const std::uint32_t link = top_->link;
    if (link >= Frame::kNoTarget) [[unlikely]]
      return false;
    Value& target = OperandPlace::atOffset(link).of(top_[-1].base);
    if (needsCare(target)) return false;
    target.copyUncounted(result);
    pop();
    return true;
  }
  /// The same of a result that may be counted.
  [[gnu::always_inline]] bool returnMoved(Value& result) {
    const std::uint32_t link = top_->link;
    if (link >= Frame::kNoTarget || result.is(Type::Reference)) return false;
    const OperandPlace target = OperandPlace::atOffset(link);
    Value& accepting = target.of(top_[-1].base);
    if (needsCare(accepting)) return false;
    if (!isTakenAsIs(result, top_[-1].routine->isTemporary(target))) return false;
    new (&accepting) Value(std::move(result));
    pop();
    return true;
  }
  /// Leaves the current frame, whose variables are free but for its result, which goes to the
  /// caller; `result` is kNoRegister for a Sub.
  void leave(std::uint16_t result);
  void dropAdded();
  /// Leaves the current frame with all it holds.
  void abandon();

  // What must hold, for assertions.
  /// Between statements the temporaries of the current frame are free.
  bool temporariesAreFree() const {
    const Routine& routine = *top_->routine;
    return areFree(top_->base + routine.firstTemporary, top_->base + routine.registerCount);
  }
  /// Whether `pc` stands in the code of the current frame.
  bool isRunning(const Instruction* pc) const {
    const auto& code = top_->routine->code;
    return pc >= code.data() && pc < code.data() + code.size();
  }
  bool isEmpty() const { return top_ == memory_->frames(); }

  /// The statement that the current frame has come to, or null.
  const StatementEntry* statement() const;
  /// Adds to an error what its thrower could not know: where it arose, and in which function.
  void complete(ScriptError& error) const;
  /// A Class_Terminate failed. The first error counts.
  void keepPending(const ScriptError& error);
  void dropPending() { pending_.reset(); }
  /// Throws the error that keepPending() got, if any: after whatever may let an object go.
  void raisePending() {
    if (pending_) [[unlikely]]
      throwPending();
  }

  /// The name of what an instruction of the current frame uses, for error texts.
  OperandName operandName(const Instruction* pc) const;
  const std::string& shownName(std::uint32_t name) const;
  [[noreturn]] void throwNamed(ErrorCode code, const Instruction* pc) const;
  /// What the instruction Throw says.
  [[noreturn]] void throwCode(const Instruction* pc) const;
  /// The object behind a register, whose member is wanted. Error 424.
  Object& objectIn(const Value& holder, const Instruction* pc) const {
    const Value& direct = holder.deref();
    if (!direct.isObject() || !direct.asObject()) [[unlikely]]
      throwNamed(ErrorCode::ObjectRequired, pc);
    return *direct.asObject();
  }
  /// The object behind a register, which itself is wanted. Errors 424 and, for Nothing, 91.
  Object& wholeObjectIn(const Value& holder, const Instruction* pc) const {
    const Value& direct = holder.deref();
    if (direct.isObject() && !direct.asObject()) throwNamed(ErrorCode::ObjectNotSet, pc);
    return objectIn(direct, pc);
  }

  TimeLimit time;
  const Intrinsic* intrinsic = nullptr;  ///< that runs, for the texts of its errors

 private:
  void look(const Routine& callee, const Value* base);
  void prepare(const Routine& callee, Value* base);
  void countRoom(const Frame* top, const Value* above);
  [[noreturn]] void throwPending();
  /// Stores what a routine returned in the register of the caller, who is the current frame.
  void acceptResult(std::uint16_t target, Value result);

  std::unique_ptr<StackMemory> memory_;
  Frame* top_;
  const Frame* lastFrame_;
  const Value* registersEnd_;
  Value* globals_;
  std::optional<ScriptError> pending_;
};

}  // namespace quorvane::vbs
