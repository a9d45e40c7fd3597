#include "http/standard/head.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

using BodyFraming = StandardHead::BodyFraming;

/// Why a head is refused; Ok when it isn't.
Status statusOf(const std::string& text) {
  StandardHead head;
  return head.read(text).value_or(Status::Ok);
}

/// The same of a request with these lines behind its Host.
Status statusWith(const std::string& lines, const std::string& method = "POST") {
  return statusOf(method + " / HTTP/1.1\r\nHost: h\r\n" + lines + "\r\n");
}

Status statusOfLine(const std::string& line) {
  return statusOf(line + "\r\nHost: h\r\n\r\n");
}

std::string pathOf(const std::string& target) {
  const auto read = StandardTarget::read(target);
  return read ? read->path : "refused";
}

}  // namespace

TEST(StandardHead, TakesARequestLineApart) {
  const std::string text = "DELETE /a%20b?x=%31 HTTP/1.1\r\nHost: Here:80\r\nX: y\r\n\r\n";
  StandardHead head;
  ASSERT_FALSE(head.read(text));
  EXPECT_EQ(head.method(), "DELETE");
  EXPECT_EQ(head.target().path, "/a b");
  EXPECT_EQ(head.target().query, "x=%31");
  EXPECT_EQ(head.host(), "Here:80");
  EXPECT_EQ(head.fields().size(), 2u);
  EXPECT_TRUE(head.keepsAlive());
  EXPECT_TRUE(head.isPlain());
}

TEST(StandardHead, RequestLines) {
  EXPECT_EQ(statusOfLine("GET / HTTP/1.1"), Status::Ok);
  EXPECT_EQ(statusOfLine("GET / HTTP/1.7"), Status::Ok);
  EXPECT_EQ(statusOfLine("G~T|* / HTTP/1.1"), Status::Ok);
  for (const char* line :
       {"GET /", "GET  / HTTP/1.1", "GET / HTTP/1.1 ", " GET / HTTP/1.1", "GET\t/ HTTP/1.1",
        "G(T / HTTP/1.1", "GET / http/1.1", "GET / HTTP/11", "GET / HTTP/1.10", "GET / HTTP/a.1",
        "GET / ", "/ HTTP/1.1", "", "GET * HTTP/1.1", "GET h HTTP/1.1", "GET ftp://h/ HTTP/1.1"}) {
    EXPECT_EQ(statusOfLine(line), Status::BadRequest) << line;
  }
  EXPECT_EQ(statusOfLine("GET / HTTP/2.0"), Status::VersionNotSupported);
  EXPECT_EQ(statusOfLine("GET / HTTP/0.9"), Status::VersionNotSupported);
  EXPECT_EQ(statusOfLine("CONNECT h:1 HTTP/1.1"), Status::NotImplemented);
  EXPECT_EQ(statusOfLine(std::string(33, 'A') + " / HTTP/1.1"), Status::NotImplemented);
}

TEST(StandardHead, FieldLines) {
  for (const char* line : {"X: y", "X:y", "X:", "X: \t", "x!#$%&'*+-.^_`|~1: \xE9\t y"}) {
    EXPECT_EQ(statusWith(std::string(line) + "\r\n"), Status::Ok) << line;
  }
  for (const std::string line : {"X : y", " X: y", "\tfolded", "X", ": y", "X\xE9: y", "X(: y",
                                 "X: a\rb", "X: a\nb", "X: a\x01", "X: a\x7F"}) {
    EXPECT_EQ(statusWith(line + "\r\n"), Status::BadRequest) << line;
  }
  EXPECT_EQ(statusWith(std::string("X: a\0b\r\n", 8)), Status::BadRequest);
}

