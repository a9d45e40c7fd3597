#include "components/mail/encoded_words.h"

#include <gtest/gtest.h>

namespace quorvane::mail {
namespace {

TEST(EncodedWords, Read) {
  EXPECT_EQ(decodeWords("=?utf-8?Q?K=C3=A4se_a?="), "K\xC3\xA4se a");
  EXPECT_EQ(decodeWords("a =?ISO-8859-1?b?5A==?= b"), "a \xC3\xA4 b");
  EXPECT_EQ(decodeWords("=?koi8-r*ru?q?=C1?="), "\xD0\xB0");
}

TEST(EncodedWords, BlanksBetweenTwoMeanNothing) {
  EXPECT_EQ(decodeWords("=?utf-8?q?a?=  =?iso-8859-1?q?b?= c"), "ab c");
  EXPECT_EQ(decodeWords("=?utf-8?q?a?= x =?utf-8?q?b?="), "a x b");
}

TEST(EncodedWords, ACharacterCutInTwoIsWhole) {
  EXPECT_EQ(decodeWords("=?utf-8?q?=C3?= =?UTF-8?q?=A4?="), "\xC3\xA4");
}

TEST(EncodedWords, WhatIsNoneStays) {
  for (const std::string_view text : {"", "=?", "=?=",
                                      "=?"
                                      "?=",
                                      "=?utf-8?", "=?utf-8?q", "=?utf-8?q?", "=?utf-8?q?a",
                                      "=?utf-8?x?a?=", "=?none?q?a?=", "a=?b", "=?utf-8?q?a?"}) {
    EXPECT_EQ(decodeWords(text), text);
  }
  EXPECT_EQ(decodeWords("=?=?utf-8?q?a?="), "=?a");
}

TEST(EncodedWords, WrittenInWholeCharacters) {
  std::string_view left = "\xF0\x9F\x8E\x89\xF0\x9F\x8E\x89";
  EXPECT_EQ(takeEncodedWord(left, 19), "");
  EXPECT_EQ(takeEncodedWord(left, 20), "=?utf-8?B?8J+OiQ==?=");
  EXPECT_EQ(left, "\xF0\x9F\x8E\x89");
  EXPECT_EQ(takeEncodedWord(left, 1000), "=?utf-8?B?8J+OiQ==?=");
  EXPECT_EQ(takeEncodedWord(left, 1000), "");
}

TEST(EncodedWords, ReadableWhereMostIsPlain) {
  std::string_view left = "Preise 2026 f\xC3\xBCr alle?";
  EXPECT_EQ(takeEncodedWord(left, 75), "=?utf-8?Q?Preise_2026_f=C3=BCr_alle=3F?=");
}

}  // namespace
}  // namespace quorvane::mail
