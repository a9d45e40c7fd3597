#include <cmath>
#include <type_traits>

#include "vbscript/machine/machine.h"
#include "vbscript/machine/operations.h"
#include "vbscript/machine/plain_functions.h"
#include "vbscript/machine/script_object.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/operators.h"
#include "vbscript/values/text_hash.h"

// The dispatch loop. Operations whose operands are plain numbers are done here; everything else is
// a call of a named function. A register that needs care (see needsCare) is never overwritten here.
//
// No object with a destructor may be alive where the loop jumps from one operation to the next: a
// computed goto runs no destructors.

namespace quorvane::vbs {

namespace {

constexpr unsigned kInteger = static_cast<unsigned>(Type::Integer);
constexpr unsigned kLong = static_cast<unsigned>(Type::Long);
constexpr unsigned kDouble = static_cast<unsigned>(Type::Double);

inline unsigned tag(const Value& value) {
  return static_cast<unsigned>(value.type());
}

inline bool isWhole(const Value& value) {
  return (tag(value) & kWholeBit) != 0;
}

/// Both are Integer or Long.
inline bool areWhole(unsigned l, unsigned r) {
  return (l & r & kWholeBit) != 0;
}

/// A number of this type, Integer or Long; an Integer that does not fit becomes a Long.
[[gnu::always_inline]] inline void setWhole(Value& target, unsigned type, std::int32_t number) {
  static_assert((kInteger | 1) == kLong);
  const unsigned isWide = number != static_cast<std::int16_t>(number);
  target.setIntUncounted(static_cast<Type>(type | isWide), number);
}

/// Infinity less itself is no number.
inline bool isFinite(double number) {
  return !std::isnan(number - number);
}

inline bool areDoubles(const Value& left, const Value& right) {
  return left.is(Type::Double) && right.is(Type::Double);
}

/// The number of a Double, Integer or Long.
inline bool asDouble(const Value& value, double& number) {
  const unsigned t = tag(value);
  if (t == kDouble) {
    number = value.asDouble();
    return true;
  }
  if ((t & kWholeBit) == 0) return false;
  number = value.asInt();
  return true;
}

struct AddNumbers {
  static bool whole(std::int32_t l, std::int32_t r, std::int32_t& n) {
    return !__builtin_add_overflow(l, r, &n);
  }
  static double floating(double l, double r) { return l + r; }
};
struct SubtractNumbers {
  static bool whole(std::int32_t l, std::int32_t r, std::int32_t& n) {
    return !__builtin_sub_overflow(l, r, &n);
  }
  static double floating(double l, double r) { return l - r; }
};
struct MultiplyNumbers {
  static bool whole(std::int32_t l, std::int32_t r, std::int32_t& n) {
    return !__builtin_mul_overflow(l, r, &n);
  }
  static double floating(double l, double r) { return l * r; }
};

[[gnu::always_inline]] inline bool setFinite(Value& target, double number) {
  if (!isFinite(number)) return false;
  target.setDoubleUncounted(Type::Double, number);
  return true;
}

// A result in a register, by the kinds of the operands. False: not a case for the loop.

template <class Numbers>
[[gnu::always_inline]] inline bool calculateWhole(Value& target, const Value& left,
                                                  const Value& right) {
  std::int32_t n = 0;
  if (needsCare(target) || !areWhole(tag(left), tag(right))) return false;
  if (!Numbers::whole(left.asInt(), right.asInt(), n)) return false;
  setWhole(target, tag(left) | tag(right), n);  // the wider of the two
  return true;
}

/// Doubles, Integers and Longs.
template <class Numbers>
[[gnu::always_inline]] inline bool calculateFloating(Value& target, const Value& left,
                                                     const Value& right) {
  double x = 0;
  double y = 0;
  if (needsCare(target) || !asDouble(left, x) || !asDouble(right, y)) return false;
  return setFinite(target, Numbers::floating(x, y));
}

template <class Numbers>
[[gnu::always_inline]] inline bool calculate(Value& target, const Value& left, const Value& right) {
  if (areWhole(tag(left), tag(right))) return calculateWhole<Numbers>(target, left, right);
  return calculateFloating<Numbers>(target, left, right);
}

template <class Numbers>
[[gnu::always_inline]] inline bool calculateDoubles(Value& target, const Value& left,
                                                    const Value& right) {
  if (!areDoubles(left, right) || needsCare(target)) [[unlikely]]
    return false;
  return setFinite(target, Numbers::floating(left.asDouble(), right.asDouble()));
}

/// With an Integer on the right.
template <class Numbers>
[[gnu::always_inline]] inline bool calculate(Value& target, const Value& left, std::int16_t right) {
  if (needsCare(target)) return false;
  if (isWhole(left)) {
    std::int32_t n = 0;
    if (!Numbers::whole(left.asInt(), right, n)) return false;
    setWhole(target, tag(left), n);
    return true;
  }
  return tag(left) == kDouble && setFinite(target, Numbers::floating(left.asDouble(), right));
}

/// What stands behind the register of a variable, which may refer to another. A temporary that
/// refers to something has to be given up, and is no case for the loop.
[[gnu::always_inline]] inline const Value& behind(const Value& operand, bool isTemporary) {
  return isTemporary ? operand : operand.deref();
}

[[gnu::always_inline]] inline bool divideNumbers(Value& target, const Value& left,
                                                 const Value& right) {
  double x = 0;
  double y = 0;
  if (needsCare(target) || !asDouble(left, x) || !asDouble(right, y) || y == 0) return false;
  return setFinite(target, x / y);
}

/// The operand of `\\` and Mod on the right; their result has the wider subtype.
inline bool dividesSimply(std::int32_t number) {
  return number != 0 && number != -1;
}

[[gnu::always_inline]] inline bool divideWhole(Value& target, const Value& left,
                                               const Value& right) {
  const unsigned l = tag(left);
  const unsigned r = tag(right);
  if (!areWhole(l, r) || needsCare(target) || !dividesSimply(right.asInt())) return false;
  target.setIntUncounted(static_cast<Type>(l | r), left.asInt() / right.asInt());
  return true;
}

[[gnu::always_inline]] inline bool remainder(Value& target, const Value& left, const Value& right) {
  const unsigned l = tag(left);
  const unsigned r = tag(right);
  if (!areWhole(l, r) || needsCare(target) || !dividesSimply(right.asInt())) return false;
  target.setIntUncounted(static_cast<Type>(l | r), left.asInt() % right.asInt());
  return true;
}

struct AndBits {
  static std::int32_t of(std::int32_t l, std::int32_t r) { return l & r; }
};
struct OrBits {
  static std::int32_t of(std::int32_t l, std::int32_t r) { return l | r; }
};
struct XorBits {
  static std::int32_t of(std::int32_t l, std::int32_t r) { return l ^ r; }
};

/// Of two Booleans, or of Integers and Longs, whose result has the wider subtype.
template <class Bits>
[[gnu::always_inline]] inline bool combine(Value& target, const Value& left, const Value& right) {
  const unsigned l = tag(left);
  const unsigned r = tag(right);
  const bool areTruths = left.is(Type::Boolean) && right.is(Type::Boolean);
  if ((!areTruths && !areWhole(l, r)) || needsCare(target)) return false;
  target.setIntUncounted(static_cast<Type>(l | r), Bits::of(left.asInt(), right.asInt()));
  return true;
}

/// A calculation where a variable may stand for another.
template <bool (*calculation)(Value&, const Value&, const Value&)>
[[gnu::noinline]] bool calculateBehind(const Instruction* pc, Value* base, const Value& right) {
  return calculation(pc->a.of(base).deref(), behind(pc->b.of(base), pc->bIsTemporary()), right);
}
template <bool (*calculation)(Value&, const Value&, const Value&)>
[[gnu::noinline]] bool calculateBehind(const Instruction* pc, Value* base) {
  return calculateBehind<calculation>(pc, base, behind(pc->c.of(base), pc->cIsTemporary()));
}

struct EqualNumbers {
  template <class T>
  static bool holds(T l, T r) {
    return l == r;
  }
};
struct NotEqualNumbers {
  template <class T>
  static bool holds(T l, T r) {
    return l != r;
  }
};
struct LessNumbers {
  template <class T>
  static bool holds(T l, T r) {
    return l < r;
  }
};
struct LessOrEqualNumbers {
  template <class T>
  static bool holds(T l, T r) {
    return l <= r;
  }
};
struct GreaterNumbers {
  template <class T>
  static bool holds(T l, T r) {
    return l > r;
  }
};
struct GreaterOrEqualNumbers {
  template <class T>
  static bool holds(T l, T r) {
    return l >= r;
  }
};

/// Of numbers that are not both whole; false: not a case for the loop.
template <class Numbers>
[[gnu::always_inline]] inline bool compareFloating(const Value& left, const Value& right,
                                                   bool& holds) {
  double x = 0;
  double y = 0;
  if (!asDouble(left, x) || !asDouble(right, y)) return false;
  holds = Numbers::holds(x, y);
  return true;
}

/// False: not a case for the loop.
template <class Numbers>
[[gnu::always_inline]] inline bool compareNumbers(const Value& left, const Value& right,
                                                  bool& holds) {
  if (!areWhole(tag(left), tag(right))) return compareFloating<Numbers>(left, right, holds);
  holds = Numbers::holds(left.asInt(), right.asInt());
  return true;
}

/// Two texts of bytes, of which the second is short unless they differ in length.
[[gnu::always_inline]] inline bool areSame(const StringRep& left, const StringRep& right) {
  return left.bytes == right.bytes && text_hash::startAlike(left, right, right.bytes);
}

/// Whether two texts of bytes are the same, where that is the question and they are short when they
/// may be. False: not a case for the loop.
template <class Numbers>
[[gnu::always_inline]] inline bool compareTexts(const Value& left, const Value& right,
                                                bool& holds) {
  if constexpr (!std::is_same_v<Numbers, EqualNumbers> &&
                !std::is_same_v<Numbers, NotEqualNumbers>) {
    return false;
  } else {
    const Value& text = left.deref();
    if (!text.isString() || !right.isString()) return false;
    const StringRep* const l = text.stringRep();
    const StringRep* const r = right.stringRep();
    if (!l || !r || l->encoding != Encoding::Ansi || r->encoding != Encoding::Ansi) return false;
    if (l->bytes == r->bytes && l->bytes > text_hash::kMostReached) return false;
    holds = Numbers::holds(areSame(*l, *r), true);
    return true;
  }
}

/// Equality with a text of at most kMostReached bytes. A temporary is used up. False: not a case
/// for the loop.
template <class Numbers>
[[gnu::always_inline]] inline bool compareWithText(Value& left, bool isTemporary,
                                                   const StringRep& right, bool& holds) {
  const Value& text = left.deref();
  if (!text.isString()) return false;
  StringRep* const body = text.stringRep();
  if (!body || body->encoding != Encoding::Ansi) return false;
  if (isTemporary) {
    if (&text != &left || body->references == 1) return false;
    --body->references;
    left.forget();
  }
  holds = Numbers::holds(areSame(*body, right), true);
  return true;
}

/// The same where a variable may stand for another.
template <class Numbers>
[[gnu::noinline]] bool compareBehind(const Value& left, bool leftIsTemporary, const Value& right,
                                     bool rightIsTemporary, bool& holds) {
  return compareNumbers<Numbers>(behind(left, leftIsTemporary), behind(right, rightIsTemporary),
                                 holds);
}

/// Whether a loop goes on with this number.
[[gnu::always_inline]] inline bool isWithin(std::int32_t at, const Value& limit,
                                            const Value& step) {
  return step.asInt() >= 0 ? at <= limit.asInt() : at >= limit.asInt();
}

/// Another operation stands here from now on, which does the same where the operands are of the
/// types that it was made for.
inline void become(const Instruction* pc, Opcode op) {
  const_cast<Instruction*>(pc)->op = op;  // code of the heap; see Program
}

/// A copy of `source`, or what that refers to, in a register that needs no care.
[[gnu::always_inline]] inline bool copyInto(Value& target, const Value& source) {
  if (needsCare(target)) return false;
  if (!needsCare(source)) {
    target.copyUncounted(source);
    return true;
  }
  new (&target) Value(source.deref());
  return true;
}

/// The same of what is not counted.
[[gnu::always_inline]] inline bool copyPlain(Value& target, const Value& source) {
  if (((tag(source) | tag(target)) & kCareBit) != 0) return false;
  target.copyUncounted(source);
  return true;
}

/// Assigns a text where nothing ends thereby.
[[gnu::always_inline]] inline bool assignText(Value& variable, const Value& source) {
  if (!source.isString() || !vacate(variable)) return false;
  new (&variable) Value(source);
  return true;
}

/// Sets a variable that has nothing to end: it holds a plain value, Nothing, or an object that
/// others hold as well. The object comes from another variable, or is a temporary's, which gives it
/// up.
[[gnu::always_inline]] inline bool setObject(Value& variable, Value& source, bool isTemporary) {
  if (!source.isObject()) return false;
  if (!variable.isObject()) {
    if (needsCare(variable)) return false;
  } else if (Object* const before = variable.asObject()) {
    if (before->references() == 1) return false;
    before->release();
  }
  if (isTemporary) {
    new (&variable) Value(std::move(source));
  } else {
    new (&variable) Value(source);
  }
  return true;
}

/// The array in a register or behind it, or null.
[[gnu::always_inline]] inline ArrayRep* arrayIn(const Value& holder) {
  if (holder.isArray()) return holder.asArray();
  const Value& array = holder.deref();
  return array.isArray() ? array.asArray() : nullptr;
}
/// The same of an array that nobody else holds.
[[gnu::always_inline]] inline ArrayRep* ownArrayIn(const Value& holder) {
  ArrayRep* array = arrayIn(holder);
  return array && array->references == 1 ? array : nullptr;
}

/// The element with this index of a vector of Variants, or null.
[[gnu::always_inline]] inline Value* vectorElement(const ArrayRep* vector, const Value& index) {
  if (!vector) [[unlikely]]
    return nullptr;
  const Value* number = &index;
  if (!isWhole(*number)) [[unlikely]] {
    number = &index.deref();
    if (!isWhole(*number)) return nullptr;
  }
  const auto at = static_cast<std::uint32_t>(number->asInt());
  if (at >= vector->vectorCount) [[unlikely]]
    return nullptr;
  Value* const element = vector->elements + at;
  if (!element) __builtin_unreachable();  // spares the caller a look
  return element;
}

[[gnu::always_inline]] inline Value* matrixElement(const ArrayRep* matrix, const Value& row,
                                                   const Value& column) {
  if (!matrix) [[unlikely]]
    return nullptr;
  if (areWhole(tag(row), tag(column))) [[likely]] {
    return matrix->at(row.asInt(), column.asInt());
  }
  const Value& r = row.deref();
  const Value& c = column.deref();
  return areWhole(tag(r), tag(c)) ? matrix->at(r.asInt(), c.asInt()) : nullptr;
}

/// The field that the code behind `pc`, an element's member, uses of this element, or null.
[[gnu::always_inline]] inline Value* elementField(const Value* element, const Instruction* pc) {
  return element ? cachedField(*element, *pc[3].pointer<MemberCache>()) : nullptr;
}

/// Whether a register can let go of its object and that lives on. A variable keeps it.
[[gnu::always_inline]] inline bool canLetGo(const Value& holder, bool isTemporary) {
  return !isTemporary || holder.asObject()->references() > 1;
}
[[gnu::always_inline]] inline void letGo(Value& holder, bool isTemporary) {
  if (!isTemporary) return;
  holder.asObject()->release();
  holder.forget();
}

/// Whether a register is a variable or refers to one.
[[gnu::always_inline]] inline bool isPlace(const Value& holder, bool isTemporary) {
  return !isTemporary || holder.is(Type::Reference);
}
/// Whether a register is a variable, or a temporary that can be left without what it holds: it
/// refers to a variable, or has an array that others hold as well.
[[gnu::always_inline]] inline bool canBeLeft(const Value& holder, bool isTemporary) {
  return isPlace(holder, isTemporary) || (holder.isArray() && holder.asArray()->references > 1);
}
[[gnu::always_inline]] inline void leave(Value& holder, bool isTemporary) {
  if (!isTemporary) return;
  if (holder.isArray()) --holder.asArray()->references;
  holder.forget();
}
/// A temporary that held a reference is left without it.
[[gnu::always_inline]] inline void dropReference(Value& value) {
  value.forget();
}

/// Whether all variables of a frame are plain, as one sees at once of few: the registers behind
/// them are free.
[[gnu::always_inline]] inline bool areFewPlain(const Value* base, OperandPlace count) {
  static_assert(StackMemory::kSpare >= 4);
  const unsigned first = tag(base[0]) | tag(base[1]) | tag(base[2]) | tag(base[3]);
  return (first & kCareBit) == 0 && count.offset() <= OperandPlace(4).offset();
}
/// Ends variables that are no more than bits, refer to others, or hold an object that lives on, as
/// Me mostly does: the first that is more or that is `kept`, or `end`.
[[gnu::noinline]] Value* endPlain(Value* variable, const Value* end, const Value* kept) {
  for (; variable != end; ++variable) {
    if (!needsCare(*variable)) continue;
    if (variable == kept) break;
    if (variable->is(Type::Reference)) {
      variable->forget();
    } else if (variable->isObject() && variable->asObject() &&
               variable->asObject()->references() > 1) {
      letGo(*variable, true);
    } else {
      break;
    }
  }
  return variable;
}

/// Gives up Me where it lives on and the other variables are plain: objects among those end in the
/// order in which they stand.
[[gnu::always_inline]] inline bool endsWithMe(const Value* base, OperandPlace count, Value& me) {
  Object* const object = me.asObject();
  me.forget();
  if (areFewPlain(base, count) && object->references() > 1) [[likely]] {
    object->release();
    return true;
  }
  new (&me) Value(Value::adopt(object));
  return false;
}

/// The field of Me, operand c, that operand b is.
[[gnu::always_inline]] inline Value& fieldOfMe(const Instruction* pc, Value* base) {
  return pc->b.of(static_cast<ScriptObject*>(pc->c.of(base).asObject())->fields());
}

/// CallStack::adjustArguments for as many as there are, with what is plain done here.
[[gnu::always_inline]] inline void adjustArguments(CallStack& stack, const Routine& callee,
                                                   Value* arguments) {
  for (Value* end = arguments + callee.parameterCount; arguments != end; ++arguments) {
    if (!arguments->is(Type::Reference)) continue;
    if (callee.allReadOnly && stack.isLocal(arguments->target()) &&
        !needsCare(*arguments->target())) {
      new (arguments) Value(*arguments->target());
    } else if (callee.allReadOnly || callee.anyByValue) {
      return stack.adjustArguments(callee, end - callee.parameterCount, callee.parameterCount);
    }
  }
}

/// RefElement for the element of a vector that nobody else holds. False: not a case for the loop.
[[gnu::always_inline]] inline bool referToElement(const Instruction* pc, Value* base) {
  Value& holder = pc->b.of(base);
  Value& lock = base[pc[1].high()];
  Value* element = vectorElement(ownArrayIn(holder), pc->c.of(base));
  if (!element || !isPlace(holder, pc->bIsTemporary())) return false;
  if (needsCare(pc->a.of(base)) || needsCare(lock)) return false;
  ArrayRep* array = holder.deref().asArray();
  ++array->locks;
  new (&lock) Value(Value::arrayLock(array));
  new (&pc->a.of(base)) Value(Value::reference(element));
  if (pc->bIsTemporary()) dropReference(holder);
  return true;
}

/// Whether a jump on what a call results in stands here, and is all that it is for.
[[gnu::always_inline]] inline bool isJumpOn(const Instruction* jump, OperandPlace result) {
  const bool isJump = jump->op == Opcode::JumpUnless || jump->op == Opcode::JumpUnlessNot;
  return isJump && jump->a.offset() == result.offset() && jump->aIsTemporary();
}

/// GetElement for an element that is more than bits, or whose holder is a temporary. False: not a
/// case for the loop.
[[gnu::always_inline]] inline bool takeElement(const Instruction* pc, Value* base,
                                               const Value* element) {
  Value& holder = pc->b.of(base);
  if (!element || !isTakenAsIs(*element, pc->aIsTemporary())) return false;
  if (!canBeLeft(holder, pc->bIsTemporary()) || !copyInto(pc->a.of(base), *element)) return false;
  leave(holder, pc->bIsTemporary());
  return true;
}

/// False: not a case for the loop.
template <plain_function::Function function>
[[gnu::always_inline]] inline bool applyPlain(const Instruction* pc, Value* base) {
  Value& target = pc->a.of(base);
  Value& argument = pc->b.of(base);
  if (needsCare(target) && &target != &argument) return false;
  if (!needsCare(argument)) return function(target, argument);
  if (!pc->bIsTemporary()) return !needsCare(target) && function(target, argument.deref());
  if (!argument.isString()) return false;
  // A text that lives on, as those of one byte do.
  Value result;
  StringRep* const text = argument.stringRep();
  if (!text || text->references == 1 || !function(result, argument)) return false;
  --text->references;
  argument.forget();
  target.copyUncounted(result);
  return true;
}

/// A character of a text of bytes. False: not a case for the loop.
[[gnu::always_inline]] inline bool takeCharacter(Value& target, const Value& text,
                                                 const Value& start) {
  if (!text.isString() || !text.stringRep() || !isWhole(start)) return false;
  const StringRep& body = *text.stringRep();
  const std::size_t at = static_cast<std::size_t>(start.asInt()) - 1;
  if (body.encoding != Encoding::Ansi || at >= body.bytes || !vacate(target)) return false;
  new (&target) Value(String::ofByte(body.data()[at]));
  return true;
}

/// Mid for one character of a variable's text. False: not a case for the loop.
[[gnu::always_inline]] inline bool takeCharacter(const Instruction* pc, Value* base) {
  Value* const arguments = &pc->b.of(base);
  const Value& count = arguments[2];
  if (!arguments[0].is(Type::Reference) || !count.is(Type::Integer) || count.asInt() != 1)
    return false;
  if (!takeCharacter(pc->a.of(base), *arguments[0].target(), arguments[1].deref())) return false;
  dropReference(arguments[0]);
  dropReference(arguments[1]);
  return true;
}

}  // namespace

using namespace operation;

// The loop handles no exceptions itself: its calls are so many that finding a handler among them
// would take longer than all else about an error.
void Machine::execute(const Frame* entry) {
  const Nesting nesting(*this);
  while (true) {
    try {
      return loop();
    } catch (ScriptError& error) {
      if (!trap(error, entry)) throw;
    } catch (...) {
      unwind(entry);
      throw;
    }
  }
}

// NOLINTBEGIN(bugprone-macro-parentheses)
// Each operation jumps to the next by itself where the compiler knows labels as values, which is
// faster; else all go through one switch.
#ifdef VBS_COMPUTED_GOTO
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
#define VBS_GO() goto* labels[static_cast<unsigned>(pc->op)]
#else
#define VBS_GO() goto dispatch
#endif
#define VBS_DISPATCH()                \
  do {                                \
    VBS_ASSERT(stack_.isRunning(pc)); \
    VBS_GO();                         \
  } while (false)
/// A call that may throw: an error is looked for in the statement of the instruction before
/// stack_.top()->pc.
#define VBS_SLOW(call) (stack_.top()->pc = pc + 1, (call))
#define VBS_NEXT(words) \
  do {                  \
    pc += (words);      \
    VBS_DISPATCH();     \
  } while (false)
#define VBS_RELOAD()                                     \
  do {                                                   \
    base = stack_.top()->base;                           \
    constants = stack_.top()->routine->constants.data(); \
    pc = stack_.top()->pc;                               \
    VBS_DISPATCH();                                      \
  } while (false)
// What a jump does about time: nothing when it leads forward.
#define VBS_ON()
#define VBS_BACK()                         \
  VBS_ASSERT(stack_.temporariesAreFree()); \
  if (stack_.time.isDue()) [[unlikely]]    \
  VBS_SLOW(stack_.look())
/// Jumps so many bytes; by VBS_FAR_JUMP, as many as the word behind says.
#define VBS_JUMP(VBS_COUNT, distance) \
  do {                                \
    VBS_COUNT();                      \
    pc = pc->jumped(distance);        \
    VBS_DISPATCH();                   \
  } while (false)
#define VBS_FAR_JUMP(VBS_COUNT) VBS_JUMP(VBS_COUNT, pc[1].distance())

/// Operations on numbers. Where two Doubles have met, the one for Doubles stands from then on,
/// until others come.
#define VBS_CALCULATE_NUMBERS(name, Numbers, function)                                           \
  name:                                                                                          \
  if (calculateWhole<Numbers>(pc->a.of(base), pc->b.of(base), pc->c.of(base))) [[likely]]        \
    VBS_NEXT(1);                                                                                 \
  if (areDoubles(pc->b.of(base), pc->c.of(base))) become(pc, Opcode::name##Doubles);             \
  if (calculateFloating<Numbers>(pc->a.of(base), pc->b.of(base), pc->c.of(base)) ||              \
      calculateBehind<calculate<Numbers>>(pc, base))                                             \
    VBS_NEXT(1);                                                                                 \
  VBS_SLOW(binary(stack_, pc, base, function));                                                  \
  VBS_NEXT(1);                                                                                   \
  name##Doubles : if (calculateDoubles<Numbers>(pc->a.of(base), pc->b.of(base), pc->c.of(base))) \
                      [[likely]] VBS_NEXT(1);                                                    \
  become(pc, Opcode::name);                                                                      \
  goto name;

#define VBS_CALCULATE(name, calculation, function)                            \
  name:                                                                       \
  if (calculation(pc->a.of(base), pc->b.of(base), pc->c.of(base))) [[likely]] \
    VBS_NEXT(1);                                                              \
  if (calculateBehind<calculation>(pc, base)) VBS_NEXT(1);                    \
  VBS_SLOW(binary(stack_, pc, base, function));                               \
  VBS_NEXT(1);

#define VBS_CALCULATE_CONSTANT(name, calculation, function)                        \
  name:                                                                            \
  if (calculation(pc->a.of(base), pc->b.of(base), pc->c.of(constants))) [[likely]] \
    VBS_NEXT(1);                                                                   \
  if (calculateBehind<calculation>(pc, base, pc->c.of(constants))) VBS_NEXT(1);    \
  VBS_SLOW(binaryConstant(stack_, pc, base, function));                            \
  VBS_NEXT(1);

#define VBS_CALCULATE_INTEGER(name, calculation, function)                              \
  name:                                                                                 \
  if (calculation(pc->a.of(base), pc->b.of(base), pc->integer)) [[likely]]              \
    VBS_NEXT(1);                                                                        \
  if (calculateBehind<calculation>(pc, base, Value::integer(pc->integer))) VBS_NEXT(1); \
  VBS_SLOW(binaryInteger(stack_, pc, base, function));                                  \
  VBS_NEXT(1);

#define VBS_COMPARE(name, Numbers)                                                                \
  name : {                                                                                        \
    bool holds = false;                                                                           \
    if (needsCare(pc->a.of(base)) ||                                                              \
        !compareNumbers<Numbers>(behind(pc->b.of(base), pc->bIsTemporary()),                      \
                                 behind(pc->c.of(base), pc->cIsTemporary()), holds)) {            \
      VBS_SLOW(compareTwo(stack_, pc, base, Opcode::name, pc->c.of(base), pc->cIsTemporary()));   \
    } else {                                                                                      \
      pc->a.of(base).setIntUncounted(Type::Boolean, holds ? -1 : 0);                              \
    }                                                                                             \
  }                                                                                               \
  VBS_NEXT(1);                                                                                    \
  name##Constant : {                                                                              \
    bool holds = false;                                                                           \
    if (needsCare(pc->a.of(base)) ||                                                              \
        !compareNumbers<Numbers>(behind(pc->b.of(base), pc->bIsTemporary()), pc->c.of(constants), \
                                 holds)) {                                                        \
      VBS_SLOW(compareTwo(stack_, pc, base, Opcode::name##Constant, pc->c.of(constants), false)); \
    } else {                                                                                      \
      pc->a.of(base).setIntUncounted(Type::Boolean, holds ? -1 : 0);                              \
    }                                                                                             \
  }                                                                                               \
  VBS_NEXT(1);

/// Jumps on what a register says; `relation` compares that with 0.
#define VBS_TRUTH_JUMP(name, VBS_COUNT, relation, when, function)              \
  name:                                                                        \
  if (pc->a.of(base).is(Type::Boolean) ? pc->a.of(base).asInt() relation 0     \
                                       : VBS_SLOW(function(pc, base)) == when) \
    VBS_JUMP(VBS_COUNT, pc->wide());                                           \
  VBS_NEXT(1);

/// Jumps on a comparison of two values; of whole numbers without much ado.
#define VBS_JUMP_WHEN(Numbers, VBS_COUNT, left, right, temporaryMask, comparison)          \
  if (areWhole(tag(left), tag(right))) [[likely]] {                                        \
    if (Numbers::holds((left).asInt(), (right).asInt())) VBS_FAR_JUMP(VBS_COUNT);          \
    VBS_NEXT(2);                                                                           \
  } else {                                                                                 \
    bool holds = false;                                                                    \
    const unsigned temporaries = pc->temporaries & (temporaryMask);                        \
    const bool isDone = compareFloating<Numbers>(left, right, holds) ||                    \
                        (temporaries == 0 && compareTexts<Numbers>(left, right, holds)) || \
                        compareBehind<Numbers>(left, (temporaries & 1) != 0, right,        \
                                               (temporaries & 2) != 0, holds);             \
    if (!isDone) holds = VBS_SLOW(comparison);                                             \
    if (holds) VBS_FAR_JUMP(VBS_COUNT);                                                    \
  }                                                                                        \
  VBS_NEXT(2);

#define VBS_COMPARE_JUMP(Way, VBS_COUNT, name, Numbers)                                           \
  Way##name : VBS_JUMP_WHEN(Numbers, VBS_COUNT, pc->a.of(base), pc->b.of(base), 1 | 2,            \
                            jumpCompare(pc, base, Opcode::Jump##name, pc->b.of(base),             \
                                        pc->bIsTemporary())) Way##name##Constant                  \
      : VBS_JUMP_WHEN(Numbers, VBS_COUNT, pc->a.of(base), pc->b.of(constants), 1,                 \
                      jumpCompare(pc, base, Opcode::Jump##name##Constant, pc->b.of(constants),    \
                                  false)) Way##name##Integer : {                                  \
    const std::int32_t right = pc->integer;                                                       \
    if (isWhole(pc->a.of(base))) [[likely]] {                                                     \
      if (Numbers::holds(pc->a.of(base).asInt(), right)) VBS_FAR_JUMP(VBS_COUNT);                 \
      VBS_NEXT(2);                                                                                \
    }                                                                                             \
    const Value& left = behind(pc->a.of(base), pc->aIsTemporary());                               \
    if (isWhole(left)) {                                                                          \
      if (Numbers::holds(left.asInt(), right)) VBS_FAR_JUMP(VBS_COUNT);                           \
      VBS_NEXT(2);                                                                                \
    }                                                                                             \
    const bool holds = left.is(Type::Double)                                                      \
                           ? Numbers::holds(left.asDouble(), static_cast<double>(right))          \
                           : VBS_SLOW(jumpCompareInteger(pc, base, Opcode::Jump##name##Integer)); \
    if (holds) VBS_FAR_JUMP(VBS_COUNT);                                                           \
  }                                                                                               \
  VBS_NEXT(2);

/// Jumps on a comparison with a short text of bytes. What is no such text itself is compared as
/// with any other constant.
#define VBS_TEXT_JUMP(Way, VBS_COUNT, name, Numbers)                                     \
  Way##name##Text : {                                                                    \
    bool holds = false;                                                                  \
    if (!compareWithText<Numbers>(pc->a.of(base), pc->aIsTemporary(),                    \
                                  *pc->b.of(constants).stringRep(), holds)) [[unlikely]] \
      goto Way##name##Constant;                                                          \
    if (holds) VBS_FAR_JUMP(VBS_COUNT);                                                  \
  }                                                                                      \
  VBS_NEXT(2);

/// All that VBS_JUMP_OPCODES lists, of which what compares is the same both ways.
#define VBS_JUMPS(Way, VBS_COUNT)                                         \
  Way:                                                                    \
  VBS_JUMP(VBS_COUNT, pc->wide());                                        \
  VBS_TRUTH_JUMP(Way##If, VBS_COUNT, !=, true, truth)                     \
  VBS_TRUTH_JUMP(Way##Unless, VBS_COUNT, ==, false, truth)                \
  VBS_TRUTH_JUMP(Way##IfNot, VBS_COUNT, ==, true, truthOfNot)             \
  VBS_TRUTH_JUMP(Way##UnlessNot, VBS_COUNT, !=, false, truthOfNot)        \
  VBS_COMPARE_JUMP(Way, VBS_COUNT, Equal, EqualNumbers)                   \
  VBS_COMPARE_JUMP(Way, VBS_COUNT, NotEqual, NotEqualNumbers)             \
  VBS_COMPARE_JUMP(Way, VBS_COUNT, Less, LessNumbers)                     \
  VBS_COMPARE_JUMP(Way, VBS_COUNT, LessOrEqual, LessOrEqualNumbers)       \
  VBS_COMPARE_JUMP(Way, VBS_COUNT, Greater, GreaterNumbers)               \
  VBS_COMPARE_JUMP(Way, VBS_COUNT, GreaterOrEqual, GreaterOrEqualNumbers) \
  VBS_TEXT_JUMP(Way, VBS_COUNT, Equal, EqualNumbers)                      \
  VBS_TEXT_JUMP(Way, VBS_COUNT, NotEqual, NotEqualNumbers)

/// Stores in an element of an array that nobody else holds, which is in a variable or behind a
/// reference to one.
#define VBS_STORE_ELEMENT(name, words, place, value, function) \
  name : {                                                     \
    Value& holder = pc->a.of(base);                            \
    ArrayRep* const array = ownArrayIn(holder);                \
    Value* const element = place;                              \
    if (element && copyPlain(*element, value)) [[likely]] {    \
      if (!pc->aIsTemporary()) [[likely]]                      \
        VBS_NEXT(words);                                       \
      if (holder.is(Type::Reference)) {                        \
        dropReference(holder);                                 \
        VBS_NEXT(words);                                       \
      }                                                        \
    }                                                          \
  }                                                            \
  VBS_SLOW(function(stack_, pc, base));                        \
  VBS_NEXT(words);

/// Whether a collection has an item, asked for by a call that stands `call` words further on and
/// with what belongs to it is `words` long. A jump on the result is done at once.
#define VBS_FIND_ITEM(collection, key, call, words)                                         \
  do {                                                                                      \
    const bool isThere = VBS_SLOW((collection).itemPlace(key)) != nullptr;                  \
    const OperandPlace result = pc[call].a;                                                 \
    if (!isJumpOn(pc + (words), result)) {                                                  \
      VBS_SLOW(finishCall(stack_, pc + (call), base, Value::boolean(isThere), nullptr, 0)); \
      VBS_NEXT(words);                                                                      \
    }                                                                                       \
    pc += (words);                                                                          \
    if (isThere == (pc->op == Opcode::JumpUnlessNot)) VBS_JUMP(VBS_ON, pc->wide());         \
    VBS_NEXT(1);                                                                            \
  } while (false)

/// Operations that a named function does altogether.
#define VBS_DELEGATE(name, words, call) \
  name:                                 \
  VBS_SLOW(call);                       \
  VBS_NEXT(words);

/// Intrinsic functions that are done here when all is plain.
#define VBS_PLAIN_FUNCTION(name, function)       \
  name:                                          \
  if (applyPlain<function>(pc, base)) [[likely]] \
    VBS_NEXT(2);                                 \
  goto CallIntrinsicOne;

/// Operations that may enter another frame.
#define VBS_ENTER(name, words, call) \
  name:                              \
  if (VBS_SLOW(call)) VBS_RELOAD();  \
  VBS_NEXT(words);

void Machine::loop() {
#ifdef VBS_COMPUTED_GOTO
  static const void* const kLabels[] = {
#define VBS_LABEL(name, operands, meaning) &&name,
      VBS_OPCODES(VBS_LABEL)
#undef VBS_LABEL
  };
  // Hidden from the compiler, which would rather compute the table's address each time than keep
  // it.
  const void* const* labels = kLabels;
  asm("" : "+r"(labels));
#endif
  const Instruction* pc = nullptr;
  const Value* constants = nullptr;
  Value* base = nullptr;

  VBS_RELOAD();

#ifndef VBS_COMPUTED_GOTO
dispatch:
  switch (pc->op) {
#define VBS_CASE(name, operands, meaning) \
  case Opcode::name:                      \
    goto name;
    VBS_OPCODES(VBS_CASE)
#undef VBS_CASE
    case Opcode::Count:
      break;
  }
#endif
  // NOLINTEND(bugprone-macro-parentheses)

Halt:
  return;

  // ---- Moving values ----

LoadConstant:
  if (!copyInto(pc->a.of(base), pc->b.of(constants)) &&
      !assignText(pc->a.of(base), pc->b.of(constants)))
    VBS_SLOW(put(stack_, pc, base, pc->b.of(constants)));
  VBS_NEXT(1);
LoadFarConstant:
  VBS_SLOW(put(stack_, pc, base, constants[static_cast<std::uint32_t>(pc->wide())]));
  VBS_NEXT(1);
LoadInteger:
  if (needsCare(pc->a.of(base))) {
    VBS_SLOW(put(stack_, pc, base, Value::integer(pc->integer)));
  } else {
    pc->a.of(base).setIntUncounted(Type::Integer, pc->integer);
  }
  VBS_NEXT(1);
Copy:
  if (copyInto(pc->a.of(base), pc->b.of(base))) VBS_NEXT(1);
  VBS_SLOW(put(stack_, pc, base, pc->b.of(base).deref()));
  VBS_NEXT(1);
Let:
  if (copyPlain(pc->a.of(base), pc->b.of(base)) ||
      copyPlain(pc->a.of(base).deref(), pc->b.of(base).deref()))
    VBS_NEXT(1);
  if (assignText(pc->a.of(base), pc->b.of(base).deref())) VBS_NEXT(1);
  VBS_SLOW(let(stack_, pc->a.of(base), pc->b.of(base)));
  VBS_NEXT(1);
SetVariable:
  if (setObject(pc->a.of(base), pc->b.of(base), pc->bIsTemporary())) [[likely]]
    VBS_NEXT(1);
  VBS_SLOW(set(stack_, pc->a.of(base), pc->b.of(base), pc->bIsTemporary(), pc));
  VBS_NEXT(1);
  VBS_DELEGATE(Hold, 1, hold(pc->a.of(base), taken(pc->b.of(base), pc->bIsTemporary())))
Clear:
  if (pc->a.of(base).is(Type::ArrayLock) && pc->a.of(base).asArray()->references > 0) {
    --pc->a.of(base).asArray()->locks;
    pc->a.of(base).setIntUncounted(Type::Empty, 0);
  } else if (vacate(pc->a.of(base))) {
    pc->a.of(base).forget();
  } else {
    VBS_SLOW(release(pc->a.of(base)));
  }
  VBS_NEXT(1);
Plain:
  if (copyPlain(pc->a.of(base), pc->b.of(base))) VBS_NEXT(1);
  if (pc->bIsTemporary() && pc->b.of(base).isString()) {
    if (pc->a == pc->b) VBS_NEXT(1);
    if (vacate(pc->a.of(base))) {
      new (&pc->a.of(base)) Value(std::move(pc->b.of(base)));
      VBS_NEXT(1);
    }
  }
  VBS_SLOW(plain(pc, base));
  VBS_NEXT(1);
LoadGlobal:
  if (needsCare(pc->b.of(stack_.globals())) || needsCare(pc->a.of(base))) {
    VBS_SLOW(put(stack_, pc, base, pc->b.of(stack_.globals())));
  } else {
    pc->a.of(base).copyUncounted(pc->b.of(stack_.globals()));
  }
  VBS_NEXT(1);
LetGlobal:
  if (!copyPlain(pc->b.of(stack_.globals()), pc->a.of(base))) {
    VBS_SLOW(letFrom(stack_, pc->b.of(stack_.globals()), pc->a.of(base), pc->aIsTemporary()));
  }
  VBS_NEXT(1);
  VBS_DELEGATE(SetGlobal, 1,
               set(stack_, pc->b.of(stack_.globals()), pc->a.of(base), pc->aIsTemporary(), pc))
LoadField : {
  const Value& field = fieldOfMe(pc, base);
  if (copyPlain(pc->a.of(base), field)) [[likely]]
    VBS_NEXT(1);
  VBS_SLOW(put(stack_, pc, base, field));
}
  VBS_NEXT(1);
LetField : {
  Value& field = fieldOfMe(pc, base);
  if (copyPlain(field, pc->a.of(base)) ||
      copyPlain(field, behind(pc->a.of(base), pc->aIsTemporary()))) [[likely]]
    VBS_NEXT(1);
  VBS_SLOW(letFrom(stack_, field, pc->a.of(base), pc->aIsTemporary()));
}
  VBS_NEXT(1);
SetField:
  VBS_SLOW(set(stack_, fieldOfMe(pc, base), pc->a.of(base), pc->aIsTemporary(), pc));
  VBS_NEXT(1);
RefVariable:
  if (!needsCare(pc->a.of(base))) [[likely]] {
    new (&pc->a.of(base)) Value(Value::reference(&pc->b.of(base).deref()));
    VBS_NEXT(1);
  }
  VBS_SLOW(refer(pc->a.of(base), pc->b.of(base)));
  VBS_NEXT(1);
RefGlobal:
  if (needsCare(pc->a.of(base))) {
    VBS_SLOW(refer(pc->a.of(base), pc->b.of(stack_.globals())));
  } else {
    new (&pc->a.of(base)) Value(Value::reference(&pc->b.of(stack_.globals()).deref()));
  }
  VBS_NEXT(1);
  VBS_DELEGATE(RefField, 1, refer(pc->a.of(base), fieldOfMe(pc, base)))
RefElement:
  if (pc[1].low() != 1 || !referToElement(pc, base)) VBS_SLOW(refElement(stack_, pc, base));
  VBS_NEXT(2);

  // ---- Calculating ----

  VBS_CALCULATE_NUMBERS(Add, AddNumbers, add)
  VBS_CALCULATE_CONSTANT(AddConstant, calculate<AddNumbers>, add)
  VBS_CALCULATE_NUMBERS(Subtract, SubtractNumbers, subtract)
  VBS_CALCULATE_CONSTANT(SubtractConstant, calculate<SubtractNumbers>, subtract)
  VBS_CALCULATE_NUMBERS(Multiply, MultiplyNumbers, multiply)
  VBS_CALCULATE_CONSTANT(MultiplyConstant, calculate<MultiplyNumbers>, multiply)
  VBS_CALCULATE(Divide, divideNumbers, divide)
  VBS_CALCULATE_CONSTANT(DivideConstant, divideNumbers, divide)
  VBS_CALCULATE(IntegerDivide, divideWhole, integerDivide)
  VBS_CALCULATE_CONSTANT(IntegerDivideConstant, divideWhole, integerDivide)
  VBS_CALCULATE(Modulo, remainder, modulo)
  VBS_CALCULATE_CONSTANT(ModuloConstant, remainder, modulo)

  VBS_CALCULATE_INTEGER(AddInteger, calculate<AddNumbers>, add)
  VBS_CALCULATE_INTEGER(SubtractInteger, calculate<SubtractNumbers>, subtract)

  VBS_DELEGATE(Power, 1, binary(stack_, pc, base, power))
  VBS_DELEGATE(Negate, 1, unary(stack_, pc, base, negate))
  VBS_DELEGATE(Identity, 1, unary(stack_, pc, base, identity))
Not:
  if ((pc->b.of(base).is(Type::Boolean) || isWhole(pc->b.of(base))) && !needsCare(pc->a.of(base))) {
    pc->a.of(base).setIntUncounted(pc->b.of(base).type(), ~pc->b.of(base).asInt());
  } else {
    VBS_SLOW(unary(stack_, pc, base, logicalNot));
  }
  VBS_NEXT(1);
  VBS_CALCULATE(And, combine<AndBits>, logicalAnd)
  VBS_CALCULATE(Or, combine<OrBits>, logicalOr)
  VBS_CALCULATE(Xor, combine<XorBits>, logicalXor)
  VBS_DELEGATE(Eqv, 1, binary(stack_, pc, base, logicalEqv))
  VBS_DELEGATE(Imp, 1, binary(stack_, pc, base, logicalImp))
  VBS_DELEGATE(Is, 1, binary(stack_, pc, base, sameObject))
  VBS_DELEGATE(Concatenate, 1, concatenateTwo(stack_, pc, base))
  VBS_DELEGATE(ConcatenateMany, 1, concatenateMany(stack_, pc, base))
  VBS_DELEGATE(Append, 1, append(stack_, pc, base))
  VBS_DELEGATE(AppendSaved, 1, appendSaved(stack_, pc, base))
AppendElement:
  if (VBS_SLOW(appendElement(stack_, pc, base))) VBS_NEXT(2 + 1);
  VBS_NEXT(2);
AppendMember:
  if (VBS_SLOW(appendMember(pc, base))) VBS_NEXT(1 + 2);
  VBS_NEXT(1);

  // ---- Comparing and jumping ----

  VBS_COMPARE(Equal, EqualNumbers)
  VBS_COMPARE(NotEqual, NotEqualNumbers)
  VBS_COMPARE(Less, LessNumbers)
  VBS_COMPARE(LessOrEqual, LessOrEqualNumbers)
  VBS_COMPARE(Greater, GreaterNumbers)
  VBS_COMPARE(GreaterOrEqual, GreaterOrEqualNumbers)

  VBS_JUMPS(Jump, VBS_ON)
  VBS_JUMPS(Turn, VBS_BACK)

  // ---- Loops ----

ForPrepare : {
  Value& limit = pc->b.of(base);
  const Value& step = base[pc->b + 1];
  const Value& from = pc->c.of(base);
  if (areWhole(tag(from), tag(limit)) && isWhole(step) && !needsCare(pc->a.of(base))) {
    pc->a.of(base).copyUncounted(from);
    limit.setIntUncounted(Type::Long, limit.asInt());  // in all loops, for ForLoop to rely on
    if (!isWithin(from.asInt(), limit, step)) VBS_FAR_JUMP(VBS_ON);
  } else if (VBS_SLOW(forPrepare(stack_, pc, base))) {
    VBS_FAR_JUMP(VBS_ON);
  }
}
  VBS_NEXT(2);
ForLoop : {
  Value& variable = pc->a.of(base);
  const Value& limit = pc->b.of(base);
  const Value& step = base[pc->b + 1];
  if (tag(limit) == kLong && areWhole(tag(variable), tag(step)) &&
      calculateWhole<AddNumbers>(variable, variable, step)) {
    if (isWithin(variable.asInt(), limit, step)) VBS_FAR_JUMP(VBS_BACK);
  } else if (VBS_SLOW(forLoop(stack_, pc, base))) {
    VBS_FAR_JUMP(VBS_BACK);
  }
}
  VBS_NEXT(2);
ForNext : {
  Value& variable = pc->a.of(base);
  const Value& limit = pc->b.of(base);
  if (tag(limit) == kLong && isWhole(variable) && calculate<AddNumbers>(variable, variable, 1)) {
    if (variable.asInt() <= limit.asInt()) VBS_FAR_JUMP(VBS_BACK);
  } else if (VBS_SLOW(forLoop(stack_, pc, base))) {
    VBS_FAR_JUMP(VBS_BACK);
  }
}
  VBS_NEXT(2);
  VBS_DELEGATE(ForEachPrepare, 1, forEachPrepare(stack_, pc, base))
ForEachNext : {
  const Value& walk = pc->b.of(base);
  if (walk.isArray() || walk.is(Type::ArrayLock)) {
    const ArrayRep& vector = *walk.asArray();
    Value& at = (&pc->b.of(base))[1];
    const auto index = static_cast<std::uint32_t>(at.asInt());
    if (index < vector.vectorCount && vacate(pc->a.of(base))) {
      new (&pc->a.of(base)) Value(vector.elements[index]);
      at.setIntUncounted(Type::Long, static_cast<std::int32_t>(index) + 1);
      VBS_FAR_JUMP(VBS_BACK);
    }
  }
}
  if (VBS_SLOW(forEachNext(stack_, pc, base))) VBS_FAR_JUMP(VBS_BACK);
  VBS_NEXT(2);

  // ---- Arrays ----

  VBS_DELEGATE(DimArray, 1, dimArray(stack_, pc, base))
  VBS_DELEGATE(ReDim, 1, reDim(stack_, pc, base, false))
  VBS_DELEGATE(ReDimPreserve, 1, reDim(stack_, pc, base, true))
  VBS_DELEGATE(Erase, 1, erase(stack_, pc, base))
GetElement : {
  const Value* element = vectorElement(arrayIn(pc->b.of(base)), pc->c.of(base));
  if (element && !pc->bIsTemporary() && copyPlain(pc->a.of(base), *element)) [[likely]]
    VBS_NEXT(1);
  if (takeElement(pc, base, element)) VBS_NEXT(1);
}
  VBS_SLOW(getElement(stack_, pc, base));
  VBS_NEXT(1);
GetElement2 : {
  const Value* element = matrixElement(arrayIn(pc->b.of(base)), pc->c.of(base), base[pc[1].low()]);
  if (element && !pc->bIsTemporary() && copyPlain(pc->a.of(base), *element)) [[likely]]
    VBS_NEXT(2);
  if (takeElement(pc, base, element)) VBS_NEXT(2);
}
  VBS_SLOW(getElement2(stack_, pc, base));
  VBS_NEXT(2);
  VBS_DELEGATE(GetElementMany, 2, getElementMany(stack_, pc, base))
  VBS_STORE_ELEMENT(SetElement, 1, vectorElement(array, pc->b.of(base)), pc->c.of(base), setElement)
  VBS_STORE_ELEMENT(SetElementConstant, 1, vectorElement(array, pc->b.of(base)),
                    pc->c.of(constants), setElementConstant)
AddToElement : {
  VBS_ASSERT(pc[1].op == Opcode::GetElement && pc[3].op == Opcode::SetElement);
  const Value& holder = pc->a.of(base);
  const ArrayRep* const array = arrayIn(holder);
  Value* place = vectorElement(array, pc->b.of(base));
  if (!place) {
    place = VBS_SLOW(itemIn(holder, pc->b.of(base)));
  } else if (array->references != 1) {
    place = nullptr;
  }
  if (place && calculate<AddNumbers>(*place, *place, pc->integer)) VBS_NEXT(4);
}
  VBS_NEXT(1);
  VBS_STORE_ELEMENT(SetElement2, 2, matrixElement(array, pc->b.of(base), base[pc[1].low()]),
                    pc->c.of(base), setElement2)
  VBS_DELEGATE(SetElementMany, 1, setElementMany(stack_, pc, base, false))
  VBS_DELEGATE(SetElementObject, 1, setElementMany(stack_, pc, base, true))

  // ---- Calls ----

Call : {
  const Routine* callee = pc[1].pointer<const Routine>();
  stack_.top()->pc = pc + 2;
  base = &pc->b.of(base);
  stack_.push(*callee, base, pc->a);
  pc = callee->code.data();
  constants = callee->constants.data();
}
  VBS_DISPATCH();
CallReplaceable:
  stack_.top()->pc = pc + 2;
  stack_.enter(texts_.current(*pc[1].pointer<const Routine>()), &pc->b.of(base), pc->a);
  VBS_RELOAD();
CallOwn : {
  const Routine* callee = pc[1].pointer<const Routine>();
  Object* const me = base[stack_.top()->routine->me].asObject();
  stack_.top()->pc = pc + 2;
  base = &pc->b.of(base);
  stack_.push(*callee, base, pc->a);
  new (&base[callee->me]) Value(Value::object(me));
  pc = callee->code.data();
  constants = callee->constants.data();
}
  VBS_DISPATCH();
CallMember : {
  Value* const holder = &pc->b.of(base);
  const Routine* callee = cachedMethod(*holder, *pc[1].pointer<MemberCache>());
  if (!callee) {
    if (VBS_SLOW(callMember(stack_, pc, base))) VBS_RELOAD();
    VBS_NEXT(2);
  }
  stack_.top()->pc = pc + 2;
  adjustArguments(stack_, *callee, holder + 1);
  base = holder + 1;
  stack_.push(*callee, base, pc->a);
  new (&base[callee->me]) Value(std::move(*holder));
  pc = callee->code.data();
  constants = callee->constants.data();
}
  VBS_DISPATCH();
CallNative : {
  VBS_ASSERT(pc[1].op == Opcode::RefVariable && pc[2].op == Opcode::CallMember);
  const MemberCache& cache = *pc[3].pointer<MemberCache>();
  if (Object* known = nativeObject(pc->b.of(base).deref(), cache)) {
    Value& argument = pc[1].b.of(base).deref();
    if (cache.direct.itemUse == ItemUse::Exists) VBS_FIND_ITEM(*known, argument, 2, 4);
    VBS_SLOW(callNative(stack_, pc + 2, base, *known, argument));
    VBS_NEXT(4);
  }
}
  goto Copy;
CallNativeElement : {
  VBS_ASSERT(pc[1].op == Opcode::Copy && pc[2].op == Opcode::RefElement &&
             pc[4].op == Opcode::CallMember && pc[6].op == Opcode::Clear);
  const MemberCache& cache = *pc[5].pointer<MemberCache>();
  if (Object* known = nativeObject(pc->b.of(base).deref(), cache)) {
    Value& holder = pc[2].b.of(base);
    const ArrayRep* const array = arrayIn(holder);
    Value* element = vectorElement(array, pc[1].b.of(base));
    if (element && cache.direct.itemUse == ItemUse::Exists) VBS_FIND_ITEM(*known, *element, 4, 7);
    if (element && array->references == 1) {
      VBS_SLOW(callNative(stack_, pc + 4, base, *known, *holder.deref().asArray(), *element));
      VBS_NEXT(7);
    }
  }
}
  goto Copy;
GetMemberOfVariable : {
  const Value* field = cachedField(pc->b.of(base), *pc[1].pointer<MemberCache>());
  if (field && copyPlain(pc->a.of(base), *field)) [[likely]]
    VBS_NEXT(2);
}
  // The rest is the same.
GetMember : {
  Value& holder = pc->b.of(base);
  const MemberCache& cache = *pc[1].pointer<MemberCache>();
  const Value* field = cachedField(holder, cache);
  const bool isSimple = field && isTakenAsIs(*field, pc->aIsTemporary()) &&
                        canLetGo(holder, pc->bIsTemporary()) &&
                        (!needsCare(pc->a.of(base)) || (pc->a == pc->b && pc->bIsTemporary()));
  if (isSimple) {
    letGo(holder, pc->bIsTemporary());
    new (&pc->a.of(base)) Value(*field);
    VBS_NEXT(2);
  }
  const Value& object = holder.deref();
  if (const Routine* callee = pc->bIsTemporary() ? nullptr : cachedMethod(object, cache)) {
    Object* const me = object.asObject();
    stack_.top()->pc = pc + 2;
    base = &pc->c.of(base);
    stack_.push(*callee, base, pc->a);
    new (&base[callee->me]) Value(Value::object(me));
    pc = callee->code.data();
    constants = callee->constants.data();
    VBS_DISPATCH();
  }
  if (VBS_SLOW(getMember(stack_, pc, base))) VBS_RELOAD();
}
  VBS_NEXT(2);
PutMemberOfVariable : {
  Value* field = cachedField(pc->a.of(base), *pc[1].pointer<MemberCache>());
  if (field && copyPlain(*field, pc->b.of(base))) [[likely]]
    VBS_NEXT(2);
}
  // The rest is the same.
PutMember : {
  Value& holder = pc->a.of(base);
  const MemberCache& cache = *pc[1].pointer<MemberCache>();
  Value* field = cachedField(holder, cache);
  if (field && pc->c != 0 && !pc->aIsTemporary() &&
      setObject(*field, pc->b.of(base), pc->bIsTemporary())) {
    VBS_NEXT(2);
  }
  if (field && pc->c == 0 && canLetGo(holder, pc->aIsTemporary()) &&
      copyPlain(*field, pc->b.of(base))) {
    letGo(holder, pc->aIsTemporary());
    VBS_NEXT(2);
  }
  // The value is the topmost temporary where the object is none, and so stands where the argument
  // is to be.
  const bool isInPlace = pc->bIsTemporary() && !pc->aIsTemporary() && !needsCare(pc->b.of(base));
  const Value& object = holder.deref();
  const Routine* callee = isInPlace && pc->c == 0 ? cachedMethod(object, cache) : nullptr;
  if (callee) {
    Object* const me = object.asObject();
    stack_.top()->pc = pc + 2;
    base = &pc->b.of(base);
    stack_.push(*callee, base, kNoRegister);
    new (&base[callee->me]) Value(Value::object(me));
    pc = callee->code.data();
    constants = callee->constants.data();
    VBS_DISPATCH();
  }
  if (VBS_SLOW(putMember(stack_, pc, base))) VBS_RELOAD();
}
  VBS_NEXT(2);
GetElementMember : {
  const Value* field = elementField(vectorElement(arrayIn(pc->b.of(base)), pc->c.of(base)), pc);
  if (field && isTakenAsIs(*field, pc->aIsTemporary()) &&
      isPlace(pc->b.of(base), pc->bIsTemporary()) && copyInto(pc->a.of(base), *field)) {
    if (pc->bIsTemporary()) dropReference(pc->b.of(base));
    VBS_NEXT(1 + 1 + 2);
  }
}
  VBS_NEXT(1);
PutElementMember : {
  Value* field = elementField(vectorElement(arrayIn(pc->b.of(base)), pc->c.of(base)), pc);
  if (field && isPlace(pc->b.of(base), pc->bIsTemporary()) && copyPlain(*field, pc->a.of(base))) {
    if (pc->bIsTemporary()) dropReference(pc->b.of(base));
    VBS_NEXT(1 + 1 + 2);
  }
}
  VBS_NEXT(1);
  VBS_ENTER(PutMemberArguments, 2, putMemberArguments(stack_, pc, base))
  VBS_ENTER(CallValue, 1, callValue(stack_, pc, base))
  VBS_DELEGATE(CallHost, 2, callHost(pc, base))
  VBS_DELEGATE(PutHost, 2, putHost(pc, base))
  VBS_DELEGATE(LoadHost, 1, put(stack_, pc, base, Value::object(texts_.host()[pc->b].object)))
  VBS_DELEGATE(CallIntrinsic, 2, callIntrinsic(pc, base))
  VBS_DELEGATE(CallIntrinsicOne, 2, callIntrinsicOne(pc, base))
  VBS_PLAIN_FUNCTION(Sqr, plain_function::squareRoot)
  VBS_PLAIN_FUNCTION(Abs, plain_function::absolute)
  VBS_PLAIN_FUNCTION(Int, plain_function::floor)
  VBS_PLAIN_FUNCTION(Fix, plain_function::truncate)
  VBS_PLAIN_FUNCTION(Len, plain_function::length)
  VBS_PLAIN_FUNCTION(Asc, plain_function::code)
  VBS_PLAIN_FUNCTION(Chr, plain_function::character)
  VBS_PLAIN_FUNCTION(UBound, plain_function::upperBound)
Character:
  if (takeCharacter(pc->a.of(base), pc->b.of(base).deref(), pc->c.of(base).deref())) [[likely]]
    VBS_FAR_JUMP(VBS_ON);
  VBS_NEXT(2);
Mid:
  if (takeCharacter(pc, base)) [[likely]]
    VBS_NEXT(2);
  VBS_SLOW(callIntrinsic(pc, base));
  VBS_NEXT(2);
  VBS_ENTER(New, 2, newObject(pc, base))
  VBS_ENTER(NewNamed, 2, newNamed(pc, base))
  VBS_DELEGATE(LateGet, 2, lateGet(pc, base))
  VBS_ENTER(LateCall, 2, lateCall(pc, base))
  VBS_DELEGATE(LatePut, 2, latePut(pc, base))
  VBS_DELEGATE(LateRef, 2, lateRef(pc, base))

Return:
  if (!areFewPlain(base, pc->b)) {
    Value* const end = &pc->b.of(base);
    Value* const rest = endPlain(base, end, nullptr);
    if (rest != end) VBS_SLOW(clearRange(rest, end));
  }
  if (stack_.top()->link == Frame::kNoTarget) [[likely]] {
    stack_.pop();
    stack_.raisePending();
  } else {
    VBS_SLOW(stack_.leave(kNoRegister));
  }
  VBS_RELOAD();
ReturnResult:
  if (areFewPlain(base, pc->b) && stack_.returnPlain(pc->a.of(base))) [[likely]]
    VBS_RELOAD();
  {
    Value* const result = &pc->a.of(base);
    Value* const end = &pc->b.of(base);
    Value* rest = endPlain(base, end, result);
    if (rest == result) rest = endPlain(result + 1, end, nullptr);
    if (rest == end && stack_.returnMoved(*result)) VBS_RELOAD();
    if (rest < result) VBS_SLOW(clearRange(rest, result));
    if (rest < end) VBS_SLOW(clearRange(std::max(rest, result + 1), end));
    VBS_SLOW(stack_.leave(pc->a));
  }
  VBS_RELOAD();
ReturnMethod:
  if (endsWithMe(base, pc->b, pc->c.of(base)) && stack_.top()->link == Frame::kNoTarget)
      [[likely]] {
    stack_.pop();
    stack_.raisePending();
    VBS_RELOAD();
  }
  goto Return;
ReturnMethodResult:
  if (endsWithMe(base, pc->b, pc->c.of(base)) && stack_.returnPlain(pc->a.of(base))) [[likely]]
    VBS_RELOAD();
  goto ReturnResult;

  // ---- Errors and code as text ----

OnErrorResumeNext:
  err_->clear();
  stack_.top()->link |= Frame::kResumesNext;
  VBS_NEXT(1);
OnErrorGoToZero:
  err_->clear();
  stack_.top()->link &= ~Frame::kResumesNext;
  VBS_NEXT(1);
  VBS_DELEGATE(Throw, 2, stack_.throwCode(pc))
  VBS_DELEGATE(ExecuteText, 1, executeText(pc, base))
  VBS_DELEGATE(EvaluateText, 1, evaluateText(pc, base))
  VBS_DELEGATE(GetRef, 1, getRef(pc, base))
}

#ifdef VBS_COMPUTED_GOTO
#pragma GCC diagnostic pop
#endif

}  // namespace quorvane::vbs
