#include <array>

#include "testing.h"

namespace quorvane::vbs {
namespace {

class NumberFunctionTest : public testing::LibraryTest {};

TEST_F(NumberFunctionTest, ClassicRandomSequence) {
  EXPECT_EQ(run("rnd"), "Single 0.7055475");
  EXPECT_EQ(run("rnd"), "Single 0.533424");
  EXPECT_EQ(run("rnd"), "Single 0.5795186");
  EXPECT_EQ(run("rnd", 1), "Single 0.2895625");
  EXPECT_EQ(run("rnd", 0), "Single 0.2895625");
  EXPECT_EQ(run("rnd", -1), "Single 0.224007");
  EXPECT_EQ(run("rnd"), "Single 3.584582E-02");
  EXPECT_EQ(run("rnd", -1), "Single 0.224007");
}

TEST_F(NumberFunctionTest, RandomizeRepeatsAfterANegativeSeed) {
  call("rnd", -1);
  call("randomize", 5);
  const std::string first = run("rnd");
  call("rnd", -1);
  call("randomize", 5);
  EXPECT_EQ(run("rnd"), first);
  call("randomize", 0);
  EXPECT_NE(run("rnd"), first);
}

TEST_F(NumberFunctionTest, RandomizeZeroSeedsWithZero) {
  call("randomize", 0);
  EXPECT_EQ(run("rnd"), "Single 0.7641413");
  EXPECT_EQ(run("rnd"), "Single 0.3576428");
}

TEST_F(NumberFunctionTest, SignAndSize) {
  EXPECT_EQ(run("abs", -5), "Integer 5");
  EXPECT_EQ(run("abs", -32768), "Long 32768");
  EXPECT_EQ(run("abs", -2.5), "Double 2.5");
  EXPECT_EQ(run("abs", "-2"), "Double 2");
  EXPECT_EQ(run("abs", true), "Integer 1");
  EXPECT_EQ(run("abs", null_), "Null");
  EXPECT_EQ(run("abs", Value::currency(-15000)), "Currency 1.5");
  EXPECT_EQ(run("abs", "x"), "error 13");
  EXPECT_EQ(run("sgn", -2.5), "Integer -1");
  EXPECT_EQ(run("sgn", 0), "Integer 0");
  EXPECT_EQ(run("sgn", null_), "error 94");
}

TEST_F(NumberFunctionTest, WholeParts) {
  EXPECT_EQ(run("int", -2.5), "Double -3");
  EXPECT_EQ(run("fix", -2.5), "Double -2");
  EXPECT_EQ(run("int", 7), "Integer 7");
  EXPECT_EQ(run("int", "2.7"), "Double 2");
  EXPECT_EQ(run("int", Value::currency(-15000)), "Currency -2");
  EXPECT_EQ(run("fix", Value::currency(-15000)), "Currency -1");
  EXPECT_EQ(run("int", Value::date(2.75)), "Date 1/1/1900");
  EXPECT_EQ(run("int", true), "Integer -1");
  EXPECT_EQ(run("int", null_), "Null");
}

TEST_F(NumberFunctionTest, RoundHalvesToEven) {
  EXPECT_EQ(run("round", 2.5), "Double 2");
  EXPECT_EQ(run("round", 3.5), "Double 4");
  EXPECT_EQ(run("round", -2.5), "Double -2");
  EXPECT_EQ(run("round", 0.125, 2), "Double 0.12");
  EXPECT_EQ(run("round", 2.675, 2), "Double 2.68");
  EXPECT_EQ(run("round", 1234.5678, 1), "Double 1234.6");
  EXPECT_EQ(run("round", 7), "Integer 7");
  EXPECT_EQ(run("round", "2.5"), "Double 2");
  EXPECT_EQ(run("round", Value::currency(12500), 0), "Currency 1");
  EXPECT_EQ(run("round", Value::currency(15000), 0), "Currency 2");
  EXPECT_EQ(run("round", 1.5, -1), "error 5");
}

TEST_F(NumberFunctionTest, RootsAndLogarithms) {
  EXPECT_EQ(run("sqr", 16), "Double 4");
  EXPECT_EQ(run("sqr", -1), "error 5");
  EXPECT_EQ(run("log", 0), "error 5");
  EXPECT_EQ(run("exp", 0), "Double 1");
  EXPECT_EQ(run("exp", 1000), "error 6");
  EXPECT_EQ(run("atn", 1), "Double 0.785398163397448");
  EXPECT_EQ(run("sin", 0), "Double 0");
  EXPECT_EQ(run("cos", 0), "Double 1");
  EXPECT_EQ(run("tan", 0), "Double 0");
  EXPECT_EQ(run("log", 10), "Double 2.30258509299405");
}

TEST_F(NumberFunctionTest, HexAndOct) {
  EXPECT_EQ(run("hex", 255), "String FF");
  EXPECT_EQ(run("hex", -1), "String FFFF");
  EXPECT_EQ(run("hex", Value::longInt(-1)), "String FFFFFFFF");
  EXPECT_EQ(run("hex", 15.5), "String 10");
  EXPECT_EQ(run("hex", 0), "String 0");
  EXPECT_EQ(run("hex", null_), "Null");
  EXPECT_EQ(run("oct", 8), "String 10");
  EXPECT_EQ(run("oct", -1), "String 177777");
  EXPECT_EQ(run("hex", 1e10), "error 6");
}

TEST_F(NumberFunctionTest, Conversions) {
  EXPECT_EQ(run("cint", "2.5"), "Integer 2");
  EXPECT_EQ(run("cint", 40000.0), "error 6");
  EXPECT_EQ(run("cint", "abc"), "error 13");
  EXPECT_EQ(run("cint", null_), "error 94");
  EXPECT_EQ(run("clng", true), "Long -1");
  EXPECT_EQ(run("cdbl", "1,234.5"), "Double 1234.5");
  EXPECT_EQ(run("csng", 0.1), "Single 0.1");
  EXPECT_EQ(run("ccur", "1.23456"), "Currency 1.2346");
  EXPECT_EQ(run("cbyte", 255), "Byte 255");
  EXPECT_EQ(run("cbool", "true"), "Boolean True");
  EXPECT_EQ(run("cbool", ""), "error 13");
  EXPECT_EQ(run("cstr", true), "String True");
  EXPECT_EQ(run("cstr", null_), "error 94");
  EXPECT_EQ(run("cdate", 1.5), "Date 12/31/1899 12:00:00 PM");
}

TEST_F(NumberFunctionTest, Kinds) {
  EXPECT_EQ(run("isnumeric", "1e5"), "Boolean True");
  EXPECT_EQ(run("isnumeric", "&HFF"), "Boolean True");
  EXPECT_EQ(run("isnumeric", ""), "Boolean False");
  EXPECT_EQ(run("isnumeric", Value()), "Boolean True");
  EXPECT_EQ(run("isnumeric", true), "Boolean True");
  EXPECT_EQ(run("isnumeric", Value::date(1)), "Boolean False");
  EXPECT_EQ(run("isnumeric", null_), "Boolean False");
  EXPECT_EQ(run("isdate", "1/2/2003"), "Boolean True");
  EXPECT_EQ(run("isdate", 5), "Boolean False");
  EXPECT_EQ(run("isdate", Value::nothing()), "Boolean False");
  EXPECT_EQ(run("isempty", Value()), "Boolean True");
  EXPECT_EQ(run("isnull", null_), "Boolean True");
  EXPECT_EQ(run("isobject", Value::nothing()), "Boolean True");
  EXPECT_EQ(run("isarray", call("array")), "Boolean True");
  EXPECT_EQ(run("typename", Value::nothing()), "String Nothing");
  EXPECT_EQ(run("typename", call("array")), "String Variant()");
  EXPECT_EQ(run("vartype", call("array")), "Integer 8204");
  EXPECT_EQ(run("vartype", "x"), "Integer 8");
  EXPECT_EQ(run("vartype", Value::nothing()), "Integer 9");
}

TEST_F(NumberFunctionTest, Bounds) {
  const std::array<std::int32_t, 2> extents{3, 5};
  const Value table = Value::array(ArrayRep::create(extents));
  EXPECT_EQ(run("ubound", table), "Long 2");
  EXPECT_EQ(run("ubound", table, 2), "Long 4");
  EXPECT_EQ(run("lbound", table, 2), "Long 0");
  EXPECT_EQ(run("ubound", table, 3), "error 9");
  EXPECT_EQ(run("ubound", table, 0), "error 9");
  EXPECT_EQ(run("ubound", 5), "error 13");
  EXPECT_EQ(run("ubound", Value::array(ArrayRep::create({}))), "error 9");
}

TEST_F(NumberFunctionTest, EraseEmptiesFixedAndFreesDynamicArrays) {
  Value array = call("array", 1, 2);
  array.fixArray();
  Value copy = array;
  EXPECT_FALSE(copy.isFixedArray());
  eraseArray(array);
  EXPECT_TRUE(array.isFixedArray());
  EXPECT_EQ(run("ubound", array), "Long 1");
  EXPECT_TRUE(array.asArray()->at(0)->isEmpty());
  EXPECT_EQ(copy.asArray()->at(0)->asInt(), 1);
  array = Value(array);
  eraseArray(array);
  EXPECT_EQ(run("ubound", array), "error 9");
  ++copy.asArray()->locks;
  EXPECT_EQ(testing::errorOf([&] { eraseArray(copy); }), 10);
  --copy.asArray()->locks;
}

TEST_F(NumberFunctionTest, NumberFormats) {
  EXPECT_EQ(run("formatnumber", 1234567.891), "String 1,234,567.89");
  EXPECT_EQ(run("formatnumber", -1234.5, 1), "String -1,234.5");
  EXPECT_EQ(run("formatnumber", 0.5, 2, 0), "String .50");
  EXPECT_EQ(run("formatnumber", -5, 2, -1, -1), "String (5.00)");
  EXPECT_EQ(run("formatnumber", 1234.5, 0, -2, -2, 0), "String 1235");
  EXPECT_EQ(run("formatnumber", 2.345, 2), "String 2.35");
  EXPECT_EQ(run("formatnumber", "abc"), "error 13");
  EXPECT_EQ(run("formatnumber", 1, 256), "error 5");
  EXPECT_EQ(run("formatnumber", 1, 2, 3), "error 5");
  EXPECT_EQ(run("formatpercent", 0.256), "String 25.60%");
  EXPECT_EQ(run("formatpercent", -0.5, 0), "String -50%");
  EXPECT_EQ(run("formatcurrency", 1234.5), "String $1,234.50");
  EXPECT_EQ(run("formatcurrency", -1234.5), "String ($1,234.50)");
  EXPECT_EQ(run("formatcurrency", -1234.5, 2, -1, 0), "String -$1,234.50");
}

TEST_F(NumberFunctionTest, SystemFunctions) {
  EXPECT_EQ(run("rgb", 255, 128, 300), "Long 16744703");
  EXPECT_EQ(run("rgb", -1, 0, 0), "error 5");
  EXPECT_EQ(run("scriptengine"), "String VBScript");
  EXPECT_EQ(run("scriptenginemajorversion"), "Long 5");
  EXPECT_EQ(run("scriptengineminorversion"), "Long 8");
  EXPECT_EQ(run("msgbox", "x"), "error 70");
  EXPECT_EQ(run("inputbox", "x"), "error 70");
  EXPECT_EQ(run("createobject", "No.Such"), "error 429");
  EXPECT_EQ(run("getlocale"), "Long 1033");
  EXPECT_EQ(run("setlocale", 1031), "Long 1033");
  EXPECT_EQ(run("cstr", 1.5), "String 1,5");
  EXPECT_EQ(run("formatnumber", 1234.5), "String 1.234,50");
  EXPECT_EQ(run("setlocale", "en-us"), "Long 1031");
  EXPECT_EQ(run("setlocale", 99999), "error 447");
}

TEST_F(NumberFunctionTest, Constants) {
  EXPECT_EQ(findConstant("vbcrlf")->asString().narrow(), "\r\n");
  EXPECT_EQ(testing::show(*findConstant("vbobjecterror")), "Long -2147221504");
  EXPECT_EQ(testing::show(*findConstant("vbtextcompare")), "Integer 1");
  EXPECT_EQ(findConstant("vbnullchar")->asString().length(), 1u);
  EXPECT_EQ(findConstant("vbnosuch"), nullptr);
  EXPECT_EQ(findConstant("left"), nullptr);
  EXPECT_EQ(findIntrinsic("nosuch"), nullptr);
}

TEST_F(NumberFunctionTest, ErrorsAreNamedOnce) {
  ScriptError bare{13, "Type mismatch", {}, {}, 0};
  nameIntrinsic(bare, *findIntrinsic("cint"));
  EXPECT_EQ(fullDescription(bare), "Type mismatch: 'CInt'");
  nameIntrinsic(bare, *findIntrinsic("len"));
  EXPECT_EQ(fullDescription(bare), "Type mismatch: 'CInt'");
}

}  // namespace
}  // namespace quorvane::vbs
