#include "handling_fixture.h"
#include "http/response_heads.h"
#include "testing/module_builder.h"

namespace quorvane {

using namespace std::string_literals;

namespace {

/// Script pages: flushing, redirection, sessions, compression, players.
class PageRequests : public HandlingFixture {
 protected:
  PageRequests() {
    for (const char* name : {"a.qvs", "b.qvs", "sub/c.qvs"}) {
      files.put("/srv/Scripts/"s + name, "page");
    }
    files.put("/srv/Scripts/plain.txt", "plain");
  }
  using Lines = std::vector<std::string>;

  void pageGives(const std::string& output, const std::string& headers = "") {
    pages.page = [=](const ScriptPageRequest&) {
      return ScriptPageResult{FinishedPage{headers, output}};
    };
  }
  void pageAnswers(const AnsweredPage& page) {
    pages.page = [page](const ScriptPageRequest&) { return ScriptPageResult{page}; };
  }
  /// Page a.qvs leads elsewhere, every other one gives its own path.
  void firstPageLeadsTo(const std::string& target,
                        RedirectedPage::Kind kind = RedirectedPage::Kind::Url,
                        bool mayLeaveRoot = false) {
    pages.page = [=](const ScriptPageRequest& request) {
      if (request.url.ends_with("/a.qvs")) {
        return ScriptPageResult{RedirectedPage{kind, target, mayLeaveRoot}};
      }
      return ScriptPageResult{FinishedPage{"", request.url}};
    };
  }
  static bool ends(const std::string& text, const std::string& body) {
    return text.ends_with("\r\n\r\n" + body);
  }
};

}  // namespace

TEST_F(PageRequests, AContentTypeOfItsOwnReplacesTheUsualOne) {
  pageGives("x", "CONTENT-TYPE: text/plain\r\nX: 1\r\n");
  EXPECT_EQ(get("/a.qvs"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: 1\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Accept-Ranges: bytes\r\n"
            "CONTENT-TYPE: text/plain\r\n"
            "X: 1\r\n"
            "Connection: Keep-Alive\r\n"
            "Cache-Control: private\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n"
            "x");
}

TEST_F(PageRequests, APageWithoutHeadersHasATypeAndNoFileTime) {
  pageGives("");
  EXPECT_EQ(get("/a.qvs"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: 0\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Accept-Ranges: bytes\r\n"
            "Content-Type: text/html\r\n"
            "Connection: Keep-Alive\r\n"
            "Cache-Control: private\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n");
}

TEST_F(PageRequests, AFlushedPageSendsItsRestAndCloses) {
  pages.page = [](const ScriptPageRequest&) { return ScriptPageResult{FlushedPage{"rest"}, 5}; };
  const Response response = answerTo("GET /a.qvs HTTP/1.1\r\n\r\n");
  EXPECT_EQ(response.head, "");
  EXPECT_EQ(bytesOf(response.body), "rest");
  EXPECT_FALSE(response.keepAlive);
  EXPECT_FALSE(response.empty());
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /a.qvs"}));
  EXPECT_EQ(parser.SessionID(), 5);
  EXPECT_EQ(pages.events, &pageEvents);

  pages.page = [](const ScriptPageRequest&) { return ScriptPageResult{FlushedPage{}, 5}; };
  EXPECT_TRUE(answerTo("GET /a.qvs HTTP/1.1\r\n\r\n").empty());
}

TEST_F(PageRequests, TheSessionNumberIsThatAfterTheRun) {
  pages.page = [](const ScriptPageRequest& request) {
    return ScriptPageResult{FinishedPage{"", std::to_string(request.parser.SessionID())}, 77};
  };
  const std::string text = get("/a.qvs", "Cookie: QVS_SESSIONID=12\r\n");
  EXPECT_TRUE(ends(text, "12"));
  EXPECT_NE(text.find("Set-Cookie: QVS_SESSIONID=77; path=/\r\n"), std::string::npos);
  pages.page = [](const ScriptPageRequest&) { return ScriptPageResult{}; };
  EXPECT_EQ(get("/a.qvs").find("Set-Cookie"), std::string::npos);
}

TEST_F(PageRequests, ARedirectionServesTheNamedPageInstead) {
  for (const char* target : {"sub/c.qvs", "/sub/c.qvs", "\\sub\\c.qvs", "/SUB/C.QVS"}) {
    firstPageLeadsTo(target);
    EXPECT_TRUE(ends(get("/a.qvs?v=1"), "/srv/Scripts/sub/c.qvs")) << target;
  }
  EXPECT_EQ(logged().front(), "10.0.0.9 > GET /sub/c.qvs");
  EXPECT_EQ(parser.RequestVar("v", 4), "");
}

TEST_F(PageRequests, ARedirectionMayHaveAQueryString) {
  pages.page = [](const ScriptPageRequest& request) {
    if (request.url.ends_with("a.qvs")) {
      return ScriptPageResult{RedirectedPage{RedirectedPage::Kind::Url, "sub\\c.qvs?x=%2F\\&y=2?"}};
    }
    FinishedPage page{"", request.parser.DocumentQueryString()};
    for (const char* name : {"x", "y", "v"}) {
      page.body += '|' + request.parser.RequestVar(name, clsHTTPParser::QueryOnly);
    }
    return ScriptPageResult{page};
  };
  EXPECT_TRUE(ends(get("/a.qvs?v=1"), "x=%2F\\&y=2?|/\\|2?|"));
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /sub/c.qvs"}));
}

TEST_F(PageRequests, ARedirectionMayLeadToAFile) {
  firstPageLeadsTo("plain.txt");
  EXPECT_EQ(get("/a.qvs"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: 5\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Accept-Ranges: bytes\r\n"
            "Content-Type: text/plain\r\n"
            "Last-Modified: Sat, 07 Mar 2026 10:00:00 GMT\r\n"
            "Connection: Keep-Alive\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n"
            "plain");
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /plain.txt"}));
}

TEST_F(PageRequests, CookiesSetBeforeARedirectionAreSent) {
  pages.page = [](const ScriptPageRequest& request) {
    request.cookies.add({"login", "", false}).setValue("ok");
    return ScriptPageResult{RedirectedPage{RedirectedPage::Kind::Url, "plain.txt"}, 9};
  };
  const std::string text = get("/a.qvs");
  EXPECT_NE(text.find("Set-Cookie: QVS_SESSIONID=9; path=/\r\nSet-Cookie: login=ok; path=/\r\n"),
            std::string::npos);
}

TEST_F(PageRequests, ALocalRedirectionTakesACompletePath) {
  files.put("/elsewhere/doc.txt", "outside");
  firstPageLeadsTo("/elsewhere/doc.txt", RedirectedPage::Kind::LocalFile, true);
  EXPECT_TRUE(ends(get("/a.qvs"), "outside"));
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /elsewhere/doc.txt"}));
  firstPageLeadsTo("\\srv\\Scripts\\sub\\C.qvs", RedirectedPage::Kind::LocalFile);
  EXPECT_TRUE(ends(get("/a.qvs"), "/srv/Scripts/sub/c.qvs"));
}

TEST_F(PageRequests, AMarkThatAPageWroteLeadsToNothingOutside) {
  files.put("/elsewhere/doc.txt", "outside");
  modules.loadModule(ModuleBuilder{{{"/elsewhere/", "doc.txt", "of a module"}}}.build());
  for (const char* target : {"/elsewhere/doc.txt", "/srv/Scripts/../../elsewhere/doc.txt"}) {
    firstPageLeadsTo(target, RedirectedPage::Kind::LocalFile);
    EXPECT_EQ(get("/a.qvs"), notFoundText("doc.txt")) << target;
  }
  EXPECT_EQ(logged().front(), "10.0.0.9 > NOT FOUND: /elsewhere/doc.txt");
  firstPageLeadsTo("/srv/Scripts/x/../plain.txt", RedirectedPage::Kind::LocalFile);
  EXPECT_TRUE(ends(get("/a.qvs"), "plain"));
}

TEST_F(PageRequests, AfterARedirectionARequestIsAGetWithoutABody) {
  firstPageLeadsTo("b.qvs");
  const std::string post = "POST /a.qvs HTTP/1.1\r\nContent-Length: 3\r\n\r\na=1";
  EXPECT_TRUE(ends(textFor(post), "/srv/Scripts/b.qvs"));
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > POST /b.qvs"}));
  EXPECT_EQ(parser.method(), "GET");
  EXPECT_EQ(parser.body(), "");
  EXPECT_EQ(parser.formMethod(), 1);
  pageGives("x");
  textFor(post);
  EXPECT_EQ(parser.method(), "POST");
  EXPECT_EQ(parser.body(), "a=1");
}

TEST_F(PageRequests, ARedirectionStaysInTheDocumentRootAndMayFail) {
  files.put("/srv/secret.txt", "secret");
  firstPageLeadsTo("../secret.txt");
  EXPECT_EQ(get("/a.qvs"), notFoundText("secret.txt"));
  firstPageLeadsTo("/srv/Scripts/b.qvs?x=1", RedirectedPage::Kind::LocalFile);
  EXPECT_EQ(get("/a.qvs"), notFoundText("b.qvs?x=1"));
  firstPageLeadsTo("sub/");
  EXPECT_EQ(get("/a.qvs"), notFoundText(""));
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > NOT FOUND: /../secret.txt",
                             "10.0.0.9 > NOT ALLOWED: /srv/Scripts/b.qvs?x=1",
                             "10.0.0.9 > NOT ALLOWED: /sub/"}));
}

TEST_F(PageRequests, EndlessRedirectionsEndInTheNotFoundAnswer) {
  firstPageLeadsTo("a.qvs");
  EXPECT_EQ(get("/a.qvs"), notFoundText("a.qvs"));
  EXPECT_EQ(pages.urls.size(), 33u);
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > NOT FOUND: /a.qvs"}));
}

TEST_F(PageRequests, OutputIsCompressedForClientsThatAcceptIt) {
  state.EncodeDynamic = true;
  pageGives("some output", "X: 1");
  const std::string plain = get("/a.qvs");
  EXPECT_TRUE(ends(plain, "some output"));
  const Response response = answerTo("GET /a.qvs HTTP/1.1\r\nAccept-Encoding: gzip\r\n\r\n");
  std::string body = bytesOf(response.body);
  EXPECT_NE(response.head.find("Content-Length: " + std::to_string(body.size()) + "\r\n"),
            std::string::npos);
  EXPECT_NE(response.head.find("\r\nX: 1\r\nContent-encoding: gzip\r\nContent-Type: text/html\r\n"),
            std::string::npos);
  EXPECT_TRUE(clsZipString::UncompressString(body, clsZipString::kGzip));
  EXPECT_EQ(body, "some output");
  // The next request says nothing of encodings and inherits the answer of the last one that did.
  EXPECT_NE(get("/a.qvs").find("Content-encoding: gzip"), std::string::npos);
}

TEST_F(PageRequests, APageMayAnswerWithAStatusAndLinesOfItsOwn) {
  pageAnswers({"302 Object moved", "Location: /b.asp\r\nContent-Type: text/html", "moved"});
  EXPECT_EQ(get("/a.qvs", "Cookie: QVS_SESSIONID=12\r\n"),
            "HTTP/1.1 302 Object moved\r\n"
            "Content-Length: 5\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Location: /b.asp\r\n"
            "Content-Type: text/html\r\n"
            "Connection: Keep-Alive\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n"
            "moved");
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /a.qvs"}));
  EXPECT_TRUE(answerTo("GET /a.qvs HTTP/1.1\r\n\r\n").keepAlive);
  const Response closed = answerTo("GET /a.qvs HTTP/1.1\r\nConnection: close\r\n\r\n");
  EXPECT_FALSE(closed.keepAlive);
  EXPECT_NE(closed.head.find("\r\nConnection: Close\r\n"), std::string::npos);
  const Response head = answerTo("HEAD /a.qvs HTTP/1.1\r\n\r\n");
  EXPECT_NE(head.head.find("\r\nContent-Length: 5\r\n"), std::string::npos);
  EXPECT_EQ(bytesOf(head.body), "");
}

TEST_F(PageRequests, AnAnsweringPageCantMakeItsClientMistakeTheEnd) {
  pageAnswers({"200 OK\r\nX: 1",
               "content-length: 99\r\nTransfer-Encoding : chunked\r\nConnection: x\r\n"
               "SERVER: mine\r\nDate: never\r\nX-Date: kept\r\nA: b\nc",
               "body"});
  EXPECT_EQ(get("/a.qvs"),
            "HTTP/1.1 200 OK  X: 1\r\n"
            "Content-Length: 4\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "X-Date: kept\r\n"
            "A: b c\r\n"
            "Connection: Keep-Alive\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n"
            "body");
  for (const char* status : {"204 No Content", "304 Not Modified"}) {
    pageAnswers({status, "", "body"});
    EXPECT_EQ(get("/a.qvs"), "HTTP/1.1 "s + status +
                                 "\r\nServer: Quorvane-Server/1.2.3\r\n"
                                 "Connection: Keep-Alive\r\n"
                                 "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n\r\n");
  }
}

TEST_F(PageRequests, AnAnsweringPageIsCompressedOnce) {
  state.EncodeDynamic = true;
  const std::string wish = "Accept-Encoding: gzip\r\n";
  pageAnswers({"404 Gone away", "Content-Type: text/plain", "some output"});
  const std::string text = get("/a.qvs", wish);
  EXPECT_NE(text.find("Content-Type: text/plain\r\nContent-Encoding: gzip\r\n"), std::string::npos);
  std::string body = text.substr(text.find("\r\n\r\n") + 4);
  EXPECT_TRUE(clsZipString::UncompressString(body, clsZipString::kGzip));
  EXPECT_EQ(body, "some output");
  pageAnswers({"200 OK", "Content-Encoding: gzip", "packed by the page"});
  EXPECT_TRUE(ends(get("/a.qvs", wish), "packed by the page"));
  pageAnswers({"304 Not Modified", "", ""});
  EXPECT_EQ(get("/a.qvs", wish).find("gzip"), std::string::npos);
}

TEST_F(PageRequests, AnAnsweringPageThatFlushesEndsWithItsConnection) {
  ResponseHeads heads(state, clock);
  EXPECT_EQ(heads.ofFlushedPage("500 Broken", "Content-Length: 9\r\nConnection: keep",
                                Framing::Chunked, true),
            "HTTP/1.1 500 Broken\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Content-Length: 9\r\n"
            "Connection: Close\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n");
}

TEST_F(PageRequests, EmptyOutputAndUnwantedCompressionStayPlain) {
  state.EncodeDynamic = true;
  pageGives("");
  EXPECT_EQ(get("/a.qvs", "Accept-Encoding: gzip\r\n").find("gzip"), std::string::npos);
  state.EncodeDynamic = false;
  pageGives("text");
  EXPECT_TRUE(ends(get("/a.qvs", "Accept-Encoding: gzip\r\n"), "text"));
}

TEST_F(PageRequests, SoundFilesWithAnIdArePlayed) {
  files.put("/srv/Scripts/music/song.mp3", "sound");
  files.put("/srv/Scripts/music/playmedia.qvs", "player");
  pages.page = [](const ScriptPageRequest& request) {
    return ScriptPageResult{FinishedPage{"", request.parser.RequestVar("id", 0)}};
  };
  EXPECT_TRUE(ends(get("/music/song.mp3?id=5"), "5"));
  EXPECT_EQ(pages.urls, (Lines{"/srv/Scripts/music/playmedia.qvs"}));
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /music/playmedia.qvs"}));
  EXPECT_TRUE(ends(get("/music/song.mp3"), "sound"));
  EXPECT_TRUE(ends(get("/music/song.mp3?id="), "sound"));
  EXPECT_EQ(get("/song.WAV?id=1"), notFoundText("playmedia.qvs"));
}

TEST_F(PageRequests, PagesOfModulesBringTheirText) {
  modules.loadModule(
      ModuleBuilder{{{"/", "m.qvs", "module page"}, {"/", "m.txt", "text"}}}.build());
  pageGives("ran");
  EXPECT_TRUE(ends(get("/M.qvs"), "ran"));
  EXPECT_EQ(pages.fileData, "module page");
  EXPECT_TRUE(ends(get("/a.qvs"), "ran"));
  EXPECT_EQ(pages.fileData, "");
  state.NoQvm = true;
  EXPECT_EQ(get("/m.qvs"), notFoundText("m.qvs"));
}

}  // namespace quorvane
