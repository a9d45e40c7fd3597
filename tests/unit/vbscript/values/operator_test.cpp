#include "vbscript/values/operators.h"

#include <gtest/gtest.h>

#include "testing.h"

namespace quorvane::vbs {
namespace {

using testing::errorOf;
using testing::show;

Value i(int n) {
  return Value::integer(static_cast<std::int16_t>(n));
}
Value l(int n) {
  return Value::longInt(n);
}
Value b(int n) {
  return Value::byte(static_cast<std::uint8_t>(n));
}
Value d(double n) {
  return Value::number(n);
}
Value f(float n) {
  return Value::single(n);
}
Value c(double n) {
  return Value::currency(static_cast<std::int64_t>(n * 10000));
}
Value s(const char* text) {
  return Value(text);
}
Value day(double n) {
  return Value::date(n);
}
const Value kTrue = Value::boolean(true);
const Value kFalse = Value::boolean(false);
const Value kNull = Value::null();
const Value kEmpty;

TEST(AdditionTest, ResultTypes) {
  EXPECT_EQ(show(add(i(1), i(2))), "Integer 3");
  EXPECT_EQ(show(add(b(1), b(2))), "Byte 3");
  EXPECT_EQ(show(add(b(1), i(2))), "Integer 3");
  EXPECT_EQ(show(add(i(1), l(2))), "Long 3");
  EXPECT_EQ(show(add(l(1), d(2))), "Double 3");
  EXPECT_EQ(show(add(i(1), f(2))), "Single 3");
  EXPECT_EQ(show(add(l(1), f(2))), "Double 3");
  EXPECT_EQ(show(add(c(1.5), i(2))), "Currency 3.5");
  EXPECT_EQ(show(add(c(1.5), d(2))), "Currency 3.5");
  EXPECT_EQ(show(add(day(1), i(1))), "Date 1/1/1900");
  EXPECT_EQ(show(add(kTrue, kTrue)), "Integer -2");
  EXPECT_EQ(show(add(kEmpty, kEmpty)), "Integer 0");
  EXPECT_EQ(show(add(kEmpty, b(4))), "Integer 4");
  EXPECT_EQ(show(add(s("1"), i(2))), "Double 3");
  EXPECT_EQ(show(add(s("1"), s("2"))), "String 12");
  EXPECT_EQ(show(add(kEmpty, s("2"))), "String 2");
  EXPECT_EQ(show(add(kNull, i(2))), "Null");
  EXPECT_EQ(show(add(kNull, s("a"))), "Null");
}

TEST(AdditionTest, OverflowWidens) {
  EXPECT_EQ(show(add(b(200), b(100))), "Integer 300");
  EXPECT_EQ(show(add(i(32767), i(1))), "Long 32768");
  EXPECT_EQ(show(add(l(2147483647), i(1))), "Double 2147483648");
  EXPECT_EQ(show(subtract(b(1), b(2))), "Integer -1");
  EXPECT_EQ(show(subtract(i(-32768), i(1))), "Long -32769");
  EXPECT_EQ(errorOf([] { add(d(1.7e308), d(1.7e308)); }), 6);
  EXPECT_EQ(errorOf([] { add(Value::currency(INT64_MAX), i(1)); }), 6);
  EXPECT_EQ(show(add(f(3e38f), f(3e38f))), "Double 6.00000001099551E+38");
}

TEST(SubtractionTest, Dates) {
  EXPECT_EQ(show(subtract(day(5), day(3))), "Double 2");
  EXPECT_EQ(show(subtract(day(5), i(3))), "Date 1/1/1900");
  EXPECT_EQ(show(subtract(s("5"), s("3"))), "Double 2");
}

TEST(MultiplicationTest, Types) {
  EXPECT_EQ(show(multiply(i(200), i(200))), "Long 40000");
  EXPECT_EQ(show(multiply(l(65536), l(65536))), "Double 4294967296");
  EXPECT_EQ(show(multiply(b(16), b(16))), "Integer 256");
  EXPECT_EQ(show(multiply(c(1.5), i(3))), "Currency 4.5");
  EXPECT_EQ(show(multiply(c(1.5), d(3))), "Double 4.5");
  EXPECT_EQ(show(multiply(c(-1.5), c(2.25))), "Currency -3.375");
  EXPECT_EQ(show(multiply(Value::currency(1), Value::currency(5000))), "Currency 0");
  EXPECT_EQ(show(multiply(Value::currency(3), Value::currency(5000))), "Currency 0.0002");
  EXPECT_EQ(show(multiply(day(2), i(3))), "Double 6");
  EXPECT_EQ(errorOf([] { multiply(c(1e14), c(10)); }), 6);
}

TEST(DivisionTest, TypesAndErrors) {
  EXPECT_EQ(show(divide(i(6), i(3))), "Double 2");
  EXPECT_EQ(show(divide(f(1), i(4))), "Single 0.25");
  EXPECT_EQ(show(divide(f(1), l(4))), "Double 0.25");
  EXPECT_EQ(show(divide(c(1), c(4))), "Double 0.25");
  EXPECT_EQ(errorOf([] { divide(i(1), i(0)); }), 11);
  EXPECT_EQ(errorOf([] { divide(i(0), i(0)); }), 6);
  EXPECT_EQ(show(divide(kNull, i(0))), "Null");
}

TEST(WholeDivisionTest, OperandsAreRoundedToEven) {
  EXPECT_EQ(show(integerDivide(i(7), i(2))), "Integer 3");
  EXPECT_EQ(show(integerDivide(i(-7), i(2))), "Integer -3");
  EXPECT_EQ(show(integerDivide(d(7.5), d(2.5))), "Long 4");
  EXPECT_EQ(show(integerDivide(b(7), b(2))), "Byte 3");
  EXPECT_EQ(show(modulo(i(-7), i(3))), "Integer -1");
  EXPECT_EQ(show(modulo(d(10.5), i(4))), "Long 2");
  EXPECT_EQ(show(modulo(l(7), i(4))), "Long 3");
  EXPECT_EQ(show(integerDivide(i(-32768), i(-1))), "Long 32768");
  EXPECT_EQ(errorOf([] { integerDivide(i(1), d(0.4)); }), 11);
  EXPECT_EQ(errorOf([] { modulo(d(1e10), i(3)); }), 6);
  EXPECT_EQ(errorOf([] { integerDivide(l(INT32_MIN), i(-1)); }), 6);
  EXPECT_EQ(show(modulo(l(INT32_MIN), i(-1))), "Long 0");
}

TEST(PowerTest, AlwaysDouble) {
  EXPECT_EQ(show(power(i(2), i(10))), "Double 1024");
  EXPECT_EQ(show(power(i(-2), i(3))), "Double -8");
  EXPECT_EQ(show(power(i(0), i(0))), "Double 1");
  EXPECT_EQ(errorOf([] { power(i(-2), d(0.5)); }), 5);
  EXPECT_EQ(errorOf([] { power(i(10), i(400)); }), 6);
}

TEST(NegationTest, Types) {
  EXPECT_EQ(show(negate(i(5))), "Integer -5");
  EXPECT_EQ(show(negate(i(-32768))), "Long 32768");
  EXPECT_EQ(show(negate(l(INT32_MIN))), "Double 2147483648");
  EXPECT_EQ(show(negate(b(5))), "Integer -5");
  EXPECT_EQ(show(negate(kTrue)), "Integer 1");
  EXPECT_EQ(show(negate(s("5"))), "Double -5");
  EXPECT_EQ(show(negate(kNull)), "Null");
  EXPECT_EQ(show(negate(kEmpty)), "Integer 0");
}

TEST(LogicTest, TypesOfResults) {
  EXPECT_EQ(show(logicalAnd(kTrue, kFalse)), "Boolean False");
  EXPECT_EQ(show(logicalAnd(kTrue, i(6))), "Integer 6");
  EXPECT_EQ(show(logicalOr(b(1), b(6))), "Byte 7");
  EXPECT_EQ(show(logicalOr(i(1), l(6))), "Long 7");
  EXPECT_EQ(show(logicalXor(i(5), i(1))), "Integer 4");
  EXPECT_EQ(show(logicalEqv(i(5), i(1))), "Integer -5");
  EXPECT_EQ(show(logicalImp(kTrue, kFalse)), "Boolean False");
  EXPECT_EQ(show(logicalNot(i(5))), "Integer -6");
  EXPECT_EQ(show(logicalNot(kTrue)), "Boolean False");
  EXPECT_EQ(show(logicalNot(kEmpty)), "Long -1");
  EXPECT_EQ(show(logicalNot(b(1))), "Byte 254");
  EXPECT_EQ(show(logicalNot(d(2.5))), "Long -3");
  EXPECT_EQ(show(logicalAnd(s("7"), i(3))), "Long 3");
  EXPECT_EQ(errorOf([] { logicalNot(s("abc")); }), 13);
  EXPECT_EQ(errorOf([] { logicalNot(d(1e10)); }), 6);
}

TEST(LogicTest, NullIsUnknown) {
  EXPECT_EQ(show(logicalNot(kNull)), "Null");
  EXPECT_EQ(show(logicalAnd(kNull, kFalse)), "Boolean False");
  EXPECT_EQ(show(logicalAnd(kNull, kTrue)), "Null");
  EXPECT_EQ(show(logicalOr(kTrue, kNull)), "Boolean True");
  EXPECT_EQ(show(logicalOr(kFalse, kNull)), "Null");
  EXPECT_EQ(show(logicalXor(kTrue, kNull)), "Null");
  EXPECT_EQ(show(logicalEqv(kNull, kNull)), "Null");
  EXPECT_EQ(show(logicalImp(kFalse, kNull)), "Boolean True");
  EXPECT_EQ(show(logicalImp(kTrue, kNull)), "Null");
  EXPECT_EQ(show(logicalImp(kNull, kTrue)), "Boolean True");
  EXPECT_EQ(show(logicalImp(kNull, kFalse)), "Null");
}

TEST(ConcatenationTest, Texts) {
  EXPECT_EQ(show(concatenate(i(1), i(2))), "String 12");
  EXPECT_EQ(show(concatenate(kNull, s("a"))), "String a");
  EXPECT_EQ(show(concatenate(kNull, kNull)), "Null");
  EXPECT_EQ(show(concatenate(kEmpty, kEmpty)), "String ");
  EXPECT_EQ(show(concatenate(kTrue, d(1.5))), "String True1.5");
}

TEST(ConcatenationTest, AppendingInPlace) {
  Value text = s("a");
  appendTo(text, s("b"));
  appendTo(text, i(-7));
  appendTo(text, kNull);
  appendTo(text, text);
  EXPECT_EQ(show(text), "String ab-7ab-7");
  Value reference = Value::reference(&text);
  appendTo(reference, kTrue);
  EXPECT_EQ(show(text), "String ab-7ab-7True");
  Value number = i(5);
  appendTo(number, s("x"));
  EXPECT_EQ(show(number), "String 5x");
}

TEST(ComparisonTest, NumbersAndTexts) {
  EXPECT_EQ(compare(i(1), d(1)), Ordering::Equal);
  EXPECT_EQ(compare(i(1), l(2)), Ordering::Less);
  EXPECT_EQ(compare(kTrue, kFalse), Ordering::Less);
  EXPECT_EQ(compare(s("a"), s("A")), Ordering::Greater);
  EXPECT_EQ(compare(s("10"), s("9")), Ordering::Less);
  EXPECT_EQ(compare(i(10), s("9")), Ordering::Less);
  EXPECT_EQ(compare(s("1"), i(1)), Ordering::Greater);
  EXPECT_EQ(compare(kEmpty, i(0)), Ordering::Equal);
  EXPECT_EQ(compare(kEmpty, s("")), Ordering::Equal);
  EXPECT_EQ(compare(kEmpty, kEmpty), Ordering::Equal);
  EXPECT_EQ(compare(kNull, i(1)), Ordering::Null);
  EXPECT_EQ(compare(c(1.5), d(1.5)), Ordering::Equal);
  EXPECT_EQ(compare(f(0.1f), d(0.1)), Ordering::Equal);
  EXPECT_EQ(compare(day(2), i(2)), Ordering::Equal);
  EXPECT_EQ(errorOf([] { compare(Value::array(ArrayRep::create({})), i(1)); }), 13);
  EXPECT_EQ(errorOf([] { compare(Value::nothing(), i(1)); }), 91);
}

TEST(ComparisonTest, ALiteralDecidesHowTheOtherSideIsRead) {
  EXPECT_EQ(compareWithLiteral(s("5"), i(5), false, true), Ordering::Equal);
  EXPECT_EQ(compareWithLiteral(i(10), s("9"), false, true), Ordering::Less);
  EXPECT_EQ(compareWithLiteral(s("10"), i(9), false, true), Ordering::Greater);
  EXPECT_EQ(compareWithLiteral(s("5"), i(5), false, false), Ordering::Greater);
  EXPECT_EQ(compareWithLiteral(s("1"), i(1), true, true), Ordering::Equal);
  EXPECT_EQ(compareWithLiteral(s("True"), kTrue, false, true), Ordering::Equal);
  EXPECT_EQ(compareWithLiteral(kNull, i(5), false, true), Ordering::Null);
  EXPECT_EQ(errorOf([] { compareWithLiteral(s(""), i(0), false, true); }), 13);
}

TEST(ComparisonTest, Conditions) {
  EXPECT_TRUE(isTrue(d(0.5)));
  EXPECT_FALSE(isTrue(kNull));
  EXPECT_FALSE(isTrue(kEmpty));
  EXPECT_TRUE(isTrue(s("True")));
  EXPECT_EQ(errorOf([] { isTrue(s("x")); }), 13);
}

TEST(ErrorTextTest, MismatchShowsTheText) {
  try {
    add(s("abc"), i(1));
    FAIL();
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.description, "Type mismatch");
    EXPECT_EQ(fullDescription(error), "Type mismatch: '[string: \"abc\"]'");
  }
}

TEST(IdentityTest, IsComparesObjectsOnly) {
  EXPECT_TRUE(isSame(Value::nothing(), Value::nothing()));
  EXPECT_EQ(errorOf([] { isSame(Value::nothing(), i(1)); }), 424);
}

}  // namespace
}  // namespace quorvane::vbs
