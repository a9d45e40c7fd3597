#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vbscript/compile/program.h"
#include "vbscript/library/library.h"
#include "vbscript/machine/err_object.h"
#include "vbscript/machine/program_cache.h"
#include "vbscript/values/host.h"
#include "vbscript/values/time_check.h"

namespace quorvane::vbs {

/// The time limit ends a run: no script traps this.
struct RunStopped {};

/// Variables that Execute gave to a running routine and that its own code does not mention.
using AddedVariables = NameMap<std::unique_ptr<Value>>;

/// One routine in progress.
struct Frame {
  const Instruction* pc = nullptr;  ///< where it goes on when what it called returns
  Value* base = nullptr;
  const Routine* routine = nullptr;
  AddedVariables* added = nullptr;     ///< owned
  std::uint16_t target = kNoRegister;  ///< the caller's register for the result
  bool resumeNext = false;
};

/// The registers of all frames and the frames. Large but touched only as far as scripts go, and
/// handed from one engine to the next on the same thread. Registers that nobody uses hold no
/// counted value.
class StackMemory {
 public:
  static std::unique_ptr<StackMemory> take(std::size_t frames);
  static void giveBack(std::unique_ptr<StackMemory> memory);

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

/// Runs compiled code for one engine.
class Machine {
 public:
  Machine(Host& host, ProgramCache& cache, Limits limits);
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;
  ~Machine();

  void addObject(std::string_view name, Object& object, bool globalMembers);
  std::optional<ErrorReport> run(std::string_view source);
  void setDeadline(std::chrono::steady_clock::time_point deadline) { deadline_ = deadline; }
  std::optional<ErrorReport> evaluate(std::string_view expression, Value& result);

  /// Calls a routine from outside the loop; `me` is its object or null. Arguments may be
  /// References. Throws ScriptError, RunStopped.
  Value callRoutine(const Routine& routine, Object* me, Args arguments);
  /// Runs Class_Terminate; its error shows up at the statement that let the object go.
  void terminate(const Routine& routine, Object& object) noexcept;
  /// Value of a member of a script's object.
  Value invokeMember(ScriptObject& object, const ClassMember& member, CallKind kind, Args args);

 private:
  friend class MachineObject;

  /// One run of the loop inside others. Bounded, because it takes room of the C stack.
  class Nesting {
   public:
    explicit Nesting(Machine& machine);
    ~Nesting() {
      --machine_.nesting_;
      machine_.intrinsic_ = intrinsic_;
    }

   private:
    Machine& machine_;
    const Intrinsic* intrinsic_;
  };

  // The loop (machine_loop.cpp).
  /// Runs from the current frame to the Halt of `entry`, which is this frame or one below. Throws
  /// what the script does not trap; `entry` and the frames above are then gone.
  void execute(const Frame* entry);
  /// Runs instructions up to a Halt. What throws does so with the current frame's pc behind the
  /// instruction that is to blame.
  void loop();
  /// Finds the frame that traps the error, and prepares it. False: none down to `entry`.
  bool trap(ScriptError& error, const Frame* entry);
  void unwind(const Frame* entry);
  void leaveFrame();
  /// The statement that the current frame has come to, or null.
  const StatementEntry* statement() const;
  /// Adds to an error what its thrower could not know: where it arose, and in which function.
  void complete(ScriptError& error) const;
  /// A frame that ends a run of the loop, with a register for a result; its base + 1 is free.
  Frame* enterHalt();
  Value leaveHalt();

  // Frames (machine_calls.cpp).
  void enter(const Routine& callee, Value* base, std::uint16_t target) {
    if (fp_ + 1 >= frameEnd_ || base + callee.registerCount > stackEnd_) stackOverflow();
    if (--budget_ <= 0) poll();
    ++fp_;
    fp_->pc = callee.code.data();
    fp_->base = base;
    fp_->routine = &callee;
    fp_->added = nullptr;
    fp_->target = target;
    fp_->resumeNext = false;
    Value* const end = base + callee.firstTemporary;
    for (Value* v = base + callee.firstCleared; v < end; ++v) {
      v->setIntUncounted(Type::Empty, 0);
    }
  }
  void enterMethod(const Routine& callee, Value* base, std::uint16_t target, Object& me);
  Value* stackTop() const { return fp_->base + fp_->routine->registerCount; }
  [[noreturn]] void stackOverflow();
  void poll();
  TimeCheck nativeTimeCheck();
  void adjustArguments(const Routine& callee, Value* base, std::size_t count);
  void clearRange(Value* first, const Value* last);
  void release(Value& value);
  void raisePending();
  void dropAdded();
  void acceptResult(Value* base, std::uint16_t target, Value& result);

