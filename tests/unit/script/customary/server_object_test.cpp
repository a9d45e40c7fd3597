#include "script/customary/server_texts.h"
#include "site_fixture.h"
#include "testing/spelling.h"

namespace quorvane::customary {

namespace {

class ServerObjectTest : public SiteTest {
 protected:
  std::string mapped(const std::string& path) { return mappedBy("\"" + path + "\""); }
  std::string mappedBy(const std::string& expression) {
    return spelled(visit("Response.Write Server.MapPath(" + expression + ")"));
  }
  std::string html(const std::string& expression) {
    return visit("Response.Write Server.HTMLEncode(" + expression + ")");
  }
  std::string url(const std::string& expression) {
    return visit("Response.Write Server.URLEncode(" + expression + ")");
  }
};

constexpr const char* kFailed = "error -2147467259";

TEST_F(ServerObjectTest, MapsFilesAndFolders) {
  pageFolder = "/srv/shop/";
  files.put("/srv/shop/data/Stock.mdb", "x");
  EXPECT_EQ(mapped("/"), "/srv");
  EXPECT_EQ(mapped("\\"), "/srv");
  EXPECT_EQ(mapped("."), "/srv/shop");
  EXPECT_EQ(mapped(""), "/srv/shop");
  EXPECT_EQ(mapped("data/Stock.mdb"), "/srv/shop/data/Stock.mdb");
  EXPECT_EQ(mapped("data\\stock.MDB"), "/srv/shop/data/Stock.mdb");
  EXPECT_EQ(mapped("/shop/data"), "/srv/shop/data");
  EXPECT_EQ(mapped("\\SHOP\\data\\"), "/srv/shop/data/");
  EXPECT_EQ(mapped("./data/"), "/srv/shop/data/");
  EXPECT_EQ(mapped("//shop//data"), "/srv/shop/data");
}

TEST_F(ServerObjectTest, MapsUpwardsWithinTheSite) {
  pageFolder = "/srv/a/b";
  files.addFolder("/srv/a/b");
  EXPECT_EQ(mapped(".."), "/srv/a");
  EXPECT_EQ(mapped("../../"), "/srv");
  EXPECT_EQ(mapped("..\\../x.txt"), "/srv/x.txt");
  EXPECT_EQ(mapped("../../../srv/x.txt"), "/srv/x.txt") << "it comes back in";
  for (const char* out : {"../../..", "/..", "/../srv2/x", "../../../etc/passwd", "/a/../../etc"}) {
    EXPECT_EQ(mapped(out), kFailed) << out;
  }
  EXPECT_EQ(visit("On Error Resume Next : p = Server.MapPath(\"/../x\")\n"
                  "Response.Write Err.Number & Err.Source & IsEmpty(p)"),
            "-2147467259Server.MapPath()True");
}

TEST_F(ServerObjectTest, MapsWhatIsNotThere) {
  files.addFolder("/srv/Upload");
  EXPECT_EQ(mapped("/upload/New.txt"), "/srv/Upload/New.txt");
  EXPECT_EQ(mapped("/upload/New/"), "/srv/Upload/New/");
  EXPECT_EQ(mapped("/nowhere/deep/x.txt"), "/srv/nowhere/deep/x.txt");
  EXPECT_EQ(process.currentFolder(), "/") << "the process stays where it was";
}

TEST_F(ServerObjectTest, MapsNoPathsThatAreNone) {
  for (const char* none : {"a*.txt", "a?b", "C:\\\\x", "a|b", "<a>"}) {
    EXPECT_EQ(mapped(none), kFailed) << none;
  }
  EXPECT_EQ(mappedBy("\"a\" & Chr(0) & \"b\""), kFailed);
  EXPECT_EQ(mappedBy("String(100000, \"a\")"), kFailed);
  EXPECT_EQ(mappedBy("Null"), "error 13");
}

TEST_F(ServerObjectTest, MapsNamesInTheSystemsBytes) {
  EXPECT_EQ(mappedBy("ChrW(&H4E2D)"), "/srv/\xE4\xB8\xAD");
  EXPECT_EQ(mappedBy("Chr(&HC3) & Chr(&HA9)"), "/srv/\xC3\xA9");
  page = kUtf8;
  EXPECT_EQ(mappedBy("Chr(233)"), "/srv/\xC3\xA9");
}

TEST_F(ServerObjectTest, MakesObjectsOrSaysSo) {
  EXPECT_EQ(visit("Response.Write TypeName(Server.CreateObject(\"Scripting.Dictionary\"))"),
            "Dictionary");
  EXPECT_EQ(visit("Server.CreateObject \"No.Such\""), "error 429");
  EXPECT_EQ(visit("On Error Resume Next : Set o = Server.CreateObject(\"No.Such\")\n"
                  "Response.Write Err.Number & Err.Description"),
            "429ActiveX component can't create object");
}

TEST_F(ServerObjectTest, EncodesForHtml) {
  EXPECT_EQ(html("\"<a href=\"\"x\"\">Q & A's</a>\""),
            "&lt;a href=&quot;x&quot;&gt;Q &amp; A's&lt;/a&gt;");
  EXPECT_EQ(html("\"plain\""), "plain");
  EXPECT_EQ(html("\"\""), "");
  EXPECT_EQ(html("Empty"), "");
  EXPECT_EQ(html("12.5"), "12.5");
  EXPECT_EQ(html("Null"), "error 13");
  EXPECT_EQ(html("Chr(159) & Chr(160) & Chr(233) & \"x\""), "&#376;&#160;&#233;x");
  EXPECT_EQ(html("ChrW(&H4E2D) & ChrW(&HD83D) & ChrW(&HDE00) & ChrW(&HD83D)"),
            "&#20013;&#128512;&#55357;");
}

TEST_F(ServerObjectTest, LeavesTheCharactersOfUtf8AsTheyAre) {
  page = kUtf8;
  EXPECT_EQ(html("Chr(233) & \"<\""), "\xE9&lt;");
  EXPECT_EQ(htmlEncoded(vbs::String::fromUtf8("\xE4\xB8\xAD>"), kUtf8).utf8(), "\xE4\xB8\xAD&gt;");
}

TEST_F(ServerObjectTest, EncodesForUrls) {
  EXPECT_EQ(url("\"a b+c/d?e=f&g_h-i.j~%\""), "a+b%2Bc%2Fd%3Fe%3Df%26g%5Fh%2Di%2Ej%7E%25");
  EXPECT_EQ(url("\"http://www.example.com\""), "http%3A%2F%2Fwww%2Eexample%2Ecom");
  EXPECT_EQ(url("\"\""), "");
  EXPECT_EQ(url("Chr(233)"), "%E9");
  page = kUtf8;
  EXPECT_EQ(url("Chr(233) & ChrW(&H4E2D)"), "%C3%A9%E4%B8%AD");
  page = 936;
  EXPECT_EQ(url("ChrW(&H4E2D)"), "%D6%D0");
}

TEST_F(ServerObjectTest, CountsWhatItEncodesAgainstTheMemory) {
  limits.memoryBytes = 1 << 20;
  const std::string much = "s = String(500000, \"<\")\n";
  EXPECT_EQ(visit(much + "t = Server.HTMLEncode(s)"), "error 7");
  EXPECT_EQ(visit(much + "t = Server.URLEncode(s)"), "error 7");
}

TEST_F(ServerObjectTest, RunsOtherPages) {
  EXPECT_EQ(visit("Server.Execute \"a.asp\" : Response.Write 1 : Server.Transfer(\"/b.asp\")\n"
                  "Response.Write 2"),
            "1");
  EXPECT_EQ(executed, (std::vector<std::string>{"a.asp", "/b.asp"}));
}

TEST_F(ServerObjectTest, SetsTheTimeOfThePage) {
  EXPECT_EQ(visit("Response.Write Server.ScriptTimeout : Server.ScriptTimeout = 30"), "10");
  EXPECT_EQ(limit.count(), 30);
  visit("Server.ScriptTimeout = 99999");
  EXPECT_EQ(limit.count(), 60) << "all clients wait while a page runs";
}

TEST_F(ServerObjectTest, TellsOfTheErrorThatAPageTakesOverFor) {
  const std::string show =
      "With Server.GetLastError : Response.Write .Number & .ASPCode & .Source & .Category & .File "
      "& .Line & .Column & .Description & .ASPDescription : End With";
  EXPECT_EQ(visit(show), "0-1-1");
  failed.number = 13;
  failed.code = vbs::String("c");
  failed.source = vbs::String("x = 1 + y");
  failed.category = vbs::String("VBScript");
  failed.file = vbs::String("/a.asp");
  failed.line = 4;
  failed.column = 2;
  failed.description = vbs::String("Type mismatch");
  failed.moreDescription = vbs::String("!");
  EXPECT_EQ(visit(show), "13cx = 1 + yVBScript/a.asp42Type mismatch!");
}

TEST_F(ServerObjectTest, OutlivesItsRunWithoutReachingIt) {
  visit("Set Application(\"s\") = Server");
  EXPECT_EQ(visit("Application(\"s\").MapPath \"x\""), "error 91");
  EXPECT_EQ(visit("Application(\"s\").Transfer \"x\""), "error 91");
}

}  // namespace

}  // namespace quorvane::customary
