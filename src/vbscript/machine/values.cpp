#include <new>

#include "vbscript/machine/machine.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs {

// ---- Storing ----

namespace {

/// What a variable gets of a value: of an object its default value, of an array whose elements may
/// be written through references a copy.
Value assigned(Value value) {
  if (value.isObject()) return plainValue(value);
  if (value.isArray() && value.asArray()->locks > 0) return Value::array(value.asArray()->clone());
  return value;
}

}  // namespace

/// A temporary takes anything as it is.
void Machine::put(const Instruction* pc, Value* base, Value result) {
  Value& target = base[pc->a];
  if (!pc->aIsTemporary()) result = assigned(std::move(result));
  if (needsCare(target)) return putSlow(target, std::move(result));
  new (&target) Value(std::move(result));
}

void Machine::putSlow(Value& target, Value result) {
  checkAssignable(target);
  target.deref() = std::move(result);
  raisePending();
}

void Machine::checkAssignable(const Value& variable) {
  if (variable.deref().isFixedArray()) throwError(ErrorCode::TypeMismatch);
}

void Machine::let(Value& target, const Value& source) {
  checkAssignable(target);
  target.deref() = assigned(source.deref());
  raisePending();
}

void Machine::letFrom(Value& target, Value& source, bool isTemporary) {
  const bool moves = isTemporary && !source.isObject() && !source.is(Type::Reference);
  if (!moves) {
    let(target, source);
    if (isTemporary) release(source);
    return;
  }
  checkAssignable(target);
  target.deref() = assigned(std::move(source));
  raisePending();
}

void Machine::set(Value& target, Value& source, bool isTemporary, const Instruction* pc) {
  if (!source.deref().isObject()) throwNamed(ErrorCode::ObjectRequired, pc);
  checkAssignable(target);
  target.deref() = taken(source, isTemporary);
  raisePending();
}

void Machine::hold(Value& target, Value value) {
  release(target);
  new (&target) Value(std::move(value));
}

void Machine::refer(Value& target, Value& variable) {
  Value& place = variable.deref();
  if (needsCare(target)) release(target);
  new (&target) Value(Value::reference(&place));
}

Value Machine::taken(Value& source, bool isTemporary) {
  if (source.is(Type::Reference) || !isTemporary) {
    Value copy = source.deref();
    if (isTemporary) release(source);
    return copy;
  }
  return std::move(source);
}

void Machine::plain(const Instruction* pc, Value* base) {
  Value value = taken(base[pc->b], pc->bIsTemporary());
  hold(base[pc->a], value.isObject() ? plainValue(value) : std::move(value));
}

void Machine::release(Value& value) {
  if (value.is(Type::Reference)) {
    value.setIntUncounted(Type::Empty, 0);
  } else if (value.is(Type::ArrayLock)) {
    ArrayRep* locked = value.asArray();
    value.setIntUncounted(Type::Empty, 0);
    if (--locked->locks == 0 && locked->references == 0) ArrayRep::destroy(locked);
  } else {
    const Value ended(std::move(value));
  }
}

void Machine::clearRange(Value* first, const Value* last) {
  for (; first < last; ++first) {
    if (needsCare(*first)) release(*first);
  }
}

void Machine::raisePending() {
  if (!pending_) [[likely]]
    return;
  ScriptError error = std::move(*pending_);
  pending_.reset();
  throw error;
}

/// Gives up the temporaries among operands b and c.
void Machine::clearOperands(const Instruction* pc, Value* base) {
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  if (pc->cIsTemporary() && needsCare(base[pc->c])) release(base[pc->c]);
}

// ---- Operators ----

void Machine::binarySlow(const Instruction* pc, Value* base, BinaryFunction function) {
  Value result = function(base[pc->b].deref(), base[pc->c].deref());
  clearOperands(pc, base);
  put(pc, base, std::move(result));
}

void Machine::binaryConstantSlow(const Instruction* pc, Value* base, BinaryFunction function) {
  Value result = function(base[pc->b].deref(), fp_->routine->constants[pc->c]);
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  put(pc, base, std::move(result));
}

void Machine::binaryIntegerSlow(const Instruction* pc, Value* base, BinaryFunction function) {
  const auto number = static_cast<std::int16_t>(pc->c);
  Value result = function(base[pc->b].deref(), Value::integer(number));
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  put(pc, base, std::move(result));
}

void Machine::unarySlow(const Instruction* pc, Value* base, Value (*function)(const Value&)) {
  Value result = function(base[pc->b].deref());
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  put(pc, base, std::move(result));
}

Value Machine::sameObject(const Value& left, const Value& right) {
  return Value::boolean(isSame(left, right));
}

