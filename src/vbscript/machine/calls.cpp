#include "vbscript/library/library.h"
#include "vbscript/machine/machine.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs {

namespace {

constexpr std::int32_t kCallsBetweenClockReadings = 2000;
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

Machine::Nesting::Nesting(Machine& machine)
    : machine_(machine), intrinsic_(std::exchange(machine.intrinsic_, nullptr)) {
  ++machine_.nesting_;
}

void Machine::stackOverflow() {
  throwError(ErrorCode::OutOfStackSpace);
}

void Machine::poll() {
  budget_ = kCallsBetweenClockReadings;
  if (!stopped_ && runtime_.host.steadyNow() < deadline_) return;
  stopped_ = true;
  throw RunStopped{};
}

OperandName Machine::operandName(const Instruction* pc) const {
  const Routine& routine = *fp_->routine;
  return routine.operandNameAt(static_cast<std::uint32_t>(pc - routine.code.data()));
}

const std::string& Machine::shownName(std::uint32_t name) const {
  return fp_->routine->program->names[name].text;
}

void Machine::throwNamed(ErrorCode code, const Instruction* pc) const {
  const OperandName operand = operandName(pc);
  if (operand.name == kNoName) throwError(code);
  throwError(code, shownName(operand.name));
}

Object& Machine::objectIn(const Value& holder, const Instruction* pc) const {
  const Value& direct = holder.deref();
  if (!direct.isObject()) throwNamed(ErrorCode::ObjectRequired, pc);
  if (!direct.asObject()) throwNamed(ErrorCode::ObjectNotSet, pc);
  return *direct.asObject();
}

// ---- Frames ----

void Machine::enterMethod(const Routine& callee, Value* base, std::uint16_t target, Object& me) {
  enter(callee, base, target);
  new (&base[callee.me]) Value(Value::object(&me));
}

/// Arguments of a call whose callee was not known to the compiler: ByVal parameters get copies, and
/// so do parameters that are only read, where nothing can change the variable meanwhile.
void Machine::adjustArguments(const Routine& callee, Value* base, std::size_t count) {
  if (count != callee.parameterCount) throwError(ErrorCode::WrongArgumentCount);
  const Value* const locals = fp_->base;
  const Value* const localsEnd =
      locals == globals_ ? locals : locals + fp_->routine->firstTemporary;
  for (std::size_t i = 0; i < count; ++i) {
    if (!base[i].is(Type::Reference)) continue;
    const Value* variable = base[i].target();
    const bool isLocal = variable >= locals && variable < localsEnd;
    if (!callee.parameters[i].byValue && !(callee.allReadOnly && isLocal)) continue;
    new (&base[i]) Value(*variable);
  }
}

Frame* Machine::enterHalt() {
  if (nesting_ >= kMaxRuns) stackOverflow();  // before there are frames that nobody would leave
  Value* top = stackTop();
  enter(haltRoutine(), top, kNoRegister);
  *top = Value();
  return fp_;
}

Value Machine::leaveHalt() {
  Value result = std::move(fp_->base[0]);
  --fp_;
  return result;
}

Value Machine::callRoutine(const Routine& routine, Object* me, Args arguments) {
  const Frame* halt = enterHalt();
  Value* base = stackTop();
  const std::size_t count = arguments.size();
  try {
    if (count != routine.parameterCount) throwError(ErrorCode::WrongArgumentCount);
    if (base + count + routine.registerCount >= stackEnd_) stackOverflow();
    for (std::size_t i = 0; i < count; ++i) new (&base[i]) Value(arguments[i]);
    adjustArguments(routine, base, count);
    enter(routine, base, 0);
    if (me) new (&base[routine.me]) Value(Value::object(me));
  } catch (...) {
    clearRange(base, std::min(base + count, stackEnd_));
    --fp_;
    throw;
  }
  execute(halt);
  return leaveHalt();
}

void Machine::terminate(const Routine& routine, Object& object) noexcept {
  if (stopped_) return;
  try {
    callRoutine(routine, &object, {});
  } catch (const ScriptError& error) {
    if (!pending_) pending_ = error;
  } catch (const EndOfRun&) {
  } catch (const RunStopped&) {
    budget_ = 0;
  } catch (const std::bad_alloc&) {
    budget_ = 0;
  }
}

void Machine::dropAdded() {
  delete std::exchange(fp_->added, nullptr);
}

/// Stores what a routine returned in the register of the caller, who is the current frame.
void Machine::acceptResult(Value* base, std::uint16_t target, Value& raw) {
  Value result = std::move(raw);
  if (target == kNoRegister) {
    result = Value();
    return raisePending();
  }
  const bool isVariable = target < fp_->routine->firstTemporary;
  if (isVariable && result.isObject()) result = plainValue(result);
  if (needsCare(base[target])) return putSlow(base[target], std::move(result));
  new (&base[target]) Value(std::move(result));
}

/// After a call that needed no frame.
void Machine::finishCall(const Instruction* pc, Value* base, Value result, Value* firstUsed,
                         std::size_t used) {
  clearRange(firstUsed, firstUsed + used);
  if (pc->a == kNoRegister) {
    result = Value();
    return raisePending();
  }
  put(pc, base, std::move(result));
}

// ---- Members ----

const Name& Machine::nameIn(const MemberCache& cache) const {
  return fp_->routine->program->names[cache.name];
}

/// With the object before the member's name: "o.Member".
void Machine::throwMember(ErrorCode code, const MemberCache& cache, const Instruction* pc) const {
  const OperandName object = operandName(pc);
  const std::string& member = nameIn(cache).text;
  throwError(code, object.name == kNoName ? member : shownName(object.name) + '.' + member);
}

MemberId Machine::findMember(Object& object, MemberCache& cache, const Instruction* pc) {
  const void* shape = object.shape();
  if (shape && shape == cache.shape) return cache.id;
  const MemberId id = object.findMember(nameIn(cache).lower);
  if (id == kNoMember) throwMember(ErrorCode::NoPropertyOrMethod, cache, pc);
  cache.shape = shape;
  cache.id = id;
  return id;
}

const ClassMember* Machine::findScriptMember(Object& object, MemberCache& cache,
                                             const Instruction* pc) {
  if (cache.scriptClass == object.scriptClass()) return cache.member;
  const ClassMember* member = static_cast<ScriptObject&>(object).type()->find(nameIn(cache).lower);
  const bool hidden =
      member &&
      (member->kind == ClassMember::Kind::Field || member->kind == ClassMember::Kind::Constant) &&
      member->isPrivate;
  if (!member || hidden) throwMember(ErrorCode::NoPropertyOrMethod, cache, pc);
  cache.scriptClass = object.scriptClass();
  cache.member = member;
  return member;
}

namespace {

/// The routine that reads the member, or null.
const Routine* reader(const ClassMember& member) {
  return member.getIsPrivate ? nullptr : member.get;
}

/// The routine that a Let or Set of the member calls, or null.
const Routine* writer(const ClassMember& member, bool isSet) {
  if (isSet) return member.setIsPrivate ? nullptr : member.set;
  return member.letIsPrivate ? nullptr : member.let;
}

}  // namespace

/// The routine behind a member, which must be there and take so many arguments.
const Routine& Machine::checkedRoutine(const Routine* routine, std::size_t arguments,
                                       const MemberCache& cache, const Instruction* pc) const {
  if (!routine) throwMember(ErrorCode::NoPropertyOrMethod, cache, pc);
  if (arguments != routine->parameterCount) throwMember(ErrorCode::WrongArgumentCount, cache, pc);
  return *routine;
}

bool Machine::callMember(const Instruction* pc, Value* base) {
  Value& holder = base[pc->b];
  Value* const arguments = &holder + 1;
  const std::size_t count = pc->c;
  MemberCache& cache = *pc[1].pointer<MemberCache>();
  Object& object = objectIn(holder, pc);
  if (!isScriptObject(object)) {
    const MemberId id = findMember(object, cache, pc);
    Value result = object.invoke(id, kindFor(pc->a), {arguments, count});
    finishCall(pc, base, std::move(result), &holder, count + 1);
    return false;
  }
  const ClassMember& member = *findScriptMember(object, cache, pc);
  if (member.kind == ClassMember::Kind::Field) {
    Value& field = static_cast<ScriptObject&>(object).fields()[member.slot];
    if (count == 0 && pc->a == kNoRegister) return callObject(objectIn(field, pc), pc, base);
    Value result = count == 0 ? field : elementValue(field, {arguments, count}, pc);
    finishCall(pc, base, std::move(result), &holder, count + 1);
    return false;
  }
  const Routine& routine = checkedRoutine(reader(member), count, cache, pc);
  adjustArguments(routine, arguments, count);
  fp_->pc = pc + 2;
  enter(routine, arguments, pc->a);
  new (&arguments[routine.me]) Value(std::move(holder));
  return true;
}

bool Machine::getMember(const Instruction* pc, Value* base) {
  Value& holder = base[pc->b];
  MemberCache& cache = *pc[1].pointer<MemberCache>();
  Object& object = objectIn(holder, pc);
  if (!isScriptObject(object)) {
    const MemberId id = findMember(object, cache, pc);
    const Ref<Object> alive(&object);
    Value result = object.invoke(id, CallKind::Get, {});
    if (pc->bIsTemporary()) release(holder);
    put(pc, base, std::move(result));
    return false;
  }
  const ClassMember& member = *findScriptMember(object, cache, pc);
  if (member.kind == ClassMember::Kind::Field) {
    Value result = static_cast<ScriptObject&>(object).fields()[member.slot];
    if (pc->bIsTemporary()) release(holder);
    put(pc, base, std::move(result));
    return false;
  }
  const Routine& routine = checkedRoutine(reader(member), 0, cache, pc);
  fp_->pc = pc + 2;
  enterMethod(routine, stackTop(), pc->a, object);
  if (pc->bIsTemporary()) release(holder);
  return true;
}

bool Machine::putMember(const Instruction* pc, Value* base) {
  Value& holder = base[pc->a];
  const bool isSet = pc->c != 0;
  MemberCache& cache = *pc[1].pointer<MemberCache>();
  const Ref<Object> object(&objectIn(holder, pc));
  Value& source = base[pc->b];
  if (isSet && !source.deref().isObject()) throwNamed(ErrorCode::ObjectRequired, pc);
  if (!isScriptObject(*object)) {
    const MemberId id = findMember(*object, cache, pc);
    Value value = taken(source, pc->bIsTemporary());
    object->invoke(id, isSet ? CallKind::Set : CallKind::Let, {&value, 1});
    if (pc->aIsTemporary()) release(holder);
    raisePending();
    return false;
  }
  const ClassMember& member = *findScriptMember(*object, cache, pc);
  if (member.kind == ClassMember::Kind::Field) {
    Value& field = static_cast<ScriptObject&>(*object).fields()[member.slot];
    if (isSet) {
      set(field, source, pc->bIsTemporary(), pc);
    } else {
      letFrom(field, source, pc->bIsTemporary());
    }
    if (pc->aIsTemporary()) release(holder);
    raisePending();
    return false;
  }
  const Routine& routine = checkedRoutine(writer(member, isSet), 1, cache, pc);
  Value* top = stackTop();
  if (top + routine.registerCount > stackEnd_) stackOverflow();
  Value value = taken(source, pc->bIsTemporary());
  fp_->pc = pc + 2;
  enterMethod(routine, top, kNoRegister, *object);
  new (top) Value(std::move(value));
  if (pc->aIsTemporary()) release(holder);
  return true;
}

bool Machine::putMemberArguments(const Instruction* pc, Value* base) {
  Value& holder = base[pc->a];
  Value* const arguments = &holder + 1;
  const std::size_t count = std::size_t{pc->b} + 1;
  const bool isSet = pc->c != 0;
  MemberCache& cache = *pc[1].pointer<MemberCache>();
  Object& object = objectIn(holder, pc);
  if (!isScriptObject(object)) {
    const MemberId id = findMember(object, cache, pc);
    object.invoke(id, isSet ? CallKind::Set : CallKind::Let, {arguments, count});
    clearRange(&holder, arguments + count);
    raisePending();
    return false;
  }
  const ClassMember& member = *findScriptMember(object, cache, pc);
  if (member.kind == ClassMember::Kind::Field) {
    storeElement(static_cast<ScriptObject&>(object).fields()[member.slot], {arguments, count},
                 isSet, pc);
    clearRange(&holder, arguments + count);
    raisePending();
    return false;
  }
  const Routine& routine = checkedRoutine(writer(member, isSet), count, cache, pc);
  adjustArguments(routine, arguments, count);
  fp_->pc = pc + 2;
  enter(routine, arguments, kNoRegister);
  new (&arguments[routine.me]) Value(std::move(holder));
  return true;
}

/// Lets a text grow where it is: in a field that still holds what was read from it before.
bool Machine::appendMember(const Instruction* pc, Value* base) {
  const Value& holder = base[pc->a].deref();
  Value& before = base[pc->b];
  const Value added = taken(base[pc->c], pc->cIsTemporary());
  Value* const field = cachedField(holder, *pc[2].pointer<MemberCache>());
  // The default value of an object may take code that changes the field.
  if (!field || added.isObject() || !stillHolds(*field, before)) {
    appendTo(before, added);
    return false;
  }
  release(before);
  appendTo(*field, added);
  if (pc->aIsTemporary()) release(base[pc->a]);
  return true;
}

Value Machine::invokeMember(ScriptObject& object, const ClassMember& member, CallKind kind,
                            Args args) {
  const bool isPut = kind == CallKind::Let || kind == CallKind::Set;
  if (member.kind != ClassMember::Kind::Field) {
    const Routine* routine = isPut ? writer(member, kind == CallKind::Set) : reader(member);
    if (!routine) throwError(ErrorCode::NoPropertyOrMethod, member.lower);
    return callRoutine(*routine, &object, args);
  }
  Value& field = object.fields()[member.slot];
  if (!isPut) {
    if (args.empty()) return field;
    return elementValue(field, args, fp_->routine->code.data());
  }
  if (args.size() > 1) {
    storeElement(field, args, kind == CallKind::Set, fp_->routine->code.data());
  } else if (kind == CallKind::Set) {
    field = args.back().deref();
  } else {
    let(field, args.back());
  }
  return Value();
}

// ---- Values that are called ----

/// The arguments stand behind the register b, which holds the object or what it was got from.
bool Machine::callObject(Object& object, const Instruction* pc, Value* base) {
  Value& holder = base[pc->b];
  Value* const arguments = &holder + 1;
  const std::size_t count = pc->c;
  if (object.scriptClass() == kProcedureClass) {
    const Routine* routine = static_cast<RoutineObject&>(object).routine();
    if (!routine) throwError(ErrorCode::InvalidCall);
    adjustArguments(*routine, arguments, count);
    fp_->pc = pc + (pc->op == Opcode::CallMember ? 2 : 1);
    enter(*routine, arguments, pc->a);
    release(holder);
    return true;
  }
  const Ref<Object> alive(&object);
  Value result = object.invoke(kDefaultMember, kindFor(pc->a), {arguments, count});
  finishCall(pc, base, std::move(result), &holder, count + 1);
  return false;
}

bool Machine::callValue(const Instruction* pc, Value* base) {
  Value& callee = base[pc->b];
  if (callee.isObject()) return callObject(objectIn(callee, pc), pc, base);
  if (!callee.isArray() || pc->a == kNoRegister) throwNamed(ErrorCode::TypeMismatch, pc);
  Value result = pc->c == 0 ? callee : elementValue(callee, {&callee + 1, pc->c}, pc);
  finishCall(pc, base, std::move(result), &callee, std::size_t{pc->c} + 1);
  return false;
}

// ---- The host and the library ----

void Machine::callHost(const Instruction* pc, Value* base) {
  Value* const arguments = base + pc->b;
  Object& object = *host_[pc[1].low()].object;
  const auto id = static_cast<MemberId>(pc[1].high());
  Value result = object.invoke(id, kindFor(pc->a), {arguments, pc->c});
  finishCall(pc, base, std::move(result), arguments, pc->c);
}

void Machine::putHost(const Instruction* pc, Value* base) {
  const Args arguments(base + pc->a, std::size_t{pc->b} + 1);
  const bool isSet = pc->c != 0;
  if (isSet && !arguments.back().isObject()) throwError(ErrorCode::ObjectRequired);
  host_[pc[1].low()].object->invoke(static_cast<MemberId>(pc[1].high()),
                                    isSet ? CallKind::Set : CallKind::Let, arguments);
  clearRange(arguments.data(), arguments.data() + arguments.size());
  raisePending();
}

void Machine::callIntrinsic(const Instruction* pc, Value* base) {
  intrinsic_ = pc[1].pointer<const Intrinsic>();
  Value* const arguments = base + pc->b;
  Value result = intrinsic_->call(runtime_, {arguments, pc->c});
  intrinsic_ = nullptr;
  finishCall(pc, base, std::move(result), arguments, pc->c);
}

void Machine::callIntrinsicOne(const Instruction* pc, Value* base) {
  intrinsic_ = pc[1].pointer<const Intrinsic>();
  Value& argument = base[pc->b];
  Value result = intrinsic_->call(runtime_, {&argument, 1});
  intrinsic_ = nullptr;
  if (pc->bIsTemporary() && needsCare(argument)) release(argument);
  put(pc, base, std::move(result));
}

// ---- New ----

bool Machine::instantiate(const ScriptClass& type, const Instruction* pc, Value* base) {
  const Ref<ScriptObject> object = ScriptObject::create(*this, type);
  put(pc, base, Value::object(object.get()));
  if (!type.initialize) return false;
  fp_->pc = pc + 2;
  enterMethod(*type.initialize, stackTop(), kNoRegister, *object);
  return true;
}

bool Machine::newObject(const Instruction* pc, Value* base) {
  return instantiate(*pc[1].pointer<const ScriptClass>(), pc, base);
}

const Routine& Machine::current(const Routine& routine) {
  const auto found = replaced_.find(&routine);
  if (found == replaced_.end()) return routine;
  const Routine*& newest = found->second;  // noted, so that the way there stays short
  for (auto next = replaced_.find(newest); next != replaced_.end(); next = replaced_.find(newest)) {
    newest = next->second;
  }
  return *newest;
}

}  // namespace quorvane::vbs
