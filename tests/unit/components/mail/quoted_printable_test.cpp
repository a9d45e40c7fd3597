#include "components/mail/quoted_printable.h"

#include <gtest/gtest.h>

#include "support/text.h"

namespace quorvane::mail {
namespace {

TEST(QuotedPrintable, WhatIsPlainStays) {
  EXPECT_EQ(quotedPrintable(""), "");
  EXPECT_EQ(quotedPrintable("a b\tc, ~!?"), "a b\tc, ~!?");
  EXPECT_EQ(quotedPrintable("1=2"), "1=3D2");
  EXPECT_EQ(quotedPrintable(std::string_view("\0\x1B\x7F\xE4", 4)), "=00=1B=7F=E4");
}

TEST(QuotedPrintable, LinesEndInOneWay) {
  EXPECT_EQ(quotedPrintable("a\nb\r\nc\n"), "a\r\nb\r\nc\r\n");
  EXPECT_EQ(quotedPrintable("a\rb\r\r\n"), "a=0Db=0D\r\n");
}

TEST(QuotedPrintable, NoBlankEndsALine) {
  EXPECT_EQ(quotedPrintable("a \nb\t\r\nc  "), "a=20\r\nb=09\r\nc =20");
}

TEST(QuotedPrintable, WhatOthersWouldChangeIsNotAtALinesFront) {
  EXPECT_EQ(quotedPrintable(".\n..\nx."), "=2E\r\n=2E.\r\nx.");
  EXPECT_EQ(quotedPrintable("From me\nFromage\n From"), "=46rom me\r\nFromage\r\n From");
}

TEST(QuotedPrintable, LongLinesAreBroken) {
  const std::string full(76, 'x');
  EXPECT_EQ(quotedPrintable(full), full);
  EXPECT_EQ(quotedPrintable(full + "\n" + full), full + "\r\n" + full);
  EXPECT_EQ(quotedPrintable(full + 'x'), std::string(75, 'x') + "=\r\nxx");
  // A byte's three characters stay on one line, and a broken line begins like any other.
  EXPECT_EQ(quotedPrintable(std::string(73, 'x') + "\xE4"), std::string(73, 'x') + "=E4");
  EXPECT_EQ(quotedPrintable(std::string(74, 'x') + "\xE4"), std::string(74, 'x') + "=\r\n=E4");
  EXPECT_EQ(quotedPrintable(std::string(75, 'x') + ".y"), std::string(75, 'x') + "=\r\n=2Ey");
}

TEST(QuotedPrintable, EveryLineIsShortWhateverTheText) {
  for (const std::string_view piece : {" ", "\xC3\xA4", "From ", "=", "ab \xE4."}) {
    std::string text;
    for (int i = 0; i < 500; ++i) text += piece;
    for (const std::string_view line : split(quotedPrintable(text), '\n')) {
      EXPECT_LE(line.size(), 77U) << line;  // CR counts
    }
  }
}

}  // namespace
}  // namespace quorvane::mail