// ---- Texts ----

void Machine::concatenateTwo(const Instruction* pc, Value* base) {
  Value& left = base[pc->b];
  if (pc->bIsTemporary() && left.isString()) {
    // Nobody else sees a temporary: its text may grow in place.
    appendTo(left, base[pc->c].deref());
    Value result = std::move(left);
    if (pc->cIsTemporary() && needsCare(base[pc->c])) release(base[pc->c]);
    return put(pc, base, std::move(result));
  }
  binarySlow(pc, base, concatenate);
}

void Machine::concatenateMany(const Instruction* pc, Value* base) {
  Value* const first = base + pc->b;
  Value* const last = first + pc->c;
  std::size_t bytes = 0;
  bool simple = true;
  for (const Value* piece = first; piece != last; ++piece) {
    const Value& text = piece->deref();
    simple = simple && text.isString() &&
             (!text.stringRep() || text.stringRep()->encoding == Encoding::Ansi);
    if (!simple) break;
    bytes += text.stringRep() ? text.stringRep()->bytes : 0;
  }
  Value result;
  if (simple) {
    String text = String::withCapacity(Encoding::Ansi, bytes);
    for (const Value* piece = first; piece != last; ++piece) {
      const StringRep* rep = piece->deref().stringRep();
      if (rep) text.appendAnsi({rep->data(), rep->bytes});
    }
    result = Value(std::move(text));
  } else {
    result = concatenate(first[0], first[1]);
    for (Value* piece = first + 2; piece != last; ++piece) appendTo(result, piece->deref());
  }
  clearRange(first, last);
  put(pc, base, std::move(result));
}

void Machine::append(const Instruction* pc, Value* base) {
  Value& target = base[pc->a].deref();
  Value& tail = base[pc->b].deref();
  appendTo(target, tail);
  if (pc->aIsTemporary()) release(base[pc->a]);
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  raisePending();
}

void Machine::appendSaved(const Instruction* pc, Value* base) {
  appendToEarlier(base[pc->a], std::move(base[pc->b]), base[pc->c]);
  if (pc->aIsTemporary()) release(base[pc->a]);
  if (pc->cIsTemporary() && needsCare(base[pc->c])) release(base[pc->c]);
  raisePending();
}

// ---- Comparisons ----

