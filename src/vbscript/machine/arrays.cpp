#include "vbscript/machine/operations.h"

#include <array>

#include "vbscript/library/library.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs::operation {

namespace {

/// Bounds or indexes of an array, converted.
struct Indexes {
  std::array<std::int32_t, ArrayRep::kMaxRank> numbers;
  std::size_t count = 0;

  std::span<const std::int32_t> span() const { return {numbers.data(), count}; }
};

Indexes indexesOf(Args values) {
  if (values.size() > ArrayRep::kMaxRank) throwError(ErrorCode::SubscriptOutOfRange);
  Indexes indexes;
  for (const Value& value : values) indexes.numbers[indexes.count++] = toLong(value);
  return indexes;
}

Indexes extentsOf(Args bounds) {
  Indexes extents = indexesOf(bounds);
  for (std::size_t i = 0; i < extents.count; ++i) {
    if (extents.numbers[i] < -1 || extents.numbers[i] == INT32_MAX) {
      throwError(ErrorCode::SubscriptOutOfRange);
    }
    ++extents.numbers[i];
  }
  return extents;
}

/// Puts default values in the place of objects. That may take script code, after which an array
/// could be another one: it comes before any look at the array.
void settle(Args values) {
  for (Value& value : values) {
    if (value.deref().isObject()) value = plainValue(value.deref());
  }
}

bool isInside(const ArrayRep& array, const Indexes& indexes) {
  if (array.elementType != Type::Byte) return array.at(indexes.span()) != nullptr;
  return indexes.count == 1 && indexes.numbers[0] >= 0 &&
         static_cast<std::size_t>(indexes.numbers[0]) < array.count;
}

void checkUnlocked(const Value& variable) {
  const Value& direct = variable.deref();
  if (direct.isFixedArray() || (direct.isArray() && direct.asArray()->locks > 0)) {
    throwError(ErrorCode::ArrayLocked);
  }
}

}  // namespace

void dimArray(CallStack& stack, const Instruction* pc, Value* base) {
  const Indexes extents = extentsOf({base + pc->b, pc->c});
  Value& variable = base[pc->a].deref();
  // A later text declares an array again.
  if (variable.isArray() && stack.top()->routine->isGlobalScope)
    stack.throwNamed(ErrorCode::TypeMismatch, pc);
  variable = Value::array(ArrayRep::create(extents.span()));
  if (pc->c > 0) variable.fixArray();
  if (pc->aIsTemporary()) release(base[pc->a]);
}

void reDim(CallStack& stack, const Instruction* pc, Value* base, bool preserve) {
  checkUnlocked(base[pc->a]);
  const Args bounds(base + pc->b, pc->c);
  const Indexes extents = extentsOf(bounds);
  clearRange(base + pc->b, base + pc->b + pc->c);
  Value& variable = base[pc->a].deref();
  checkUnlocked(variable);  // the default values of bounds take code
  if (preserve && !variable.isArray() && !variable.isEmpty()) {
    stack.throwNamed(ErrorCode::TypeMismatch, pc);
  }
  if (preserve && variable.isArray()) {
    std::vector<Value> cut;
    ArrayRep* resized = ArrayRep::resized(variable.asArray(), extents.span(), cut);
    new (&variable) Value(Value::array(resized));  // resized() has taken over the old body
  } else {
    variable = Value::array(ArrayRep::create(extents.span()));
  }
  if (pc->aIsTemporary()) release(base[pc->a]);
  stack.raisePending();
}

void erase(CallStack& stack, const Instruction* pc, Value* base) {
  eraseArray(base[pc->a].deref());
  if (pc->aIsTemporary()) release(base[pc->a]);
  stack.raisePending();
}

// ---- Reading ----

namespace {

/// Error 9 that shows a single index: the name of its variable, or what it is worth.
[[noreturn]] void throwSubscript(CallStack& stack, Args indexes, const Instruction* pc) {
  constexpr auto kCode = ErrorCode::SubscriptOutOfRange;
  const OperandName operand = stack.operandName(pc);
  if (operand.index != kNoName) throwError(kCode, stack.shownName(operand.index));
  if (indexes.size() != 1) throwError(kCode);
  const Value& index = indexes.front().deref();
  const std::string text = toString(index).narrow();
  throwError(kCode, index.isString() ? "[string: \"" + text + "\"]" : "[number: " + text + ']');
}

}  // namespace

Value elementValue(CallStack& stack, Value& holder, Args indexes, const Instruction* pc) {
  const Value& direct = holder.deref();
  if (direct.isArray()) settle(indexes);
  if (direct.isArray()) {
    const Indexes at = indexesOf(indexes);
    const ArrayRep& array = *direct.asArray();
    if (!isInside(array, at)) throwSubscript(stack, indexes, pc);
    if (array.elementType != Type::Byte) return *array.at(at.span());
    return array.element(static_cast<std::size_t>(at.numbers[0]));
  }
  if (!direct.isObject()) stack.throwNamed(ErrorCode::TypeMismatch, pc);
  Object& object = stack.wholeObjectIn(direct, pc);
  const Ref<Object> alive(&object);
  return object.invoke(kDefaultMember, CallKind::Get, indexes);
}

