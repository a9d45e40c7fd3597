#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "vbscript/values/operand.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs {

namespace {

constexpr unsigned kNumberTypes =
    kWholeTypes | kRealTypes | typeBit(Type::Currency) | typeBit(Type::Empty);
constexpr TypeSet kFloats = typeBit(Type::Single) | typeBit(Type::Double);
constexpr unsigned kTextTypes = typeBit(Type::String) | typeBit(Type::Empty);

template <class T>
Ordering order(T a, T b) {
  return a < b ? Ordering::Less : a == b ? Ordering::Equal : Ordering::Greater;
}

Ordering orderTexts(const String& a, const String& b) {
  return a == b ? Ordering::Equal : order(String::compareBinary(a, b), 0);
}

/// Ten-thousandths: a floating-point number beside a Currency counts with its four places.
double currencyOrder(const Value& value) {
  if (value.is(Type::Currency)) return static_cast<double>(value.asCurrency());
  return std::nearbyint(value.asDouble() * 10000.0);
}

Ordering orderNumbers(const Value& a, const Value& b) {
  if (isOneOf(a, kWholeTypes) && isOneOf(b, kWholeTypes)) return order(a.asInt(), b.asInt());
  if (a.is(Type::Currency) && b.is(Type::Currency)) return order(a.asCurrency(), b.asCurrency());
  if (a.is(Type::Single) != b.is(Type::Single) && (a.is(Type::Double) || b.is(Type::Double))) {
    // 0.1 as Single and as Double are meant to be the same number.
    return order(static_cast<float>(a.asDouble()), static_cast<float>(b.asDouble()));
  }
  if (a.is(Type::Currency) != b.is(Type::Currency) &&
      isOneOf(a.is(Type::Currency) ? b : a, kFloats)) {
    return order(currencyOrder(a), currencyOrder(b));
  }
  return order(operandNumber(a), operandNumber(b));
}

Ordering orderPlain(const Value& a, const Value& b) {
  if (a.isNull() || b.isNull()) return Ordering::Null;
  if (isOneOf(a, kNumberTypes) && isOneOf(b, kNumberTypes)) return orderNumbers(a, b);
  if (isOneOf(a, kTextTypes) && isOneOf(b, kTextTypes)) {
    return orderTexts(toString(a), toString(b));
  }
  if (a.isString() && isOneOf(b, kNumberTypes)) return Ordering::Greater;
  if (b.isString() && isOneOf(a, kNumberTypes)) return Ordering::Less;
  throwError(ErrorCode::TypeMismatch);
}

/// The text as a value of the subtype that a number, date or Boolean literal has.
Value textAsLiteral(const Value& text, const Value& literal) {
  if (literal.is(Type::Boolean)) return Value::boolean(toBoolean(text));
  if (literal.is(Type::Date)) return Value::date(toDate(text));
  return Value::number(operandNumber(text));
}

/// What `other` is compared as beside `literal`.
Value besideLiteral(const Value& other, const Value& literal) {
  if (other.isString() && isOneOf(literal, kNumberTypes)) return textAsLiteral(other, literal);
  if (literal.isString() && isOneOf(other, kNumberTypes)) return toString(other);
  return other;
}

/// Gives a text taken out of a value back to it, also when appending to it fails.
class TakenText {
 public:
  explicit TakenText(Value& home) : home_(home), text_(home.takeString()) {}
  ~TakenText() { home_ = Value(std::move(text_)); }
  TakenText(const TakenText&) = delete;
  TakenText& operator=(const TakenText&) = delete;
  String& operator*() { return text_; }

 private:
  Value& home_;
  String text_;
};

/// Null and Empty join as the empty text.
String joinedText(const Value& operand) {
  return operand.isNull() ? String() : toString(operand);
}

void appendText(String& target, const Value& tail) {
  if (tail.isString()) return target.append(tail.asString());
  if (isOneOf(tail, kWholeTypes) && !tail.is(Type::Boolean)) {
    std::array<char, 16> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), tail.asInt());
    return target.appendAnsi({digits.data(), static_cast<std::size_t>(end.ptr - digits.data())});
  }
  target.append(joinedText(tail));
}

}  // namespace

Ordering compare(const Value& left, const Value& right) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  return orderPlain(*a, *b);
}

Ordering compareWithLiteral(const Value& left, const Value& right, bool leftIsLiteral,
                            bool rightIsLiteral) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  if (leftIsLiteral && rightIsLiteral) {
    // A number literal decides over a text literal.
    (a->isString() ? leftIsLiteral : rightIsLiteral) = false;
  }
  if (rightIsLiteral) return orderPlain(besideLiteral(*a, *b), *b);
  if (leftIsLiteral) return orderPlain(*a, besideLiteral(*b, *a));
  return orderPlain(*a, *b);
}

bool isTrue(const Value& condition) {
  const Value& direct = condition.deref();
  if (direct.is(Type::Boolean)) return direct.asBoolean();
  const Operand plain(direct);
  if (plain->isNull()) return false;
  try {
    return toBoolean(*plain);
  } catch (const ScriptError& error) {
    if (error.number != static_cast<std::int32_t>(ErrorCode::TypeMismatch)) throw;
  }
  throwMismatch(*plain);
}

bool isSame(const Value& left, const Value& right) {
  const Value& a = left.deref();
  const Value& b = right.deref();
  if (!a.isObject() || !b.isObject()) throwError(ErrorCode::ObjectRequired);
  return a.asObject() == b.asObject();
}

Value concatenate(const Value& left, const Value& right) {
  const Operands both(left, right);
  const auto& [a, b] = both;
  if (a->isNull() && b->isNull()) return Value::null();
  return String::joined(joinedText(*a), joinedText(*b));
}

void appendTo(Value& target, const Value& tail) {
  Value& home = target.deref();
  const Value& plain = tail.deref();
  if (plain.isObject()) {
    // Its default value may take code that changes the target.
    return appendToEarlier(home, home, plain);
  }
  if (!home.isString() || &plain == &home) {
    home = concatenate(home, plain);
  } else {
    appendText(*TakenText(home), plain);
  }
}

bool stillHolds(const Value& place, const Value& before) {
  return place.isString() && before.isString() && place.stringRep() &&
         place.stringRep() == before.stringRep();
}

void appendToEarlier(Value& target, Value before, const Value& tail) {
  if (before.isObject()) {
    Value joined = concatenate(before, tail);
    target.deref() = std::move(joined);
    return;
  }
  const Operand plain(tail);
  if (stillHolds(target.deref(), before)) {
    before = Value();
    appendTo(target, *plain);
  } else {
    appendTo(before, *plain);
    target.deref() = std::move(before);
  }
}

}  // namespace quorvane::vbs
