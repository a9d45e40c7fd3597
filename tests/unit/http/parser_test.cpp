#include "http/clsHTTPParser.h"

#include <gtest/gtest.h>

#include <random>

#include "http/cookie_jar.h"
#include "support/clsWEncode.h"

namespace quorvane {

namespace {

class ParserTest : public testing::Test {
 protected:
  /// A GET of "/" with these header lines, each ended by CR LF.
  void parseHeaders(const std::string& headers) {
    parser.setHTTPData("GET / HTTP/1.1\r\n" + headers + "\r\n");
  }
  void parseTarget(const std::string& target) {
    parser.setHTTPData("GET " + target + " HTTP/1.1\r\n\r\n");
  }
  std::string query(std::string_view name) { return parser.RequestVar(name, 0); }
  std::string form(std::string_view name) { return parser.RequestVar(name, 1); }

  clsWEncode encoder;
  CookieJar jar;
  clsHTTPParser parser{encoder, jar};
};

}  // namespace

TEST_F(ParserTest, SplitsTheTarget) {
  parseTarget("/a/b.htm");
  EXPECT_TRUE(parser.ValidRequest());
  EXPECT_EQ(parser.DocumentUrl(), "/a/b.htm");
  EXPECT_EQ(parser.DocumentPath(), "/a/");
  EXPECT_EQ(parser.DocumentTitle(), "b.htm");
  EXPECT_EQ(parser.DocumentQueryString(), "");
  EXPECT_EQ(parser.formMethod(), 0);
  EXPECT_TRUE(parser.KeepAlive());
}

TEST_F(ParserTest, BackslashesBecomeSlashes) {
  parseTarget("\\a\\b.htm?x=\\");
  EXPECT_EQ(parser.DocumentUrl(), "/a/b.htm");
  EXPECT_EQ(parser.DocumentPath(), "/a/");
  EXPECT_EQ(query("x"), "\\");
}

TEST_F(ParserTest, TargetsWithoutASlashAreAllTitle) {
  parseTarget("b.htm");
  EXPECT_EQ(parser.DocumentPath(), "");
  EXPECT_EQ(parser.DocumentTitle(), "b.htm");
  parser.setHTTPData("GET  HTTP/1.1\r\n\r\n");
  EXPECT_TRUE(parser.ValidRequest());
  EXPECT_EQ(parser.DocumentTitle(), "");
}

TEST_F(ParserTest, ReadsQueryVariables) {
  parseTarget("/x?A=1&a=2&=3&b&c=p+q%21&d=&e=1=2");
  EXPECT_EQ(parser.DocumentQueryString(), "A=1&a=2&=3&b&c=p+q%21&d=&e=1=2");
  EXPECT_EQ(query("a"), "2");
  EXPECT_EQ(query("A"), "2");
  EXPECT_EQ(query("b"), "");
  EXPECT_EQ(query("c"), "p q!");
  EXPECT_EQ(query("d"), "");
  EXPECT_EQ(query("e"), "1=2");
  EXPECT_EQ(query(""), "");
  EXPECT_EQ(query("%"), "");
}

TEST_F(ParserTest, TheQueryStringBeginsAtTheFirstQuestionMark) {
  parseTarget("/x?a=1?b=2");
  EXPECT_EQ(parser.DocumentTitle(), "x");
  EXPECT_EQ(query("a"), "1?b=2");
}

TEST_F(ParserTest, NamesAreNotDecodedAndUndecodableVariablesAreSkipped) {
  parseTarget("/x?a%20b=1&c=%zz&d=2");
  EXPECT_EQ(query("a%20b"), "1");
  EXPECT_EQ(query("a b"), "");
  EXPECT_EQ(query("c"), "");
  EXPECT_EQ(query("d"), "2");
}

TEST_F(ParserTest, ReadsFormVariables) {
  parser.setHTTPData("POST /x?a=q&b=q HTTP/1.1\r\nHost: h\r\n\r\nA=f&c=%31\r\n&d=4");
  EXPECT_EQ(parser.formMethod(), 1);
  EXPECT_EQ(form("a"), "f");
  EXPECT_EQ(form("c"), "1\r\n");
  EXPECT_EQ(form("d"), "4");
  EXPECT_EQ(form("b"), "");
  EXPECT_EQ(query("a"), "q");
}

TEST_F(ParserTest, ChoosesTheSourceOfAVariable) {
  const auto both = [&](std::int32_t source) { return parser.RequestVar("a", source); };
  parser.setHTTPData("POST /x?a=q&b=q HTTP/1.1\r\n\r\na=f&c=f");
  EXPECT_EQ(both(0), "q");
  EXPECT_EQ(both(1), "f");
  EXPECT_EQ(both(2), "");
  EXPECT_EQ(both(3), "f");
  EXPECT_EQ(both(4), "q");
  EXPECT_EQ(both(5), "");
  EXPECT_EQ(both(-1), "");
  EXPECT_EQ(parser.RequestVar("c", 4), "f");
  EXPECT_EQ(parser.RequestVar("b", 3), "");
  parseTarget("/x?a=q");
  EXPECT_EQ(both(3), "q");
  EXPECT_EQ(both(1), "");
  parser.ClearVars();
  EXPECT_EQ(both(4), "");
  EXPECT_EQ(parser.DocumentQueryString(), "a=q");
}

TEST_F(ParserTest, AFormNeedsThePostMethodAndABlankLine) {
  parser.setHTTPData("GET /x HTTP/1.1\r\n\r\na=1");
  EXPECT_EQ(form("a"), "");
  parser.setHTTPData("POST /x HTTP/1.1\r\na=1");
  EXPECT_TRUE(parser.ValidRequest());
  EXPECT_EQ(form("a"), "");
  parser.setHTTPData("post /x HTTP/1.1\r\n\r\na=1");
  EXPECT_EQ(parser.formMethod(), 1);
  EXPECT_EQ(form("a"), "1");
}

TEST_F(ParserTest, TheRequestLineHasThreeParts) {
  for (const char* text : {"", "GET / HTTP/1.1", "GET /\r\n\r\n", "GET  / HTTP/1.1\r\n\r\n",
                           "GET / HTTP/1.1 \r\n\r\n", "\r\n\r\n", "GET /a b HTTP/1.1\r\n\r\n"}) {
    parser.setHTTPData(text);
    EXPECT_FALSE(parser.ValidRequest()) << text;
    EXPECT_EQ(parser.DocumentTitle(), "") << text;
  }
  parser.setHTTPData("GET / anything\r\n");
  EXPECT_TRUE(parser.ValidRequest());
}

TEST_F(ParserTest, ReadsTheHost) {
  parseHeaders("HOST:  Example.COM:7007 \r\n");
  EXPECT_TRUE(parser.ValidRequest());
  EXPECT_EQ(parser.HostAddr(), "example.com:7007");
  parseHeaders("Host: HTTP://Example.com\r\n");
  EXPECT_TRUE(parser.ValidRequest());
  EXPECT_EQ(parser.HostAddr(), "example.com");
  parseHeaders("");
  EXPECT_TRUE(parser.ValidRequest());
  EXPECT_EQ(parser.HostAddr(), "");
}

TEST_F(ParserTest, ABadHostStopsTheParse) {
  for (const char* host : {"", "   ", "a/b", "http://", "http://a/", "http:// "}) {
    parser.setHTTPData("GET /x.htm HTTP/1.1\r\nHost:" + std::string(host) +
                       "\r\nConnection: close\r\n\r\n");
    EXPECT_FALSE(parser.ValidRequest()) << host;
    EXPECT_EQ(parser.HostAddr(), "");
    EXPECT_EQ(parser.DocumentTitle(), "");
    EXPECT_TRUE(parser.KeepAlive());
  }
}

TEST_F(ParserTest, AHeaderOnTheFirstLineIsNeverFound) {
  parser.setHTTPData("host: a/b\r\n\r\n");
  EXPECT_EQ(parser.HostAddr(), "");
  parser.setHTTPData("connection: close x\r\n\r\n");
  EXPECT_TRUE(parser.ValidRequest());
  EXPECT_TRUE(parser.KeepAlive());
}

TEST_F(ParserTest, OnlyCloseClosesTheConnection) {
  parseHeaders("Connection: Close\r\n");
  EXPECT_FALSE(parser.KeepAlive());
  parseHeaders("Connection:close\r\n");
  EXPECT_FALSE(parser.KeepAlive());
  parseHeaders("Connection: close, TE\r\n");
  EXPECT_TRUE(parser.KeepAlive());
  parseHeaders("Connection: keep-alive\r\nConnection: close\r\n");
  EXPECT_TRUE(parser.KeepAlive());
}

TEST_F(ParserTest, GzipAcceptanceCarriesOver) {
  parseHeaders("Accept-Encoding: deflate, GZIP;q=1\r\n");
  EXPECT_TRUE(parser.AcceptGZipEncoding());
  parseHeaders("");
  EXPECT_TRUE(parser.AcceptGZipEncoding());
  parseHeaders("Accept-Encoding:gzip\r\n");
  EXPECT_TRUE(parser.AcceptGZipEncoding());
  parseHeaders("Accept-Encoding: br\r\n");
  EXPECT_FALSE(parser.AcceptGZipEncoding());
  parseHeaders("Accept-Encoding:gzip\r\n");
  EXPECT_FALSE(parser.AcceptGZipEncoding());
}

TEST_F(ParserTest, ReadsTheRangeSet) {
  parseHeaders("Range: bytes = 0 - 99, 5-\r\n");
  EXPECT_EQ(parser.RangeRequest(), "0-99,5-");
  parseHeaders("Range: BYTES=1-2\r\n");
  EXPECT_EQ(parser.RangeRequest(), "1-2");
  parseHeaders("Range: lines=1-2\r\n");
  EXPECT_EQ(parser.RangeRequest(), "");
  parseHeaders("Range:bytes=1-2\r\n");
  EXPECT_EQ(parser.RangeRequest(), "");
}

TEST_F(ParserTest, ReadsTheSessionCookie) {
  parseHeaders("Cookie: a=1; qvs_sessionid=4711; b=2\r\n");
  EXPECT_EQ(parser.SessionID(), 4711);
  EXPECT_EQ(jar.find("QVS_SESSIONID"), nullptr);
  parseHeaders("Cookie: QVS_SESSIONID=abc\r\n");
  EXPECT_EQ(parser.SessionID(), 0);
  parseHeaders("Cookie: QVS_SESSIONID=2.5\r\n");
  EXPECT_EQ(parser.SessionID(), 2);
  parseHeaders("Cookie: QVS_SESSIONID=99999999999\r\n");
  EXPECT_EQ(parser.SessionID(), 0);
  parseHeaders("Cookie:QVS_SESSIONID=7\r\n");
  EXPECT_EQ(parser.SessionID(), 0);
}

TEST_F(ParserTest, FillsTheCookieJar) {
  parseHeaders("Cookie: Name=a%20b+c; empty=; =x; none; Other=1=2; bad=%zz\r\n");
  ASSERT_NE(jar.find("name"), nullptr);
  EXPECT_EQ(jar.find("name")->Name(), "NAME");
  EXPECT_EQ(jar.find("name")->Value(), "a b c");
  EXPECT_FALSE(jar.find("name")->changed());
  EXPECT_EQ(jar.find("empty")->Value(), "");
  EXPECT_EQ(jar.find("OTHER")->Value(), "1=2");
  EXPECT_EQ(jar.find("none"), nullptr);
  EXPECT_EQ(jar.find("bad"), nullptr);
}

TEST_F(ParserTest, ALaterCookieOfTheSameNameReplacesTheValue) {
  parseHeaders("Cookie: a=1; A=2\r\n");
  EXPECT_EQ(jar.find("a")->Value(), "2");
  EXPECT_FALSE(jar.find("a")->changed());
}

TEST_F(ParserTest, ResetKeepsWhatOutlivesARequest) {
  parser.setHTTPData(
      "POST /x?a=1 HTTP/1.1\r\nHost: h\r\nConnection: close\r\nRange: bytes=1-\r\n"
      "Accept-Encoding: gzip\r\nCookie: QVS_SESSIONID=5\r\n\r\nb=2");
  parser.setRemoteIP("10.0.0.1");
  const std::string data = parser.HTTPData();
  parser.Reset();
  EXPECT_FALSE(parser.ValidRequest());
  EXPECT_TRUE(parser.KeepAlive());
  EXPECT_EQ(parser.SessionID(), 0);
  EXPECT_EQ(parser.HostAddr() + parser.RangeRequest() + parser.DocumentTitle() +
                parser.DocumentUrl() + parser.DocumentPath() + parser.DocumentQueryString(),
            "");
  EXPECT_EQ(parser.RequestVar("a", 4) + parser.RequestVar("b", 4), "");
  EXPECT_TRUE(parser.AcceptGZipEncoding());
  EXPECT_EQ(parser.formMethod(), 1);
  EXPECT_EQ(parser.RemoteIP(), "10.0.0.1");
  EXPECT_EQ(parser.HTTPData(), data);
}

TEST_F(ParserTest, HeadersAreFoundWhereverALineBeginsWithThem) {
  parser.setHTTPData("POST /x HTTP/1.1\r\n\r\na=1\r\nrange: bytes=4-5");
  EXPECT_EQ(parser.RangeRequest(), "4-5");
  parser.setHTTPData("GET /x HTTP/1.1\r\nX-Range: bytes=4-5\r\n\r\n");
  EXPECT_EQ(parser.RangeRequest(), "");
}

TEST_F(ParserTest, TheNumberOfVariablesIsBounded) {
  std::string text = "POST /x HTTP/1.1\r\n\r\n";
  for (std::size_t i = 0; i <= clsHTTPParser::kMostVariables; ++i) {
    text += "v" + std::to_string(i) + "=1&";
  }
  parser.setHTTPData(text);
  EXPECT_EQ(form("v" + std::to_string(clsHTTPParser::kMostVariables - 1)), "1");
  EXPECT_EQ(form("v" + std::to_string(clsHTTPParser::kMostVariables)), "");
}

TEST_F(ParserTest, DuplicatesAndEmptyPiecesCount) {
  for (const char* piece : {"a=2&", "&"}) {
    std::string text = "POST /x HTTP/1.1\r\n\r\na=1&";
    for (std::size_t i = 1; i < clsHTTPParser::kMostVariables; ++i) text += piece;
    parser.setHTTPData(text + "late=1");
    EXPECT_NE(form("a"), "");
    EXPECT_EQ(form("late"), "");
    EXPECT_LE(parser.variables(clsHTTPParser::FormOnly).size(), clsHTTPParser::kMostVariables);
  }
}

TEST_F(ParserTest, SurvivesRandomBytes) {
  const std::string_view pieces[] = {"GET ",        "POST ",
                                     "/",           "?a=%",
                                     "&",           " HTTP/1.1",
                                     "\r\n",        "\r\n\r\n",
                                     "Host:",       "Cookie: ",
                                     "=",           "; ",
                                     "Range: ",     "bytes=",
                                     "Connection:", "\\",
                                     "%zz",         "QVS_SESSIONID=",
                                     "&H",          "Accept-Encoding: ",
                                     "gzip",        "\r",
                                     "\n"};
  std::mt19937 random(1);
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (auto count = random() % 20; count > 0; --count) {
      if (random() % 4 == 0) {
        text += static_cast<char>(random());
      } else {
        text += pieces[random() % std::size(pieces)];
      }
    }
    parser.setHTTPData(text);
    EXPECT_EQ(parser.HTTPData(), text);
    EXPECT_EQ(parser.DocumentUrl(), parser.DocumentPath() + parser.DocumentTitle());
    if (!parser.ValidRequest()) {
      EXPECT_EQ(parser.DocumentUrl(), "");
    }
  }
}

}  // namespace quorvane
