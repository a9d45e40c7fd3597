#include "vbscript/values/string.h"

#include <gtest/gtest.h>

#include "testing.h"

namespace quorvane::vbs {
namespace {

using testing::errorOf;

String wide(std::u16string_view text) {
  return String::fromWideBytes({reinterpret_cast<const char*>(text.data()), text.size() * 2});
}

TEST(StringTest, EmptyHoldsNoBody) {
  EXPECT_EQ(String().rep(), nullptr);
  EXPECT_EQ(String("").rep(), nullptr);
  EXPECT_TRUE(String().empty());
}

TEST(StringTest, WideTextIsNarrowedWhenEveryUnitHasAByte) {
  const String euro = String::fromWide(u"5 \u20AC");
  EXPECT_TRUE(euro.isAnsi());
  EXPECT_EQ(euro.narrow(), "5 \x80");
  EXPECT_EQ(euro.at(2), u'\u20AC');
  EXPECT_FALSE(String::fromWide(u"\u0416").isAnsi());
}

TEST(StringTest, TwoSpellingsOfOneTextAreEqual) {
  const String narrow("a\x80z");
  const String spelled = wide(u"a\u20ACz");
  ASSERT_FALSE(spelled.isAnsi());
  EXPECT_EQ(narrow, spelled);
  EXPECT_NE(narrow, wide(u"a\u20ACy"));
}

TEST(StringTest, BinaryOrderFollowsUnitsNotBytes) {
  // 0x80 is U+20AC and so stands behind 0xFF.
  EXPECT_GT(String::compareBinary(String("\x80"), String("\xFF")), 0);
  EXPECT_LT(String::compareBinary(String("B"), String("a")), 0);
  EXPECT_LT(String::compareBinary(String("a"), String("ab")), 0);
  EXPECT_EQ(String::compareBinary(String("ab"), wide(u"ab")), 0);
}

TEST(StringTest, TextOrderIgnoresCaseAndPutsMarksBeforeDigitsBeforeLetters) {
  EXPECT_EQ(String::compareText(String("ABC\xC4"), String("abc\xE4")), 0);
  EXPECT_LT(String::compareText(String("a"), String("B")), 0);
  EXPECT_LT(String::compareText(String("_"), String("1")), 0);
  EXPECT_LT(String::compareText(String("9"), String("A")), 0);
  EXPECT_LT(String::compareText(String("e"), String("\xE9")), 0);
  EXPECT_LT(String::compareText(String("\xE9"), String("f")), 0);
  EXPECT_LT(String::compareText(String("\xE9"
                                       "a"),
                                String("eb")),
            0);
}

TEST(StringTest, AppendGrowsInPlaceForTheOnlyHolder) {
  String text("start");
  text.appendAnsi("x");
  std::uint32_t capacity = text.rep()->capacity;
  int growths = 0;
  for (int i = 0; i < 100'000; ++i) {
    text.appendAnsi("0123456789");
    growths += text.rep()->capacity != capacity;
    capacity = text.rep()->capacity;
  }
  EXPECT_LT(growths, 30);
  EXPECT_EQ(text.length(), 1'000'006u);
  String shared = text;
  shared.appendAnsi("!");
  EXPECT_EQ(text.length(), 1'000'006u);
  EXPECT_EQ(shared.length(), 1'000'007u);
}

TEST(StringTest, AppendingAStringToItselfDoublesIt) {
  String text("ab");
  text.append(text);
  text.append(text);
  EXPECT_EQ(text.narrow(), "abababab");
}

TEST(StringTest, AppendWidensWhenNeeded) {
  String text("\x80");
  text.append(String::fromWide(u"\u0416"));
  text.appendAnsi("\x80");
  EXPECT_EQ(text.wide(), u"\u20AC\u0416\u20AC");
}

TEST(StringTest, ByteStringsKeepOddBytes) {
  String bytes = String::fromWideBytes("A");
  EXPECT_EQ(bytes.length(), 0u);
  EXPECT_EQ(bytes.byteLength(), 1u);
  bytes.append(String::fromWideBytes(std::string_view("\0", 1)));
  EXPECT_EQ(bytes, String("A"));
  EXPECT_NE(String::fromWideBytes("A"), String());
}

TEST(StringTest, Utf8RoundTripsAndReplacesWhatIsMalformed) {
  const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
  EXPECT_EQ(String::fromUtf8(text).utf8(), text);
  EXPECT_EQ(String::fromUtf8(text).length(), 5u);
  EXPECT_EQ(String::fromUtf8("a\xFF"
                             "b\xC3")
                .wide(),
            u"a\uFFFDb\uFFFD");
  EXPECT_EQ(String::fromUtf8("\xE0\x80\x80").at(0), u'\uFFFD');
}

TEST(StringTest, CaseOfAccentedAndForeignLetters) {
  EXPECT_EQ(String("stra\xDF"
                   "e \xE4\x9A\x9C\xFF")
                .upper()
                .narrow(),
            "STRA\xDF"
            "E \xC4\x8A\x8C\x9F");
  EXPECT_EQ(String("\xC4\x8A\xD7").lower().narrow(), "\xE4\x9A\xD7");
  EXPECT_EQ(String::fromWide(u"\u0416\u03A9\u0100").lower().wide(), u"\u0436\u03C9\u0101");
  EXPECT_EQ(String::fromWide(u"\u0436\u03C9\u0101").upper().wide(), u"\u0416\u03A9\u0100");
}

TEST(StringTest, TooLongIsOutOfStringSpace) {
  EXPECT_EQ(errorOf([] { String::withCapacity(Encoding::Ansi, (std::size_t{1} << 30) + 1); }), 14);
}

TEST(StringTest, SubstrIsClamped) {
  EXPECT_EQ(String("hello").substr(3, 100).narrow(), "lo");
  EXPECT_TRUE(String("hello").substr(5, 1).empty());
  EXPECT_EQ(String::fromWide(u"\u0416bc").substr(1, 1).narrow(), "b");
}

}  // namespace
}  // namespace quorvane::vbs
