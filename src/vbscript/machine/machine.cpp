#include "vbscript/machine/machine.h"

#include <cstdlib>
#include <new>

#include "vbscript/machine/program_cache.h"
#include "vbscript/syntax/name_table.h"
#include "vbscript/syntax/parser.h"
#include "vbscript/values/circles.h"
#include "vbscript/values/locale.h"

namespace quorvane::vbs {

namespace {

constexpr std::int32_t kTimeout = 113;  ///< what script pages show when their time is over
constexpr std::string_view kTimeoutText = "Script timed out";

std::string lineOf(std::string_view source, std::uint32_t line) {
  std::size_t start = 0;
  for (std::uint32_t i = 1; i < line && start < source.size(); ++i) {
    const std::size_t end = source.find('\n', start);
    if (end == std::string_view::npos) return {};
    start = end + 1;
  }
  const std::size_t end = std::min(source.find_first_of("\r\n", start), source.size());
  return std::string(source.substr(start, end - start));
}

ErrorReport reportOf(const ScriptError& error) {
  ErrorReport report;
  report.number = error.number;
  report.description = error.description;
  report.source = error.source.empty() ? defaultErrorSource(error.number) : error.source;
  report.line = error.line;
  report.column = error.column;
  return report;
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

struct SpareStack : RunPart {
  std::unique_ptr<StackMemory> memory;
};

std::unique_ptr<StackMemory>& spareStack() {
  return runContext.parts.get<SpareStack>().memory;
}

}  // namespace

ErrorReport compileErrorReport(const CompileError& error, std::string_view source) {
  ErrorReport report;
  report.number = error.number;
  report.description = error.description;
  report.source = defaultErrorSource(error.number);
  report.line = error.position.line;
  report.column = error.position.column;
  report.sourceLine = lineOf(source, error.position.line);
  report.isCompileError = true;
  return report;
}

// ---- The stack ----

StackMemory::StackMemory(std::size_t frames)
    : values_(static_cast<Value*>(std::calloc(kValues, sizeof(Value)))),
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

// ---- Life ----

Machine::Machine(Host& host, ProgramCache& cache, Limits limits)
    : runtime_{host, {}},
      cache_(cache),
      limits_(limits),
      stack_(StackMemory::take(std::size_t{limits.callDepth} + 2)),
      fp_(stack_->frames()),
      frameEnd_(stack_->framesEnd()),
      stackEnd_(stack_->valuesEnd()),
      globals_(stack_->values()),
      err_(make<ErrObject>()) {
  static const Routine kNothing;
  *fp_ = Frame();
  fp_->base = globals_ + kMaxGlobals;
  fp_->routine = &kNothing;
  host_.push_back({"err", err_.get(), false});
}

Machine::~Machine() {
  endObjects();
  for (const auto& host : host_) {
    if (host.object != err_.get()) host.object->release();
  }
  StackMemory::giveBack(std::move(stack_));
}

void Machine::addObject(std::string_view name, Object& object, bool globalMembers) {
  object.retain();
  host_.push_back({foldName(name), &object, globalMembers});
}

/// What lets native work end with the run's time.
TimeCheck Machine::nativeTimeCheck() {
  return {[](void* run) { static_cast<Machine*>(run)->poll(); }, this};
}

/// The objects that need this machine, the newest first. None of them is older than its Err.
std::vector<Ref<MachineObject>> Machine::livingObjects() {
  std::vector<Ref<MachineObject>> found;
  for (Object* at = runContext.newestObject; at && at != err_.get(); at = at->older()) {
    if (at->scriptClass() == 0 || at->references() == 0) continue;
    auto* object = static_cast<MachineObject*>(at);
    if (object->machine_ == this) found.emplace_back(object);
  }
  return found;
}

/// Variables go in the order of their declaration; what then still lives holds itself in circles,
/// or is held from outside.
void Machine::endObjects() {
  if (runContext.newestObject != err_.get()) deadline_ = runtime_.host.steadyNow() + limits_.time;
  const MemoryBound memory(limits_.memoryBytes);
  const TextScope texts(runtime_.host);
  const TimeCheckScope time(nativeTimeCheck());
  clearRange(globals_, globals_ + globalsEnd_);
  auto living = livingObjects();
  for (auto object = living.rbegin(); object != living.rend(); ++object) {
    if (isScriptObject(**object)) static_cast<ScriptObject&>(**object).terminate();
  }
  // Ending objects may run code that makes more of them.
  for (living = livingObjects(); !living.empty(); living = livingObjects()) {
    for (const auto& object : living) object->detach();
  }
  endCircles(err_.get());
  // The next run finds its variables Empty on this stack.
  for (Value* v = globals_; v < globals_ + globalsEnd_; ++v) *v = Value();
}

// ---- Runs ----

CompileContext Machine::context() const {
  CompileContext context;
  context.host = host_;
  context.known = programs_.empty() ? nullptr : &names_;
  context.firstSlot = globalsEnd_;
  return context;
}

template <class Body>
std::optional<ErrorReport> Machine::guarded(Body body) {
  stopped_ = false;
  stoppedAt_ = {};
  intrinsic_ = nullptr;
  pending_.reset();
  deadline_ = runtime_.host.steadyNow() + limits_.time;
  budget_ = 0;
  const MemoryBound memory(limits_.memoryBytes);
  const TextScope texts(runtime_.host);
  const TimeCheckScope time(nativeTimeCheck());
  try {
    body();
    if (stopped_) throw RunStopped{};  // within the last Class_Terminate
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
    ErrorReport report;
    report.number = static_cast<std::int32_t>(ErrorCode::OutOfMemory);
    report.description = errorText(report.number);
    report.source = defaultErrorSource(report.number);
    return report;
  }
}

void Machine::keep(std::shared_ptr<const Program> program) {
  for (const auto& [name, symbol] : program->globals) {
    if (symbol.kind != GlobalSymbol::Kind::Routine) continue;
    const GlobalSymbol* old = names_.find(name);
    if (old && old->kind == GlobalSymbol::Kind::Routine && old->routine != symbol.routine) {
      replaced_[old->routine] = symbol.routine;
    }
  }
  names_.add(*program);
  globalsEnd_ = program->globalsEnd;
  forgetTexts();
  programs_.push_back(std::move(program));
}

std::optional<ErrorReport> Machine::run(std::string_view source) {
  ErrorReport error;
  std::shared_ptr<const Program> program;
  if (programs_.empty()) {
    program = cache_.get(source, host_, error);
    if (!program) return error;
  } else {
    try {
      program = compileScript(source, context());
    } catch (const CompileError& fault) {
      return compileErrorReport(fault, source);
    }
  }
  keep(program);
  return guarded([&] {
    enter(program->main(), globals_, kNoRegister);
    execute(fp_);
    --fp_;
  });
}

std::optional<ErrorReport> Machine::evaluate(std::string_view expression, Value& result) {
  std::shared_ptr<const Program> program;
  CompileContext surroundings = context();
  surroundings.asRoutine = true;
  try {
    program = compileExpression(expression, surroundings);
  } catch (const CompileError& fault) {
    return compileErrorReport(fault, expression);
  }
  return guarded([&] { result = callRoutine(program->main(), nullptr, {}); });
}

// ---- Errors ----

const StatementEntry* Machine::statement() const {
  const Routine& routine = *fp_->routine;
  return routine.statementAt(static_cast<std::uint32_t>(fp_->pc - 1 - routine.code.data()));
}

void Machine::complete(ScriptError& error) const {
  if (error.line != 0) return;
  if (intrinsic_) nameIntrinsic(error, *intrinsic_);
  if (const StatementEntry* entry = statement()) {
    error.line = entry->position.line;
    error.column = entry->position.column;
  }
}

void Machine::leaveFrame() {
  const Routine& routine = *fp_->routine;
  const bool ownsGlobals = fp_->base == globals_;
  Value* first = ownsGlobals ? globals_ + kMaxGlobals : fp_->base;
  clearRange(first, fp_->base + routine.registerCount);
  if (fp_->added) dropAdded();
  --fp_;
}

bool Machine::trap(ScriptError& error, const Frame* entry) {
  complete(error);
  intrinsic_ = nullptr;
  const bool canTrap = runtime_.host.canTrap(error.number);
  while (true) {
    const Routine& routine = *fp_->routine;
    const StatementEntry* current = canTrap && fp_->resumeNext ? statement() : nullptr;
    if (current) {
      clearRange(fp_->base + routine.firstTemporary, fp_->base + routine.registerCount);
      pending_.reset();
      err_->set(std::move(error));
      fp_->pc = routine.code.data() + current->resume;
      return true;
    }
    const bool isEntry = fp_ == entry;
    leaveFrame();
    if (isEntry) return false;
  }
}

void Machine::unwind(const Frame* entry) {
  if (stopped_ && stoppedAt_.line == 0) {
    if (const StatementEntry* current = statement()) stoppedAt_ = current->position;
  }
  while (fp_ >= entry) leaveFrame();
}

}  // namespace quorvane::vbs