namespace {

enum class Relation : std::uint8_t { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

Relation relationOf(Opcode op) {
  switch (op) {
    case Opcode::Equal:
    case Opcode::EqualConstant:
    case Opcode::JumpEqual:
    case Opcode::JumpEqualConstant:
      return Relation::Equal;
    case Opcode::NotEqual:
    case Opcode::NotEqualConstant:
    case Opcode::JumpNotEqual:
    case Opcode::JumpNotEqualConstant:
      return Relation::NotEqual;
    case Opcode::Less:
    case Opcode::LessConstant:
    case Opcode::JumpLess:
    case Opcode::JumpLessConstant:
      return Relation::Less;
    case Opcode::LessOrEqual:
    case Opcode::LessOrEqualConstant:
    case Opcode::JumpLessOrEqual:
    case Opcode::JumpLessOrEqualConstant:
      return Relation::LessOrEqual;
    case Opcode::Greater:
    case Opcode::GreaterConstant:
    case Opcode::JumpGreater:
    case Opcode::JumpGreaterConstant:
      return Relation::Greater;
    default:
      return Relation::GreaterOrEqual;
  }
}

bool holdsFor(Relation relation, Ordering ordering) {
  const int sign = static_cast<int>(ordering);
  switch (relation) {
    case Relation::Equal:
      return sign == 0;
    case Relation::NotEqual:
      return sign != 0;
    case Relation::Less:
      return sign < 0;
    case Relation::LessOrEqual:
      return sign <= 0;
    case Relation::Greater:
      return sign > 0;
    case Relation::GreaterOrEqual:
      return sign >= 0;
  }
  return false;
}

bool isConstantForm(Opcode op) {
  return (op >= Opcode::EqualConstant && op <= Opcode::GreaterOrEqualConstant) ||
         (op >= Opcode::JumpEqualConstant && op <= Opcode::JumpGreaterOrEqualConstant);
}

/// A number or a text, as a literal in the script's text can be.
bool isLiteralType(const Value& value) {
  return value.isString() || value.is(Type::Integer) || value.is(Type::Long) ||
         value.is(Type::Double);
}

Ordering order(Opcode op, const Value& left, const Value& right) {
  if (isConstantForm(op) && isLiteralType(right)) {
    return compareWithLiteral(left, right, false, true);
  }
  return compare(left, right);
}

/// Equality of two texts is decided without putting them in order.
std::optional<bool> sameText(const Value& left, const Value& right) {
  if (!left.isString() || !right.isString()) return std::nullopt;
  const StringRep* l = left.stringRep();
  const StringRep* r = right.stringRep();
  if (l == r) return true;
  if (!l || !r) return (l ? l->bytes : r->bytes) == 0;
  if (l->encoding != Encoding::Ansi || r->encoding != Encoding::Ansi) return std::nullopt;
  if (l->bytes != r->bytes) return false;
  countWork(l->bytes);
  return std::memcmp(l->data(), r->data(), l->bytes) == 0;
}

}  // namespace

void Machine::compareSlow(const Instruction* pc, Value* base, Opcode op, const Value& right,
                          bool rightIsTemporary) {
  const Value& left = base[pc->b].deref();
  const Relation relation = relationOf(op);
  Value result;
  if (const auto same = sameText(left, right.deref()); same && relation <= Relation::NotEqual) {
    result = Value::boolean(*same == (relation == Relation::Equal));
  } else {
    const Ordering ordering = order(op, left, right.deref());
    result =
        ordering == Ordering::Null ? Value::null() : Value::boolean(holdsFor(relation, ordering));
  }
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  if (rightIsTemporary && needsCare(right)) release(base[pc->c]);
  put(pc, base, std::move(result));
}

bool Machine::jumpCompareSlow(const Instruction* pc, Value* base, Opcode op, const Value& right,
                              bool rightIsTemporary) {
  const Value& left = base[pc->a].deref();
  const Relation relation = relationOf(op);
  bool result = false;
  if (const auto same = sameText(left, right.deref()); same && relation <= Relation::NotEqual) {
    result = *same == (relation == Relation::Equal);
  } else {
    const Ordering ordering = order(op, left, right.deref());
    const bool nullHolds = (pc->c & 2) != 0;
    result = ordering == Ordering::Null ? nullHolds : holdsFor(relation, ordering);
  }
  if (pc->aIsTemporary() && needsCare(base[pc->a])) release(base[pc->a]);
  if (rightIsTemporary && needsCare(right)) release(base[pc->b]);
  return result;
}

bool Machine::truth(const Instruction* pc, Value* base) {
  return isTrue(taken(base[pc->a], pc->aIsTemporary()));
}

// ---- Loops ----

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

bool Machine::forPrepare(const Instruction* pc, Value* base) {
  // The limit's register stays Empty until all is well, which ForLoop looks at.
  const Value last = std::move(base[pc->b]);
  const Value from = taken(base[pc->c], pc->cIsTemporary());
  Value start = counter(from);
  Value limit = counter(last);
  Value step = counter(base[pc->b + 1]);
  const bool past = isPast(start, limit, step);
  hold(base[pc->b], std::move(limit));
  hold(base[pc->b + 1], std::move(step));
  base[pc->a].deref() = std::move(start);
  raisePending();
  return past;
}

bool Machine::forLoopSlow(const Instruction* pc, Value* base) {
  const Value& limit = base[pc->b];
  const Value& step = base[pc->b + 1];
  if (limit.isEmpty()) throwError(ErrorCode::ForLoopNotInitialized);
  Value& variable = base[pc->a].deref();
  Value next = add(variable, step);
  const bool goesOn = !isPast(next, limit, step);
  variable = std::move(next);
  raisePending();
  return goesOn;
}

void Machine::forEachPrepare(const Instruction* pc, Value* base) {
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
      Object& object = objectIn(collection, pc);
      collection = Value::adopt(new Walk(object.enumerate()));
    } else if (!collection.isArray()) {
      throwError(ErrorCode::NotACollection);
    }
    hold(base[pc->a], std::move(collection));
  }
  if (pc->bIsTemporary()) release(base[pc->b]);
  hold(base[pc->a + 1], Value::longInt(0));
}

bool Machine::forEachNext(const Instruction* pc, Value* base) {
  const Value& walk = base[pc->b];
  Value item;
  if (walk.isArray() || walk.is(Type::ArrayLock)) {
    const auto index = static_cast<std::size_t>(base[pc->b + 1].asInt());
    if (index >= walk.asArray()->count) return false;
    item = walk.asArray()->element(index);
    base[pc->b + 1].setIntUncounted(Type::Long, static_cast<std::int32_t>(index) + 1);
  } else if (walk.isObject()) {
    if (!static_cast<Walk*>(walk.asObject())->next(item)) return false;
  } else {
    throwError(ErrorCode::ForLoopNotInitialized);
  }
  base[pc->a].deref() = std::move(item);
  raisePending();
  return true;
}

}  // namespace quorvane::vbs
