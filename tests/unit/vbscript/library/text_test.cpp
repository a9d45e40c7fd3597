#include "testing.h"

namespace quorvane::vbs {
namespace {

class TextFunctionTest : public testing::LibraryTest {};

TEST_F(TextFunctionTest, LeftRightMid) {
  EXPECT_EQ(run("left", "hello", 2), "String he");
  EXPECT_EQ(run("left", "hello", 99), "String hello");
  EXPECT_EQ(run("left", "hello", 0), "String ");
  EXPECT_EQ(run("left", "hello", -1), "error 5");
  EXPECT_EQ(run("left", null_, 2), "Null");
  EXPECT_EQ(run("left", 12345, 2), "String 12");
  EXPECT_EQ(run("right", "hello", 2), "String lo");
  EXPECT_EQ(run("right", "hello", 99), "String hello");
  EXPECT_EQ(run("right", "hello", -1), "error 5");
  EXPECT_EQ(run("mid", "hello", 2), "String ello");
  EXPECT_EQ(run("mid", "hello", 2, 3), "String ell");
  EXPECT_EQ(run("mid", "hello", 9), "String ");
  EXPECT_EQ(run("mid", "hello", 0), "error 5");
  EXPECT_EQ(run("mid", "hello", 1, -1), "error 5");
  EXPECT_EQ(run("mid", null_, 1, 1), "Null");
  EXPECT_EQ(run("left", "hello", null_), "error 94");
  EXPECT_EQ(run("left", "hello", "x"), "error 13");
}

TEST_F(TextFunctionTest, Lengths) {
  EXPECT_EQ(run("len", "hello"), "Long 5");
  EXPECT_EQ(run("len", Value()), "Long 0");
  EXPECT_EQ(run("len", null_), "Null");
  EXPECT_EQ(run("len", 12.5), "Long 4");
  EXPECT_EQ(run("lenb", "abc"), "Long 6");
  EXPECT_EQ(run("lenb", null_), "Null");
}

TEST_F(TextFunctionTest, CaseAndBlanks) {
  EXPECT_EQ(run("ucase", "a\xE4z"), "String A\xC4Z");
  EXPECT_EQ(run("lcase", "ABC"), "String abc");
  EXPECT_EQ(run("trim", "  a b  "), "String a b");
  EXPECT_EQ(run("ltrim", "  a "), "String a ");
  EXPECT_EQ(run("rtrim", "  a "), "String   a");
  EXPECT_EQ(run("trim", "\t a \t"), "String \t a \t");
  EXPECT_EQ(run("trim", null_), "Null");
}

TEST_F(TextFunctionTest, CharactersAndCodes) {
  EXPECT_EQ(run("asc", "A"), "Integer 65");
  EXPECT_EQ(run("asc", "\x80"), "Integer 128");
  EXPECT_EQ(run("asc", ""), "error 5");
  EXPECT_EQ(run("asc", null_), "error 94");
  EXPECT_EQ(run("ascw", "\x80"), "Integer 8364");
  EXPECT_EQ(run("chr", 65), "String A");
  EXPECT_EQ(run("chr", 256), "error 5");
  EXPECT_EQ(run("chr", -1), "error 5");
  EXPECT_EQ(call("chrw", 1046).asString().wide(), u"\u0416");
  EXPECT_EQ(run("ascw", call("chrw", 40000)), "Integer -25536");
  EXPECT_EQ(run("ascw", call("chrw", -25536)), "Integer -25536");
  EXPECT_EQ(run("chrw", 65536), "error 5");
}

TEST_F(TextFunctionTest, Repetition) {
  EXPECT_EQ(run("space", 3), "String    ");
  EXPECT_EQ(run("space", -1), "error 5");
  EXPECT_EQ(run("string", 3, "xy"), "String xxx");
  EXPECT_EQ(run("string", 3, 65), "String AAA");
  EXPECT_EQ(run("string", 3, 256 + 65), "String AAA");
  EXPECT_EQ(run("string", 3, ""), "error 5");
  EXPECT_EQ(run("string", 3, null_), "Null");
  EXPECT_EQ(run("string", -1, "x"), "error 5");
  EXPECT_EQ(run("strreverse", "abc"), "String cba");
  EXPECT_EQ(run("strreverse", null_), "error 94");
}

TEST_F(TextFunctionTest, InStr) {
  EXPECT_EQ(run("instr", "hello", "l"), "Long 3");
  EXPECT_EQ(run("instr", 4, "hello", "l"), "Long 4");
  EXPECT_EQ(run("instr", 5, "hello", "l"), "Long 0");
  EXPECT_EQ(run("instr", "hello", "L"), "Long 0");
  EXPECT_EQ(run("instr", 1, "hello", "L", 1), "Long 3");
  EXPECT_EQ(run("instr", "hello", ""), "Long 1");
  EXPECT_EQ(run("instr", 3, "hello", ""), "Long 3");
  EXPECT_EQ(run("instr", "", "a"), "Long 0");
  EXPECT_EQ(run("instr", "", ""), "Long 0");
  EXPECT_EQ(run("instr", 0, "hello", "l"), "error 5");
  EXPECT_EQ(run("instr", null_, "l"), "Null");
  EXPECT_EQ(run("instr", 1, "a", "b", 7), "error 5");
  EXPECT_EQ(run("instr", call("chrw", 1046), call("chrw", 1078)), "Long 0");
  EXPECT_EQ(run("instr", 1, call("chrw", 1046), call("chrw", 1078), 1), "Long 1");
}

TEST_F(TextFunctionTest, InStrRev) {
  EXPECT_EQ(run("instrrev", "hello", "l"), "Long 4");
  EXPECT_EQ(run("instrrev", "hello", "l", 3), "Long 3");
  EXPECT_EQ(run("instrrev", "hello", "lo", 4), "Long 0");
  EXPECT_EQ(run("instrrev", "hello", "L", -1, 1), "Long 4");
  EXPECT_EQ(run("instrrev", "hello", ""), "Long 5");
  EXPECT_EQ(run("instrrev", "hello", "l", 9), "Long 0");
  EXPECT_EQ(run("instrrev", "hello", "l", 0), "error 5");
  EXPECT_EQ(run("instrrev", "a", "abc"), "Long 0");
  EXPECT_EQ(run("instrrev", null_, "l"), "Null");
}

TEST_F(TextFunctionTest, Replace) {
  EXPECT_EQ(run("replace", "banana", "a", "oo"), "String boonoonoo");
  EXPECT_EQ(run("replace", "banana", "A", "o"), "String banana");
  EXPECT_EQ(run("replace", "banana", "A", "o", 1, -1, 1), "String bonono");
  EXPECT_EQ(run("replace", "banana", "a", "", 1, 2), "String bnna");
  EXPECT_EQ(run("replace", "banana", "a", "o", 3), "String nono");
  EXPECT_EQ(run("replace", "banana", "", "x"), "String banana");
  EXPECT_EQ(run("replace", "", "a", "x"), "String ");
  EXPECT_EQ(run("replace", "banana", "a", "x", 9), "String ");
  EXPECT_EQ(run("replace", "banana", "a", "x", 0), "error 5");
  EXPECT_EQ(run("replace", "banana", "a", "x", 1, -2), "error 5");
  EXPECT_EQ(run("replace", null_, "a", "x"), "error 94");
  EXPECT_EQ(run("replace", "aaa", "aa", "b"), "String ba");
  EXPECT_EQ(call("replace", "a-b", "-", call("chrw", 1046)).asString().wide(), u"a\u0416b");
}

TEST_F(TextFunctionTest, SplitJoinFilter) {
  EXPECT_EQ(run("join", call("split", "a,b,,c", ","), "|"), "String a|b||c");
  EXPECT_EQ(run("ubound", call("split", "a b c")), "Long 2");
  EXPECT_EQ(run("ubound", call("split", "", ",")), "Long -1");
  EXPECT_EQ(run("ubound", call("split", "abc", "")), "Long 0");
  EXPECT_EQ(run("join", call("split", "a,b,c", ",", 2), "|"), "String a|b,c");
  EXPECT_EQ(run("ubound", call("split", "a,b", ",", 0)), "Long -1");
  EXPECT_EQ(run("join", call("split", "1x2X3", "x", -1, 1), " "), "String 1 2 3");
  EXPECT_EQ(run("split", "a", ",", -2), "error 5");
  EXPECT_EQ(run("split", null_), "error 94");
  EXPECT_EQ(run("join", call("array", 1, "b", true)), "String 1 b True");
  EXPECT_EQ(run("join", call("array")), "String ");
  EXPECT_EQ(run("join", "x"), "error 13");
  EXPECT_EQ(run("join", call("array", null_)), "error 13");
  const Value words = call("array", "apple", "Pear", "grape");
  EXPECT_EQ(run("join", call("filter", words, "ap")), "String apple grape");
  EXPECT_EQ(run("join", call("filter", words, "P", true, 1)), "String apple Pear grape");
  EXPECT_EQ(run("join", call("filter", words, "ap", false)), "String Pear");
  EXPECT_EQ(run("ubound", call("filter", words, "zz")), "Long -1");
}

TEST_F(TextFunctionTest, LongPartsAreFoundInTimeThatGrowsWithTheText) {
  const std::string text = std::string(400'000, 'a') + "c" + std::string(400'000, 'a');
  const std::string part = std::string(200'000, 'a') + "b";
  const std::string present = std::string(200'000, 'a') + "c" + std::string(3, 'a');
  const auto value = [](const std::string& s) { return Value(std::string_view(s)); };
  EXPECT_EQ(run("instr", value(text), value(part)), "Long 0");
  EXPECT_EQ(run("instr", value(text), value(present)), "Long 200001");
  EXPECT_EQ(run("instrrev", value(text), value(part)), "Long 0");
  EXPECT_EQ(run("instrrev", value(text), value(present)), "Long 200001");
  EXPECT_EQ(run("instrrev", value(text), value(present), 400'003), "Long 0");
  EXPECT_EQ(run("instrrev", value(text), value(std::string(100, 'a'))), "Long 799902");
  EXPECT_EQ(run("instr", value(text), value(text)), "Long 1");
  EXPECT_EQ(run("len", call("replace", value(text), value(std::string(100, 'a')), "x")),
            "Long 8001");
}

TEST_F(TextFunctionTest, StrComp) {
  EXPECT_EQ(run("strcomp", "a", "b"), "Integer -1");
  EXPECT_EQ(run("strcomp", "a", "A"), "Integer 1");
  EXPECT_EQ(run("strcomp", "a", "A", 1), "Integer 0");
  EXPECT_EQ(run("strcomp", null_, "A"), "Null");
  EXPECT_EQ(run("strcomp", "a", "b", 3), "error 5");
}

TEST_F(TextFunctionTest, ByteFunctions) {
  const Value bytes = call("chrb", 65);
  EXPECT_EQ(run("lenb", bytes), "Long 1");
  EXPECT_EQ(run("ascb", bytes), "Byte 65");
  EXPECT_EQ(run("ascb", "\x80"), "Byte 172");
  EXPECT_EQ(run("ascb", ""), "error 5");
  EXPECT_EQ(run("chrb", 256), "error 6");
  EXPECT_EQ(run("leftb", "abc", 4), "String ab");
  EXPECT_EQ(run("rightb", "abc", 2), "String c");
  EXPECT_EQ(run("midb", "abc", 3, 2), "String b");
  EXPECT_EQ(run("lenb", call("midb", "abc", 2, 1)), "Long 1");
  EXPECT_EQ(run("midb", "abc", 0), "error 5");
  EXPECT_EQ(run("instrb", "abc", "b"), "Long 3");
  EXPECT_EQ(run("instrb", 4, "abc", "b"), "Long 0");
  const Value upload = Value::array(ArrayRep::fromBytes("name=x"));
  EXPECT_EQ(run("lenb", upload), "Long 6");
  EXPECT_EQ(run("ascb", call("midb", upload, 5, 1)), "Byte 61");
  EXPECT_EQ(run("instrb", upload, call("chrb", 61)), "Long 5");
}

TEST_F(TextFunctionTest, EscapeAndUnescape) {
  EXPECT_EQ(run("escape", "a b/\xE9\x80"), "String a%20b/%E9%u20AC");
  EXPECT_EQ(run("unescape", "a%20b/%e9%u20AC%zz%"), "String a b/\xE9\x80%zz%");
  EXPECT_EQ(run("unescape", call("escape", "x%y&z")), "String x%y&z");
}

}  // namespace
}  // namespace quorvane::vbs
