#include "script/translation/page_translator.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvane {

namespace {

TEST(PageTranslator, WritesLiteralTextLineByLine) {
  EXPECT_EQ(translatePage("Hello\r\nWorld"),
            "response.xwrite \"Hello\" & vbCrLf\r\n"
            "response.xwrite \"World\"\r\n");
}

TEST(PageTranslator, SpellsDoubleQuotesAsCharacterCodes) {
  EXPECT_EQ(translatePage(R"(He said "hi")"),
            "response.xwrite \"He said \" & chr(34) & \"hi\" & chr(34)\r\n");
  EXPECT_EQ(translatePage(R"("x)"), "response.xwrite chr(34) & \"x\"\r\n");
  EXPECT_EQ(translatePage(R"(")"), "response.xwrite chr(34)\r\n");
  EXPECT_EQ(translatePage(R"("")"), "response.xwrite chr(34) & \"\" & chr(34)\r\n");
  EXPECT_EQ(translatePage(R"(a""b)"),
            "response.xwrite \"a\" & chr(34) & \"\" & chr(34) & \"b\"\r\n");
}

TEST(PageTranslator, WritesALineOfVeryManyQuotesInParts) {
  const std::string program = translatePage(std::string(401, '"') + "\r\n");
  EXPECT_TRUE(
      program.ends_with(" & chr(34): response.xwrite \"\" & chr(34) & vbCrLf\r\n"
                        "response.xwrite \"\"\r\n"));
  const std::string whole = translatePage(std::string(400, '"'));
  EXPECT_EQ(whole.find(':'), std::string::npos);
}

TEST(PageTranslator, CollapsesOneEmptyLineInEveryPair) {
  EXPECT_EQ(translatePage("a\r\n\r\nb"),
            "response.xwrite \"a\" & vbCrLf\r\nresponse.xwrite \"b\"\r\n");
  EXPECT_EQ(translatePage("a\r\n\r\n\r\nb"),
            "response.xwrite \"a\" & vbCrLf\r\nresponse.xwrite \"\" & vbCrLf\r\n"
            "response.xwrite \"b\"\r\n");
}

TEST(PageTranslator, TakesEveryLineEndForTheSame) {
  EXPECT_EQ(translatePage("a\nb\rc\r\nd"), translatePage("a\r\nb\r\nc\r\nd"));
  EXPECT_EQ(translatePage("d\r\r\n\ne"), translatePage("d\r\n\r\n\r\ne"));
  EXPECT_EQ(translatePage("<%a\nb\n\nc%>"), "a\r\nb\r\nc\r\n");
}

TEST(PageTranslator, CollapsesEmptyLinesAtTheEndsOfAPage) {
  EXPECT_EQ(translatePage("\r\n\r\n\r\na"),
            "response.xwrite \"\" & vbCrLf\r\nresponse.xwrite \"\" & vbCrLf\r\n"
            "response.xwrite \"a\"\r\n");
  EXPECT_EQ(translatePage("a\r\n\r\n"),
            "response.xwrite \"a\" & vbCrLf\r\nresponse.xwrite \"\"\r\n");
}

TEST(PageTranslator, EndsATextWithALineBreakOnlyWhereThePageDoes) {
  EXPECT_EQ(translatePage("a\r\n"), "response.xwrite \"a\" & vbCrLf\r\nresponse.xwrite \"\"\r\n");
  EXPECT_EQ(translatePage("a"), "response.xwrite \"a\"\r\n");
  EXPECT_EQ(translatePage(""), "");
}

TEST(PageTranslator, TakesAnEqualsSignOnTheFirstLineForAWrite) {
  EXPECT_EQ(translatePage("<%= now %>"), "response.xwrite  now \r\n");
  EXPECT_EQ(translatePage("<%  =x=1%>"), "response.xwrite x=1\r\n");
  EXPECT_EQ(translatePage("<%\r\n= x %>"), "\r\n= x \r\n");
}

TEST(PageTranslator, TakesADirectiveForAComment) {
  EXPECT_EQ(translatePage("<%@ Language=VBScript CodePage=65001 %>a"),
            "'@ Language=VBScript CodePage=65001 \r\nresponse.xwrite \"a\"\r\n");
  EXPECT_EQ(translatePage("\xEF\xBB\xBF<% @ LANGUAGE=\"VBSCRIPT\" %>\r\n<%x = 1\r\n@ y%>"),
            "response.xwrite \"\xEF\xBB\xBF\"\r\n' @ LANGUAGE=\"VBSCRIPT\" \r\nx = 1\r\n@ y\r\n");
}

TEST(PageTranslator, RewritesCallsInAnyCase) {
  EXPECT_EQ(translatePage("<%Response.Write x%>"), "response.xwrite x\r\n");
  EXPECT_EQ(translatePage("<%RESPONSE.CLEAR%>"), "response.xclear\r\n");
  EXPECT_EQ(translatePage("<%If a Then Response.End%>"),
            "If a Then on error goto 0: err.Raise 6006\r\n");
  EXPECT_EQ(
      translatePage("<%If a Then Response.End () Else Response.End(b)%>"),
      "If a Then on error goto 0: err.Raise 6006 Else on error goto 0: err.Raise 6006(b)\r\n");
  EXPECT_EQ(translatePage("<%Set o = Server.CreateObject(\"X.Y\")%>"),
            "Set o = server.xcreateobject(\"X.Y\")\r\n");
  EXPECT_EQ(translatePage("<%response.write 1: Response.Write 2%>"),
            "response.xwrite 1: response.xwrite 2\r\n");
}

TEST(PageTranslator, RewritesInsideTextsCommentsAndLongerNamesToo) {
  EXPECT_EQ(translatePage("<%s = \"use response.Write\" ' Response.End%>"),
            "s = \"use response.xwrite\" ' on error goto 0: err.Raise 6006\r\n");
  EXPECT_EQ(translatePage("<%Response.WriteLine x%>"), "response.xwriteLine x\r\n");
  EXPECT_EQ(translatePage("<%myresponse.write x%>"), "myresponse.xwrite x\r\n");
  EXPECT_EQ(translatePage("<%Response.Clearesponse.End%>"),
            "response.xclea"
            "on error goto 0: err.Raise 6006\r\n");
}

TEST(PageTranslator, LeavesCallsAloneThatOnlyLookAlike) {
  EXPECT_EQ(translatePage("<%Response . Write x%>"), "Response . Write x\r\n");
  EXPECT_EQ(translatePage("<%Response.Flush: a.b.c%>"), "Response.Flush: a.b.c\r\n");
  EXPECT_EQ(translatePage("response.write \"x\""),
            "response.xwrite \"response.write \" & chr(34) & \"x\" & chr(34)\r\n");
}

TEST(PageTranslator, StopsTheScriptAfterARedirect) {
  EXPECT_EQ(translatePage("<%Response.Redirect \"/a.qvs\"%>"),
            "Response.Redirect \"/a.qvs\": on error goto 0: err.Raise 6006\r\n");
  EXPECT_EQ(translatePage("<%RESPONSE.REDIRECTTO p%>"),
            "RESPONSE.REDIRECTTO p: on error goto 0: err.Raise 6006\r\n");
  EXPECT_EQ(translatePage("<%response.redirect p : %>"),
            "response.redirect p : on error goto 0: err.Raise 6006\r\n");
  EXPECT_EQ(translatePage("<%response.redirect(p)\r\nx = 1%>"),
            "response.redirect(p)\r\nx = 1\r\n");
}

TEST(PageTranslator, JoinsCodeBlocksWithOnlyALineBreakBetween) {
  EXPECT_EQ(translatePage("<%a = 1%>\r\n<%b = 2%>"), "a = 1\r\nb = 2\r\n");
}

TEST(PageTranslator, TakesAnEmptyBlockForALineBreak) {
  EXPECT_EQ(translatePage("a<%\r\n%>b"),
            "response.xwrite \"a\" & vbCrLf\r\nresponse.xwrite \"b\"\r\n");
}

TEST(PageTranslator, AlternatesPiecesWhicheverDelimiterStandsThere) {
  EXPECT_EQ(translatePage("a%>b = 1%>c"),
            "response.xwrite \"a\"\r\nb = 1\r\nresponse.xwrite \"c\"\r\n");
  EXPECT_EQ(translatePage("a<%b = 1<%c"),
            "response.xwrite \"a\"\r\nb = 1\r\nresponse.xwrite \"c\"\r\n");
  EXPECT_EQ(translatePage("<%>x"), ">x\r\n");
  EXPECT_EQ(translatePage("50% <b>%</b> <%x%> 100%"),
            "response.xwrite \"50% <b>%</b> \"\r\nx\r\nresponse.xwrite \" 100%\"\r\n");
  EXPECT_EQ(translatePage("<%%><%%>"), "");
}

TEST(PageTranslator, KeepsBytesThatAreNoAscii) {
  EXPECT_EQ(translatePage("\xEF\xBB\xBF\xE4"), "response.xwrite \"\xEF\xBB\xBF\xE4\"\r\n");
}

TEST(PageTranslator, TakesLinearTimeForManyDelimitersAndQuotes) {
  std::string page;
  for (int i = 0; i < 200'000; ++i) page += "<%>\"";
  EXPECT_GT(translatePage(page).size(), page.size());
}

}  // namespace

}  // namespace quorvane
