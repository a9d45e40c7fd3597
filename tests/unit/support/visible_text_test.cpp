#include "support/visible_text.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

TEST(VisibleText, ShowsControlCharactersByNumber) {
  using namespace std::string_view_literals;
  EXPECT_EQ(visible("/a b\\c~\xe4"), "/a b\\c~\xe4");
  EXPECT_EQ(visible("\0\t\r\n\x1b\x1f \x7f"sv), "\\x00\\x09\\x0d\\x0a\\x1b\\x1f \\x7f");
}

TEST(VisibleText, CutsLongTexts) {
  EXPECT_EQ(visible("abcd", 4), "abcd");
  EXPECT_EQ(visible("abcde", 4), "abcd...");
  EXPECT_EQ(visible("\n\n\n", 2), "\\x0a\\x0a...");
  EXPECT_EQ(visible("abcde", 0), "abcde");
}

TEST(VisibleText, MakesOneLineOfALine) {
  EXPECT_EQ(visibleLine("Port:\t80"), "Port:\t80");
  EXPECT_EQ(visibleLine("a\r\nb\rc\nd"), "a||b\\x0dc\\x0ad");
}

}  // namespace

}  // namespace quorvane
