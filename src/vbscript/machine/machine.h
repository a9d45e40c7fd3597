#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "vbscript/library/library.h"
#include "vbscript/machine/call_stack.h"
#include "vbscript/machine/err_object.h"
#include "vbscript/machine/program_texts.h"

namespace quorvane::vbs {

class MachineObject;
class ScriptObject;

/// Runs compiled code for one engine. Owns the loop, the call stack and the program texts that it
/// works on, the object Err, and the limits of a run; ends the objects that scripts made.
class Machine {
 public:
  Machine(Host& host, ProgramCache& cache, Limits limits);
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;
  ~Machine();

  void addObject(std::string_view name, Object& object, bool globalMembers);
  std::optional<ErrorReport> run(std::string_view source);
  void setDeadline(std::chrono::steady_clock::time_point at) { stack_.time.setDeadline(at); }
  std::optional<ErrorReport> evaluate(std::string_view expression, Value& result);

  /// Calls a routine from outside the loop; `me` is its object or null. Arguments may be
  /// References. Throws ScriptError, RunStopped.
  Value callRoutine(const Routine& routine, Object* me, Args arguments);
  /// Runs Class_Terminate; its error shows up at the statement that let the object go.
  void terminate(const Routine& routine, Object& object) noexcept;
  /// Value of a member of a script's object.
  Value invokeMember(ScriptObject& object, const ClassMember& member, CallKind kind, Args args);

 private:
  /// One run of the loop inside others. Bounded, because it takes room of the C stack.
  class Nesting {
   public:
    explicit Nesting(Machine& machine);
    ~Nesting();

   private:
    Machine& machine_;
    const Intrinsic* intrinsic_;
  };

  // The loop (loop.cpp).
  /// Runs from the current frame to the Halt of `entry`, which is this frame or one below. Throws
  /// what the script does not trap; `entry` and the frames above are then gone.
  void execute(const Frame* entry);
  /// Runs instructions up to a Halt. What throws does so with the current frame's pc behind the
  /// instruction that is to blame.
  void loop();

  // Runs and their ends (machine.cpp).
  template <class Body>
  std::optional<ErrorReport> guarded(Body body);
  /// Finds the frame that traps the error, and prepares it. False: none down to `entry`.
  bool trap(ScriptError& error, const Frame* entry);
  void unwind(const Frame* entry);
  std::vector<Ref<MachineObject>> livingObjects();
  void endObjects();

  // Calls, of the host and of the library (calls.cpp). True: the current frame is another one now.
  /// A frame that ends a run of the loop, with a register for a result.
  const Frame* enterHalt();
  Value leaveHalt();
  void callHost(const Instruction* pc, Value* base);
  void putHost(const Instruction* pc, Value* base);
  void callIntrinsic(const Instruction* pc, Value* base);
  void callIntrinsicOne(const Instruction* pc, Value* base);
  bool newObject(const Instruction* pc, Value* base);
  bool newNamed(const Instruction* pc, Value* base);
  bool instantiate(const ScriptClass& type, const Instruction* pc, Value* base);

  // Code as text (texts.cpp), and the names it may bring (late_names.cpp).
  void executeText(const Instruction* pc, Value* base);
  void evaluateText(const Instruction* pc, Value* base);
  Value runText(const Value& text, bool isExpression, bool global);
  void getRef(const Instruction* pc, Value* base);
  void lateGet(const Instruction* pc, Value* base);
  void latePut(const Instruction* pc, Value* base);
  void lateRef(const Instruction* pc, Value* base);
  bool lateCall(const Instruction* pc, Value* base);
  Value* lateVariable(const Name& name, std::uint16_t own, Value* base);

  CallStack stack_;
  ProgramTexts texts_;
  Runtime runtime_;
  Limits limits_;
  Ref<ErrObject> err_;
  unsigned nesting_ = 0;      ///< of execute()
  SourcePosition stoppedAt_;  ///< where the time limit struck
};

}  // namespace quorvane::vbs
