#include "script/customary/code_page.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorvane::customary {

namespace {

using vbs::String;

TEST(CodePage, Known) {
  for (const int codePage :
       {437,   850,   852,   866,   874,   932,   936,   949,   950,   1250,  1251,  1252,  1253,
        1254,  1255,  1256,  1257,  1258,  20127, 20866, 20932, 21866, 28591, 28592, 28593, 28594,
        28595, 28596, 28597, 28598, 28599, 28603, 28605, 51932, 51936, 51949, 65001}) {
    EXPECT_TRUE(isCodePage(codePage)) << codePage;
  }
}

TEST(CodePage, KnownWithEscapesOrFourBytes) {
  for (const int codePage : {50220, 50221, 54936}) EXPECT_TRUE(isCodePage(codePage)) << codePage;
}

TEST(CodePage, Unknown) {
  for (const int codePage : {-1, 0, 1, 1249, 1259, 65000, 65002}) {
    EXPECT_FALSE(isCodePage(codePage)) << codePage;
  }
}

struct Row {
  int codePage;
  std::string bytes;
  std::u16string text;
};

void expectBothWays(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(decode(row.codePage, row.bytes).wide(), row.text) << row.codePage;
    EXPECT_EQ(encode(row.codePage, String::fromWide(row.text)), row.bytes) << row.codePage;
  }
}

TEST(CodePage, BothWays) {
  expectBothWays({
      {1252, "\x80\x81\xFF", u"\u20AC\u0081\u00FF"},
      {65001, "\xE4\xB8\xAD!", u"\u4E2D!"},
      {936, "\xD6\xD0!", u"\u4E2D!"},
      {950, "\xA4\xA4", u"\u4E2D"},
      {932, "\x82\xA0", u"\u3042"},
      {949, "\xB0\xA1", u"\uAC00"},
      {1251, "\xC6", u"\u0416"},
      {28605, "\xA4", u"\u20AC"},
  });
}

TEST(CodePage, BothWaysWithEscapes) {
  expectBothWays({
      {50220, "a\x1B$B$\"%>\x1B(B!", u"a\u3042\u30BE!"},
      {50221, "\x1B$B0l\x1B(B", u"\u4E00"},
      {50220, "plain", u"plain"},
  });
}

TEST(CodePage, BrokenEscapesEndNothing) {
  for (const char* bytes : {"\x1B", "\x1B$", "\x1B$B", "\x1B$B$", "\x1B$Bzz\x1B(B", "\x1B(Zx"}) {
    const std::u16string text = decode(50220, bytes).wide();
    EXPECT_LE(text.size(), std::string_view(bytes).size()) << bytes;
  }
  EXPECT_EQ(decode(50220, "\x1B$B$").wide(), u"\uFFFD");
}

TEST(CodePage, NoLetterIsHeldBack) {
  EXPECT_EQ(decode(1255, "\xFA\xE4").wide(), u"\u05EA\u05D4");
  EXPECT_EQ(decode(1258, "a\xF5").wide(), u"a\u01A1");
  EXPECT_EQ(encode(1255, String::fromWide(u"\u05EA\u05D4")), "\xFA\xE4");
}

TEST(CodePage, AnAccentIsOneWithItsLetter) {
  EXPECT_EQ(decode(1258, "e\xEC!").wide(), u"\u00E9!");
}

TEST(CodePage, WhatHasNoPlace) {
  EXPECT_EQ(encode(1252, String::fromWide(u"a\u4E2D")), "a?");
  EXPECT_EQ(encode(1251, String::fromWide(u"a\u4E2D")), "a?");
  EXPECT_EQ(encode(1251, String::fromWide(u"a\xD83Dz\xDE00")), "a?z?");  // halves of a pair
  EXPECT_EQ(decode(65001, "a\xFF").wide(), u"a\uFFFD");
  EXPECT_EQ(encode(65001, String("\xE9")), "\xC3\xA9");
}

}  // namespace

}  // namespace quorvane::customary
