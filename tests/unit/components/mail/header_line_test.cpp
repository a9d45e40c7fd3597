#include "components/mail/header_line.h"

#include <gtest/gtest.h>

#include "components/mail/encoded_words.h"
#include "support/text.h"

namespace quorvane::mail {
namespace {

std::string lineOf(std::string_view text) {
  std::string out;
  HeaderLine(out, "Subject").text(text);
  return out;
}

std::string phraseOf(std::string_view name) {
  std::string out;
  HeaderLine(out, "To").phrase(name);
  return out;
}

std::string parameterOf(std::string_view value) {
  std::string out;
  HeaderLine(out, "X").parameter("name", value);
  return out;
}

std::string repeated(std::string_view text, int times) {
  std::string out;
  for (int i = 0; i < times; ++i) out += text;
  return out;
}

/// What a reader makes of a header line: folds and encoded words undone.
std::string readBack(const std::string& line) {
  const std::string whole = replaceAll(line, "\r\n", "");
  return decodeWords(whole.substr(whole.find(": ") + 2));
}

void expectLines(const std::string& text, std::size_t longest) {
  EXPECT_TRUE(text.ends_with("\r\n"));
  for (const std::string_view line :
       split(std::string_view(text).substr(0, text.size() - 2), '\n')) {
    EXPECT_LE(trimmed(line, "\r").size(), longest) << line;
    EXPECT_FALSE(trimmed(line, "\r ").empty());
  }
}

TEST(HeaderLine, TextOfAsciiStays) {
  EXPECT_EQ(lineOf(""), "Subject: \r\n");
  EXPECT_EQ(lineOf("  a  b "), "Subject: a  b\r\n");
  EXPECT_EQ(lineOf("50% <a@x> \"q\" 1=2?"), "Subject: 50% <a@x> \"q\" 1=2?\r\n");
}

TEST(HeaderLine, LongTextIsFoldedAtBlanks) {
  const std::string text = trimBlanks(repeated("word ", 100)).data();
  const std::string line = lineOf(text);
  expectLines(line, 76);
  EXPECT_EQ(readBack(line), std::string(trimBlanks(text)));
  const std::string url(500, 'u');
  EXPECT_EQ(lineOf("see " + url), "Subject: see\r\n " + url + "\r\n");
}

TEST(HeaderLine, BlanksWithoutEndMakeNoLongLine) {
  expectLines(lineOf("a" + std::string(5000, ' ') + "b"), 78);
}

TEST(HeaderLine, OtherTextBecomesEncodedWords) {
  EXPECT_EQ(lineOf("a K\xC3\xA4se b"), "Subject: a =?utf-8?B?S8Okc2U=?= b\r\n");
  EXPECT_EQ(lineOf("Unsere neuesten Preise f\xC3\xBCr"),
            "Subject: Unsere neuesten Preise =?utf-8?B?ZsO8cg==?=\r\n");
}

TEST(HeaderLine, NoCharacterIsCutAndEverythingComesBack) {
  for (const std::string_view piece :
       {"\xC3\xA4", "\xE6\x97\xA5", "\xF0\x9F\x8E\x89", "caf\xC3\xA9 abcdefghijklmnopq ",
        "\xD0\x9F\xD1\x80 a  b "}) {
    for (int times = 1; times < 60; ++times) {
      const std::string text(trimBlanks(repeated(piece, times)));
      const std::string line = lineOf(text);
      expectLines(line, 76);
      EXPECT_EQ(readBack(line), text);
      for (const std::string_view word : split(line, ' ')) {
        const std::string alone = decodeWords(trimmed(word, "\r\n"));
        EXPECT_EQ(alone.find("\xEF\xBF\xBD"), alone.npos) << word;
      }
    }
  }
}

TEST(HeaderLine, WordsTooLongForALineAreEncoded) {
  const std::string line = lineOf(std::string(2000, 'x'));
  expectLines(line, 76);
  EXPECT_EQ(readBack(line), std::string(2000, 'x'));
}

TEST(HeaderLine, NamesAreQuotedWhereTheyWantIt) {
  EXPECT_EQ(phraseOf("Me O'Neil"), "To: Me O'Neil\r\n");
  EXPECT_EQ(phraseOf("Doe, J."), "To: \"Doe, J.\"\r\n");
  EXPECT_EQ(phraseOf("a \"b\" \\c"), "To: \"a \\\"b\\\" \\\\c\"\r\n");
  EXPECT_EQ(phraseOf("K\xC3\xA4se, der"), "To: =?utf-8?B?S8Okc2UsIGRlcg==?=\r\n");
  expectLines(phraseOf(repeated("Doe, John ", 50)), 76);
}

TEST(HeaderLine, ParametersInTheFormThatTheirValueWants) {
  EXPECT_EQ(parameterOf("a-1.txt"), "X: name=a-1.txt\r\n");
  EXPECT_EQ(parameterOf("two words;\"\\.txt"), "X: name=\"two words;\\\"\\\\.txt\"\r\n");
  EXPECT_EQ(parameterOf(""), "X: name=\"\"\r\n");
  EXPECT_EQ(parameterOf("\xC3\xBC '.txt"), "X: name*=utf-8''%C3%BC%20%27.txt\r\n");
}

TEST(HeaderLine, LongParametersGoOnInPiecesOfWholeCharacters) {
  const std::string line = parameterOf(repeated("\xC3\xBC", 40));
  expectLines(line, 76);
  EXPECT_EQ(line.find("X: name*0*=utf-8''%C3%BC"), 0U);
  EXPECT_NE(line.find(";\r\n name*1*=%C3%BC"), line.npos) << line;
  EXPECT_EQ(line.find("%\r"), line.npos);
  expectLines(parameterOf(std::string(3000, 'x')), 76);
}

}  // namespace
}  // namespace quorvane::mail