namespace {

[[gnu::noinline]] void getAnyElement(CallStack& stack, const Instruction* pc, Value* base) {
  Value index = taken(base[pc->c], pc->cIsTemporary());
  Value result = elementValue(stack, base[pc->b], {&index, 1}, pc);
  giveUp(base[pc->b], pc->bIsTemporary());
  put(stack, pc, base, std::move(result));
}

/// An element whose index is a whole number, where it is; or null.
const Value* plainElement(const Value& holder, const Value& index) {
  const Value& direct = holder.deref();
  if (!direct.isArray() || !(index.is(Type::Integer) || index.is(Type::Long))) return nullptr;
  return direct.asArray()->at(index.asInt());
}

[[gnu::noinline]] void getItem(CallStack& stack, const Instruction* pc, Value* base,
                               const Value& item) {
  Value result = item;
  giveUp(base[pc->b], pc->bIsTemporary());
  giveUp(base[pc->c], pc->cIsTemporary());
  put(stack, pc, base, std::move(result));
}

}  // namespace

void getElement(CallStack& stack, const Instruction* pc, Value* base) {
  Value& target = pc->a.of(base);
  Value& key = pc->c.of(base);
  const Value* item = itemIn(pc->b.of(base), key);
  if (!item) item = plainElement(pc->b.of(base), key);
  if (!item) return getAnyElement(stack, pc, base);
  const bool isPlain = !needsCare(target) && isTakenAsIs(*item, pc->aIsTemporary());
  if (!isPlain || pc->bIsTemporary()) return getItem(stack, pc, base, *item);
  const bool endsKey = pc->cIsTemporary() && needsCare(key);  // which may be the target, too
  new (&target) Value(*item);
  if (endsKey) release(key);
}

void getElement2(CallStack& stack, const Instruction* pc, Value* base) {
  const auto second = static_cast<std::uint16_t>(pc[1].low());
  const bool secondIsTemporary = second >= stack.top()->routine->firstTemporary;
  std::array<Value, 2> indexes = {taken(base[pc->c], pc->cIsTemporary()),
                                  taken(base[second], secondIsTemporary)};
  Value result = elementValue(stack, base[pc->b], indexes, pc);
  giveUp(base[pc->b], pc->bIsTemporary());
  put(stack, pc, base, std::move(result));
}

void getElementMany(CallStack& stack, const Instruction* pc, Value* base) {
  const Args indexes(base + pc->c, pc[1].low());
  Value result = elementValue(stack, base[pc->b], indexes, pc);
  clearRange(indexes.data(), indexes.data() + indexes.size());
  giveUp(base[pc->b], pc->bIsTemporary());
  put(stack, pc, base, std::move(result));
}

// ---- Writing ----

void storeElement(CallStack& stack, Value& holder, Args indexesAndValue, bool isSet,
                  const Instruction* pc) {
  Value& direct = holder.deref();
  const Args indexes = indexesAndValue.first(indexesAndValue.size() - 1);
  Value& value = indexesAndValue.back();
  if (direct.isArray()) settle(isSet ? indexes : indexesAndValue);
  if (direct.isArray()) {
    const Indexes at = indexesOf(indexes);
    if (isSet && !value.deref().isObject()) stack.throwNamed(ErrorCode::ObjectRequired, pc);
    const ArrayRep* array = direct.asArray();
    if (array->elementType == Type::Byte) throwError(ErrorCode::TypeMismatch);
    if (!isInside(*array, at)) throwSubscript(stack, indexes, pc);
    Value* element = direct.writableArray()->at(at.span());
    if (isSet) {
      *element = taken(value, true);
    } else {
      letFrom(stack, *element, value, true);
    }
    return stack.raisePending();
  }
  if (!direct.isObject()) stack.throwNamed(ErrorCode::TypeMismatch, pc);
  Object& object = stack.wholeObjectIn(direct, pc);
  const Ref<Object> alive(&object);
  object.invoke(kDefaultMember, isSet ? CallKind::Set : CallKind::Let, indexesAndValue);
  stack.raisePending();
}

namespace {

/// The end of an operation that has changed the item b of a.
void finishItem(CallStack& stack, const Instruction* pc, Value* base) {
  giveUp(base[pc->a], pc->aIsTemporary());
  giveUp(base[pc->b], pc->bIsTemporary());
  stack.raisePending();
}

[[gnu::noinline]] void setAnyElement(CallStack& stack, const Instruction* pc, Value* base) {
  std::array<Value, 2> values = {taken(base[pc->b], pc->bIsTemporary()),
                                 taken(base[pc->c], pc->cIsTemporary())};
  storeElement(stack, base[pc->a], values, false, pc);
  giveUp(base[pc->a], pc->aIsTemporary());
}

[[gnu::noinline]] void setItem(CallStack& stack, const Instruction* pc, Value* base, Value& item) {
  item = taken(base[pc->c], pc->cIsTemporary());
  finishItem(stack, pc, base);
}

}  // namespace

