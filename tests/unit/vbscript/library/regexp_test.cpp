#include <functional>

#include "../values/testing.h"
#include "vbscript/library/regexp.h"
#include "vbscript/library/regexp_pattern.h"
#include "vbscript/values/object.h"
#include "vbscript/values/time_check.h"

namespace quorvane::vbs {
namespace {

using testing::errorOf;

class RegExpTest : public ::testing::Test {
 protected:
  static Value use(const Value& object, std::string_view member, CallKind kind,
                   std::vector<Value> args) {
    Object& target = *object.asObject();
    return target.invoke(target.findMember(member), kind, args);
  }
  static Value get(const Value& object, std::string_view member, std::vector<Value> args = {}) {
    return use(object, member, CallKind::Get, std::move(args));
  }
  void set(std::string_view member, Value value) {
    use(regExp_, member, CallKind::Let, {std::move(value)});
  }
  void pattern(std::string_view text) { set("pattern", Value(text)); }

  bool test(std::string_view text) { return get(regExp_, "test", {Value(text)}).asBoolean(); }
  Value execute(std::string_view text) { return get(regExp_, "execute", {Value(text)}); }
  std::string replace(std::string_view text, std::string_view with) {
    return get(regExp_, "replace", {Value(text), Value(with)}).asString().narrow();
  }
  /// Every match with its place: "0:ab 3:c".
  std::string all(std::string_view text) {
    const Value matches = execute(text);
    std::string shown;
    for (int i = 0; i < get(matches, "count").asInt(); ++i) {
      const Value match = get(matches, "item", {Value::whole(i)});
      if (i > 0) shown += ' ';
      shown += toString(get(match, "firstindex")).narrow() + ":" + toString(match).narrow();
    }
    return shown;
  }