TEST(StandardHead, Hosts) {
  const auto with = [](const std::string& lines, const char* version = "1.1") {
    return statusOf("GET / HTTP/" + std::string(version) + "\r\n" + lines + "\r\n");
  };
  for (const char* host :
       {"h", "h:80", "h:", "[::1]:80", "[::ffff:1.2.3.4]", "a_b%20", "1.2.3.4"}) {
    EXPECT_EQ(with("hOST: " + std::string(host) + "\r\n"), Status::Ok) << host;
  }
  for (const char* host :
       {"", "h:x", "http://h", "h/", "a b", "u@h", "[h]", "[::1", "[::1]80", "h%2", ":80"}) {
    EXPECT_EQ(with("Host: " + std::string(host) + "\r\n"), Status::BadRequest) << host;
  }
  EXPECT_EQ(with(""), Status::BadRequest);
  EXPECT_EQ(with("Host: h\r\nHost: h\r\n"), Status::BadRequest);
  EXPECT_EQ(with("", "1.0"), Status::Ok);
  EXPECT_EQ(with("Host: h\r\nHost: h\r\n", "1.0"), Status::BadRequest);
}

TEST(StandardHead, LengthsOfBodies) {
  StandardHead head;
  ASSERT_FALSE(head.read("POST / HTTP/1.1\r\nHost: h\r\ncontent-LENGTH: 007\r\n\r\n"));
  EXPECT_EQ(head.framing(), BodyFraming::Length);
  EXPECT_EQ(head.length(), 7u);
  for (const char* length : {"", "-1", "+1", "1 ,1", "1, 1", "0x1", "1.0", "a", "1 1"}) {
    EXPECT_EQ(statusWith("Content-Length: " + std::string(length) + "\r\n"), Status::BadRequest)
        << length;
  }
  EXPECT_EQ(statusWith("Content-Length: 5\r\nContent-Length: 5\r\n"), Status::BadRequest);
  EXPECT_EQ(statusWith("Content-Length: 5\r\nContent-Length: 6\r\n"), Status::BadRequest);
  EXPECT_EQ(statusWith("Content-Length: 99999999999999999999\r\n"), Status::ContentTooLarge);
  EXPECT_EQ(statusWith("Content-Type: text/plain\r\n"), Status::LengthRequired);
  EXPECT_EQ(statusWith("Content-Type: text/plain\r\n", "GET"), Status::Ok);
  EXPECT_EQ(statusWith(""), Status::Ok) << "that is a body of no bytes";
}

TEST(StandardHead, TransferCodings) {
  StandardHead head;
  ASSERT_FALSE(head.read("PUT / HTTP/1.1\r\nHost: h\r\nTransfer-Encoding: , Chunked\r\n\r\n"));
  EXPECT_EQ(head.framing(), BodyFraming::Chunked);
  EXPECT_FALSE(head.isPlain());
  for (const char* lines :
       {"Transfer-Encoding: chunked\r\nContent-Length: 5\r\n",
        "Content-Length: 5\r\nTransfer-Encoding: chunked\r\n", "Transfer-Encoding: \r\n",
        "Transfer-Encoding: chunked, chunked\r\n", "Transfer-Encoding: chunked, gzip\r\n",
        "Transfer-Encoding: chunked;a=b\r\n", "Transfer-Encoding: xchunked\r\n",
        "Transfer-Encoding: gzip\r\n", "Transfer-Encoding: chunked\r\nTransfer-Encoding: x\r\n"}) {
    EXPECT_EQ(statusWith(lines), Status::BadRequest) << lines;
  }
  EXPECT_EQ(statusWith("Transfer-Encoding: gzip, chunked\r\n"), Status::NotImplemented);
  EXPECT_EQ(statusWith("Transfer-Encoding: x\r\nTransfer-Encoding: chunked\r\n"),
            Status::NotImplemented);
  EXPECT_EQ(statusOf("POST / HTTP/1.0\r\nTransfer-Encoding: chunked\r\n\r\n"), Status::BadRequest);
}

