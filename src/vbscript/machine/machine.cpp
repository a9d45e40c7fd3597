#include "vbscript/machine/machine.h"

#include <algorithm>
#include <new>

#include "vbscript/machine/script_object.h"
#include "vbscript/values/circles.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::vbs {

namespace {

constexpr std::int32_t kTimeout = 113;  ///< what script pages show when their time is over
constexpr std::string_view kTimeoutText = "Script timed out";

ErrorReport reportOf(const ScriptError& error) {
  ErrorReport report;
  report.number = error.number;
  report.description = fullDescription(error);
  report.source = error.source.empty() ? defaultErrorSource(error.number) : error.source;
  report.line = error.line;
  report.column = error.column;
  return report;
}

ErrorReport reportOf(ErrorCode code) {
  const auto number = static_cast<std::int32_t>(code);
  ScriptError error;
  error.number = number;
  error.description = errorText(number);
  return reportOf(error);
}

/// The memory limit of a run, taken back at its end.
class MemoryBound {
 public:
  explicit MemoryBound(std::int64_t bytes) : before_(runContext.memory.limit) {
    const std::int64_t room = INT64_MAX - runContext.memory.used;
    runContext.memory.limit =
        std::min(before_, bytes < room ? runContext.memory.used + bytes : INT64_MAX);
  }
  MemoryBound(const MemoryBound&) = delete;
  MemoryBound& operator=(const MemoryBound&) = delete;
  ~MemoryBound() { runContext.memory.limit = before_; }

 private:
  std::int64_t before_;
};

}  // namespace

// ---- Life ----

Machine::Machine(Host& host, ProgramCache& cache, Limits limits)
    : stack_(host, limits.callDepth),
      texts_(cache),
      runtime_{host, {}},
      limits_(limits),
      err_(make<ErrObject>()) {
  texts_.addHostObject("Err", *err_, false);
}

Machine::~Machine() {
  VBS_ASSERT(stack_.isEmpty() && nesting_ == 0);
  endObjects();
  for (const auto& host : texts_.host()) {
    if (host.object != err_.get()) host.object->release();
  }
}

void Machine::addObject(std::string_view name, Object& object, bool globalMembers) {
  object.retain();
  texts_.addHostObject(name, object, globalMembers);
}

/// The objects that need this machine, the newest first. None of them is older than its Err.
std::vector<Ref<MachineObject>> Machine::livingObjects() {
  std::vector<Ref<MachineObject>> found;
  for (Object* at = runContext.newestObject; at && at != err_.get(); at = at->older()) {
    if (!isMachineObject(*at) || at->references() == 0) continue;
    auto* object = static_cast<MachineObject*>(at);
    if (object->machine() == this) found.emplace_back(object);
  }
  return found;
}

/// Variables go in the order of their declaration; what then still lives holds itself in circles,
/// or is held from outside.
void Machine::endObjects() {
  if (runContext.newestObject != err_.get()) stack_.time.extend(limits_.time);
  const MemoryBound memory(limits_.memoryBytes);
  const TextScope texts(runtime_.host);
  const TimeCheckScope time(stack_.time.check());
  Value* const globalsEnd = stack_.globals() + texts_.globalsEnd();
  clearRange(stack_.globals(), globalsEnd);
  auto living = livingObjects();
  for (auto object = living.rbegin(); object != living.rend(); ++object) {
    if (isScriptObject(**object)) static_cast<ScriptObject&>(**object).terminate();
  }
  // Ending objects may run code that makes more of them.
  for (living = livingObjects(); !living.empty(); living = livingObjects()) {
    for (const auto& object : living) object->detach();
  }
  // The next run finds its variables Empty on this stack.
  for (Value* v = stack_.globals(); v < globalsEnd; ++v) *v = Value();
  endCircles(err_.get());
}

// ---- Runs ----

template <class Body>
std::optional<ErrorReport> Machine::guarded(Body body) {
  stoppedAt_ = {};
  stack_.intrinsic = nullptr;
  stack_.dropPending();
  stack_.time.start(limits_.time);
  const MemoryBound memory(limits_.memoryBytes);
  const TextScope texts(runtime_.host);
  const TimeCheckScope time(stack_.time.check());
  try {
    body();
    if (stack_.time.isOver()) throw RunStopped{};  // within the last Class_Terminate
    return std::nullopt;
  } catch (const ScriptError& error) {
    return reportOf(error);
  } catch (const EndOfRun&) {
    return std::nullopt;
  } catch (const RunStopped&) {
    ErrorReport report;
    report.number = kTimeout;
    report.description = kTimeoutText;
    report.source = defaultErrorSource(kTimeout);
    report.line = stoppedAt_.line;
    report.column = stoppedAt_.column;
    return report;
  } catch (const std::bad_alloc&) {
    return reportOf(ErrorCode::OutOfMemory);
  }
}

std::optional<ErrorReport> Machine::run(std::string_view source) {
  ErrorReport error;
  const auto program = texts_.script(source, error);
  if (!program) return error;
  return guarded([&] {
    stack_.enter(program->main(), stack_.globals(), kNoRegister);
    execute(stack_.top());
    stack_.pop();
  });
}

std::optional<ErrorReport> Machine::evaluate(std::string_view expression, Value& result) {
  ErrorReport error;
  const auto program = texts_.expression(expression, error);
  if (!program) return error;
  return guarded([&] { result = callRoutine(program->main(), nullptr, {}); });
}

// ---- Errors ----

bool Machine::trap(ScriptError& error, const Frame* entry) {
  stack_.complete(error);
  stack_.intrinsic = nullptr;
  const bool canTrap = runtime_.host.canTrap(error.number);
  while (true) {
    VBS_ASSERT(stack_.top() >= entry);
    Frame& frame = *stack_.top();
    const Routine& routine = *frame.routine;
    const StatementEntry* current = canTrap && frame.resumesNext() ? stack_.statement() : nullptr;
    if (current) {
      clearRange(frame.base + routine.firstTemporary, frame.base + routine.registerCount);
      stack_.dropPending();
      err_->set(std::move(error));
      frame.pc = routine.code.data() + current->resume;
      return true;
    }
    const bool isEntry = &frame == entry;
    stack_.abandon();
    if (isEntry) return false;
  }
}

void Machine::unwind(const Frame* entry) {
  if (stack_.time.isOver() && stoppedAt_.line == 0) {
    if (const StatementEntry* current = stack_.statement()) stoppedAt_ = current->position;
  }
  while (stack_.top() >= entry) stack_.abandon();
}

}  // namespace quorvane::vbs
