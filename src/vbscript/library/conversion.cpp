#include "vbscript/library/arguments.h"

namespace quorvane::vbs::intrinsic {

Value cBool(Runtime&, Args args) {
  return Value::boolean(toBoolean(args[0]));
}
Value cByte(Runtime&, Args args) {
  return Value::byte(toByte(args[0]));
}
Value cCur(Runtime&, Args args) {
  return Value::currency(toCurrency(args[0]));
}
Value cDate(Runtime&, Args args) {
  return Value::date(toDate(args[0]));
}
Value cDbl(Runtime&, Args args) {
  return Value::number(toDouble(args[0]));
}
Value cInt(Runtime&, Args args) {
  return Value::integer(toInteger(args[0]));
}
Value cLng(Runtime&, Args args) {
  return Value::longInt(toLong(args[0]));
}
Value cSng(Runtime&, Args args) {
  return Value::single(toSingle(args[0]));
}
Value cStr(Runtime&, Args args) {
  return toString(args[0]);
}

Value isArray(Runtime&, Args args) {
  return Value::boolean(args[0].deref().isArray());
}
Value isObject(Runtime&, Args args) {
  return Value::boolean(args[0].deref().isObject());
}

Value isEmpty(Runtime&, Args args) {
  const Value& value = args[0].deref();
  return Value::boolean(value.isEmpty());
}

/// Nothing and what has no plain value are no such kind, without an error.
template <class Test>
Value testPlain(const Value& value, Test test) {
  const Value& direct = value.deref();
  if (!direct.isObject()) return Value::boolean(test(direct));
  if (!direct.asObject()) return Value::boolean(false);
  try {
    return Value::boolean(test(plainValue(direct)));
  } catch (const ScriptError&) {
    return Value::boolean(false);
  }
}

Value isNull(Runtime&, Args args) {
  return testPlain(args[0], [](const Value& value) { return value.isNull(); });
}

Value isDate(Runtime&, Args args) {
  return testPlain(args[0], [](const Value& value) {
    return value.is(Type::Date) || (value.isString() && parseDate(value.asString()).has_value());
  });
}

Value isNumeric(Runtime&, Args args) {
  constexpr TypeSet kNumbers = kWholeTypes | typeBit(Type::Single) | typeBit(Type::Double) |
                               typeBit(Type::Currency) | typeBit(Type::Empty);
  return testPlain(args[0], [](const Value& value) {
    return isOneOf(value, kNumbers) ||
           (value.isString() && parseNumber(value.asString()).has_value());
  });
}

Value typeNameOf(Runtime&, Args args) {
  return Value(typeName(args[0]));
}

Value varTypeOf(Runtime&, Args args) {
  const Value& direct = args[0].deref();
  if (!direct.isObject() || !direct.asObject()) return Value::integer(varType(direct));
  // An object counts as its default value, where it has one.
  try {
    return Value::integer(varType(plainValue(direct)));
  } catch (const ScriptError&) {
    return Value::integer(varType(Value::nothing()));
  }
}

}  // namespace quorvane::vbs::intrinsic
