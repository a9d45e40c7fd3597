#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "vbscript/syntax/parser.h"

namespace quorvane::vbs {
namespace {

std::string repeat(std::string_view text, int count) {
  std::string out;
  for (int i = 0; i < count; ++i) out += text;
  return out;
}

int errorOf(const std::string& source) {
  try {
    parseScript(source);
    return 0;
  } catch (const CompileError& error) {
    return error.number;
  }
}

constexpr int kTooMany = 200'000;
constexpr int kOutOfMemory = 1001;

TEST(SyntaxLimits, DeepParentheses) {
  EXPECT_EQ(errorOf("x = " + repeat("(", 100) + "1" + repeat(")", 100)), 0);
  EXPECT_EQ(errorOf("x = " + repeat("(", kTooMany)), kOutOfMemory);
  EXPECT_EQ(errorOf("x = " + repeat("f(", kTooMany)), kOutOfMemory);
  EXPECT_EQ(errorOf(repeat("f(", kTooMany)), kOutOfMemory);
  EXPECT_EQ(errorOf("Const c = " + repeat("(", kTooMany)), kOutOfMemory);
}

TEST(SyntaxLimits, LongChainsOfUnaryOperators) {
  EXPECT_EQ(errorOf("x = " + repeat("-", kTooMany) + "1"), kOutOfMemory);
  EXPECT_EQ(errorOf("x = " + repeat("Not ", kTooMany) + "1"), kOutOfMemory);
  EXPECT_EQ(errorOf("Const c = " + repeat("-", kTooMany) + "1"), kOutOfMemory);
}

TEST(SyntaxLimits, LongChainsOfOperatorsAndMembers) {
  EXPECT_EQ(errorOf("x = 1" + repeat(" & 1", 1500)), 0);
  EXPECT_EQ(errorOf("x = 1" + repeat(" & 1", kTooMany)), kOutOfMemory);
  EXPECT_EQ(errorOf("x = a" + repeat(".b", kTooMany)), kOutOfMemory);
  EXPECT_EQ(errorOf("a" + repeat("(1)", kTooMany)), kOutOfMemory);
}

TEST(SyntaxLimits, DeepBlocks) {
  EXPECT_EQ(errorOf(repeat("If a Then\n", 100) + repeat("End If\n", 100)), 0);
  EXPECT_EQ(errorOf(repeat("If a Then\n", kTooMany)), kOutOfMemory);
  EXPECT_EQ(errorOf(repeat("If a Then ", kTooMany)), kOutOfMemory);
  EXPECT_EQ(errorOf(repeat("If a Then b Else ", kTooMany)), kOutOfMemory);
  EXPECT_EQ(errorOf(repeat("Do:", kTooMany)), kOutOfMemory);
}

TEST(SyntaxLimits, WideScriptsAreFine) {
  EXPECT_EQ(errorOf(repeat("x = 1\n", kTooMany)), 0);
  EXPECT_EQ(errorOf("f 1" + repeat(",1", kTooMany)), 0);
  EXPECT_EQ(errorOf("If a Then\n" + repeat("ElseIf b Then\n", 50'000) + "End If"), 0);
}

TEST(SyntaxLimits, ASharedPropertyNameIsCheckedInLinearTime) {
  std::string members;
  for (int i = 0; i < 20'000; ++i) {
    const std::string name = "p" + std::to_string(i);
    members += "Property Get " + name + "\nEnd Property\n";
    members += "Property Let " + name + "(v)\nEnd Property\n";
  }
  EXPECT_EQ(errorOf("Class c\n" + members + "End Class"), 0);
}

}  // namespace
}  // namespace quorvane::vbs
