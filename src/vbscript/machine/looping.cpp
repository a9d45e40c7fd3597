#include "vbscript/machine/operations.h"

#include <memory>

#include "vbscript/values/convert.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs::operation {

namespace {

/// The number that a loop counts with.
Value counter(const Value& value) {
  Value plain = plainValue(value);
  switch (plain.type()) {
    case Type::Empty:
      return Value::integer(0);
    case Type::Boolean:
      return Value::integer(static_cast<std::int16_t>(plain.asInt()));
    case Type::String:
      return Value::number(toDouble(plain));
    case Type::Byte:
    case Type::Integer:
    case Type::Long:
    case Type::Single:
    case Type::Double:
    case Type::Currency:
    case Type::Date:
      return plain;
    case Type::Null:
      throwError(ErrorCode::InvalidNull);
    default:
      throwError(ErrorCode::TypeMismatch);
  }
}

bool isPast(const Value& at, const Value& limit, const Value& step) {
  const Ordering ordering = compare(at, limit);
  return toDouble(step) >= 0 ? ordering == Ordering::Greater : ordering == Ordering::Less;
}

/// What For Each walks when it is no array.
class Walk final : public Object {
 public:
  explicit Walk(std::unique_ptr<Enumerator> enumerator) : enumerator_(std::move(enumerator)) {}
  bool next(Value& item) { return enumerator_ && enumerator_->next(item); }
  std::string_view typeName() const override { return "Object"; }
  MemberId findMember(std::string_view) override { return kNoMember; }
  Value invoke(MemberId, CallKind, Args) override { throwError(ErrorCode::NoPropertyOrMethod); }

 private:
  std::unique_ptr<Enumerator> enumerator_;
};

}  // namespace

bool forPrepare(CallStack& stack, const Instruction* pc, Value* base) {
  // The limit's register stays Empty until all is well, which ForLoop looks at.
  const Value last = std::move(base[pc->b]);
  const Value from = taken(base[pc->c], pc->cIsTemporary());
  Value start = counter(from);
  Value limit = counter(last);
  if (limit.is(Type::Integer)) limit = Value::longInt(limit.asInt());  // as the loop expects it
  Value step = counter(base[pc->b + 1]);
  const bool past = isPast(start, limit, step);
  hold(base[pc->b], std::move(limit));
  hold(base[pc->b + 1], std::move(step));
  base[pc->a].deref() = std::move(start);
  stack.raisePending();
  return past;
}

bool forLoop(CallStack& stack, const Instruction* pc, Value* base) {
  const Value& limit = base[pc->b];
  const Value& step = base[pc->b + 1];
  if (limit.isEmpty()) throwError(ErrorCode::ForLoopNotInitialized);
  Value& variable = base[pc->a].deref();
  Value next = add(variable, step);
  const bool goesOn = !isPast(next, limit, step);
  variable = std::move(next);
  stack.raisePending();
  return goesOn;
}

void forEachPrepare(CallStack& stack, const Instruction* pc, Value* base) {
  Value& variable = base[pc->b].deref();
  const bool onlyRead = pc->c != 0;
  const bool isPlace = base[pc->b].is(Type::Reference) || !(pc->bIsTemporary() || onlyRead);
  if (isPlace && variable.isArray()) {
    // The loop sees what its body assigns to elements.
    ArrayRep* const array = variable.writableArray();
    hold(base[pc->a], Value::arrayLock(array));
    ++array->locks;
  } else {
    Value collection = variable;
    if (collection.isObject()) {
      Object& object = stack.wholeObjectIn(collection, pc);
      collection = Value::adopt(new Walk(object.enumerate()));
    } else if (!collection.isArray()) {
      throwError(ErrorCode::NotACollection);
    }
    hold(base[pc->a], std::move(collection));
  }
  if (pc->bIsTemporary()) release(base[pc->b]);
  hold(base[pc->a + 1], Value::longInt(0));
}

namespace {

[[gnu::noinline]] bool giveItem(CallStack& stack, Value& variable, Value item) {
  variable = std::move(item);
  stack.raisePending();
  return true;
}

[[gnu::noinline]] bool nextOfWalk(CallStack& stack, const Value& walk, Value& variable) {
  Value item;
  if (!walk.isObject()) return false;  // what there was is no collection
  if (!static_cast<Walk*>(walk.asObject())->next(item)) return false;
  return giveItem(stack, variable, std::move(item));
}

}  // namespace

bool forEachNext(CallStack& stack, const Instruction* pc, Value* base) {
  const Value& walk = pc->b.of(base);
  Value& variable = pc->a.of(base).deref();
  if (!walk.isArray() && !walk.is(Type::ArrayLock)) return nextOfWalk(stack, walk, variable);
  Value& at = base[pc->b + 1];
  const auto index = static_cast<std::size_t>(at.asInt());
  const ArrayRep& array = *walk.asArray();
  if (index >= array.count) return false;
  at.setIntUncounted(Type::Long, static_cast<std::int32_t>(index) + 1);
  if (array.elementType == Type::Byte) return giveItem(stack, variable, array.element(index));
  variable = array.elements[index];
  stack.raisePending();
  return true;
}

}  // namespace quorvane::vbs::operation
