#include "http/request_handling.h"

#include <random>

#include "handling_fixture.h"

namespace quorvane {

namespace {

class RequestHandlingTest : public HandlingFixture {
 protected:
  RequestHandlingTest() {
    files.put("/srv/Scripts/index.qvs", "page");
    files.put("/srv/Scripts/a.htm", "hello");
  }
  using Lines = std::vector<std::string>;
};

}  // namespace

TEST_F(RequestHandlingTest, AStaticFileToTheByte) {
  EXPECT_EQ(get("/a.htm", "Host: localhost\r\n"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: 5\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Accept-Ranges: bytes\r\n"
            "Content-Type: text/html\r\n"
            "Last-Modified: Sat, 07 Mar 2026 10:00:00 GMT\r\n"
            "Connection: Keep-Alive\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n"
            "hello");
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /a.htm"}));
  EXPECT_EQ(parser.RemoteIP(), "10.0.0.9");
}

TEST_F(RequestHandlingTest, AScriptPageToTheByte) {
  pages.page = [](const ScriptPageRequest& request) {
    request.cookies.add({"Seen", "", false}).setValue("yes");
    request.cookies.add({"Other", "", false}).setValue("1");
    return ScriptPageResult{FinishedPage{"X-One: 1\r\nX-Two: 2", "<p>out</p>"}, 4711};
  };
  const Response response = answerTo("GET /index.qvs?x=1 HTTP/1.1\r\nCookie: in=1\r\n\r\n");
  EXPECT_TRUE(response.keepAlive);
  EXPECT_EQ(response.head,
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: 10\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Accept-Ranges: bytes\r\n"
            "X-One: 1\r\n"
            "X-Two: 2\r\n"
            "Content-Type: text/html\r\n"
            "Connection: Keep-Alive\r\n"
            "Cache-Control: private\r\n"
            "Set-Cookie: QVS_SESSIONID=4711; path=/\r\n"
            "Set-Cookie: Seen=yes; path=/\r\n"
            "Set-Cookie: Other=1; path=/\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n");
  EXPECT_EQ(bytesOf(response.body), "<p>out</p>");
  EXPECT_EQ(pages.urls, (Lines{"/srv/Scripts/index.qvs"}));
  EXPECT_EQ(pages.fileData, "");
  EXPECT_EQ(pages.socketIndex, 3);
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /index.qvs"}));
}

TEST_F(RequestHandlingTest, EveryFolderServesTheDefaultDocumentOfTheRoot) {
  std::string url;
  pages.page = [&](const ScriptPageRequest& request) {
    url = request.parser.DocumentUrl() + " " + request.parser.DocumentPath();
    return ScriptPageResult{FinishedPage{"", "index"}};
  };
  for (const char* target : {"/", "/docs/", "/no/such/folder/", "/?a=1"}) {
    EXPECT_TRUE(get(target).ends_with("\r\n\r\nindex")) << target;
    EXPECT_EQ(url, "/index.qvs /");
    EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /index.qvs"}));
  }
}

TEST_F(RequestHandlingTest, HeadGetsTheHeaderBlockOnly) {
  const Response response = answerTo("HEAD /a.htm HTTP/1.1\r\nConnection: close\r\n\r\n");
  EXPECT_EQ(response.head,
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: 5\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Accept-Ranges: bytes\r\n"
            "Content-Type: text/html\r\n"
            "Last-Modified: Sat, 07 Mar 2026 10:00:00 GMT\r\n"
            "Connection: Close\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n");
  EXPECT_EQ(bodyLength(response.body), 0u);
  EXPECT_FALSE(response.keepAlive);
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /a.htm"}));
}

TEST_F(RequestHandlingTest, OtherMethodsAreAnsweredLikeGet) {
  EXPECT_TRUE(textFor("PUT /a.htm HTTP/1.1\r\n\r\n").ends_with("\r\n\r\nhello"));
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /a.htm"}));
}

TEST_F(RequestHandlingTest, APostIsLoggedAsSuch) {
  EXPECT_TRUE(textFor("POST /a.htm HTTP/1.1\r\nContent-Length: 3\r\n\r\na=1").ends_with("hello"));
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > POST /a.htm"}));
}

TEST_F(RequestHandlingTest, AMissingFileIsNotFound) {
  const Response response = answerTo("GET /docs/missing.htm HTTP/1.1\r\n\r\n");
  EXPECT_EQ(response.head, notFoundText("missing.htm"));
  EXPECT_FALSE(response.keepAlive);
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > NOT FOUND: /docs/missing.htm"}));
}

TEST_F(RequestHandlingTest, OtherExtensionsAreNotAllowedEvenWhenTheFileExists) {
  files.put("/srv/Scripts/setup.exe", "MZ");
  EXPECT_EQ(get("/setup.exe"), notFoundText("setup.exe"));
  EXPECT_EQ(get("/noextension"), notFoundText("noextension"));
  EXPECT_EQ(logged(),
            (Lines{"10.0.0.9 > NOT ALLOWED: /setup.exe", "10.0.0.9 > NOT ALLOWED: /noextension"}));
}

TEST_F(RequestHandlingTest, InvalidRequestsGetTheBadRequestAnswer) {
  const std::string request = "GET  /a.htm HTTP/1.1\r\n\r\n";
  const Response response = answerTo(request);
  EXPECT_EQ(response.head, badRequestText());
  EXPECT_FALSE(response.keepAlive);
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > INVALID HEADER: \r\n" + request}));
  EXPECT_EQ(textFor("GET /a.htm HTTP/1.1\r\nHost: a/b\r\n\r\n"), badRequestText());
}

TEST_F(RequestHandlingTest, NothingOutsideTheDocumentRootIsReached) {
  files.put("/srv/secret.htm", "not to be seen");
  files.put("/srv/Scriptssecret.htm", "not to be seen");
  files.put("/srv/Scripts/sub/x.htm", "x");
  for (const char* target :
       {"/../secret.htm", "/sub/../../secret.htm", "/sub/..\\..\\secret.htm", "\\..\\secret.htm",
        "/.../secret.htm", "/sub/.. /../secret.htm", "secret.htm", "../secret.htm",
        "/C:/srv/secret.htm", "/nul.htm", "/con.txt", "/%2e%2e/secret.htm", "/..%2fsecret.htm",
        "/..%5csecret.htm", "http://host/../secret.htm"}) {
    const std::string text = get(target);
    EXPECT_TRUE(text.starts_with("HTTP/1.1 404 No Found\r\n") ||
                text.starts_with("HTTP/1.1 400 Bad Request\r\n"))
        << target;
    EXPECT_EQ(text.find("not to be seen"), std::string::npos) << target;
  }
  EXPECT_EQ(textFor(std::string("GET /a.htm\0.htm HTTP/1.1\r\n\r\n", 29)),
            notFoundText(std::string("a.htm\0.htm", 10)));
}

TEST_F(RequestHandlingTest, FilesAreFoundWithoutRegardToCase) {
  EXPECT_TRUE(get("/A.HTM").ends_with("\r\n\r\nhello"));
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /A.HTM"}));
}

TEST_F(RequestHandlingTest, TheSessionCookieIsSentForFilesToo) {
  EXPECT_NE(get("/a.htm", "Cookie: QVS_SESSIONID=12; c=1\r\n")
                .find("Connection: Keep-Alive\r\nSet-Cookie: QVS_SESSIONID=12; path=/\r\nDate: "),
            std::string::npos);
  EXPECT_EQ(get("/a.htm", "Cookie: QVS_SESSIONID=-12\r\n").find("Set-Cookie"), std::string::npos);
}

TEST_F(RequestHandlingTest, CookiesDoNotPassFromOneRequestToTheNext) {
  get("/a.htm", "Cookie: c=1\r\n");
  EXPECT_EQ(cookies.size(), 1u);
  get("/a.htm");
  EXPECT_EQ(cookies.size(), 0u);
}

TEST_F(RequestHandlingTest, HeadersAreLoggedOnDemand) {
  state.LogHeaders = true;
  get("/a.htm", "Host: h\r\n");
  EXPECT_EQ(logged(), (Lines{"Header (32 bytes): GET /a.htm HTTP/1.1||Host: h||||",
                             "10.0.0.9 > GET /a.htm"}));
}

TEST_F(RequestHandlingTest, ARequestCutAnywhereGetsTheSameAnswer) {
  pages.page = [](const ScriptPageRequest& request) {
    return ScriptPageResult{
        FinishedPage{"", request.parser.RequestVar("a", 1) + request.parser.HostAddr()}};
  };
  const std::string requests[] = {
      "GET /a.htm HTTP/1.1\r\nHost: h\r\nAccept: */*\r\n\r\n",
      "POST /index.qvs HTTP/1.1\r\nHost: h\r\nContent-Length: 13\r\n\r\na=value&b=two",
      "HEAD /a.htm HTTP/1.1\r\nHost: h\r\n\r\n"};
  for (const std::string& request : requests) {
    const std::string whole = textFor(request);
    for (std::size_t cut = 1; cut < request.size(); ++cut) {
      SlotRecord record;
      EXPECT_FALSE(handling.dataArrival(0, record, request.substr(0, cut), "10.0.0.9"));
      const auto response = handling.dataArrival(0, record, request.substr(cut), "10.0.0.9");
      ASSERT_TRUE(response) << cut;
      EXPECT_EQ(response->head + bytesOf(response->body), whole) << cut;
    }
  }
}

TEST_F(RequestHandlingTest, ConnectionsShareNothingButTheParser) {
  SlotRecord first;
  SlotRecord second;
  EXPECT_FALSE(handling.dataArrival(1, first, "GET /a.h", "10.0.0.1"));
  EXPECT_FALSE(handling.dataArrival(2, second, "GET /missing", "10.0.0.2"));
  const auto found = handling.dataArrival(1, first, "tm HTTP/1.1\r\n\r\n", "10.0.0.1");
  const auto missing = handling.dataArrival(2, second, ".htm HTTP/1.1\r\n\r\n", "10.0.0.2");
  EXPECT_TRUE(found->head.starts_with("HTTP/1.1 200 OK"));
  EXPECT_EQ(missing->head, notFoundText("missing.htm"));
  EXPECT_EQ(logged(), (Lines{"10.0.0.1 > GET /a.htm", "10.0.0.2 > NOT FOUND: /missing.htm"}));
}

TEST_F(RequestHandlingTest, OversizedRequestsGetTheBadRequestAnswer) {
  const std::string large = "GET /a.htm HTTP/1.1\r\nX: " + std::string(2 << 20, 'x');
  const Response response = answerTo(large + "\r\n\r\n");
  EXPECT_EQ(response.head, badRequestText());
  EXPECT_FALSE(response.keepAlive);
  const Lines lines = logged();
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_TRUE(lines[0].starts_with("10.0.0.9 > INVALID HEADER: "));
  EXPECT_LT(lines[0].size(), 70000u);
  EXPECT_EQ(textFor("POST /a.htm HTTP/1.1\r\nContent-Length: 99999999999\r\n\r\n"),
            badRequestText());
}

TEST_F(RequestHandlingTest, ALargeBodyIsNotHeldAfterItsAnswer) {
  const std::string body = "a=" + std::string(1 << 20, 'x');
  std::size_t seen = 0;
  pages.page = [&](const ScriptPageRequest& request) {
    seen = request.parser.RequestVar("a", 1).size();
    return ScriptPageResult{};
  };
  textFor("POST /index.qvs HTTP/1.1\r\nContent-Length: " + std::to_string(body.size()) +
          "\r\n\r\n" + body);
  EXPECT_EQ(seen, std::size_t{1} << 20);
  EXPECT_LT(parser.HTTPData().capacity(), 1000u);
  EXPECT_EQ(parser.RequestVar("a", 1), "");
}

TEST_F(RequestHandlingTest, SurvivesRandomRequests) {
  const std::string_view pieces[] = {"GET ",
                                     "POST ",
                                     "HEAD ",
                                     "/a.htm",
                                     "/",
                                     "index.qvs",
                                     "..",
                                     "?rx=5&id=1",
                                     " HTTP/1.1",
                                     "\r\n",
                                     "\r\n\r\n",
                                     "Host: h",
                                     "Range: bytes=",
                                     "0-1",
                                     ",-",
                                     "5-",
                                     "Content-Length: ",
                                     "3",
                                     "Connection: close",
                                     "Cookie: a=b",
                                     "filebin$",
                                     ".mp3",
                                     "%",
                                     "\\",
                                     "Accept-Encoding: gzip"};
  state.EncodeStatic = state.EncodeDynamic = state.LogHeaders = true;
  std::mt19937 dice(3);
  SlotRecord record;
  int answers = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (auto count = dice() % 12; count > 0; --count) {
      text += dice() % 8 == 0 ? std::string(1, static_cast<char>(dice()))
                              : std::string(pieces[dice() % std::size(pieces)]);
    }
    const auto response = handling.dataArrival(0, record, text, "10.0.0.9");
    if (!response) continue;
    ++answers;
    EXPECT_TRUE(response->head.starts_with("HTTP/1.1 "));
    EXPECT_TRUE(record.pendingText.empty());
  }
  EXPECT_GT(answers, 1000);
}

}  // namespace quorvane
