#include "site_fixture.h"
#include "vbscript/values/string.h"

// Session, Application and their collections, as pages use them.

namespace quorvane::customary {

using namespace std::chrono_literals;

namespace {

class SiteValues : public SiteTest {};

TEST_F(SiteValues, KeepTheirTypes) {
  visit(
      "Session(\"n\") = 5 : Session(\"t\") = True : Session(\"s\") = \"x\"\n"
      "Session(\"d\") = #2024-02-29# : Session(\"z\") = Null : Session(\"e\") = Empty");
  EXPECT_EQ(visit("For Each k In Array(\"n\", \"t\", \"s\", \"d\", \"z\", \"e\", \"none\")\n"
                  "Response.Write TypeName(Session(k)) & \" \"\nNext"),
            "Integer Boolean String Date Null Empty Empty ");
  EXPECT_EQ(visit("If Session(\"t\") Then Response.Write Session(\"n\") + 1"), "6");
}

TEST_F(SiteValues, KeepObjectsBySetAndTheirWorthWithout) {
  visit(
      "Set d = Server.CreateObject(\"Scripting.Dictionary\") : d(\"a\") = 1\n"
      "Set Session(\"basket\") = d : d(\"b\") = 2");
  EXPECT_EQ(
      visit("Set d = Session(\"basket\") : d(\"c\") = 3\n"
            "Response.Write d.Count & IsObject(Session(\"basket\")) & Session(\"basket\")(\"b\")"),
      "3True2");
  EXPECT_EQ(visit("Class C : Public Default Property Get V : V = 7 : End Property : End Class\n"
                  "Session(\"worth\") = New C : Response.Write TypeName(Session(\"worth\"))"),
            "Integer");
  EXPECT_EQ(visit("Session(\"x\") = Server.CreateObject(\"Scripting.Dictionary\")"), "error 450");
  EXPECT_EQ(visit("Session(\"x\") = Nothing"), "error 91");
}

TEST_F(SiteValues, CopyArraysInAndOut) {
  visit("a = Array(1, Array(2, 3)) : Session(\"a\") = a : a(0) = 9");
  EXPECT_EQ(visit("b = Session(\"a\") : b(0) = 8 : Response.Write Session(\"a\")(0) & b(0) & "
                  "Session(\"a\")(1)(1) & IsArray(Session(\"a\")) & UBound(Session(\"a\"))"),
            "183True1");
}

TEST_F(SiteValues, FindKeysWithoutRegardToLetterCase) {
  EXPECT_EQ(visit("Session(\"UserName\") = 1 : Session(\"USERNAME\") = 2\n"
                  "For Each k In Session.Contents : Response.Write k & Session(k) : Next"),
            "UserName2");
  // Characters that have no byte of Windows-1252, small and capital, and two whose UTF-8 differs in
  // bytes that would be letters of the same kind.
  EXPECT_EQ(visit("Session(ChrW(1078)) = 1 : Session(ChrW(1046)) = 2 : Session(ChrW(19978)) = 3\n"
                  "Session(ChrW(19994)) = 4 : Session(\"?\") = 5\n"
                  "Response.Write Session(ChrW(1078)) & Session(ChrW(19978)) & "
                  "Session(ChrW(19994)) & AscW(Session.Contents.Key(2))"),
            "2341078");
}

TEST_F(SiteValues, AreHadByNameOrNumber) {
  const std::string fill =
      "Session(\"a\") = 1 : Session(\"B\") = 2 : Session(\"5\") = 3\n"
      "Set c = Session.Contents\n";
  EXPECT_EQ(visit(fill + "Response.Write c.Count & c(2) & c.Item(\"b\") & c.Key(2) & c(\"5\") & "
                         "Session.Contents(1) & Session.Contents.Item(\"A\") & Session(5)"),
            "322B3113");
  EXPECT_EQ(visit("Session.Contents(1) = 7 : Session.Contents(\"n\") = 8\n"
                  "Response.Write Session(\"a\") & Session(\"n\")"),
            "78");
  EXPECT_EQ(visit("Session.Contents.Remove 1 : Session.Contents.Remove(\"b\")\n"
                  "Session.Contents.Remove \"missing\"\n"
                  "For Each k In Session.Contents : Response.Write k & \" \" : Next"),
            "5 n ");
  EXPECT_EQ(visit("Response.Write Session.Contents(3)"), "error 9");
  EXPECT_EQ(visit("Session.Contents.Remove 0"), "error 9");
  EXPECT_EQ(visit("Session.Contents.RemoveAll : Response.Write Session.Contents.Count"), "0");
}

TEST_F(SiteValues, WalkNamesAsTheyWereWhenTheLoopBegan) {
  EXPECT_EQ(visit("Session(\"a\") = 1 : Session(\"b\") = 2\n"
                  "For Each k In Session.Contents : Session.Contents.Remove k\n"
                  "Session(k & \"2\") = 1 : Next\n"
                  "For Each k In Session : Response.Write k : Next"),
            "a2b2");
}

TEST_F(SiteValues, MakeASessionAtTheFirstUseOnly) {
  EXPECT_EQ(visit("Response.Write 1"), "1");
  EXPECT_EQ(site().sessionCount(), 0u);
  EXPECT_EQ(cookie, "");
  EXPECT_EQ(visit("Response.Write IsEmpty(Session(\"x\"))"), "True");
  EXPECT_EQ(site().sessionCount(), 1u);
  const std::string first = cookie;
  visit("Session(\"x\") = 1");
  EXPECT_EQ(cookie, first);
  EXPECT_EQ(site().sessionCount(), 1u);
}

TEST_F(SiteValues, TakeNoSessionFromABrowserThatWasNotGivenOne) {
  std::string invented(32, 'a');
  visit("Session(\"x\") = 1", invented);
  EXPECT_NE(invented, std::string(32, 'a'));
}

TEST_F(SiteValues, HaveANumberThatStays) {
  const std::string number = visit("Response.Write Session.SessionID");
  EXPECT_EQ(visit("Response.Write Session.SessionID"), number);
  std::string other;
  EXPECT_NE(visit("Response.Write Session.SessionID", other), number);
  EXPECT_EQ(cookie.find(number), std::string::npos);
}

TEST_F(SiteValues, LastAsLongAsTheyAreToldTo) {
  EXPECT_EQ(visit("Response.Write Session.Timeout : Session.Timeout = 60 : Session(\"x\") = 1"),
            "20");
  clock.advance(59min);
  EXPECT_EQ(visit("Response.Write Session(\"x\") & Session.Timeout"), "160");
  clock.advance(61min);
  EXPECT_EQ(visit("Response.Write IsEmpty(Session(\"x\")) & Session.Timeout"), "True20");
  EXPECT_EQ(visit("Session.Timeout = 99999 : Response.Write Session.Timeout & \" \"\n"
                  "Session.Timeout = -1 : Response.Write Session.Timeout"),
            "1440 1");
}

TEST_F(SiteValues, StayReadableToTheEndOfThePageThatAbandonsThem) {
  visit("Session(\"x\") = 1");
  const std::string old = cookie;
  EXPECT_EQ(visit("Session.Abandon : Session(\"y\") = 2 : Response.Write Session(\"x\") & "
                  "Session(\"y\")"),
            "12");
  EXPECT_EQ(site().sessionCount(), 0u);
  EXPECT_EQ(visit("Response.Write IsEmpty(Session(\"x\"))"), "True");
  EXPECT_NE(cookie, old);
}

TEST_F(SiteValues, HaveALocaleAndACodePage) {
  EXPECT_EQ(visit("Response.Write Session.LCID & \" \" & Session.CodePage"), "1033 1252");
  EXPECT_EQ(cookie, "") << "which the page has without a session";
  EXPECT_EQ(visit("Session.LCID = 1031 : Session.CodePage = 65001\n"
                  "Response.Write CStr(1.5) & Session.LCID & Session.CodePage"),
            "1,5103165001");
  EXPECT_EQ(page, 65001);
  const auto session = site().session(*this, cookie);
  EXPECT_EQ(session->session()->locale, 1031);
  EXPECT_EQ(session->session()->codePage, 65001);
  EXPECT_EQ(visit("Session.LCID = 99"), "error 447");
  EXPECT_EQ(visit("Session.CodePage = 99"), "error 5");
}

TEST_F(SiteValues, RefuseAPageThatDeclaresToHaveNoSession) {
  refusesSession = true;
  EXPECT_EQ(visit("Session(\"x\") = 1"), "error 17");
  EXPECT_EQ(visit("Response.Write Session.SessionID"), "error 17");
  EXPECT_EQ(site().sessionCount(), 0u);
}

TEST_F(SiteValues, AreOutOfReachWhenAPageKeepsItsSession) {
  visit("Session(\"x\") = 1 : Set Application(\"s\") = Session");
  EXPECT_EQ(visit("Response.Write Application(\"s\")(\"x\")"), "error 91");
}

TEST_F(SiteValues, OfTheApplicationAreEverybodys) {
  std::string other;
  visit("Application.Lock : Application(\"Hits\") = 1 : Application.Unlock");
  EXPECT_EQ(visit("Application(\"hits\") = Application(\"HITS\") + 1\n"
                  "Response.Write Application.Value(\"hits\") & Application.Contents(\"hits\") & "
                  "Application.Contents(1) & Application.Contents.Count & "
                  "Application.Contents.Key(1) & TypeName(Application(\"none\"))",
                  other),
            "2221HitsEmpty");
  EXPECT_EQ(
      visit("For Each k In Application.Contents : Response.Write k : Next\n"
            "Application.Contents.Remove \"hits\" : Response.Write Application.Contents.Count"),
      "Hits0");
  EXPECT_EQ(site().sessionCount(), 0u);
}

TEST_F(SiteValues, OfTheApplicationAreThoseOfTheOtherDialect) {
  shared->setItem(vbs::Value("From"), vbs::Value("there"));
  EXPECT_EQ(visit("Application(\"back\") = 5 : Response.Write Application(\"from\")"), "there");
  EXPECT_EQ(shared->item(vbs::Value("BACK")).asInt(), 5);
}

TEST_F(SiteValues, HoldDeclaredObjectsMadeAtTheFirstUse) {
  const std::string global =
      "<object runat=server scope=application id=Shared progid=Scripting.Dictionary></object>"
      "<object runat=server scope=session id=Own progid=Scripting.Dictionary></object>"
      "<object runat=server scope=session id=Bad progid=No.Such></object>";
  putGlobal("", global);
  EXPECT_EQ(visit("Response.Write Session.StaticObjects.Count & Session.StaticObjects.Key(1)\n"
                  "For Each k In Session.StaticObjects : Response.Write k : Next\n"
                  "For Each k In Application.StaticObjects : Response.Write k : Next"),
            "2OwnOwnBadShared");
  visit("Own(\"x\") = 1 : Own.Add \"y\", 2 : Shared(\"z\") = 3 : Set o = own : o(\"w\") = 4");
  EXPECT_EQ(visit("Response.Write Own.Count & Own(\"x\") & Session.StaticObjects(\"own\")(\"y\") & "
                  "Application.StaticObjects(1).Count & (Session.StaticObjects(1) Is Own)"),
            "3121True");
  std::string other;
  EXPECT_EQ(visit("Response.Write Own.Count & Shared.Count & TypeName(Own)", other),
            "01Dictionary");
  EXPECT_EQ(visit("Bad.Anything"), "error 429");
  EXPECT_EQ(visit("Response.Write TypeName(Session.StaticObjects(\"none\"))"), "Empty");
  EXPECT_EQ(visit("Response.Write Session.StaticObjects(3)"), "error 9");
  EXPECT_EQ(visit("Set Own = Nothing : Response.Write TypeName(Own)"), "Nothing")
      << "a variable of the page";
}

TEST_F(SiteValues, OfOnePageAreDeclaredObjectsOfIts) {
  const StaticObject dictionary{"d", "Scripting.Dictionary", StaticObject::Scope::Page};
  const StaticObject list{"d", "System.Collections.ArrayList", StaticObject::Scope::Page};
  const StaticObject more{"a", "Scripting.Dictionary", StaticObject::Scope::Page};
  const std::string code = "Response.Write TypeName(d) & d.Count : d.Add \"x\"";
  EXPECT_EQ(visit(code, cookie, {list}), "ArrayList0");
  EXPECT_EQ(visit(code, cookie, {more, list}), "ArrayList0") << "the same code, another place";
  EXPECT_EQ(visit("Response.Write d.Count", cookie, {dictionary}), "0");
}

TEST_F(SiteValues, LeaveNothingBehind) {
  const auto visitAndGo = [&] {
    visit(
        "Set d = Server.CreateObject(\"Scripting.Dictionary\") : Set d(\"me\") = d\n"
        "Set Session(\"d\") = d : Set Session(\"s\") = Session : Set Session(\"c\") = "
        "Session.Contents : Session(\"a\") = Array(d, Session)");
    const vbs::Object* const newest = vbs::runContext.newestObject;
    clock.advance(21min);
    site().sweep();
    EXPECT_NE(vbs::runContext.newestObject, newest);
    EXPECT_EQ(site().sessionCount(), 0u);
  };
  visitAndGo();  // the program stays in the cache
  const vbs::Object* const before = vbs::runContext.newestObject;
  const std::int64_t used = vbs::runContext.memory.used;
  visitAndGo();
  EXPECT_EQ(vbs::runContext.newestObject, before);
  EXPECT_EQ(vbs::runContext.memory.used, used);
}

TEST_F(SiteValues, CountAgainstTheMemoryOfThePageThatBringsThem) {
  limits.memoryBytes = 1 << 20;
  EXPECT_EQ(visit("For i = 1 To 10000000 : Session(\"k\" & i) = i : Next"), "error 7");
  EXPECT_EQ(visit("For i = 1 To 10000000 : Application(\"k\" & i) = i : Next"), "error 7");
  EXPECT_EQ(visit("k = String(300000, ChrW(1078)) : Session(k) = 1"), "error 7") << "a key";
  EXPECT_EQ(visit("Do : Set c = Session.Contents : Set c.Item(\"x\" & n) = c : n = n + 1 : Loop"),
            "error 7");
}

}  // namespace

}  // namespace quorvane::customary
