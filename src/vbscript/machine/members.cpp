#include "vbscript/machine/operations.h"

#include <utility>

#include "vbscript/machine/script_object.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs::operation {

namespace {

CallKind kindFor(std::uint16_t target) {
  return target == kNoRegister ? CallKind::Call : CallKind::Get;
}

const Name& nameIn(CallStack& stack, const MemberCache& cache) {
  return stack.top()->routine->program->names[cache.name];
}

/// With the object before the member's name: "o.Member".
[[noreturn]] void throwMember(CallStack& stack, ErrorCode code, const MemberCache& cache,
                              const Instruction* pc) {
  const OperandName object = stack.operandName(pc);
  const std::string& member = nameIn(stack, cache).text;
  throwError(code, object.name == kNoName ? member : stack.shownName(object.name) + '.' + member);
}

constexpr std::size_t kAssigns = SIZE_MAX;

/// `arguments`: with which it is read or called; kAssigns: it is not.
MemberId findMember(CallStack& stack, Object& object, MemberCache& cache, const Instruction* pc,
                    std::size_t arguments) {
  const void* shape = object.shape();
  if (shape && shape == cache.shape) return cache.id;
  if (shape && shape == cache.olderShape) return cache.olderId;
  const MemberId id = object.findMember(nameIn(stack, cache).lower);
  if (id == kNoMember) throwMember(stack, ErrorCode::NoPropertyOrMethod, cache, pc);
  cache.olderShape = std::exchange(cache.shape, shape);
  cache.olderId = cache.id;
  cache.id = id;
  cache.ask(object, id, arguments);
  return id;
}

const ClassMember* findScriptMember(CallStack& stack, Object& object, MemberCache& cache,
                                    const Instruction* pc) {
  if (cache.scriptClass == object.classNumber()) return cache.member;
  const ClassMember* member =
      static_cast<ScriptObject&>(object).type()->find(nameIn(stack, cache).lower);
  const bool hidden =
      member &&
      (member->kind == ClassMember::Kind::Field || member->kind == ClassMember::Kind::Constant) &&
      member->isPrivate;
  if (!member || hidden) throwMember(stack, ErrorCode::NoPropertyOrMethod, cache, pc);
  cache.scriptClass = object.classNumber();
  cache.member = member;
  const bool isField = member->kind == ClassMember::Kind::Field;
  cache.fieldClass = isField ? cache.scriptClass : MemberCache::kNoClass;
  cache.fieldSlot = member->slot;
  cache.methodClass = MemberCache::kNoClass;
  return member;
}

/// The routine behind a member, which must be there and take so many arguments.
const Routine& checkedRoutine(CallStack& stack, const Routine* routine, std::size_t arguments,
                              MemberCache& cache, const Instruction* pc) {
  if (!routine) throwMember(stack, ErrorCode::NoPropertyOrMethod, cache, pc);
  if (arguments != routine->parameterCount)
    throwMember(stack, ErrorCode::WrongArgumentCount, cache, pc);
  cache.methodClass = cache.scriptClass;
  cache.method = routine;
  return *routine;
}

/// A member that holds a plain value has no elements.
void checkIndexable(CallStack& stack, const Value& field, const MemberCache& cache,
                    const Instruction* pc) {
  const Value& direct = field.deref();
  if (direct.isArray() || direct.isObject()) return;
  throwMember(stack, ErrorCode::NoPropertyOrMethod, cache, pc);
}

/// Calls an object as such. The arguments stand behind the register b, which holds the object or
/// what it was got from.
bool callObject(CallStack& stack, Object& object, const Instruction* pc, Value* base) {
  Value& holder = base[pc->b];
  Value* const arguments = &holder + 1;
  const std::size_t count = pc->c;
  if (object.classNumber() == kProcedureClass) {
    const Routine* routine = static_cast<RoutineObject&>(object).routine();
    if (!routine) throwError(ErrorCode::InvalidCall);
    stack.adjustArguments(*routine, arguments, count);
    stack.top()->pc = pc + (pc->op == Opcode::CallMember ? 2 : 1);
    stack.enter(*routine, arguments, pc->a);
    release(holder);
    return true;
  }
  const Ref<Object> alive(&object);
  Value result = object.invoke(kDefaultMember, kindFor(pc->a), {arguments, count});
  finishCall(stack, pc, base, std::move(result), &holder, count + 1);
  return false;
}

[[gnu::noinline]] bool callAnyMember(CallStack& stack, const Instruction* pc, Value* base) {
  Value& holder = base[pc->b];
  Value* const arguments = &holder + 1;
  const std::size_t count = pc->c;
  MemberCache& cache = *pc[1].pointer<MemberCache>();
  Object& object = stack.objectIn(holder, pc);
  if (!isScriptObject(object)) {
    const MemberId id = findMember(stack, object, cache, pc, count);
    Value result = object.invoke(id, kindFor(pc->a), {arguments, count});
    finishCall(stack, pc, base, std::move(result), &holder, count + 1);
    return false;
  }
  const ClassMember& member = *findScriptMember(stack, object, cache, pc);
  if (member.kind == ClassMember::Kind::Field) {
    Value& field = static_cast<ScriptObject&>(object).fields()[member.slot];
    if (count == 0 && pc->a == kNoRegister)
      return callObject(stack, stack.wholeObjectIn(field, pc), pc, base);
    if (count > 0) checkIndexable(stack, field, cache, pc);
    Value result = count == 0 ? field : elementValue(stack, field, {arguments, count}, pc);
    finishCall(stack, pc, base, std::move(result), &holder, count + 1);
    return false;
  }
  const Routine& routine = checkedRoutine(stack, member.reader(), count, cache, pc);
  stack.adjustArguments(routine, arguments, count);
  stack.top()->pc = pc + 2;
  stack.enter(routine, arguments, pc->a);
  new (&arguments[routine.me]) Value(std::move(holder));
  return true;
}

[[gnu::always_inline]] inline void finishNative(CallStack& stack, const Instruction* pc,
                                                Value* base, Value result) {
  if (pc->a == kNoRegister && !result.isCounted()) {
    stack.raisePending();
  } else if (pc->a != kNoRegister && !needsCare(pc->a.of(base)) && !result.isCounted()) {
    pc->a.of(base).copyUncounted(result);
  } else {
    finishCall(stack, pc, base, std::move(result), nullptr, 0);
  }
}

/// What a member at hand gives; what it would look up in its collection is looked up here.
[[gnu::always_inline]] inline Value callDirectly(Object& known, const DirectMember& direct,
                                                 Args arguments) {
  if (direct.itemUse != ItemUse::None) {
    const Value* const item = known.itemPlace(arguments[0].deref());
    if (direct.itemUse == ItemUse::Exists) return Value::boolean(item != nullptr);
    if (item) return *item;
  }
  countTexts(arguments);
  return direct.get(known, direct.row, arguments);
}

/// Calls a member at hand with a variable by reference.
[[gnu::always_inline]] inline void useNative(CallStack& stack, const Instruction* call, Value* base,
                                             Object& known, Value& variable) {
  const MemberCache& cache = *call[1].pointer<MemberCache>();
  Value argument = Value::reference(&variable);
  const Ref<Object> alive(&known);
  finishNative(stack, call, base, callDirectly(known, cache.direct, {&argument, 1}));
}

}  // namespace

