#include "site_fixture.h"
#include "testing/spelling.h"

namespace quorvane::customary {

using namespace std::chrono_literals;

namespace {

class SiteEventsTest : public SiteTest {
 protected:
  std::string trail() { return script_values::text(shared->item(vbs::Value("trail"))); }
  bool isLogged(std::string_view text) const {
    return std::any_of(log.lines.begin(), log.lines.end(), [&](const std::string& line) {
      return spelled(line).find(text) != std::string::npos;
    });
  }

  /// Each event leaves a word.
  static constexpr const char* kAll =
      "Sub Note(what) : Application(\"trail\") = Application(\"trail\") & what & \" \" : End Sub\n"
      "Sub Application_OnStart : Note \"start\" : End Sub\n"
      "Sub session_onstart() : Note \"hello\" : Session(\"since\") = 1 : End Sub\n"
      "Sub Session_OnEnd\n Note \"bye\" & Session(\"x\")\nEnd Sub\n"
      "Sub Application_OnEnd : Note \"end\" : End Sub\n";
};

TEST_F(SiteEventsTest, RunInTheirOrder) {
  putGlobal(kAll);
  EXPECT_EQ(visit("Response.Write Application(\"trail\") & Session(\"since\")"), "start hello 1");
  visit("Session(\"x\") = 5");
  EXPECT_EQ(trail(), "start hello ");
  visit("Session.Abandon : Response.Write Application(\"trail\")");
  EXPECT_EQ(trail(), "start hello bye5 ");
  visit("Session(\"x\") = 6");
  clock.advance(21min);
  site().sweep();
  EXPECT_EQ(trail(), "start hello bye5 hello bye6 ");
  visit("Session(\"x\") = 7");
  stop();
  EXPECT_EQ(trail(), "start hello bye5 hello bye6 hello bye7 end ");
}

TEST_F(SiteEventsTest, RunEndsWhenTheProgramIsAskedToEnd) {
  putGlobal(kAll);
  visit("Session(\"x\") = 1");
  process.askedToEnd = true;
  stop();
  EXPECT_EQ(trail(), "start hello bye1 end ");
}

TEST_F(SiteEventsTest, GiveEachVisitorASessionWhereOneIsNeeded) {
  putGlobal("Sub Application_OnStart : End Sub");
  visit("");
  EXPECT_EQ(site().sessionCount(), 0u);
  putGlobal("Sub Session_OnEnd : End Sub");
  visit("");
  EXPECT_EQ(site().sessionCount(), 1u);
  visit("");
  EXPECT_EQ(site().sessionCount(), 1u);
}

TEST_F(SiteEventsTest, SeeWhatThePageSeesAtTheStartOfASession) {
  putGlobal(
      "Sub Session_OnStart : Response.Write \"[\" & Server.MapPath(\"/x\") & \"]\" : End Sub");
  EXPECT_EQ(spelled(visit("Response.Write \"page\"")), "[/srv/x]page");
  EXPECT_EQ(visit("Response.Write \"page\""), "page");
}

TEST_F(SiteEventsTest, HaveNoPageAtEnds) {
  putGlobal(
      "Option Explicit\n"
      "Sub Session_OnEnd\n On Error Resume Next\n Response.Write \"x\"\n"
      " Application(\"e\") = Err.Number : Application(\"p\") = Server.MapPath(\"a.txt\")\n"
      " Err.Clear : Server.Execute \"p.asp\" : Application(\"x\") = Err.Number\nEnd Sub\n");
  visit("Session.Abandon");
  EXPECT_EQ(spelled(visit("Response.Write Application(\"e\") & \" \" & Application(\"p\") & "
                          "\" \" & Application(\"x\")")),
            "500 /srv/a.txt 17");
}

TEST_F(SiteEventsTest, ShowPagesNothingButTheirObjects) {
  putGlobal(
      "Dim secret : secret = 1\nConst kept = 2\nFunction F : F = 3 : End Function\n"
      "Sub Application_OnStart : Shared(\"a\") = F : secret = 2 : End Sub\n"
      "Sub Application_OnEnd : Application(\"left\") = secret & Shared.Count : End Sub",
      "<object runat=server scope=application id=Shared "
      "progid=Scripting.Dictionary></object>");
  EXPECT_EQ(visit("Response.Write IsEmpty(secret) & IsEmpty(kept) & Shared(\"a\")"), "TrueTrue3");
  EXPECT_EQ(visit("Response.Write F()"), "error 13");
  stop();
  EXPECT_EQ(script_values::text(shared->item(vbs::Value("left"))), "11");
}

TEST_F(SiteEventsTest, KnowTheConstantsOfTypeLibrariesAsAllPagesDo) {
  putGlobal("Sub Application_OnStart : Application(\"c\") = adOpenStatic : End Sub",
            "<!-- METADATA TYPE=\"typelib\" UUID=\"00000205-0000-0010-8000-00AA006D2EA4\" -->");
  EXPECT_EQ(visit("Response.Write Application(\"c\") & adOpenStatic"), "33");
}

TEST_F(SiteEventsTest, TellTheLogAloneWhatGoesWrong) {
  putGlobal("Sub Application_OnStart\n x = 1 / 0\nEnd Sub\nSub Session_OnStart : No : End Sub");
  EXPECT_EQ(visit("Response.Write 1"), "1");
  EXPECT_TRUE(isLogged("Application_OnStart: error 11, Division by zero (/srv/Global.asa, line 3)"))
      << ::testing::PrintToString(log.lines);
  EXPECT_TRUE(isLogged("Session_OnStart: error 13"));
}

TEST_F(SiteEventsTest, LeaveOutATextThatDoesNotCompile) {
  putGlobal("Sub Application_OnStart\nIf\nEnd Sub");
  EXPECT_EQ(visit("Response.Write 1"), "1");
  EXPECT_TRUE(isLogged("global.asa, not read: error 10")) << ::testing::PrintToString(log.lines);
}

TEST_F(SiteEventsTest, EndAtTheLimitsOfARun) {
  clock.step = 100ms;
  putGlobal(
      "Sub Application_OnStart : Do : Loop : End Sub\n"
      "Sub Session_OnEnd : Do : Loop : End Sub");
  EXPECT_EQ(visit("Session.Abandon : Response.Write 1"), "1");
  EXPECT_TRUE(isLogged("Application_OnStart: error 113"));
  EXPECT_TRUE(isLogged("Session_OnEnd: error 113"));
}

TEST_F(SiteEventsTest, MayBeInJScript) {
  putGlobal(
      "Dim greeting : greeting = \"hello\"\n"
      "Function Note(what) : Application(\"trail\") = Application(\"trail\") & what & \" \"\n"
      "End Function\nSub Session_OnEnd : Note mark(2) : End Sub",
      "<object runat=server scope=application id=Shared progid=Scripting.Dictionary></object>"
      "<script language=JScript runat=server>\n"
      "var starts = 0;\n"
      "function mark(n) { return 'bye' + n + starts; }\n"
      "function Application_OnStart() { starts++; Shared('n') = 4; Note('start' + starts); }\n"
      "function Session_OnStart() { Session('since') = Shared('n') + 1; Note(greeting); }\n"
      "</script>");
  EXPECT_EQ(visit("Response.Write Session(\"since\") & Shared(\"n\")"), "54");
  visit("Session.Abandon");
  EXPECT_EQ(trail(), "start1 hello bye20 ");
}

TEST_F(SiteEventsTest, OfBlocksWithoutALanguageAreInThatOfTheDirective) {
  files.put("/srv/global.asa",
            "<%@ Language=\"JScript\" %>\n<script runat=server>\n"
            "function Application_OnStart() { Application('x') = [1, 2].length; }\n</script>");
  EXPECT_EQ(visit("Response.Write Application(\"x\")"), "2");
}

TEST_F(SiteEventsTest, TellTheLogWhereJScriptGoesWrong) {
  const auto put = [&](const std::string& code) {
    putGlobal("Sub Session_OnEnd : End Sub",
              "<script language=JScript runat=server>\n" + code + "\n</script>\n");
    EXPECT_EQ(visit("Response.Write 1"), "1");
  };
  put("function Application_OnStart() {\n\n  none.x = 1;\n}");
  EXPECT_TRUE(isLogged("Application_OnStart: error 5009, ")) << ::testing::PrintToString(log.lines);
  EXPECT_TRUE(isLogged("(/srv/Global.asa, line 4)"));
  put("function Application_OnStart() {\n  Application('a') = ;\n}");
  EXPECT_TRUE(isLogged("global.asa, not read: error 1002, "))
      << ::testing::PrintToString(log.lines);
  EXPECT_TRUE(isLogged("(/srv/Global.asa, line 3)"));
}

TEST_F(SiteEventsTest, InJScriptEndAtTheLimitsOfARun) {
  clock.step = 100ms;
  putGlobal("",
            "<script language=JScript runat=server>"
            "function Application_OnStart() { for (;;) { try { while (true) {} } catch (e) {} } }"
            "function Session_OnEnd() { while (true) {} }</script>");
  EXPECT_EQ(visit("Session.Abandon : Response.Write 1"), "1");
  EXPECT_TRUE(isLogged("Application_OnStart: error 113")) << ::testing::PrintToString(log.lines);
  EXPECT_TRUE(isLogged("Session_OnEnd: error 113"));
}

TEST_F(SiteEventsTest, DoNotKeepClientsWaitingForManyEnds) {
  putGlobal(
      "Sub Session_OnEnd\n For i = 1 To 50000 : Next\n"
      "Application(\"ends\") = Application(\"ends\") + 1\nEnd Sub");
  for (int i = 0; i < 4; ++i) {
    std::string other;
    visit("", other);
  }
  clock.step = 100ms;
  clock.advance(21min);
  const auto ends = [&] { return script_values::text(shared->item(vbs::Value("ends"))); };
  site().sweep();
  EXPECT_EQ(ends(), "1") << "each takes more than a second";
  site().sweep();
  EXPECT_EQ(ends(), "2");
  std::string other;
  visit("", other);
  EXPECT_EQ(ends(), "3");
  EXPECT_EQ(site().sessionCount(), 1u);
}

TEST_F(SiteEventsTest, AreTakenUpWhenTheFileChanges) {
  visit("Session(\"x\") = 1");
  putGlobal(kAll);
  visit("Session(\"x\") = 2");
  EXPECT_EQ(trail(), "start ") << "the session is older than the text";
  visit("");
  putGlobal(
      "Sub Application_OnStart : Application(\"trail\") = Application(\"trail\") & \"new\"\n"
      "End Sub");
  EXPECT_EQ(visit("Response.Write Session(\"x\")"), "2");
  EXPECT_EQ(trail(), "start end new");
  files.remove("/srv/Global.asa");
  clock.advance(2s);
  visit("");
  putGlobal(kAll);
  visit("");
  EXPECT_EQ(trail(), "start end newstart ");
}

TEST_F(SiteEventsTest, LookAtTheFileOnceASecond) {
  visit("");
  files.put("/srv/global.asa",
            "<script language=vbscript runat=server>Sub Application_OnStart\n"
            "Application(\"x\") = 1\nEnd Sub</script>");
  EXPECT_EQ(visit("Response.Write IsEmpty(Application(\"x\"))"), "True");
  clock.advance(1s);
  EXPECT_EQ(visit("Response.Write Application(\"x\")"), "1");
}

}  // namespace

}  // namespace quorvane::customary