TEST(StandardHead, ConnectionsAndExpectations) {
  const auto keeps = [](const std::string& version, const std::string& lines) {
    StandardHead head;
    EXPECT_FALSE(head.read("GET / HTTP/" + version + "\r\nHost: h\r\n" + lines + "\r\n"));
    return head.keepsAlive();
  };
  EXPECT_TRUE(keeps("1.1", ""));
  EXPECT_FALSE(keeps("1.1", "Connection: upgrade, CLOSE\r\n"));
  EXPECT_FALSE(keeps("1.1", "Connection: keep-alive\r\nConnection: close\r\n"));
  EXPECT_TRUE(keeps("1.1", "Connection: closed\r\n"));
  EXPECT_FALSE(keeps("1.0", ""));
  EXPECT_TRUE(keeps("1.0", "Connection: Keep-Alive\r\n"));

  StandardHead head;
  EXPECT_FALSE(head.read("PUT / HTTP/1.1\r\nHost: h\r\nExpect: 100-Continue\r\n\r\n"));
  EXPECT_TRUE(head.expectsContinue());
  EXPECT_FALSE(head.read("PUT / HTTP/1.0\r\nHost: h\r\nExpect: 100-Continue\r\n\r\n"));
  EXPECT_FALSE(head.expectsContinue());
  EXPECT_EQ(statusWith("Expect: more\r\n"), Status::ExpectationFailed);
}

TEST(StandardHead, ThePlainFormMeansTheSame) {
  const std::string text =
      "POST http://Other/a%20b?x HTTP/1.1\r\nHost: here\r\nX:\ty \r\nTransfer-Encoding: chunked\r\n"
      "\r\n";
  StandardHead head;
  ASSERT_FALSE(head.read(text));
  const std::string plain = head.plain(12);
  EXPECT_EQ(plain, "POST /a%20b?x HTTP/1.1\r\nHost: Other\r\nX: y\r\nContent-Length: 12\r\n\r\n");
  StandardHead again;
  ASSERT_FALSE(again.read(plain));
  EXPECT_TRUE(again.isPlain());
  EXPECT_EQ(again.length(), 12u);
  EXPECT_EQ(again.target().path, "/a b");
  for (const char* target : {"http://h", "http://h?a"}) {
    const std::string short_ = "GET " + std::string(target) + " HTTP/1.1\r\nHost: h\r\n\r\n";
    ASSERT_FALSE(head.read(short_));
    EXPECT_EQ(head.target().path, "/");
    EXPECT_TRUE(head.plain(0).starts_with("GET /")) << head.plain(0);
  }
  const std::string all = "OPTIONS http://h HTTP/1.1\r\nHost: h\r\n\r\n";
  ASSERT_FALSE(head.read(all));
  EXPECT_TRUE(head.plain(0).starts_with("OPTIONS * ")) << head.plain(0);
}

TEST(StandardTarget, PathsAreDecodedOnceAndNormal) {
  EXPECT_EQ(pathOf("/"), "/");
  EXPECT_EQ(pathOf("/a/b.htm"), "/a/b.htm");
  EXPECT_EQ(pathOf("/%C3%A9%20%2541+"), "/\xC3\xA9 %41+");
  EXPECT_EQ(pathOf("/a/./b/../c/"), "/a/c/");
  EXPECT_EQ(pathOf("/a/%2e%2E/b"), "/b");
  EXPECT_EQ(pathOf("/a/.."), "/");
  EXPECT_EQ(pathOf("/a/b/."), "/a/b/");
  EXPECT_EQ(pathOf("//a///b//"), "/a/b/");
  EXPECT_EQ(pathOf("/..a/.b/c..?../.."), "/..a/.b/c..");
  EXPECT_EQ(pathOf("HTTPS://h:1/a?b"), "/a");
}

TEST(StandardTarget, RefusesWhatIsNone) {
  for (const char* target :
       {"",        "a",         "/..",         "/a/../..",  "/%2e%2e",     "/%",           "/%1",
        "/%4g",    "/%00",      "/%0a",        "/%7f",      "/a%2fb",      "/a%2F..%2f..", "/a%5cb",
        "/a\\b",   "/a#b",      "/a b",        "/\xC3\xA9", "/a?\x01",     "/a?#",         "/<",
        "http://", "http:///a", "http://u@h/", "http:/a",   "http://a b/", "//%2e%2e/"}) {
    EXPECT_EQ(pathOf(target), "refused") << target;
  }
}

}  // namespace quorvane
