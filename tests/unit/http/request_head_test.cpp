#include "http/request_head.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorvane {

namespace {

RequestHead headOf(std::string_view text) {
  RequestHead head;
  head.assign(text);
  return head;
}

/// The header lines as "name=value" in brackets.
std::string headersOf(std::string_view text) {
  const RequestHead head = headOf(text);
  std::string all;
  for (const RequestHead::Header& header : head.headers()) {
    all.append("[").append(header.name).append("=").append(header.value).append("]");
  }
  return all;
}

std::string looseLinesOf(std::string_view text) {
  std::string all;
  headOf(text).forEachLooseLine(
      [&](std::string_view line) { all.append("[").append(line) += ']'; });
  return all;
}

}  // namespace

TEST(RequestText, ItsClassIsToldByTheFirstCharacters) {
  EXPECT_EQ(request_text::classOf("GET /"), RequestClass::Get);
  EXPECT_EQ(request_text::classOf("HEAD /"), RequestClass::Head);
  EXPECT_EQ(request_text::classOf("POST /"), RequestClass::Post);
  for (const char* text : {"", "GET", "GET\t/", "get /", "PUT /", " GET /", "HEADER /"}) {
    EXPECT_EQ(request_text::classOf(text), RequestClass::Other) << text;
  }
}

TEST(RequestText, TheBodyBeginsBehindABlankLine) {
  EXPECT_EQ(request_text::bodyStart("G\r\n\r\nbody"), 5U);
  EXPECT_EQ(request_text::bodyStart("G\r\n\r\nb\r\n\r\n", 2), 10U);
  EXPECT_EQ(request_text::bodyStart("\r\n\r\n"), 4U);
  EXPECT_EQ(request_text::bodyStart("G\n\n\r\n"), 0U);
}

TEST(RequestText, ALengthIsAnnouncedAnywhere) {
  EXPECT_EQ(request_text::announcedLength("POST /\r\nX-CONTENT-length:  12.5 \r\n\r\n"), 12);
  EXPECT_EQ(request_text::announcedLength("POST /\r\n\r\ncontent-length: 7"), 7);
  EXPECT_EQ(request_text::announcedLength("POST /\r\nContent-Length:7\r\n\r\n"), 0);
  EXPECT_EQ(request_text::announcedLength("POST /\r\nContent-Length: 7a\r\n\r\n"), 0);
  EXPECT_EQ(request_text::announcedLength("POST /\r\nContent-Length: 99999999999\r\n\r\n"),
            std::numeric_limits<std::int32_t>::max());
}

TEST(RequestHead, ARequestLineHasThreeWords) {
  const RequestHead head = headOf("GET /a?b HTTP/1.1\r\nHost: h\r\n\r\n");
  EXPECT_TRUE(head.isWellFormed());
  EXPECT_EQ(head.method(), "GET");
  EXPECT_EQ(head.target(), "/a?b");
  EXPECT_EQ(head.version(), "HTTP/1.1");
  for (const char* text :
       {"GET /a HTTP/1.1", "GET  /a HTTP/1.1\r\n", "GET /a\r\n", "\r\n\r\n", ""}) {
    const RequestHead other = headOf(text);
    EXPECT_FALSE(other.isWellFormed()) << text;
    EXPECT_EQ(other.method(), "") << text;
    EXPECT_EQ(other.target(), "") << text;
    EXPECT_EQ(other.version(), "") << text;
  }
  EXPECT_EQ(headOf("  \r\n").target(), "");
  EXPECT_TRUE(headOf("  \r\n").isWellFormed());
}

TEST(RequestHead, TheBodyIsWhatFollowsTheBlankLine) {
  EXPECT_EQ(headOf("POST / x\r\nA: 1\r\n\r\na=1\r\n\r\nb").body(), "a=1\r\n\r\nb");
  EXPECT_TRUE(headOf("\r\n\r\n").hasBody());
  EXPECT_EQ(headOf("\r\n\r\n").body(), "");
  EXPECT_FALSE(headOf("GET / x\r\n").hasBody());
  EXPECT_EQ(headOf("GET / x\r\n").body(), "");
}

TEST(RequestHead, HeaderLinesEndWithTheHead) {
  EXPECT_EQ(headersOf("GET / x\r\n Name :  v \r\nnone\r\n: x\r\nB:\r\nc:d:e\r\n\r\nF: 1\r\n"),
            "[Name=v ][=x][B=][c=d:e]");
  EXPECT_EQ(headersOf("GET /:x y\r\nA: 1"), "[GET /=x y][A=1]") << "a request line with a colon";
  EXPECT_EQ(headersOf(""), "");
}

TEST(RequestHead, LooseLinesRunOnIntoTheBody) {
  EXPECT_EQ(looseLinesOf("GET / x\r\nA: 1\r\n\r\nb\nc\r\nrange: x"), "[A: 1][][b\nc][range: x]");
  EXPECT_EQ(looseLinesOf("GET / x"), "");
  EXPECT_EQ(looseLinesOf("GET / x\r\n"), "[]");
}

TEST(RequestHead, ViewsMoveWithTheHead) {
  RequestHead head;
  head.adopt("G / 1\r\n\r\nb");  // short enough to lie within the object
  const RequestHead moved = std::move(head);
  EXPECT_EQ(moved.target(), "/");
  EXPECT_EQ(moved.body(), "b");
}

TEST(RequestHead, GivesItsMemoryBack) {
  RequestHead head = headOf("GET / x\r\n\r\n" + std::string(100000, 'b'));
  head.release();
  EXPECT_LT(head.text().capacity(), 1000U);
  EXPECT_FALSE(head.isWellFormed());
  EXPECT_EQ(head.target(), "");
  EXPECT_EQ(head.body(), "");
}

}  // namespace quorvane