  Value regExp_ = createRegExp();
};

TEST_F(RegExpTest, Properties) {
  EXPECT_EQ(get(regExp_, "pattern").asString().narrow(), "");
  EXPECT_FALSE(get(regExp_, "global").asBoolean());
  set("global", Value::boolean(true));
  EXPECT_TRUE(get(regExp_, "global").asBoolean());
  EXPECT_EQ(typeName(regExp_), "IRegExp2");
}

TEST_F(RegExpTest, TestAndExecute) {
  pattern("b+");
  EXPECT_TRUE(test("abbc"));
  EXPECT_FALSE(test("ac"));
  EXPECT_EQ(all("abbcb"), "1:bb");
  set("global", Value::boolean(true));
  EXPECT_EQ(all("abbcb"), "1:bb 4:b");
  EXPECT_EQ(all("xyz"), "");
}

TEST_F(RegExpTest, EmptyMatchesMoveOn) {
  set("global", Value::boolean(true));
  pattern("x*");
  EXPECT_EQ(all("axb"), "0: 1:x 2: 3:");
  EXPECT_EQ(replace("abc", "-"), "-a-b-c-");
}

TEST_F(RegExpTest, SubMatches) {
  pattern("(\\w+)@(\\w+)(\\.com)?");
  const Value match = get(execute("to joe@site now"), "item", {Value::integer(0)});
  const Value groups = get(match, "submatches");
  EXPECT_EQ(get(groups, "count").asInt(), 3);
  EXPECT_EQ(get(groups, "item", {Value::integer(1)}).asString().narrow(), "site");
  EXPECT_TRUE(get(groups, "item", {Value::integer(2)}).isEmpty());
  EXPECT_EQ(errorOf([&] { get(groups, "item", {Value::integer(3)}); }), 5);
  EXPECT_EQ(get(match, "submatches", {Value::integer(0)}).asString().narrow(), "joe");
  EXPECT_EQ(errorOf([&] { get(match, "length", {Value::integer(0)}); }), 450);
  EXPECT_EQ(get(match, "length").asInt(), 8);
  EXPECT_EQ(get(match, "value").asString().narrow(), "joe@site");
  std::string seen;
  const auto enumerator = groups.asObject()->enumerate();
  for (Value group; enumerator->next(group);) seen += toString(group).narrow() + "|";
  EXPECT_EQ(seen, "joe|site||");
}

TEST_F(RegExpTest, ReplacementReferences) {
  set("global", Value::boolean(true));
  pattern("(a)(b)?");
  EXPECT_EQ(replace("ab-a", "[$1$2]"), "[ab]-[a]");
  EXPECT_EQ(replace("ab", "$$ $& $` $' $3 $"), "$ ab   $3 $");
  EXPECT_EQ(replace("xaby", "<$`|$'>"), "x<x|y>y");
  EXPECT_EQ(replace("a", "$10"), "a0");
  EXPECT_EQ(replace("a", "$0$x"), "$0$x");
  set("global", Value::boolean(false));
  EXPECT_EQ(replace("aa", "b"), "ba");
  EXPECT_EQ(replace("zz", "b"), "zz");
}

TEST_F(RegExpTest, CaseAndForeignLetters) {
  pattern("\xE4+");
  EXPECT_FALSE(test("\xC4"));
  set("ignorecase", Value::boolean(true));
  EXPECT_TRUE(test("\xC4"));
  use(regExp_, "pattern", CallKind::Let, {Value(String::fromWide(u"\u0416"))});
  EXPECT_TRUE(get(regExp_, "test", {Value(String::fromWide(u"a\u0436"))}).asBoolean());
}

TEST_F(RegExpTest, LineEndsCountOnlyInMultiline) {
  set("global", Value::boolean(true));
  pattern("^\\w+$");
  EXPECT_EQ(all("ab\ncd"), "");
  EXPECT_FALSE(test("ab\n"));
  set("multiline", Value::boolean(true));
  EXPECT_EQ(all("ab\r\ncd\nef"), "0:ab 4:cd 7:ef");
  pattern(".+");
  EXPECT_EQ(all("a\r\nb"), "0:a\r 3:b");
}

TEST_F(RegExpTest, Dialect) {
  const auto matches = [&](std::string_view p, std::string_view text) {
    pattern(p);
    return test(text);
  };
  EXPECT_TRUE(matches("^(?:a|b)(?=c)(?!cd)", "bce"));
  EXPECT_TRUE(matches("^(.)\\1$", "xx"));
  EXPECT_TRUE(matches("^(a)?\\1b$", "b"));
  EXPECT_TRUE(matches("^\\x41\\u0042\\103$", "ABC"));
  EXPECT_TRUE(matches("^\\v\\t\\f$", "\v\t\f"));
  EXPECT_TRUE(matches("^\\h\\Q\\E\\A\\z\\K\\R$", "hQEAzKR"));
  EXPECT_TRUE(matches("^[[:a]+$", "[:a"));
  EXPECT_FALSE(matches("^[[:alpha:]]$", "b"));
  EXPECT_TRUE(matches("^[^]$", "\n"));
  EXPECT_FALSE(matches("[]", "a"));
  EXPECT_TRUE(matches("^a{2}b{1,}c{,2}$", "aabbc{,2}"));
  EXPECT_TRUE(matches("^x{$", "x{"));
  EXPECT_TRUE(matches("^a+?a*$", "aaa"));
  EXPECT_TRUE(matches("^[\\b]$", "\b"));
  EXPECT_TRUE(matches("\\bfoo\\b", "a foo b"));
  EXPECT_FALSE(matches("\\w", "\xE4"));
  EXPECT_TRUE(matches("^\\s$", "\v"));
  EXPECT_TRUE(matches("^[\\w-]+$", "a-b"));
  EXPECT_TRUE(matches("^\\cI$", "\t"));
  EXPECT_TRUE(matches("^a/b\\/c$", "a/b/c"));
}

TEST_F(RegExpTest, Errors) {
  const auto errorWith = [&](std::string_view p) {
    pattern(p);
    return errorOf([&] { test("x"); });
  };
  EXPECT_EQ(errorWith("*a"), 5018);
  EXPECT_EQ(errorWith("a**"), 5018);
  EXPECT_EQ(errorWith("a++"), 5018);
  EXPECT_EQ(errorWith("(?<=a)b"), 5018);
  EXPECT_EQ(errorWith("(*ACCEPT)"), 5018);
  EXPECT_EQ(errorWith("[a"), 5019);
  EXPECT_EQ(errorWith("(a"), 5020);
  EXPECT_EQ(errorWith("a)"), 5017);
  EXPECT_EQ(errorWith("a\\"), 5017);
  EXPECT_EQ(errorWith("[z-a]"), 5021);
  EXPECT_EQ(errorWith(std::string(1000, '(') + std::string(1000, ')')), 5017);
  EXPECT_EQ(errorWith("((a{1,1000}){1,1000}){1,1000}"), 5017);
}

TEST_F(RegExpTest, NoPatternHangs) {
  pattern("^(a+)+$");
  EXPECT_EQ(errorOf([&] { test(std::string(40, 'a') + "b"); }), 28);
  pattern("(?:(?:(a|b)+)+)+[cd]");
  EXPECT_EQ(errorOf([&] { test(std::string(3000, 'a')); }), 28);
}

TEST_F(RegExpTest, LongWorkLooksAtTheClock) {
  const TimeCheckScope scope({[](void*) { throwError(ErrorCode::InternalError); }, nullptr});
  pattern("a");
  EXPECT_EQ(errorOf([&] { test("a"); }), 51);
}

TEST_F(RegExpTest, LoneSurrogatesDoNoHarm) {
  set("global", Value::boolean(true));
  pattern("");
  const Value text(
      String::fromWide(std::u16string{u'\u0416', 0xD800, u'a', 0xD83D, 0xDE00, 0xDC00}));
  EXPECT_EQ(get(get(regExp_, "execute", {text}), "count").asInt(), 6);
  use(regExp_, "pattern", CallKind::Let,
      {Value(String::fromWide(std::u16string{0xD800, u'\u0416'}))});
  EXPECT_FALSE(get(regExp_, "test", {text}).asBoolean());
}

TEST_F(RegExpTest, MatchesOutliveTheirMaker) {
  pattern("b");
  const Value matches = execute("abc");
  regExp_ = Value();
  EXPECT_EQ(toString(get(matches, "item", {Value::integer(0)})).narrow(), "b");
}

class Doubler : public Object {
 public:
  std::string_view typeName() const override { return "Doubler"; }
  MemberId findMember(std::string_view) override { return kNoMember; }
  bool isProcedure() const override { return true; }
  Value invoke(MemberId, CallKind, Args args) override {
    return Value(toString(args[0]).narrow() + toString(args[1]).narrow() + "@" +
                 toString(args[2]).narrow());
  }
};

TEST_F(RegExpTest, AProcedureMayMakeTheReplacement) {
  set("global", Value::boolean(true));
  pattern("b(.)");
  const Value doubler = Value::adopt(new Doubler());
  EXPECT_EQ(toString(get(regExp_, "replace", {Value("abcb!"), doubler})).narrow(), "abcc@1b!!@3");
}

TEST(RegExpPatternTest, Translation) {
  EXPECT_EQ(translatePattern(u"a\\vb", false), u"a\\x0Bb");
  EXPECT_EQ(translatePattern(u"(a)\\2", false), u"(a)\\x02");
  EXPECT_EQ(translatePattern(u"(a)\\12", false), u"(a)\\g{1}2");
  EXPECT_EQ(translatePattern(u"\\8", false), u"8");
  EXPECT_EQ(translatePattern(u"^a$", true), u"(?<![^\\r\\n])a(?![^\\r\\n])");
}

}  // namespace
}  // namespace quorvane::vbs
