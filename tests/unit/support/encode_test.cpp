#include "support/clsWEncode.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/text.h"

namespace quorvane {

using namespace std::string_literals;

namespace {
const clsWEncode kEncoder;
}

TEST(TextToHtml, EncodesBlanksMarkupAndLatinLetters) {
  EXPECT_EQ(kEncoder.afText2HTML("a b"), "a&nbsp;b");
  EXPECT_EQ(kEncoder.afText2HTML("<x & y>\""), "&lt;x&nbsp;&amp;&nbsp;y&gt;&quot;");
  EXPECT_EQ(kEncoder.afText2HTML("\xA0\xC0\xFF"), "&nbsp;&Agrave;&yuml;");
  EXPECT_EQ(kEncoder.afText2HTML("'\x80\n"), "'\x80\n");
  EXPECT_EQ(kEncoder.afText2HTML(""), "");
}

TEST(TextToHtml, Character237HasNoSemicolon) {
  EXPECT_EQ(kEncoder.afText2HTML("\xED"), "&iacute");
  EXPECT_EQ(kEncoder.afHTML2Text("&iacute"), "\xED");
  EXPECT_EQ(kEncoder.afHTML2Text("&iacute;"), "\xED;");
}

TEST(HtmlToText, ReplacesInTheOrderOfTheList) {
  EXPECT_EQ(kEncoder.afHTML2Text("&amp;gt;"), ">");
  EXPECT_EQ(kEncoder.afHTML2Text("&amp;lt;"), "<");
  EXPECT_EQ(kEncoder.afHTML2Text("&nbsp;"), " ");
  EXPECT_EQ(kEncoder.afHTML2Text("&amp;quot;"), "&quot;");
  EXPECT_EQ(kEncoder.afHTML2Text("&eacute;&eacute;"), "\xE9\xE9");
}

TEST(HtmlToText, LeavesWhatIsNotInTheList) {
  EXPECT_EQ(kEncoder.afHTML2Text("&AMP; &#65; &euro;"), "&AMP; &#65; &euro;");
  EXPECT_EQ(kEncoder.afHTML2Text(""), "");
}

/// The entities one after another, in the order of their codes, which is that of the list.
std::string decodedOneAfterAnother(std::string text) {
  for (int code = 0; code < 256; ++code) {
    const std::string character(1, static_cast<char>(code));
    const std::string name = kEncoder.afText2HTML(character);
    if (name != character) text = replaceAll(text, name, character);
  }
  return text;
}

TEST(HtmlToText, GivesWhatReplacingOneEntityAfterAnotherGives) {
  std::vector<std::string> pieces{"&",     "&",    "&",    "&amp;", "&amp;", "amp;",
                                  "amp",   ";",    "#65;", "x",     "",      "&iacut",
                                  "NBSP;", "&nbs", "p;",   "\xFF",  "&a",    "&y"};
  for (int code = 0; code < 256; ++code) {
    const std::string name = kEncoder.afText2HTML(std::string(1, static_cast<char>(code)));
    pieces.push_back(name);
    if (name.size() > 1) pieces.push_back(name.substr(1));
  }
  std::minstd_rand random(7);
  for (int round = 0; round < 20'000; ++round) {
    std::string text;
    for (std::size_t left = random() % 12; left > 0; --left) {
      // Half of the time one of the first few, which bring entities into each other.
      text += pieces[random() % (random() % 2 ? 18 : pieces.size())];
    }
    ASSERT_EQ(kEncoder.afHTML2Text(text), decodedOneAfterAnother(text)) << text;
  }
}

TEST(EncodeUrl, KeepsLettersAndDigitsOnly) {
  EXPECT_EQ(kEncoder.afEncodeURL("a-b.c d"), "a%2Db%2Ec%20d");
  EXPECT_EQ(kEncoder.afEncodeURL("AZaz09_~\n\xFF\0"s), "AZaz09%5F%7E%0A%FF%00");
  EXPECT_EQ(kEncoder.afEncodeURL(""), "");
}

TEST(DecodeUrl, DecodesBlanksAndPairs) {
  EXPECT_EQ(kEncoder.afDecodeURL("a+b%20c"), "a b c");
  EXPECT_EQ(kEncoder.afDecodeURL("%c3%BC"), "\xC3\xBC");
  EXPECT_EQ(kEncoder.afDecodeURL(""), "");
}

TEST(DecodeUrl, ShortPiecesLoseTheirPercentSign) {
  EXPECT_EQ(kEncoder.afDecodeURL("50%"), "50");
  EXPECT_EQ(kEncoder.afDecodeURL("%4"), "4");
  EXPECT_EQ(kEncoder.afDecodeURL("%%41"), "A");
  EXPECT_EQ(kEncoder.afDecodeURL("%4%41"), "4A");
  EXPECT_EQ(kEncoder.afDecodeURL("%"), "");
}

TEST(DecodeUrl, AnythingButHexadecimalDigitsIsAnError) {
  for (const char* text : {"%zz", "a%4g", "%-1", "% 1", "%1+", "%0x41"}) {
    EXPECT_EQ(kEncoder.afDecodeURL(text), std::nullopt) << text;
  }
}

TEST(Encoding, LongTextsEncodeCharacterByCharacter) {
  std::string text;
  std::string html;
  std::string url;
  for (int i = 0; i < 3000; ++i) {
    const std::string character(1, static_cast<char>(i % 256));
    text += character;
    html += kEncoder.afText2HTML(character);
    url += kEncoder.afEncodeURL(character);
  }
  EXPECT_EQ(kEncoder.afText2HTML(text), html);
  EXPECT_EQ(kEncoder.afEncodeURL(text), url);
  EXPECT_EQ(kEncoder.afDecodeURL(url), text);
}

}  // namespace quorvane
