#include "vbscript/library/library.h"
#include "vbscript/library/regexp.h"
#include "vbscript/machine/machine.h"
#include "vbscript/machine/operations.h"
#include "vbscript/machine/script_object.h"

// What takes the machine: calls from outside the loop, of the host and of the library, and new
// objects.

namespace quorvane::vbs {

namespace {

constexpr unsigned kMaxRuns = 200;  ///< each takes about a kilobyte of the C stack

const Routine& haltRoutine() {
  static const Routine kRoutine = [] {
    Routine routine;
    routine.code.resize(2);
    routine.registerCount = 1;
    return routine;
  }();
  return kRoutine;
}

CallKind kindFor(std::uint16_t target) {
  return target == kNoRegister ? CallKind::Call : CallKind::Get;
}

}  // namespace

// ---- Calls from outside the loop ----

Machine::Nesting::Nesting(Machine& machine)
    : machine_(machine), intrinsic_(std::exchange(machine.stack_.intrinsic, nullptr)) {
  ++machine_.nesting_;
}

Machine::Nesting::~Nesting() {
  --machine_.nesting_;
  machine_.stack_.intrinsic = intrinsic_;
}

const Frame* Machine::enterHalt() {
  // Before there are frames that nobody would leave.
  if (nesting_ >= kMaxRuns) CallStack::overflow();
  Value* const result = stack_.above();
  stack_.enter(haltRoutine(), result, kNoRegister);
  *result = Value();
  return stack_.top();
}

Value Machine::leaveHalt() {
  Value result = std::move(stack_.top()->base[0]);
  stack_.pop();
  return result;
}

Value Machine::callRoutine(const Routine& routine, Object* me, Args arguments) {
  const Frame* halt = enterHalt();
  Value* const base = stack_.above();
  const std::size_t count = arguments.size();
  std::size_t copied = 0;
  try {
    if (count != routine.parameterCount) throwError(ErrorCode::WrongArgumentCount);
    stack_.reserve(base, count + routine.registerCount + 1);
    for (; copied < count; ++copied) new (&base[copied]) Value(arguments[copied]);
    stack_.adjustArguments(routine, base, count);
    stack_.enter(routine, base, 0);
    if (me) new (&base[routine.me]) Value(Value::object(me));
  } catch (...) {
    clearRange(base, base + copied);
    stack_.pop();
    throw;
  }
  execute(halt);
  return leaveHalt();
}

void Machine::terminate(const Routine& routine, Object& object) noexcept {
  if (stack_.time.isOver()) return;
  try {
    callRoutine(routine, &object, {});
  } catch (const ScriptError& error) {
    stack_.keepPending(error);
  } catch (const EndOfRun&) {
  } catch (const RunStopped&) {
    stack_.time.lookSoon();
  } catch (const std::bad_alloc&) {
    stack_.time.lookSoon();
  }
}

Value Machine::invokeMember(ScriptObject& object, const ClassMember& member, CallKind kind,
                            Args args) {
  const bool isPut = kind == CallKind::Let || kind == CallKind::Set;
  if (member.kind != ClassMember::Kind::Field) {
    const Routine* routine = isPut ? member.writer(kind == CallKind::Set) : member.reader();
    if (!routine) throwError(ErrorCode::NoPropertyOrMethod, member.lower);
    return callRoutine(*routine, &object, args);
  }
  Value& field = object.fields()[member.slot];
  if (!isPut) {
    if (args.empty()) return field;
    return operation::elementValue(stack_, field, args, stack_.top()->routine->code.data());
  }
  if (args.size() > 1) {
    operation::storeElement(stack_, field, args, kind == CallKind::Set,
                            stack_.top()->routine->code.data());
  } else if (kind == CallKind::Set) {
    field = args.back().deref();
  } else {
    operation::let(stack_, field, args.back());
  }
  return Value();
}

// ---- The host and the library ----

void Machine::callHost(const Instruction* pc, Value* base) {
  const Args arguments(&pc->b.of(base), pc->c);
  Object& object = *texts_.host()[pc[1].low()].object;
  DirectCache& cache = *pc[1].beside<DirectCache>();
  Value result;
  if (object.classNumber() == cache.nativeClass) {
    countTexts(arguments);
    result = cache.direct.get(object, cache.direct.row, arguments);
  } else {
    const auto id = static_cast<MemberId>(pc[1].high());
    if (object.classNumber() != cache.askedClass) cache.ask(object, id, arguments.size());
    result = object.invoke(id, kindFor(pc->a), arguments);
  }
  operation::finishCall(stack_, pc, base, std::move(result), arguments.data(), arguments.size());
}

void Machine::putHost(const Instruction* pc, Value* base) {
  const Args arguments(base + pc->a, std::size_t{pc->b} + 1);
  const bool isSet = pc->c != 0;
  if (isSet && !arguments.back().isObject()) throwError(ErrorCode::ObjectRequired);
  texts_.host()[pc[1].low()].object->invoke(static_cast<MemberId>(pc[1].high()),
                                            isSet ? CallKind::Set : CallKind::Let, arguments);
  clearRange(arguments.data(), arguments.data() + arguments.size());
  stack_.raisePending();
}

void Machine::callIntrinsic(const Instruction* pc, Value* base) {
  stack_.intrinsic = pc[1].pointer<const Intrinsic>();
  Value* const arguments = base + pc->b;
  Value result = stack_.intrinsic->call(runtime_, {arguments, pc->c});
  stack_.intrinsic = nullptr;
  operation::finishCall(stack_, pc, base, std::move(result), arguments, pc->c);
}

void Machine::callIntrinsicOne(const Instruction* pc, Value* base) {
  stack_.intrinsic = pc[1].pointer<const Intrinsic>();
  Value& argument = base[pc->b];
  Value result = stack_.intrinsic->call(runtime_, {&argument, 1});
  stack_.intrinsic = nullptr;
  giveUp(argument, pc->bIsTemporary());
  operation::finishCall(stack_, pc, base, std::move(result), nullptr, 0);
}

// ---- New ----

bool Machine::instantiate(const ScriptClass& type, const Instruction* pc, Value* base) {
  const Ref<ScriptObject> object = ScriptObject::create(*this, type);
  operation::put(stack_, pc, base, Value::object(object.get()));
  if (!type.initialize) return false;
  stack_.top()->pc = pc + 2;
  stack_.enterMethod(*type.initialize, stack_.above(), kNoRegister, *object);
  return true;
}

bool Machine::newObject(const Instruction* pc, Value* base) {
  return instantiate(*pc[1].pointer<const ScriptClass>(), pc, base);
}

bool Machine::newNamed(const Instruction* pc, Value* base) {
  const Name& name = stack_.top()->routine->program->names[pc[1].low()];
  if (name.lower == kRegExpClass) {
    operation::put(stack_, pc, base, createRegExp());
    return false;
  }
  const GlobalSymbol* symbol = texts_.find(name.lower);
  if (symbol && symbol->kind == GlobalSymbol::Kind::Class) {
    return instantiate(*symbol->scriptClass, pc, base);
  }
  const bool isExplicit = pc->b != 0;
  throwError(isExplicit ? ErrorCode::VariableUndefined : ErrorCode::ClassNotDefined, name.text);
}

}  // namespace quorvane::vbs