  // True: the current frame is another one now.
  bool callMember(const Instruction* pc, Value* base);
  bool getMember(const Instruction* pc, Value* base);
  bool putMember(const Instruction* pc, Value* base);
  bool putMemberArguments(const Instruction* pc, Value* base);
  bool appendMember(const Instruction* pc, Value* base);
  bool callValue(const Instruction* pc, Value* base);
  bool lateCall(const Instruction* pc, Value* base);
  bool newObject(const Instruction* pc, Value* base);
  bool newNamed(const Instruction* pc, Value* base);

  void callHost(const Instruction* pc, Value* base);
  void putHost(const Instruction* pc, Value* base);
  void callIntrinsic(const Instruction* pc, Value* base);
  void callIntrinsicOne(const Instruction* pc, Value* base);
  bool instantiate(const ScriptClass& type, const Instruction* pc, Value* base);
  bool callObject(Object& object, const Instruction* pc, Value* base);
  /// Finds the member that a place in the code uses, and keeps it there.
  MemberId findMember(Object& object, MemberCache& cache, const Instruction* pc);
  const ClassMember* findScriptMember(Object& object, MemberCache& cache, const Instruction* pc);
  void finishCall(const Instruction* pc, Value* base, Value result, Value* firstUsed,
                  std::size_t used);
  Object& objectIn(const Value& holder, const Instruction* pc) const;
  const Name& nameIn(const MemberCache& cache) const;
  const Routine& checkedRoutine(const Routine* routine, std::size_t arguments,
                                const MemberCache& cache, const Instruction* pc) const;
  const Routine& current(const Routine& routine);
  OperandName operandName(const Instruction* pc) const;
  const std::string& shownName(std::uint32_t name) const;
  [[noreturn]] void throwNamed(ErrorCode code, const Instruction* pc) const;
  [[noreturn]] void throwMember(ErrorCode code, const MemberCache& cache,
                                const Instruction* pc) const;

  // What instructions mean where it is not simple (machine_values.cpp).
  using BinaryFunction = Value (*)(const Value&, const Value&);
  void binarySlow(const Instruction* pc, Value* base, BinaryFunction function);
  void binaryConstantSlow(const Instruction* pc, Value* base, BinaryFunction function);
  void binaryIntegerSlow(const Instruction* pc, Value* base, BinaryFunction function);
  void unarySlow(const Instruction* pc, Value* base, Value (*function)(const Value&));
  static Value sameObject(const Value& left, const Value& right);
  void concatenateTwo(const Instruction* pc, Value* base);
  void concatenateMany(const Instruction* pc, Value* base);
  void append(const Instruction* pc, Value* base);
  void appendSaved(const Instruction* pc, Value* base);
  void compareSlow(const Instruction* pc, Value* base, Opcode op, const Value& right,
                   bool rightIsTemporary);
  bool jumpCompareSlow(const Instruction* pc, Value* base, Opcode op, const Value& right,
                       bool rightIsTemporary);
  bool truth(const Instruction* pc, Value* base);
  void put(const Instruction* pc, Value* base, Value result);
  void putSlow(Value& target, Value result);
  void plain(const Instruction* pc, Value* base);
  static void checkAssignable(const Value& variable);
  void let(Value& target, const Value& source);
  void letFrom(Value& target, Value& source, bool isTemporary);
  void set(Value& target, Value& source, bool isTemporary, const Instruction* pc);
  void hold(Value& target, Value value);
  void refer(Value& target, Value& variable);
  Value taken(Value& source, bool isTemporary);
  void clearOperands(const Instruction* pc, Value* base);

  bool forPrepare(const Instruction* pc, Value* base);
  bool forLoopSlow(const Instruction* pc, Value* base);
  void forEachPrepare(const Instruction* pc, Value* base);
  bool forEachNext(const Instruction* pc, Value* base);

