#include "jscript/script_text.h"

#include <gtest/gtest.h>

namespace quorvane::jscript {

namespace {

using Names = std::vector<std::string>;

std::string ready(std::string_view source) {
  return madeReady(source).code;
}

TEST(ScriptText, AssignmentsToCalls) {
  EXPECT_EQ(ready("Session(\"a\") = 1;"), "Session[qv$key(\"\", \"a\")] = 1;");
  EXPECT_EQ(ready("rows.Fields(f(1)) += 2"), "rows[qv$key(\"Fields\", f(1))] += 2");
  EXPECT_EQ(ready("Response.Cookies(\"a\")(\"b\") = c(d)"),
            "Response[qv$call(\"Cookies\")](\"a\")[qv$key(\"\", \"b\")] = c(d)");
  EXPECT_EQ(ready("Application('n')++"), "Application[qv$key(\"\", 'n')]++");
  EXPECT_EQ(ready("a() = 1"), "a[qv$key(\"\")] = 1");
  EXPECT_EQ(ready("if (a)\n++b; while (c) ++d; f(1) == 2; x = (y) / 2"),
            "if (a)\n++b; while (c) ++d; f(1) == 2; x = (y) / 2");
}

TEST(ScriptText, CallsOfMembers) {
  EXPECT_EQ(ready("a.B(1).C + d.e\n.f()"), "a[qv$call(\"B\")](1).C + d.e\n[qv$call(\"f\")]()");
  EXPECT_EQ(ready("s.charAt(1)"), "s.charAt(1)");
}

TEST(ScriptText, CallsInTheBodyOfWith) {
  EXPECT_EQ(ready("with (a.b()) { c(d(1), e); f.g(); new H(2); i = j }\nk()"),
            "with (a[qv$call(\"b\")]()) { (qv$call(\"c\")&&c((qv$call(\"d\")&&d(1)), e)); "
            "f[qv$call(\"g\")](); new H(2); i = j }\nk()");
  EXPECT_EQ(ready("with (a) b(1); c(2)"), "with (a) (qv$call(\"b\")&&b(1)); c(2)");
  EXPECT_EQ(ready("with (a) for (;;) with (b) { c(1); d(2) } e(3)"),
            "with (a) for (;;) with (b) { (qv$call(\"c\")&&c(1)); (qv$call(\"d\")&&d(2)) } e(3)");
  EXPECT_EQ(ready("with (a) { b(1) = 2 }"), "with (a) { b[qv$key(\"\", 1)] = 2 }");
  for (const char* same :
       {"with (a", "with (a)", "with (a) {", "with", "with (a) b(", "with (a) )"}) {
    EXPECT_EQ(ready(same), same);
  }
}

TEST(ScriptText, NothingInTextsAndComments) {
  for (const char* same :
       {"'a(1) = 2'", "\"\\\" a.b() \"", "// a.b() = 1\n/* c.d() */", "/a.b()=/g", "<!-- a.b()",
        "x = /[/]a.b()/", "1.5", "'open", "/* open", "((", "))", ""}) {
    EXPECT_EQ(ready(same), same);
  }
}

TEST(ScriptText, Components) {
  const auto created = [](std::string_view source) {
    return createdComponents(madeReady(source).code);
  };
  EXPECT_EQ(created("a = new ActiveXObject(\"A.B\"); b = Server.CreateObject('C.D').x(1);"),
            (Names{"A.B", "C.D"}));
  EXPECT_EQ(created("ActiveXObject(name) // ActiveXObject(\"E.F\")\n'CreateObject(\"G.H\")'; new "
                    "ActiveXObject("),
            Names());
}

TEST(ScriptText, Names) {
  const ScriptText text = madeReady(
      "var a = f(1, 2), b; function g(p) { var c; free1(p, c); }\n"
      "for (var i = 0; i < 1; i++) { var d; }\n"
      "h = function (q) { function inner() {} };\ntry { } catch (e) { e.member(free2); }");
  EXPECT_EQ(text.declared, (Names{"a", "b", "g", "i", "d"}));
  EXPECT_EQ(text.free, (Names{"f", "free1", "h", "free2"}));
}

}  // namespace

}  // namespace quorvane::jscript
