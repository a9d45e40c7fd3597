#include <gtest/gtest.h>

#include <cmath>

#include "testing.h"
#include "vbscript/values/number_text.h"

namespace quorvane::vbs {
namespace {

using testing::errorOf;

std::string text(double number) {
  return formatDouble(number).narrow();
}
std::string singleText(float number) {
  return formatSingle(number).narrow();
}

TEST(NumberTextTest, FifteenDigitsInDecimalNotation) {
  EXPECT_EQ(text(0), "0");
  EXPECT_EQ(text(-0.0), "0");
  EXPECT_EQ(text(1.5), "1.5");
  EXPECT_EQ(text(-0.25), "-0.25");
  EXPECT_EQ(text(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(text(2.0 / 3), "0.666666666666667");
  EXPECT_EQ(text(0.1 + 0.2), "0.3");
  EXPECT_EQ(text(100.0 / 3), "33.3333333333333");
  EXPECT_EQ(text(3.14159265358979), "3.14159265358979");
  EXPECT_EQ(text(123456789012345.6), "123456789012346");
  EXPECT_EQ(text(999999999999999.0), "999999999999999");
}

TEST(NumberTextTest, ScientificNotationWhereDecimalsGrowTooMany) {
  EXPECT_EQ(text(0.00001), "0.00001");
  EXPECT_EQ(text(0.0000000001), "0.0000000001");
  EXPECT_EQ(text(1e-15), "0.000000000000001");
  EXPECT_EQ(text(1e-16), "1E-16");
  EXPECT_EQ(text(1.99999997764826E-02), "1.99999997764826E-02");
  EXPECT_EQ(text(1e15), "1E+15");
  EXPECT_EQ(text(-1e15), "-1E+15");
  EXPECT_EQ(text(123456789012345678.0), "1.23456789012346E+17");
  EXPECT_EQ(text(999999999999999.9), "1E+15");
  EXPECT_EQ(text(1.7976931348623157e308), "1.79769313486232E+308");
  EXPECT_EQ(text(1e100), "1E+100");
}

TEST(NumberTextTest, SevenDigitsOfSingle) {
  EXPECT_EQ(singleText(0.1f), "0.1");
  EXPECT_EQ(singleText(1.0f / 3), "0.3333333");
  EXPECT_EQ(singleText(1234567.0f), "1234567");
  EXPECT_EQ(singleText(16777216.0f), "1.677722E+07");
  EXPECT_EQ(singleText(-2.5f), "-2.5");
}

TEST(NumberTextTest, Currency) {
  EXPECT_EQ(formatCurrency(15000).narrow(), "1.5");
  EXPECT_EQ(formatCurrency(-500).narrow(), "-0.05");
  EXPECT_EQ(formatCurrency(1230000).narrow(), "123");
  EXPECT_EQ(formatCurrency(INT64_MIN).narrow(), "-922337203685477.5808");
}

TEST(NumberTextTest, FixedPlacesRoundWhatIsShown) {
  EXPECT_EQ(fixedText(1.005, 2), "1.01");
  EXPECT_EQ(fixedText(2.5, 0), "3");
  EXPECT_EQ(fixedText(-2.5, 0), "-3");
  EXPECT_EQ(fixedText(0.05, 1), "0.1");
  EXPECT_EQ(fixedText(0.049, 1), "0.0");
  EXPECT_EQ(fixedText(-0.001, 2), "0.00");
  EXPECT_EQ(fixedText(999.999, 2), "1000.00");
  EXPECT_EQ(fixedText(12, 3), "12.000");
  EXPECT_EQ(fixedText(1e20, 1), "100000000000000000000.0");
}

double parsed(const char* spelled) {
  const auto number = parseNumber(String(spelled));
  return number ? *number : std::nan("");
}

TEST(NumberParsingTest, Spellings) {
  EXPECT_EQ(parsed("12"), 12);
  EXPECT_EQ(parsed(" -12.5 "), -12.5);
  EXPECT_EQ(parsed("+3"), 3);
  EXPECT_EQ(parsed(".5"), 0.5);
  EXPECT_EQ(parsed("5."), 5);
  EXPECT_EQ(parsed("- 5"), -5);
  EXPECT_EQ(parsed("5-"), -5);
  EXPECT_EQ(parsed("(5)"), -5);
  EXPECT_EQ(parsed("$1,234.50"), 1234.5);
  EXPECT_EQ(parsed("1,2,3"), 123);
  EXPECT_EQ(parsed("1e3"), 1000);
  EXPECT_EQ(parsed("1.5D-2"), 0.015);
  EXPECT_EQ(parsed("\t7\r\n"), 7);
  EXPECT_EQ(parsed("&HFF"), 255);
  EXPECT_EQ(parsed("&o17"), 15);
  EXPECT_EQ(parsed("&17"), 15);
  EXPECT_EQ(parsed("&HFFFF&"), 65535);
  EXPECT_EQ(parsed("&o17&"), 15);
  EXPECT_EQ(parsed("1e-400"), 0);
}

TEST(NumberParsingTest, WhatSpellsNoNumber) {
  for (const char* spelled :
       {"",      " ",  ".",   "-",     "$",   "e5",  "1e",  "1e+",  "1 2",
        "abc",   "1a", "--5", "&H",    "&HG", "&O8", "&",   "&&",   "&H&",
        "&HF&&", "(5", "5)",  "1.2.3", ",5",  "inf", "nan", "0x10", "1_000"}) {
    EXPECT_TRUE(std::isnan(parsed(spelled))) << spelled;
  }
}

TEST(ConversionTest, HexadecimalTextsWrapToTheTargetsSize) {
  EXPECT_EQ(toInteger(Value("&HFFFF")), -1);
  EXPECT_EQ(toLong(Value("&HFFFF")), 65535);
  EXPECT_EQ(toLong(Value("&HFFFFFFFF")), -1);
  EXPECT_EQ(toDouble(Value("&HFFFFFFFF")), 4294967295.0);
}

TEST(ConversionTest, HalvesRoundToEven) {
  EXPECT_EQ(toInteger(Value::number(0.5)), 0);
  EXPECT_EQ(toInteger(Value::number(1.5)), 2);
  EXPECT_EQ(toInteger(Value::number(2.5)), 2);
  EXPECT_EQ(toLong(Value::number(-2.5)), -2);
  EXPECT_EQ(toByte(Value("2.5")), 2);
  EXPECT_EQ(toCurrency(Value::number(0.00005)), 0);
  EXPECT_EQ(toCurrency(Value("0.00015")), 2);
}

TEST(ConversionTest, Overflow) {
  EXPECT_EQ(errorOf([] { toInteger(Value::longInt(32768)); }), 6);
  EXPECT_EQ(errorOf([] { toByte(Value::integer(-1)); }), 6);
  EXPECT_EQ(errorOf([] { toByte(Value::integer(256)); }), 6);
  EXPECT_EQ(errorOf([] { toLong(Value::number(2147483648.0)); }), 6);
  EXPECT_EQ(toLong(Value::number(2147483647.4)), 2147483647);
  EXPECT_EQ(errorOf([] { toDouble(Value("1e400")); }), 6);
  EXPECT_EQ(errorOf([] { toSingle(Value::number(1e300)); }), 6);
  EXPECT_EQ(errorOf([] { toCurrency(Value("922337203685477.5808")); }), 6);
  EXPECT_EQ(toCurrency(Value("-922337203685477.5808")), INT64_MIN);
  EXPECT_EQ(errorOf([] { toDate(Value::number(1e10)); }), 6);
}

TEST(ConversionTest, KindsThatDoNotConvert) {
  EXPECT_EQ(errorOf([] { toLong(Value::null()); }), 94);
  EXPECT_EQ(errorOf([] { toString(Value::null()); }), 94);
  EXPECT_EQ(errorOf([] { toLong(Value("abc")); }), 13);
  EXPECT_EQ(errorOf([] { toLong(Value("")); }), 13);
  EXPECT_EQ(errorOf([] { toString(Value::nothing()); }), 91);
  EXPECT_EQ(errorOf([] { toObject(Value::integer(1)); }), 424);
  EXPECT_EQ(errorOf([] { toObject(Value::nothing()); }), 91);
}

TEST(ConversionTest, Booleans) {
  EXPECT_TRUE(toBoolean(Value("TRUE")));
  EXPECT_FALSE(toBoolean(Value("False")));
  EXPECT_TRUE(toBoolean(Value("-1")));
  EXPECT_FALSE(toBoolean(Value("0")));
  EXPECT_TRUE(toBoolean(Value::number(0.1)));
  EXPECT_FALSE(toBoolean(Value()));
  EXPECT_EQ(errorOf([] { toBoolean(Value("yes")); }), 13);
  EXPECT_EQ(toString(Value::boolean(true)).narrow(), "True");
  EXPECT_EQ(toDouble(Value::boolean(true)), -1);
}

}  // namespace
}  // namespace quorvane::vbs