// ---- Members ----

void callNative(CallStack& stack, const Instruction* call, Value* base, Object& known,
                Value& variable) {
  useNative(stack, call, base, known, variable);
}

void callNative(CallStack& stack, const Instruction* call, Value* base, Object& known,
                ArrayRep& array, Value& element) {
  struct Lock {
    explicit Lock(ArrayRep& array) : locked(array) { ++locked.locks; }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() {
      if (--locked.locks == 0 && locked.references == 0) ArrayRep::destroy(&locked);
    }
    ArrayRep& locked;
  };
  const Lock lock(array);
  useNative(stack, call, base, known, element);
}

bool callMember(CallStack& stack, const Instruction* pc, Value* base) {
  Value& holder = pc->b.of(base);
  const MemberCache& cache = *pc[1].pointer<MemberCache>();
  Object* known = nativeObject(holder, cache);
  if (!known) return callAnyMember(stack, pc, base);
  const Args arguments(&holder + 1, pc->c);
  Value result = callDirectly(*known, cache.direct, arguments);
  for (Value& used : arguments) giveUp(used, true);
  if (known->references() > 1) {
    known->release();
    holder.forget();
  } else {
    release(holder);
  }
  finishNative(stack, pc, base, std::move(result));
  return false;
}

bool getMember(CallStack& stack, const Instruction* pc, Value* base) {
  Value& holder = pc->b.of(base);
  MemberCache& cache = *pc[1].pointer<MemberCache>();
  if (Object* known = pc->bIsTemporary() ? nullptr : nativeObject(holder, cache)) {
    const Ref<Object> alive(known);
    put(stack, pc, base, cache.direct.get(*known, cache.direct.row, {}));
    return false;
  }
  Object& object = stack.objectIn(holder, pc);
  if (!isScriptObject(object)) {
    const MemberId id = findMember(stack, object, cache, pc, 0);
    const Ref<Object> alive(&object);
    Value result = object.invoke(id, CallKind::Get, {});
    if (pc->bIsTemporary()) release(holder);
    put(stack, pc, base, std::move(result));
    return false;
  }
  const ClassMember& member = *findScriptMember(stack, object, cache, pc);
  if (member.kind == ClassMember::Kind::Field) {
    Value result = static_cast<ScriptObject&>(object).fields()[member.slot];
    if (pc->bIsTemporary()) release(holder);
    put(stack, pc, base, std::move(result));
    return false;
  }
  const Routine& routine = checkedRoutine(stack, member.reader(), 0, cache, pc);
  stack.top()->pc = pc + 2;
  stack.enterMethod(routine, stack.above(), pc->a, object);
  if (pc->bIsTemporary()) release(holder);
  return true;
}