  // Arrays (machine_arrays.cpp).
  void dimArray(const Instruction* pc, Value* base);
  void reDim(const Instruction* pc, Value* base, bool preserve);
  void erase(const Instruction* pc, Value* base);
  void getElement(const Instruction* pc, Value* base);
  void getElement2(const Instruction* pc, Value* base);
  void getElementMany(const Instruction* pc, Value* base);
  Value elementValue(Value& holder, Args indexes, const Instruction* pc);
  [[noreturn]] void throwSubscript(Args indexes, const Instruction* pc) const;
  void setElement(const Instruction* pc, Value* base);
  void setElement2(const Instruction* pc, Value* base);
  void setElementMany(const Instruction* pc, Value* base, bool isSet);
  void storeElement(Value& holder, Args indexesAndValue, bool isSet, const Instruction* pc);
  static Value* textElement(Value& holder, const Value& index, const Value& before);
  bool appendElement(const Instruction* pc, Value* base);
  void refElement(const Instruction* pc, Value* base);

  // Code as text (machine_dynamic.cpp).
  void executeText(const Instruction* pc, Value* base);
  void evaluateText(const Instruction* pc, Value* base);
  Value runText(const Value& text, bool isExpression, bool global);
  void bindOuterVariables(const Routine& main, Value* parameters, Frame& outer);
  std::shared_ptr<const Program> compileText(const std::string& text, bool isExpression,
                                             const Routine* outer);
  void remember(const std::string& key, std::shared_ptr<const Program> text);
  void forgetTexts();
  void getRef(const Instruction* pc, Value* base);
  void lateGet(const Instruction* pc, Value* base);
  void latePut(const Instruction* pc, Value* base);
  void lateRef(const Instruction* pc, Value* base);
  Value* lateVariable(const Name& name, std::uint16_t own, Value* base);
  void keep(std::shared_ptr<const Program> program);
  [[noreturn]] void throwCode(const Instruction* pc);

  template <class Body>
  std::optional<ErrorReport> guarded(Body body);
  void endObjects();
  std::vector<Ref<MachineObject>> livingObjects();
  CompileContext context() const;

  Runtime runtime_;
  ProgramCache& cache_;
  Limits limits_;
  std::unique_ptr<StackMemory> stack_;
  Frame* fp_;
  Frame* frameEnd_;
  Value* stackEnd_;
  Value* globals_;
  const Intrinsic* intrinsic_ = nullptr;  ///< that runs
  std::int32_t budget_ = 0;               ///< jumps back and calls until the clock is looked at

  Ref<ErrObject> err_;
  std::vector<HostObject> host_;
  GlobalNames names_;
  std::vector<std::shared_ptr<const Program>> programs_;  ///< that later code may refer to
  std::uint16_t globalsEnd_ = 0;
  NameMap<std::shared_ptr<const Program>> texts_;  ///< compiled texts that define nothing
  std::size_t textBytes_ = 0;                      ///< of their keys
  std::unordered_map<const Routine*, const Routine*> replaced_;

  std::chrono::steady_clock::time_point deadline_;
  unsigned nesting_ = 0;  ///< of execute()
  bool stopped_ = false;  ///< the time limit has struck
  SourcePosition stoppedAt_;
  std::optional<ScriptError> pending_;  ///< of a Class_Terminate
};

/// Whether a register needs more than being overwritten: it holds something counted, or refers to
/// a variable.
inline bool needsCare(const Value& value) {
  constexpr std::uint32_t kMask =
      (1u << static_cast<unsigned>(Type::String)) | (1u << static_cast<unsigned>(Type::Object)) |
      (1u << static_cast<unsigned>(Type::Array)) | (1u << static_cast<unsigned>(Type::Reference)) |
      (1u << static_cast<unsigned>(Type::ArrayLock));
  return (kMask >> static_cast<unsigned>(value.type())) & 1u;
}

inline bool isScriptObject(const Object& object) {
  return object.scriptClass() > kProcedureClass;
}

/// The field of a script's object that a place in the code uses, when its cache knows the class;
/// else null.
[[gnu::always_inline]] inline Value* cachedField(const Value& holder, const MemberCache& cache) {
  if (!holder.isObject() || !holder.asObject()) return nullptr;
  Object* object = holder.asObject();
  if (cache.scriptClass == 0 || object->scriptClass() != cache.scriptClass) return nullptr;
  if (cache.member->kind != ClassMember::Kind::Field) return nullptr;
  return static_cast<ScriptObject*>(object)->fields() + cache.member->slot;
}

}  // namespace quorvane::vbs
