#include "components/mail/address_list.h"

#include <gtest/gtest.h>

#include "components/mail/ascii_domain.h"
#include "components/mail/header_text.h"

namespace quorvane::mail {
namespace {

/// "name|address" of each, semicolons between them.
std::string listOf(std::string_view text) {
  std::string out;
  for (const Address& entry : addressesIn(vbs::String::fromUtf8(text))) {
    if (!out.empty()) out += ';';
    out += entry.name.utf8() + '|' + entry.address.utf8();
  }
  return out;
}

TEST(AddressList, CommasAndSemicolonsAreBetweenTwo) {
  EXPECT_EQ(listOf(""), "");
  EXPECT_EQ(listOf(" ,;, "), "");
  EXPECT_EQ(listOf("a@x"), "|a@x");
  EXPECT_EQ(listOf("a@x, b@y;c@z;"), "|a@x;|b@y;|c@z");
  EXPECT_EQ(listOf("a@x b@y"), "|a@x;|b@y");
  EXPECT_EQ(listOf("a@x,\r\n\tb@y"), "|a@x;|b@y");
}

TEST(AddressList, Names) {
  EXPECT_EQ(listOf("Me <a@x>"), "Me|a@x");
  EXPECT_EQ(listOf("\"Doe, J; \\\"x\\\"\" <a@x>; B<b@y>"), "Doe, J; \"x\"|a@x;B|b@y");
  EXPECT_EQ(listOf("Ms. \"Q\" R <a@x>"), "Ms. Q R|a@x");
  EXPECT_EQ(listOf("a@x (Carl (C) C.)"), "Carl (C) C.|a@x");
  EXPECT_EQ(listOf("John@Home < a@x >"), "John@Home|a@x");
  EXPECT_EQ(listOf("Name a@x"), "Name|a@x");
  EXPECT_EQ(listOf("Me <a@x> (home), b@y"), "Me|a@x;|b@y");
  EXPECT_EQ(listOf("A <a@x> B <b@y>"), "A|a@x;B|b@y");
}

TEST(AddressList, ACommaInANameWithoutQuotes) {
  EXPECT_EQ(listOf("Doe, John <a@x>"), "Doe, John|a@x");
  EXPECT_EQ(listOf("Doe; John <a@x>"), "|Doe;John|a@x");
  EXPECT_EQ(listOf("root, a@x, admin"), "|root;|a@x;|admin");
  EXPECT_EQ(listOf("no address at all, a@x"), "|a@x");
}

TEST(AddressList, EncodedNamesStayWhole) {
  EXPECT_EQ(listOf("=?utf-8?q?a,_b:_(c)?= <a@x>"), "=?utf-8?q?a,_b:_(c)?=|a@x");
  EXPECT_EQ(listOf("a@x, =?utf-8?q?a?= =?utf-8?q?b?= <b@y>"),
            "|a@x;=?utf-8?q?a?= =?utf-8?q?b?=|b@y");
  EXPECT_EQ(listOf("\"=?iso-8859-1?q?M=FCller?=\" <a@x>"), "=?iso-8859-1?q?M=FCller?=|a@x");
}

TEST(AddressList, Groups) {
  EXPECT_EQ(listOf("Friends: a@x, B <b@y>;, c@z"), "|a@x;B|b@y;|c@z");
  EXPECT_EQ(listOf("undisclosed-recipients:;"), "");
  EXPECT_EQ(listOf("mailto:a@x"), "|a@x");
}

TEST(AddressList, RoutesAndOtherForms) {
  EXPECT_EQ(listOf("<@r,@s:a@x>"), "|a@x");
  EXPECT_EQ(listOf("a@[127.0.0.1], b@[IPv6:::1]"), "|a@[127.0.0.1];|b@[IPv6:::1]");
  EXPECT_EQ(listOf("\"a@b\"@x"), "|\"a@b\"@x");
}

TEST(AddressList, WhatIsLeftOpen) {
  EXPECT_EQ(listOf("\"a@x"), "|a@x");
  EXPECT_EQ(listOf("<a@x, b@y"), "|a@x;|b@y");
  EXPECT_EQ(listOf("<"), "");
  EXPECT_EQ(listOf("(a@x"), "|(a@x");
  EXPECT_EQ(listOf("\\"), "|\\");
  EXPECT_EQ(listOf("<>"), "");
  EXPECT_EQ(listOf("<@"), "");
}

TEST(AddressList, LongNonsenseTakesNoLongTime) {
  for (const std::string_view piece :
       {"(", "<", "\"", "\\\"", ":", "a ", "a,", "a@x:", "=?utf-8?q?"}) {
    std::string text = "\"(";
    while (text.size() < 100'000) text += piece;
    addressesIn(vbs::String(text));
  }
}

TEST(AddressList, AddressesThatCanStandInADialogue) {
  EXPECT_TRUE(isPlainAddress("a@x"));
  for (const char* bad : {"", "a b@x", "a@x\r\n", "<a@x", "a@x>", "a\x7F@x"}) {
    EXPECT_FALSE(isPlainAddress(bad)) << bad;
  }
  EXPECT_FALSE(isPlainAddress(std::string(1000, 'a')));
  EXPECT_EQ(addressText({{}, vbs::String("a b@x")}), "");
  EXPECT_EQ(addressText({{}, vbs::String::fromUtf8("J@M\xC3\xBCller.Example")}),
            "J@xn--mller-kva.Example");
}

TEST(HeaderText, IsOneLineInUtf8) {
  EXPECT_EQ(headerText(vbs::String("a\r\nb\tc"), "utf-8"), "a  b c");
  EXPECT_EQ(headerText(vbs::String("=?utf-8?q?a=0D=0AEvil:_1=C3=84?="), "windows-1251"),
            "a  Evil: 1\xC3\x84");
}

TEST(HeaderText, BytesOfTheMailsCharacterSetAreReadAsThat) {
  EXPECT_EQ(headerText(vbs::String("\xCF\xF0"), "windows-1251"), "\xD0\x9F\xD1\x80");
  EXPECT_EQ(headerText(vbs::String("\xC3\xA4"), "utf-8"), "\xC3\xA4");
  EXPECT_EQ(headerText(vbs::String("\xE4"), "utf-8"), "\xC3\xA4");
  EXPECT_EQ(headerText(vbs::String("\x80"), "iso-8859-1"), "\xE2\x82\xAC");
  EXPECT_EQ(headerText(vbs::String("\xE4"), "us-ascii"), "\xC3\xA4");
}

TEST(AsciiDomain, Labels) {
  EXPECT_EQ(asciiDomain(""), "");
  EXPECT_EQ(asciiDomain("A.Example"), "A.Example");
  EXPECT_EQ(asciiDomain("m\xC3\xBCnchen.example"), "xn--mnchen-3ya.example");
  EXPECT_EQ(asciiDomain("\xC3\x9C.example"), "xn--tda.example");
  // Samples of RFC 3492.
  EXPECT_EQ(asciiDomain("\xE4\xBB\x96\xE4\xBB\xAC\xE4\xB8\xBA\xE4\xBB\x80\xE4\xB9\x88\xE4\xB8\x8D"
                        "\xE8\xAF\xB4\xE4\xB8\xAD\xE6\x96\x87"),
            "xn--ihqwcrb4cv8a8dqg056pqjye");
  EXPECT_EQ(asciiDomain("\xE3\x81\x9D\xE3\x81\xAE\xE3\x82\xB9\xE3\x83\x94\xE3\x83\xBC\xE3\x83\x89"
                        "\xE3\x81\xA7"),
            "xn--d9juau41awczczp");
  EXPECT_EQ(asciiDomain("\xF0\x9F\x92\xA9.la"), "xn--ls8h.la");
}

}  // namespace
}  // namespace quorvane::mail
