#include "support/text.h"

#include <gtest/gtest.h>

namespace quorvane {

using namespace std::string_view_literals;

TEST(Text, FoldsTheCaseOfAsciiAndWindows1252Letters) {
  EXPECT_EQ(lowerCase("AbZ[`"), "abz[`");
  EXPECT_EQ(upperCase("abz{@"), "ABZ{@");
  EXPECT_EQ(lowerCase("\xC4\xD6\xDE\xD7\x8A\x9F"), "\xE4\xF6\xFE\xD7\x9A\xFF");
  EXPECT_EQ(upperCase("\xE4\xF6\xFE\xF7\x9A\xFF\xDF"), "\xC4\xD6\xDE\xF7\x8A\x9F\xDF");
}

TEST(Text, ComparesAndSearchesWithoutRegardToCase) {
  EXPECT_TRUE(equalsNoCase("Hello", "hELLO"));
  EXPECT_FALSE(equalsNoCase("Hello", "hell"));
  EXPECT_TRUE(startsWithNoCase("FileBin$x", "filebin$"));
  EXPECT_FALSE(startsWithNoCase("file", "filebin$"));
  EXPECT_EQ(findNoCase("abc CONTENT-Length: 3", "content-length: "), 4u);
  EXPECT_EQ(findNoCase("abcabc", "ABC", 1), 3u);
  EXPECT_EQ(findNoCase("abc", "abcd"), std::string_view::npos);
  EXPECT_EQ(findNoCase("abc", "a", 4), std::string_view::npos);
}

TEST(Text, TrimsBlanksOnly) {
  EXPECT_EQ(trimBlanks("  a b  "), "a b");
  EXPECT_EQ(trimBlanks("\ta "), "\ta");
  EXPECT_EQ(trimBlanks("   "), "");
}

TEST(Text, TrimsWhatItIsTold) {
  EXPECT_EQ(trimmed("\t a b \r", " \t"), "a b \r");
  EXPECT_EQ(trimmed("\t a b \r", " \t\r"), "a b");
  EXPECT_EQ(trimmed(" \t", " \t"), "");
  EXPECT_EQ(trimmed("", " \t"), "");
}

TEST(Text, ReadsWholeNumbersOnly) {
  EXPECT_EQ(wholeNumber<int>("-12"), -12);
  EXPECT_EQ(wholeNumber<unsigned>("fF", 16), 255u);
  EXPECT_EQ(wholeNumber<std::uint16_t>("65535"), 65535);
  for (const char* text : {"", " 1", "1 ", "+1", "-1", "1x", "0x1", "65536"}) {
    EXPECT_EQ(wholeNumber<std::uint16_t>(text), std::nullopt) << text;
  }
}

TEST(Text, ReadsHexadecimalBytes) {
  EXPECT_EQ(hexByte("4a"), 'J');
  EXPECT_EQ(hexByte("fF8"), '\xff');
  for (const char* text : {"", "4", "4g", "g4", "-1", " 1", "+1"}) {
    EXPECT_EQ(hexByte(text), std::nullopt) << text;
  }
}

TEST(Text, SplitsIntoOneMorePieceThanSeparators) {
  EXPECT_EQ(split("a,,b", ','), (std::vector<std::string_view>{"a", "", "b"}));
  EXPECT_EQ(split("", ','), (std::vector<std::string_view>{""}));
  EXPECT_EQ(split(",", ','), (std::vector<std::string_view>{"", ""}));
}

TEST(Text, ReplacesLeftToRight) {
  EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(replaceAll("a\r\nb\r\n", "\r\n", "||"), "a||b||");
  EXPECT_EQ(replaceAll("", "x", "y"), "");
}

TEST(Text, KnowsWhatTheScriptLanguageCallsNumeric) {
  EXPECT_EQ(numericValue("12"), 12);
  EXPECT_EQ(numericValue(" -1.5 "), -1.5);
  EXPECT_EQ(numericValue("5-"), -5);
  EXPECT_EQ(numericValue("+.5"), 0.5);
  EXPECT_EQ(numericValue("5."), 5);
  EXPECT_EQ(numericValue("1e3"), 1000);
  EXPECT_EQ(numericValue("1D-2"), 0.01);
  EXPECT_EQ(numericValue("1,234"), 1234);
  EXPECT_EQ(numericValue("&H10"), 16);
  EXPECT_EQ(numericValue("&hFFFF"), -1);
  EXPECT_EQ(numericValue("&H0FFFF"), 65535);
  EXPECT_EQ(numericValue("&O17"), 15);
  for (const auto text :
       {""sv, " "sv, "."sv, "-"sv, "abc"sv, "1a"sv, "1 2"sv, "e3"sv, "1e"sv, "--1"sv, ",1"sv,
        "&H"sv, "&HG"sv, "1e999"sv, "nan"sv, "inf"sv, "1\0"sv, "0x10"sv}) {
    EXPECT_EQ(numericValue(text), std::nullopt) << text;
  }
}

TEST(Text, RoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(roundHalfEven(0.5), 0);
  EXPECT_EQ(roundHalfEven(1.5), 2);
  EXPECT_EQ(roundHalfEven(2.5), 2);
  EXPECT_EQ(roundHalfEven(-0.5), 0);
  EXPECT_EQ(roundHalfEven(-1.5), -2);
  EXPECT_EQ(roundHalfEven(2.51), 3);
  EXPECT_EQ(numericLong("2.5"), 2);
  EXPECT_EQ(numericLong("2147483647"), 2147483647);
  EXPECT_EQ(numericLong("2147483648"), std::nullopt);
  EXPECT_EQ(numericLong("-2147483648"), INT32_MIN);
  EXPECT_EQ(numericLong("x"), std::nullopt);
}

TEST(Text, HexDigitsAreTwoAByte) {
  const std::uint8_t bytes[] = {0x00, 0x0A, 0xFF, 0x7E};
  EXPECT_EQ(hexDigits(bytes), "000aff7e");
  EXPECT_EQ(hexDigits({}), "");
}

}  // namespace quorvane