void setElement(CallStack& stack, const Instruction* pc, Value* base) {
  const Value& source = pc->c.of(base);
  Value* item = itemIn(pc->a.of(base), pc->b.of(base));
  if (!item) return setAnyElement(stack, pc, base);
  if (needsCare(*item) || needsCare(source) || pc->aIsTemporary())
    return setItem(stack, pc, base, *item);
  item->copyUncounted(source);
  if (pc->bIsTemporary() && needsCare(pc->b.of(base))) finishItem(stack, pc, base);
}

void setElementConstant(CallStack& stack, const Instruction* pc, Value* base) {
  const Value& constant = stack.top()->routine->constants[pc->c];
  if (Value* item = itemIn(base[pc->a], base[pc->b])) {
    *item = constant;
    return finishItem(stack, pc, base);
  }
  std::array<Value, 2> values = {taken(base[pc->b], pc->bIsTemporary()), constant};
  storeElement(stack, base[pc->a], values, false, pc);
  giveUp(base[pc->a], pc->aIsTemporary());
}

void setElement2(CallStack& stack, const Instruction* pc, Value* base) {
  const auto second = static_cast<std::uint16_t>(pc[1].low());
  const bool secondIsTemporary = second >= stack.top()->routine->firstTemporary;
  std::array<Value, 3> values = {taken(base[pc->b], pc->bIsTemporary()),
                                 taken(base[second], secondIsTemporary),
                                 taken(base[pc->c], pc->cIsTemporary())};
  storeElement(stack, base[pc->a], values, false, pc);
  giveUp(base[pc->a], pc->aIsTemporary());
}

void setElementMany(CallStack& stack, const Instruction* pc, Value* base, bool isSet) {
  const Args values(base + pc->b, std::size_t{pc->c} + 1);
  storeElement(stack, base[pc->a], values, isSet, pc);
  clearRange(values.data(), values.data() + values.size());
  giveUp(base[pc->a], pc->aIsTemporary());
}

namespace {

/// Where an array or a collection holds a text under this index, if that is still `before`; or
/// null.
Value* textElement(Value& holder, const Value& index, const Value& before) {
  Value& direct = holder.deref();
  Value* place = nullptr;
  if (direct.isObject() && direct.asObject()) {
    place = direct.asObject()->itemPlace(index);
  } else if (direct.isArray() && (index.is(Type::Integer) || index.is(Type::Long))) {
    place = direct.asArray()->at(index.asInt());
    if (place && stillHolds(*place, before)) place = direct.writableArray()->at(index.asInt());
  }
  return place && stillHolds(*place, before) ? place : nullptr;
}

}  // namespace

bool appendElement(CallStack& stack, const Instruction* pc, Value* base) {
  const auto tail = static_cast<std::uint16_t>(pc[1].low());
  const bool tailIsTemporary = tail >= stack.top()->routine->firstTemporary;
  const Value added = taken(base[tail], tailIsTemporary);
  Value& before = base[pc->c];
  // The default value of an object may take code that changes the array.
  Value* const place =
      added.isObject() ? nullptr : textElement(base[pc->a], base[pc->b].deref(), before);
  if (!place) {
    appendTo(before, added);
    return false;
  }
  release(before);
  appendTo(*place, added);
  giveUp(base[pc->a], pc->aIsTemporary());
  giveUp(base[pc->b], pc->bIsTemporary());
  return true;
}

/// The element stays in place until the lock goes. What is no array gives its value instead.
void refElement(CallStack& stack, const Instruction* pc, Value* base) {
  const Args indexes(base + pc->c, pc[1].low());
  Value& holder = base[pc->b].deref();
  if (holder.isArray()) settle(indexes);
  Value result;
  if (holder.isArray() && holder.asArray()->elementType != Type::Byte) {
    const Indexes at = indexesOf(indexes);
    if (!isInside(*holder.asArray(), at)) throwSubscript(stack, indexes, pc);
    ArrayRep* array = holder.writableArray();
    result = Value::reference(array->at(at.span()));
    hold(base[pc[1].high()], Value::arrayLock(array));
    ++array->locks;
  } else {
    result = elementValue(stack, base[pc->b], indexes, pc);
  }
  clearRange(indexes.data(), indexes.data() + indexes.size());
  giveUp(base[pc->b], pc->bIsTemporary());
  hold(base[pc->a], std::move(result));
}

}  // namespace quorvane::vbs::operation
