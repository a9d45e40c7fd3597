#include <gmock/gmock.h>

#include "console/terminal_text.h"

namespace quorvane {

namespace {

using testing::ElementsAre;

TEST(CellsOf, ShowsWindows1252) {
  EXPECT_EQ(cellsOf("Gr\xFC\xDF \x80 \x84\x93"), L"Gr\u00fc\u00df \u20ac \u201e\u201c");
}

TEST(CellsOf, ShowsADotForWhatHasNoGlyph) {
  EXPECT_EQ(cellsOf(std::string_view("a\0b\x1b[31m\x7f\x81", 10)),
            L"a\u00b7b\u00b7[31m\u00b7\u00b7");
}

TEST(CellsOf, GivesASoftHyphenOneCell) {
  EXPECT_EQ(cellsOf("a\xAD"), L"a-");
}

TEST(CellsOf, LeadsTabsToMultiplesOfEight) {
  EXPECT_EQ(cellsOf("Port:\t7007"), L"Port:   7007");
  EXPECT_EQ(cellsOf("12345678\tx"), L"12345678        x");
}

TEST(Fitted, FillsAndCuts) {
  EXPECT_EQ(fitted(L"ab", 4), L"ab  ");
  EXPECT_EQ(fitted(L"abcd", 4), L"abcd");
  EXPECT_EQ(fitted(L"abcde", 4), L"abc\u2026");
  EXPECT_EQ(fitted(L"abc", 0), L"");
}

TEST(Wrapped, BreaksAtTheLastBlankThatFits) {
  EXPECT_THAT(wrapped("one two three", 8), ElementsAre(L"one two", L"three"));
  EXPECT_THAT(wrapped("one two", 7), ElementsAre(L"one two"));
}

TEST(Wrapped, BreaksWordsThatAreTooLong) {
  EXPECT_THAT(wrapped("abcdefgh", 3), ElementsAre(L"abc", L"def", L"gh"));
  EXPECT_THAT(wrapped("ab", 0), ElementsAre(L"a", L"b"));
}

TEST(Wrapped, KeepsLineEndsOfEveryKind) {
  EXPECT_THAT(wrapped("a\r\nb\nc\rd", 9), ElementsAre(L"a", L"b", L"c", L"d"));
  EXPECT_THAT(wrapped("a\r\n\r\nb", 9), ElementsAre(L"a", L"", L"b"));
  EXPECT_THAT(wrapped("a\r\n", 9), ElementsAre(L"a", L""));
  EXPECT_THAT(wrapped("", 9), ElementsAre(L""));
}

}  // namespace

}  // namespace quorvane