bool putMember(CallStack& stack, const Instruction* pc, Value* base) {
  Value& holder = base[pc->a];
  const bool isSet = pc->c != 0;
  MemberCache& cache = *pc[1].pointer<MemberCache>();
  const Ref<Object> object(&stack.objectIn(holder, pc));
  Value& source = base[pc->b];
  if (isSet && !source.deref().isObject()) stack.throwNamed(ErrorCode::ObjectRequired, pc);
  if (!isScriptObject(*object)) {
    const MemberId id = findMember(stack, *object, cache, pc, kAssigns);
    Value value = taken(source, pc->bIsTemporary());
    object->invoke(id, isSet ? CallKind::Set : CallKind::Let, {&value, 1});
    if (pc->aIsTemporary()) release(holder);
    stack.raisePending();
    return false;
  }
  const ClassMember& member = *findScriptMember(stack, *object, cache, pc);
  if (member.kind == ClassMember::Kind::Field) {
    Value& field = static_cast<ScriptObject&>(*object).fields()[member.slot];
    if (isSet) {
      set(stack, field, source, pc->bIsTemporary(), pc);
    } else {
      letFrom(stack, field, source, pc->bIsTemporary());
    }
    if (pc->aIsTemporary()) release(holder);
    stack.raisePending();
    return false;
  }
  const Routine& routine = checkedRoutine(stack, member.writer(isSet), 1, cache, pc);
  Value* top = stack.above();
  stack.reserve(top, routine.registerCount);
  Value value = taken(source, pc->bIsTemporary());
  stack.top()->pc = pc + 2;
  stack.enterMethod(routine, top, kNoRegister, *object);
  new (top) Value(std::move(value));
  if (pc->aIsTemporary()) release(holder);
  return true;
}

bool putMemberArguments(CallStack& stack, const Instruction* pc, Value* base) {
  Value& holder = base[pc->a];
  Value* const arguments = &holder + 1;
  const std::size_t count = std::size_t{pc->b} + 1;
  const bool isSet = pc->c != 0;
  MemberCache& cache = *pc[1].pointer<MemberCache>();
  Object& object = stack.objectIn(holder, pc);
  if (!isScriptObject(object)) {
    const MemberId id = findMember(stack, object, cache, pc, kAssigns);
    object.invoke(id, isSet ? CallKind::Set : CallKind::Let, {arguments, count});
    clearRange(&holder, arguments + count);
    stack.raisePending();
    return false;
  }
  const ClassMember& member = *findScriptMember(stack, object, cache, pc);
  if (member.kind == ClassMember::Kind::Field) {
    Value& field = static_cast<ScriptObject&>(object).fields()[member.slot];
    checkIndexable(stack, field, cache, pc);
    storeElement(stack, field, {arguments, count}, isSet, pc);
    clearRange(&holder, arguments + count);
    stack.raisePending();
    return false;
  }
  const Routine& routine = checkedRoutine(stack, member.writer(isSet), count, cache, pc);
  stack.adjustArguments(routine, arguments, count);
  stack.top()->pc = pc + 2;
  stack.enter(routine, arguments, kNoRegister);
  new (&arguments[routine.me]) Value(std::move(holder));
  return true;
}

/// Lets a text grow where it is: in a field that still holds what was read from it before.
bool appendMember(const Instruction* pc, Value* base) {
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

// ---- Values that are called ----

bool callValue(CallStack& stack, const Instruction* pc, Value* base) {
  Value& callee = base[pc->b];
  if (callee.isObject()) return callObject(stack, stack.wholeObjectIn(callee, pc), pc, base);
  if (!callee.isArray() || pc->a == kNoRegister) stack.throwNamed(ErrorCode::TypeMismatch, pc);
  if (pc->c == 0) stack.throwNamed(ErrorCode::SubscriptOutOfRange, pc);
  Value result = elementValue(stack, callee, {&callee + 1, pc->c}, pc);
  finishCall(stack, pc, base, std::move(result), &callee, std::size_t{pc->c} + 1);
  return false;
}

}  // namespace quorvane::vbs::operation
