#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "vbscript/dumps/dumps.h"
#include "vbscript/engine.h"
#include "vbscript/syntax/name_table.h"
#include "vbscript/syntax/parser.h"

namespace quorvane::vbs {
namespace {

TEST(Lexer, NamesKeywordsAndPositions) {
  EXPECT_EQ(dumpTokens("Dim x\r\n  y = 1"),
            "1:1 keyword Dim\n1:5 name x\n1:6 newline\n"
            "2:3 name y\n2:5 symbol =\n2:7 number 1\n2:8 end\n");
}

TEST(Lexer, EveryKindOfLineEndCountsOnce) {
  EXPECT_EQ(dumpTokens("a\rb\nc\r\nd"),
            "1:1 name a\n1:2 newline\n2:1 name b\n2:2 newline\n3:1 name c\n3:2 newline\n"
            "4:1 name d\n4:2 end\n");
}

TEST(Lexer, CommentsVanish) {
  EXPECT_EQ(dumpTokens("a ' note : b\nRem more\nc:rem x"),
            "1:1 name a\n1:13 newline\n2:9 newline\n3:1 name c\n3:2 colon\n3:8 end\n");
}

TEST(Lexer, AWordThatBeginsLikeRemIsAName) {
  EXPECT_EQ(dumpTokens("remark"), "1:1 name remark\n1:7 end\n");
  EXPECT_EQ(dumpTokens("x.rem"), "1:1 name x\n1:2 symbol .\n1:3 name rem\n1:6 end\n");
}

TEST(Lexer, ContinuedLinesNeedNoBlankBeforeTheUnderscore) {
  EXPECT_EQ(dumpTokens("\"a\"&_\r\n  b"), "1:1 string a\n1:4 symbol &\n2:3 name b\n2:4 end\n");
  EXPECT_EQ(dumpTokens("a _  \n b"), "1:1 name a\n2:2 name b\n2:3 end\n");
  EXPECT_EQ(dumpTokens("a_\nb"), "1:1 name a_\n1:3 newline\n2:1 name b\n2:2 end\n");
}

TEST(Lexer, BracketedNamesAreNeverKeywords) {
  EXPECT_EQ(dumpTokens("[end] [] [a b]"), "1:1 name end\n1:7 name \n1:10 name a b\n1:15 end\n");
}

TEST(Lexer, KeywordsBehindADotAreNames) {
  EXPECT_EQ(dumpTokens("r.End"), "1:1 name r\n1:2 symbol .\n1:3 name End\n1:6 end\n");
}

TEST(Lexer, GluedTokens) {
  EXPECT_EQ(dumpTokens("j=2To n"),
            "1:1 name j\n1:2 symbol =\n1:3 number 2\n1:4 keyword To\n1:7 name n\n1:8 end\n");
  EXPECT_EQ(dumpTokens("1Else"), "1:1 number 1\n1:2 keyword Else\n1:6 end\n");
  EXPECT_EQ(dumpTokens("2.^3"), "1:1 number 2.\n1:3 symbol ^\n1:4 number 3\n1:5 end\n");
}

TEST(Lexer, HexadecimalAndOctal) {
  EXPECT_EQ(dumpTokens("=&hFF"), "1:1 symbol =\n1:2 number &hFF\n1:6 end\n");
  EXPECT_EQ(dumpTokens("=&HFF&"), "1:1 symbol =\n1:2 number &HFF&\n1:7 end\n");
  EXPECT_EQ(dumpTokens("=&o17"), "1:1 symbol =\n1:2 number &o17\n1:6 end\n");
  EXPECT_EQ(dumpTokens("=&17"), "1:1 symbol =\n1:2 number &17\n1:5 end\n");
}

TEST(Lexer, AnAmpersandBehindAnOperandOrBeforeANameJoins) {
  EXPECT_EQ(dumpTokens("\"x\"&1"), "1:1 string x\n1:4 symbol &\n1:5 number 1\n1:6 end\n");
  EXPECT_EQ(dumpTokens(")&hour(x)"),
            "1:1 symbol )\n1:2 symbol &\n1:3 name hour\n1:7 symbol (\n1:8 name x\n"
            "1:9 symbol )\n1:10 end\n");
  EXPECT_EQ(dumpTokens("a&header"), "1:1 name a\n1:2 symbol &\n1:3 name header\n1:9 end\n");
  EXPECT_EQ(dumpTokens("a&other"), "1:1 name a\n1:2 symbol &\n1:3 name other\n1:8 end\n");
}

TEST(Lexer, ComparisonsSpelledBothWays) {
  EXPECT_EQ(dumpTokens("<= =< >= => <> ><"),
            "1:1 symbol <=\n1:4 symbol =<\n1:7 symbol >=\n1:10 symbol =>\n1:13 symbol <>\n"
            "1:16 symbol ><\n1:18 end\n");
}

TEST(Lexer, StringsKeepDoubledQuotes) {
  EXPECT_EQ(dumpTokens("\"a\"\"b\""), "1:1 string a\"\"b\n1:7 end\n");
  EXPECT_EQ(dumpTokens("\"\""), "1:1 string \n1:3 end\n");
}

TEST(Lexer, DatesStandBetweenHashes) {
  EXPECT_EQ(dumpTokens("#1/2/2003#"), "1:1 date 1/2/2003\n1:11 end\n");
}

TEST(Lexer, LettersBeyondAsciiMakeNoNames) {
  EXPECT_EQ(dumpTokens("gr\xF6\xDF"
                       "e"),
            "1:1 name gr\n1:3 error Invalid character\n");
  EXPECT_EQ(dumpTokens("[gr\xF6\xDF]"), "1:1 name gr\xF6\xDF\n1:7 end\n");
}

TEST(Lexer, AByteOrderMarkIsSkipped) {
  EXPECT_EQ(dumpTokens("\xEF\xBB\xBFx"), "1:4 name x\n1:5 end\n");
}

TEST(Lexer, Faults) {
  EXPECT_EQ(dumpTokens("x ?"), "1:1 name x\n1:3 error Invalid character\n");
  EXPECT_EQ(dumpTokens("\"a"), "1:3 error Unterminated string constant\n");
  EXPECT_EQ(dumpTokens("\"a\nb\""), "1:3 error Unterminated string constant\n");
  EXPECT_EQ(dumpTokens("[a"), "1:3 error Expected ']'\n");
  EXPECT_EQ(dumpTokens("_x"), "1:1 error Invalid character\n");
  EXPECT_EQ(dumpTokens("=1e999"), "1:1 symbol =\n1:2 error Invalid number\n");
  EXPECT_EQ(dumpTokens("=&h100000000"), "1:1 symbol =\n1:2 error Invalid number\n");
  EXPECT_EQ(dumpTokens(std::string_view("\0", 1)), "1:1 error Invalid character\n");
}

TEST(Lexer, NamesMayHave255Characters) {
  EXPECT_EQ(dumpTokens(std::string(255, 'a')),
            "1:1 name " + std::string(255, 'a') + "\n1:256 end\n");
  EXPECT_EQ(dumpTokens(std::string(256, 'a')), "1:1 error Identifier too long\n");
}

TEST(NameTable, SpellingsOfOneNameShareANumber) {
  NameTable names;
  const auto first = names
                         .intern(
                             "\xD6"
                             "ffnen")
                         .id;
  EXPECT_EQ(names
                .intern("\xF6"
                        "FFNEN")
                .id,
            first);
  EXPECT_EQ(names
                .intern("\xF6"
                        "FFNEN")
                .lower,
            "\xF6"
            "ffnen");
  EXPECT_NE(names.intern("offnen").id, first);
}

TEST(NameTable, GrowsWithoutLosingNames) {
  NameTable names;
  std::vector<std::uint32_t> ids;
  for (int i = 0; i < 5000; ++i) ids.push_back(names.intern("name" + std::to_string(i)).id);
  for (int i = 0; i < 5000; ++i) EXPECT_EQ(names.intern("NAME" + std::to_string(i)).id, ids[i]);
}

}  // namespace
}  // namespace quorvane::vbs
