#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "components/application.h"
#include "http/clsHTTPParser.h"
#include "http/cookie_jar.h"
#include "http/response_heads.h"
#include "script/run/running_scripts.h"
#include "script/sessions/memory_auth_keys.h"
#include "support/clsWEncode.h"
#include "support/file_aliases.h"
#include "testing/fake_services.h"

namespace quorvane {

using namespace std::string_literals;

namespace {

/// Texts that tell what was asked for.
class EchoTexts final : public LanguageTexts {
 public:
  std::string numberedText(int number, std::span<const std::string> values) const override {
    std::string text = std::to_string(number);
    for (const std::string& value : values) text += "," + value;
    return text;
  }
};

class PageRun : public ::testing::Test,
                protected FakeServices<ScriptedRandom>,
                protected PageEvents {
 protected:
  PageRun() {
    state.ScriptsFolder = "/srv";
    state.AppVersion = "1.2.3";
  }

  void vbsParser_DebugOutput(const std::string& dbgData) override { debugged.push_back(dbgData); }
  bool vbsParser_Dispatch(std::int32_t SocketIndex, std::string Data,
                          bool CloseOpenSocket) override {
    dispatched.emplace_back(SocketIndex, std::move(Data), CloseOpenSocket);
    return clientTakes;
  }

  RunningScripts& scripts() {
    if (!scripts_) {
      scripts_.emplace(services, RunningScripts::Parts{encoder, aliases, texts});
    }
    return *scripts_;
  }

  /// What became of a page, whichever way it went.
  struct Outcome {
    explicit Outcome(ScriptPageResult result) : sessionNumber(result.sessionNumber) {
      if (const auto* finished = std::get_if<FinishedPage>(&result.outcome)) {
        output = finished->body;
        responseHeader = finished->header;
      } else if (const auto* flushed = std::get_if<FlushedPage>(&result.outcome)) {
        flushedResponse = true;
        output = flushed->rest;
      } else {
        redirected = std::get<RedirectedPage>(result.outcome);
      }
    }

    std::string output;
    std::string responseHeader;
    bool flushedResponse = false;
    std::optional<RedirectedPage> redirected;
    std::int32_t sessionNumber;
  };

  Outcome run(const std::string& page, const std::string& head = "GET /p.qvs HTTP/1.1",
              int slot = 3) {
    files.put("/srv/p.qvs", page);
    return runFile("/srv/p.qvs", head, slot);
  }
  Outcome runFile(const std::string& path, const std::string& head, int slot,
                  const std::string& fileData = {}) {
    jar.clear();
    parser.setHTTPData(head + "\r\n\r\n");
    return Outcome(runRequest(path, fileData, slot));
  }
  ScriptPageResult runRequest(const std::string& path, const std::string& fileData, int slot) {
    ResponseHeads heads(state, clock);
    AnswerStream stream(heads, Framing::UntilClose, true);
    return scripts().run({path, fileData, parser, jar, *this, stream, slot});
  }
  /// Where a page leads: a URL, or a local file in brackets.
  std::string goalOf(const std::string& page) {
    const auto redirected = run(page).redirected;
    if (!redirected) return "nowhere";
    const bool isLocal = redirected->kind == RedirectedPage::Kind::LocalFile;
    return isLocal ? '[' + redirected->target + ']' : redirected->target;
  }
  std::string output(const std::string& page) { return run(page).output; }

  clsWEncode encoder;
  FileAliases aliases;
  EchoTexts texts;
  CookieJar jar;
  clsHTTPParser parser{encoder, jar};
  bool clientTakes = true;
  std::vector<std::string> debugged;
  std::vector<std::tuple<int, std::string, bool>> dispatched;

 private:
  std::optional<RunningScripts> scripts_;
};

TEST_F(PageRun, EndsSessionsOfBothDialects) {
  run("x");
  state.Customary = 2;
  files.put("/srv/p.qvs", "<% Session(\"x\") = 1 %>");
  runRequest("/srv/p.qvs", {}, 3);
  log.lines.clear();
  clock.advance(std::chrono::minutes{21});
  scripts().expireSessions();
  EXPECT_EQ(log.lines.size(), 2u) << "a line each";
  EXPECT_EQ(scripts().sessions().size(), 0u);
}

TEST_F(PageRun, LogsWhereAPageOfAModuleFailed) {
  state.LogPageErrors = true;
  runFile("/srv/of/module.qvs", "GET /of/module.qvs HTTP/1.1", 3, "a\nb<% y = 1 \\ 0 %>");
  EXPECT_EQ(log.lines.back(),
            "Page error: Microsoft VBScript runtime error '800a000b': Division by zero "
            "(/of/module.qvs, line 2, column 5)");
}

TEST_F(PageRun, EndsAtTheTimeThatThePageChooses) {
  const std::string loop = "For i = 1 To 50000: Next";  // some 25 looks at the clock
  clock.step = std::chrono::milliseconds{100};
  EXPECT_EQ(output("<% " + loop + " %>done"), "done");
  EXPECT_NE(output("<% Server.ScriptTimeout = 1: " + loop + " %>done").find("Error #113"),
            std::string::npos);
  clock.step = std::chrono::milliseconds{1000};
  EXPECT_NE(output("<% " + loop + " %>done").find("Error #113"), std::string::npos);
  EXPECT_EQ(output("<% Server.ScriptTimeout = 50: " + loop + " %>done"), "done");
}

TEST_F(PageRun, KeepsTheTimeThatAPageChoosesWithinBounds) {
  EXPECT_EQ(output("<%= Server.ScriptTimeout %>"), "10");
  EXPECT_EQ(output("<% Server.ScriptTimeout = 0 %><%= Server.ScriptTimeout %>"), "1");
  EXPECT_EQ(output("<% Server.ScriptTimeout = 9999 %><%= Server.ScriptTimeout %>"), "60");
  EXPECT_EQ(output("<%= Server.ScriptTimeout %>"), "10");
}

TEST_F(PageRun, APageRunWithinAnotherSharesItsTime) {
  clock.step = std::chrono::milliseconds{400};
  files.put("/srv/slow.qvs", "<% For i = 1 To 30000: Next %>x");  // some six seconds
  const std::string page = "<% Server.Execute \"slow.qvs\" %>";
  EXPECT_EQ(output(page), "x");
  EXPECT_NE(output(page + page).find("Error #113"), std::string::npos);
  EXPECT_EQ(output("<% Server.ScriptTimeout = 30 %>" + page + page), "xx");
}

TEST_F(PageRun, EndsObjectsThatHoldOneAnother) {
  run("x");  // makes the session, which stays
  const vbs::Object* const before = vbs::runContext.newestObject;
  EXPECT_EQ(run("<% Set a = CreateObject(\"Scripting.Dictionary\")\n"
                "Set b = Server.CreateObject(\"Scripting.Dictionary\")\n"
                "Set a(\"child\") = b : Set b(\"parent\") = a : b(\"list\") = Array(a, 1)\n"
                "Class C : Public held\n"
                "Private Sub Class_Terminate : Response.Write \"e\" : End Sub : End Class\n"
                "Set o = New C : Set o.held = b : b.Add o, Array(o, a) %>x",
                "GET /p.qvs HTTP/1.1\r\nCookie: QVS_SESSIONID=5000")
                .output,
            "xe");
  EXPECT_EQ(vbs::runContext.newestObject, before);
}

TEST_F(PageRun, KeepsWhatTheSharedValuesLeadTo) {
  output(
      "<% Set a = CreateObject(\"Scripting.Dictionary\")\n"
      "Set b = CreateObject(\"Scripting.Dictionary\")\n"
      "Set a(\"child\") = b : Set b(\"parent\") = a : b(\"name\") = \"kept\"\n"
      "Set c = CreateObject(\"Scripting.Dictionary\") : Set c(\"me\") = c\n"
      "Application(\"list\") = Array(0, a) %>");
  const std::string read = "<%= Application(\"list\")(1)(\"child\")(\"name\") %>";
  EXPECT_EQ(output(read), "kept");
  EXPECT_EQ(output("<% Set d = CreateObject(\"Scripting.Dictionary\") : Set d(1) = d %>" + read),
            "kept");
}

TEST_F(PageRun, GivesOutputAndHeader) {
  const auto result = run(
      "<b><%= 1 + 1 %></b><% Response.AddHeader \"X\", \"1\": Response.ContentType = \"a/b\" %>");
  EXPECT_EQ(result.output, "<b>2</b>");
  EXPECT_EQ(result.responseHeader, "X: 1\r\nContent-Type: a/b");
  EXPECT_FALSE(result.flushedResponse);
  EXPECT_EQ(result.sessionNumber, 5000);
}

TEST_F(PageRun, RunsTheTextOfAModuleInPlaceOfTheFile) {
  files.put("/srv/a.inc", "included");
  files.put("/srv/m.qvs", "file");
  EXPECT_EQ(
      runFile("/srv/m.qvs", "GET /m.qvs HTTP/1.1", 0, "<!--#include file=\"a.inc\"-->\r\n!").output,
      "included!");
}

TEST_F(PageRun, ReadsAndWritesFiles) {
  MemoryAuthKeys keys(clock, random);
  const PageParts parts{encoder, keys, scripts().application()};
  const aspMainParser vbsParser(services, parts);
  files.addFolder("/srv");
  EXPECT_TRUE(vbsParser.strWriteFile("/srv/x", "ab\xFF"));
  EXPECT_TRUE(vbsParser.fileExists("/srv/x"));
  EXPECT_EQ(vbsParser.strReadFile("/srv/x"), "ab\xFF");
  EXPECT_EQ(vbsParser.binReadFile("/srv/x"), u"\u6261\u00FF");
  EXPECT_EQ(vbsParser.binReadFile("/srv/none"), u"");
  EXPECT_FALSE(vbsParser.fileExists("/srv/none"));
}

TEST_F(PageRun, TakesAMissingPageForAnEmptyOne) {
  EXPECT_EQ(runFile("/srv/none.qvs", "GET /none.qvs HTTP/1.1", 0).output, "");
}

TEST_F(PageRun, ResolvesIncludesFromThePagesFolder) {
  files.put("/srv/sub/a.inc", "<!--#include file=\"Part/b.inc\"-->\r\n");
  files.put("/srv/sub/Part/b.inc", "b of sub");
  files.put("/srv/sub/p.qvs", "<!--#include file=\"A.INC\"-->\r\n");
  EXPECT_EQ(runFile("/srv/sub/p.qvs", "GET /sub/p.qvs HTTP/1.1", 0).output, "b of sub");
  files.put("/srv/top.inc", "top");
  files.put("/srv/sub/q.qvs", "<!--#include file=\"..\\top.inc\"-->\r\n");
  EXPECT_EQ(runFile("/srv/sub/q.qvs", "GET /sub/q.qvs HTTP/1.1", 0).output, "top");
}

TEST_F(PageRun, IncludesNothingFromOutsideTheDocumentRoot) {
  files.put("/etc/secret.inc", "secret");
  EXPECT_EQ(output("<!--#include file=\"../etc/secret.inc\"-->\r\n"),
            "Include file not found '../etc/secret.inc'");
  EXPECT_EQ(output("<!--#include file=\"/etc/secret.inc\"-->\r\n"),
            "Include file not found '/etc/secret.inc'");
  files.put("/srvother/x.inc", "other");
  EXPECT_EQ(output("<!--#include file=\"../srvother/x.inc\"-->\r\n"),
            "Include file not found '../srvother/x.inc'");
}

TEST_F(PageRun, LetsAPageOutsideTheDocumentRootIncludeFromItsOwnFolder) {
  files.put("/else/p.qvs", "<!--#include file=\"a.inc\"-->\r\n");
  files.put("/else/a.inc", "beside");
  EXPECT_EQ(runFile("/else/p.qvs", "GET /p.qvs HTTP/1.1", 0).output, "beside");
}

TEST_F(PageRun, ShowsErrorsOnAPageOfTheirOwn) {
  const auto result = run("<% x = 1 / 0 %>lost", "GET /dir/p.qvs HTTP/1.1");
  EXPECT_EQ(result.output,
            "<html><head><title>QVServer Script Error</title></head><body>"
            "<font face='Arial' size='4' color='#990000'><b>QVScript Error</b></font><hr>"
            "<p><font face='Verdana' size='2'><b>Error #11</b><br>"
            "<font color='#990000'>Division by zero</font><br><br>"
            "<i>/dir/p.qvs, line 0</i></font></p></body></html>");
  EXPECT_EQ(result.responseHeader, "");
}

TEST_F(PageRun, CountsLinesOfTheTranslatedProgram) {
  EXPECT_NE(output("one\r\ntwo\r\n<% a = 1\r\nb = CInt(\"x\") %>").find(", line 4<"),
            std::string::npos);
  files.put("/srv/two.inc", "i1\r\ni2\r\n");
  EXPECT_NE(output("<!--#include file=\"two.inc\"-->\r\n<% b = CInt(\"x\") %>").find(", line 3<"),
            std::string::npos);
  EXPECT_NE(output("<% Function %>").find(", line 0<"), std::string::npos);
}

TEST_F(PageRun, TakesError6006ForANormalEnd) {
  EXPECT_EQ(output("a<% Response.End %>b"), "a");
  EXPECT_EQ(output("a<% On Error Resume Next\r\nResponse.End %>b"), "a");
  EXPECT_EQ(output("a<% Err.Raise 6006 %>b"), "a");
}

TEST_F(PageRun, EndsWhereItsCallersTrapErrors) {
  const std::string rest =
      "\r\nOn Error Resume Next\r\nLeave\r\nXWrite \"never\"\r\nServer.DebugOut \"never\" %>";
  EXPECT_EQ(output("<% Sub Leave\r\nXWrite \"a\"\r\nResponse.End\r\nEnd Sub" + rest), "a");
  EXPECT_EQ(goalOf("<% Sub Leave\r\nResponse.Redirect \"/b.qvs\"\r\nEnd Sub" + rest), "/b.qvs");
  EXPECT_TRUE(debugged.empty());
}

TEST_F(PageRun, EndsWhenItsClientTakesNothing) {
  clientTakes = false;
  const Outcome outcome = run("a<% Response.Flush: Server.DebugOut \"never\" %>b");
  EXPECT_TRUE(outcome.flushedResponse);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(dispatched.size(), 1U);
  EXPECT_TRUE(debugged.empty());
}

TEST_F(PageRun, EndsAfterARedirect) {
  EXPECT_EQ(goalOf("a<% Response.Redirect \"/b.qvs\"\r\nServer.DebugOut \"never\" %>b"), "/b.qvs");
  EXPECT_EQ(goalOf("a<% Response.RedirectTo \"  /srv/b c.qvs \" %>b"), "[/srv/b c.qvs]");
  EXPECT_TRUE(debugged.empty());
}

TEST_F(PageRun, TakesAMarkAtTheStartOfItsOutputForARedirect) {
  EXPECT_EQ(goalOf("<% XWrite Chr(0): XWrite \"[$REDIR$]\" & Chr(0) & \" b.qvs?x \" %>"),
            "b.qvs?x");
  EXPECT_EQ(goalOf("<% XWrite Chr(0) & \"[$REDIRTO$]\" & Chr(0) %>"), "[]");
  for (const char* other : {"x", "[$REDIR$]", "<% XWrite Chr(0) & \"[$REDIR$]\" %>",
                            "x<% XWrite Chr(0) & \"[$REDIR$]\" & Chr(0) & \"b.qvs\" %>",
                            "<% Response.Flush: Response.Redirect \"/b.qvs\" %>"}) {
    EXPECT_EQ(goalOf(other), "nowhere") << other;
  }
}

TEST_F(PageRun, OnlyWhatItNamesItselfMayLeaveTheRoot) {
  const auto mayLeave = [&](const std::string& source) {
    const auto redirected = run(source).redirected;
    return redirected && redirected->mayLeaveRoot;
  };
  EXPECT_TRUE(mayLeave("<% Response.RedirectTo \"/x.txt\" %>"));
  EXPECT_FALSE(mayLeave("<% XWrite Chr(0) & \"[$REDIRTO$]\" & Chr(0) & \"/x.txt\" %>"));
  EXPECT_FALSE(mayLeave("<% Response.Redirect \"/x.txt\" %>"));
}

TEST_F(PageRun, KeepsThePairOfClearsApart) {
  EXPECT_NE(output("a<% Response.Clear %>b").find("Error #438"), std::string::npos);
  EXPECT_EQ(output("a<% Clear %>b"), "b");
}

TEST_F(PageRun, FlushesAHeadOnce) {
  const auto result =
      run("one<% Response.AddHeader \"X\", \"1\": Response.Flush %>two<% Response.Flush %>three");
  ASSERT_EQ(dispatched.size(), 2u);
  EXPECT_EQ(dispatched[0], std::make_tuple(3,
                                           "HTTP/1.1 200 OK\r\n"
                                           "Server: Quorvane-Server/1.2.3\r\n"
                                           "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
                                           "Cache-Control: private\r\n"
                                           "Connection: Close\r\n"
                                           "Content-Type: text/html\r\n"
                                           "X: 1\r\n"
                                           "\r\n"
                                           "one"s,
                                           false));
  EXPECT_EQ(dispatched[1], std::make_tuple(3, "two"s, false));
  EXPECT_EQ(result.output, "three");
  EXPECT_TRUE(result.flushedResponse);
}

TEST_F(PageRun, FlushesASessionThatTheRequestNamed) {
  run("");
  run("<% Response.ContentType = \"text/plain\": Response.Flush %>",
      "GET /p.qvs HTTP/1.1\r\nCookie: QVS_SESSIONID=5000");
  ASSERT_EQ(dispatched.size(), 1u);
  EXPECT_EQ(std::get<1>(dispatched[0]),
            "HTTP/1.1 200 OK\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "Cache-Control: private\r\n"
            "Connection: Close\r\n"
            "Set-Cookie: QVS_SESSIONID=5000; path=/\r\n"
            "Content-Type: text/plain\r\n"
            "\r\n");
}

TEST_F(PageRun, KeepsATypeSetAsAHeaderLineInAnyCase) {
  run("<% Response.AddHeader \"X\", \"CONTENT-TYPE: x\": Response.Flush %>");
  EXPECT_EQ(std::get<1>(dispatched.at(0)).find("text/html"), std::string::npos);
}

TEST_F(PageRun, FlushesNowhereWithoutASlot) {
  const auto result = run("one<% Response.Flush %>two", "GET /p.qvs HTTP/1.1", -1);
  EXPECT_TRUE(dispatched.empty());
  EXPECT_EQ(result.output, "two");
  EXPECT_TRUE(result.flushedResponse);
}

TEST_F(PageRun, StaysFlushedWhenThePageFailsLater) {
  const auto result = run("one<% Response.Flush: x = 1 / 0 %>");
  EXPECT_TRUE(result.flushedResponse);
  EXPECT_NE(result.output.find("Division by zero"), std::string::npos);
}

TEST_F(PageRun, PassesDebugOutputOn) {
  run("<% Server.DebugOut \"look\" %>");
  EXPECT_EQ(debugged, std::vector<std::string>{"look"});
}

TEST_F(PageRun, BoundsTheDebugLinesOfARun) {
  files.put("/srv/more.qvs", "<% For i = 1 To 9000: Server.DebugOut 2: Next %>");
  run("<% For i = 1 To 9000: Server.DebugOut 1: Next: Server.Execute \"/more.qvs\" %>");
  ASSERT_EQ(debugged.size(), 10'001U);
  EXPECT_EQ(debugged[9'999], "2");
  EXPECT_EQ(debugged[10'000], "(the rest of more than 10000 lines is left out)");
}

TEST_F(PageRun, LetsMembersBeUsedWithoutTheirObjects) {
  EXPECT_EQ(output("<% XWrite URLEncode(\"a b\") & Version %>"), "a%20b1.2.3 (Beta)");
  EXPECT_EQ(output("<% Contents(\"k\") = \"v\": XWrite Session(\"K\") %>"), "v");
  EXPECT_EQ(
      output("<% Application(\"hits\") = 1: Application(\"hits\") = Application(\"hits\") + 1\r\n"
             "Response.Write QvS.Application(\"Hits\") %>"),
      "2");
  EXPECT_EQ(output("<% Timeout = 7: XWrite Session.Timeout %>"), "7");
}

TEST_F(PageRun, TakesVariablesOfTheRequestForCollectionsWhereItNeedsObjects) {
  const auto output = [this](const std::string& code) {
    return run("<% Set d = Server.CreateObject(\"Scripting.Dictionary\")\r\n" + code + " %>",
               "POST /p.qvs?q=1&r=2&Q=3 HTTP/1.1\r\n\r\nName=Ann+B&box=x&box=%26&name=Z&")
        .output;
  };
  EXPECT_EQ(output("For Each k In Request.Form: XWrite k & \"=\" & Request.Form(k) & \";\": Next"),
            "Name=Z;box=&;");
  EXPECT_EQ(output("For Each v In Request.Form(\"box\"): XWrite v & \";\": Next"), "x;&;");
  EXPECT_EQ(output("For Each k In QueryString: XWrite k & QueryString(k): Next"), "q3r2");
  EXPECT_EQ(output("n = Request.Form.Count: XWrite n & Request.Form(\"BOX\").Count &"
                   " Request(\"q\").Count & Request.Form(\"none\").Count"),
            "2220");
  EXPECT_EQ(output("XWrite Request.Form(\"box\")(1) & Request.QueryString(\"q\")(2) &"
                   " Request(\"name\")(1)"),
            "x3Ann B");
  EXPECT_EQ(output("For i = 1 To Request.Form.Count: XWrite Request.Form.Key(i) &"
                   " Request.Form.Item(i): Next"),
            "NameZbox&");
  EXPECT_EQ(output("Set f = Request.Form: XWrite f(\"name\") & f.Count & f"), "Z2");
  EXPECT_EQ(output("Set v = Form(\"box\"): XWrite v & v(1)"), "&x");
  EXPECT_EQ(output("With Request.QueryString: XWrite .Count & .Item(\"r\"): End With"), "22");
  EXPECT_NE(output("x = Request.Form(\"box\")(3)").find("Error #9<"), std::string::npos);
  EXPECT_NE(output("x = Request.Form(\"none\")(1)").find("Error #9<"), std::string::npos);

  // Everywhere else they are texts.
  EXPECT_EQ(output("x = Request.Form(\"box\"): d.Add Request(\"q\"), Request.Form(\"name\")\r\n"
                   "XWrite TypeName(x) & TypeName(Request.Form) & d.Exists(\"3\") &"
                   " TypeName(d(\"3\")) & IsObject(Request.QueryString)"),
            "StringStringTrueStringFalse");
}

TEST_F(PageRun, LeavesTheNamesOfExtensionsToThePage) {
  EXPECT_EQ(
      output("<% status = 3: buffer = 4: write = 5: Response.Write status + buffer + write %>"),
      "12");
  EXPECT_EQ(output("<% Execute \"x = 5\": Response.Write x %>"), "5");
  EXPECT_NE(output("<% Set x = CreateObject(\"No.Such\") %>").find("Error #429"),
            std::string::npos);
}

TEST_F(PageRun, KeepsSessionsBetweenRuns) {
  const std::string page =
      "<% Session(\"n\") = CLng(\"0\" & Session(\"n\")) + 1 %><%= Session(\"n\") %>";
  EXPECT_EQ(output(page), "1");
  const auto second = run(page, "GET /p.qvs HTTP/1.1\r\nCookie: QVS_SESSIONID=5000");
  EXPECT_EQ(second.output, "2");
  EXPECT_EQ(second.sessionNumber, 5000);
  EXPECT_EQ(log.lines, std::vector<std::string>{"Session 5000 created"});
}

TEST_F(PageRun, StartsInTheLocaleOfItsSession) {
  const std::string cookie = "GET /p.qvs HTTP/1.1\r\nCookie: QVS_SESSIONID=5000";
  EXPECT_EQ(output("<%= 1.5 %> <% Session.LCID = 1031: XWrite 1.5 %>"), "1.5 1,5");
  files.put("/srv/part.qvs", "<%= 2.5 %>");
  EXPECT_EQ(run("<%= 1.5 & \" \" & Session.LCID %> <% Server.Execute \"part.qvs\" %>"
                "<% Response.LCID = 1033: XWrite \" \" & 1.5 & \" \" & Response.LCID %>",
                cookie)
                .output,
            "1,5 1031 2,5 1.5 1033");
  EXPECT_NE(run("<% Session.LCID = 7 %>", cookie).output.find("Error #447"), std::string::npos);
  EXPECT_EQ(run("<%= 1.5 & Session.CodePage %>", cookie).output, "1,51252");
  EXPECT_EQ(run("<% Session.CodePage = 65001: XWrite Session.CodePage %>", cookie).output, "65001");
  EXPECT_EQ(output("<%= 1.5 %>"), "1.5");
}

TEST_F(PageRun, LosesASessionThatGetsAnotherNumber) {
  run("");
  const std::string cookie = "GET /p.qvs HTTP/1.1\r\nCookie: QVS_SESSIONID=5000";
  EXPECT_EQ(run("<% Session.SessionID = 77 %>", cookie).sessionNumber, 77);
  EXPECT_EQ(scripts().sessions().size(), 0u);
}

TEST_F(PageRun, KeepsSharedObjectsBetweenRuns) {
  run("<% Set Application(\"c\") = Response.Cookies(\"x\"): Application(\"a\") = Array(1, 2) %>");
  EXPECT_EQ(
      output("<%= TypeName(Application(\"c\")) & Application(\"a\")(1) & Application.Count %>"),
      "clsWCookie22");
  EXPECT_EQ(output("<% For Each k In Application: XWrite k: Next: Application.Remove \"C\" %>"),
            "ca");
  EXPECT_EQ(output("<% Application.RemoveAll: XWrite IsEmpty(Application(\"a\")) %>"), "True");
}

TEST_F(PageRun, SurvivesObjectsKeptPastTheirRun) {
  run("<% Set Application(\"r\") = Response: Set Application(\"q\") = Request\r\n"
      "Set Application(\"s\") = Server %>");
  EXPECT_EQ(
      output(
          "<% Application(\"r\").Write \"x\": Application(\"r\").Flush\r\n"
          "Response.Write \"[\" & Application(\"q\")(\"a\") & \"]\"\r\n"
          "On Error Resume Next: Application(\"s\").DebugOut \"x\": Response.Write Err.Number %>"),
      "[]91");
  EXPECT_TRUE(dispatched.empty());
}

TEST_F(PageRun, SurvivesInstancesOfAPagesClassesKeptPastTheirRun) {
  run("<% Class C\r\nPublic V\r\nSub Class_Terminate\r\nV = 2\r\nEnd Sub\r\nEnd Class\r\n"
      "Set x = New C: x.V = 5: Set Application(\"i\") = x %>");
  EXPECT_EQ(output("<% On Error Resume Next\r\nx = Application(\"i\").V\r\n"
                   "Set Application(\"i\") = Nothing\r\nResponse.Write \"alive\" %>"),
            "alive");
}

TEST_F(PageRun, OffersFilesForDownload) {
  const std::string key = output("<%= QvS.Files.Add(\"/srv/x.zip\", 1) %>");
  EXPECT_EQ(key, "0aff0000000000000000000000000001");
  EXPECT_EQ(aliases.pathOf(key, clock.now()), "/srv/x.zip");
  clock.advance(std::chrono::minutes{2});
  EXPECT_EQ(aliases.pathOf(key, clock.now()), std::nullopt);
  const std::string lasting = output("<%= QvS.Files.Add(\"/srv/y.zip\") %>");
  EXPECT_EQ(aliases.pathOf(lasting, clock.now()), "/srv/y.zip");
  run("<% QvS.Files.Remove \"" + lasting + "\" %>");
  EXPECT_EQ(aliases.pathOf(lasting, clock.now()), std::nullopt);
}

TEST_F(PageRun, GivesTextsOfTheLanguage) {
  EXPECT_EQ(output("<%= QvS.Text(7) %>"), "7");
  EXPECT_EQ(output("<%= QvS.Text(7, \"a\", 2) %>"), "7,a,2");
}

TEST_F(PageRun, RunsOtherPagesInPlace) {
  files.put("/srv/sub/part.qvs", "part<% Response.AddHeader \"X\", \"1\": v = 1 %>");
  const auto result = run("a<% Server.Execute \"sub/part.qvs\" %>b<%= IsEmpty(v) %>");
  EXPECT_EQ(result.output, "apartbTrue");
  EXPECT_EQ(result.responseHeader, "X: 1");
  EXPECT_EQ(output("a<% Server.Transfer \"/SUB/part.qvs\" %>b"), "apart");
  EXPECT_EQ(output("a<% On Error Resume Next\r\nServer.Transfer \"/sub/part.qvs\" %>b"), "apart");
  files.put("/srv/stop.qvs", "x<% Response.End %>");
  EXPECT_EQ(output("a<% Server.Execute \"stop.qvs\" %>b"), "ax");
}

TEST_F(PageRun, FindsOtherPagesFromThePageThatRuns) {
  files.put("/srv/sub/outer.qvs", "outer <% Server.Execute \"inner.qvs\" %> ");
  files.put("/srv/sub/inner.qvs", "inner<% Server.Execute \"../top.qvs\" %>");
  files.put("/srv/inner.qvs", "wrong");
  files.put("/srv/top.qvs", " top");
  EXPECT_EQ(output("<% Server.Execute \"sub/outer.qvs\": Server.Execute \"top.qvs\" %>"),
            "outer inner top  top");
}

TEST_F(PageRun, HasVariablesNamedLikeWhatObjectsOnlyShow) {
  EXPECT_EQ(output("<% text = 1: version = \"2\": files = Array(3)\n"
                   "For hostaddr = 4 To 4: Response.Write hostaddr: Next\n"
                   "Sub Local: clientip = 5: Response.Write clientip: End Sub: Local\n"
                   "Response.Write text & version & files(0) & TypeName(clientip) %>"),
            "45123String");
  EXPECT_EQ(output("<% Set form = CreateObject(\"Scripting.Dictionary\"): form(\"a\") = 7\n"
                   "Response.Write form(\"a\") %>"),
            "7");
  EXPECT_EQ(output("<% ContentType = \"text/plain\": Response.Write Response.ContentType %>"),
            "text/plain")
      << "what takes a value is the object's";
  EXPECT_EQ(run("<% On Error Resume Next\nQueryString(\"a\") = 5: Response.Write Err.Number\n"
                "Response.Write QueryString(\"a\") %>",
                "GET /p.qvs?a=b HTTP/1.1")
                .output,
            "438b")
      << "an element alone makes no variable";
  EXPECT_NE(output("<% Option Explicit: version = 1 %>").find("Error #500"), std::string::npos);
}

TEST_F(PageRun, RunsNoPagesFromOutsideTheDocumentRoot) {
  files.put("/out.qvs", "out");
  files.put("/srv/a.inc", "inc");
  EXPECT_NE(output("<% Server.Execute \"../out.qvs\" %>").find("Error #53"), std::string::npos);
  EXPECT_NE(output("<% Server.Execute \"a.inc\" %>").find("Error #53"), std::string::npos);
  files.put("/srv/bad.qvs", "<% x = 1 / 0 %>");
  EXPECT_NE(output("<% Server.Execute \"bad.qvs\" %>").find("Error #11"), std::string::npos);
}

TEST_F(PageRun, WritesAnArrayThatItsElementsTakeAway) {
  EXPECT_EQ(output("<% Class Remover\r\n"
                   "Public Default Property Get V: list = Empty: V = 65: End Property\r\n"
                   "End Class\r\n"
                   "list = Array(New Remover, 66)\r\n"
                   "Response.BinaryWrite list %>"),
            "AB");
}

TEST_F(PageRun, BoundsPagesThatRunThemselves) {
  EXPECT_NE(output("<% Server.Execute \"p.qvs\" %>").find("Error #28"), std::string::npos);
}

}  // namespace

}  // namespace quorvane
