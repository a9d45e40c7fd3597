#include "http/standard/collector.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorvane {

namespace {

using request_collector::Collected;
using request_collector::Outcome;

const std::string kGet = "GET /a HTTP/1.1\r\nHost: h\r\n\r\n";
const std::string kPost = "POST /p HTTP/1.1\r\nHost: h\r\nContent-Length: 5\r\n\r\nab\r\nc";
const std::string kChunked =
    "PUT /c HTTP/1.1\r\nHost: h\r\nTransfer-Encoding: chunked\r\n\r\n"
    "3;x=\"a;b\"\r\nGET\r\n0a ; y ;z=1\r\n / HTTP/1.\r\n000\r\nTrailer: t\r\n\r\n";
const std::string kChunkedPlain =
    "PUT /c HTTP/1.1\r\nHost: h\r\nContent-Length: 13\r\n\r\nGET / HTTP/1.";

class StandardCollectorTest : public testing::Test {
 protected:
  /// What whole requests and refusals come of the bytes, taken as long as there are any.
  std::vector<std::string> take(std::string_view bytes) {
    std::vector<std::string> all;
    for (;;) {
      const Collected collected = collector.collect(record, bytes);
      bytes = {};
      if (collected.outcome == Outcome::Complete) {
        all.emplace_back(collected.request());
      } else if (collected.outcome == Outcome::Refused) {
        all.emplace_back(statusText(collected.refusal).substr(0, 3));
        return all;
      } else {
        if (collected.outcome == Outcome::TellToGoOn) all.emplace_back("go on");
        return all;
      }
    }
  }
  /// The first of them.
  std::string first(std::string_view bytes) {
    record.reset();
    const auto all = take(bytes);
    return all.empty() ? "more" : all.front();
  }
  static std::string chunked(const std::string& body) {
    return "PUT /c HTTP/1.1\r\nHost: h\r\nTransfer-Encoding: chunked\r\n\r\n" + body;
  }

  StandardCollector collector;
  SlotRecord record;
};

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(StandardCollectorTest, AWholeRequestIsNotCopied) {
  const Collected collected = collector.collect(record, kGet);
  EXPECT_EQ(collected.outcome, Outcome::Complete);
  EXPECT_EQ(collected.direct.data(), kGet.data());
  EXPECT_EQ(collected.bodyStart, kGet.size());
  EXPECT_FALSE(record.hasNext());
}

TEST_F(StandardCollectorTest, TakesRequestsOneBehindTheOther) {
  EXPECT_EQ(take(kGet + kPost + "\r\n" + kChunked + kGet + "GET"),
            (Texts{kGet, kPost, kChunkedPlain, kGet}));
  EXPECT_EQ(record.pendingText, "GET");
  EXPECT_EQ(take(" /b HTTP/1.0\r\n\r\n"), Texts{"GET /b HTTP/1.0\r\n\r\n"});
}

TEST_F(StandardCollectorTest, JoinsRequestsCutAnywhere) {
  const std::string all = "\r\n" + kGet + kChunked + kPost + kGet;
  const Texts requests{kGet, kChunkedPlain, kPost, kGet};
  for (std::size_t cut = 1; cut < all.size(); ++cut) {
    Texts taken = take(std::string_view(all).substr(0, cut));
    for (auto& request : take(std::string_view(all).substr(cut))) taken.push_back(request);
    EXPECT_EQ(taken, requests) << cut;
  }
  Texts taken;
  for (const char c : all) {
    for (auto& request : take(std::string_view(&c, 1))) taken.push_back(request);
  }
  EXPECT_EQ(taken, requests);
}

TEST_F(StandardCollectorTest, ARequestInABodyIsNone) {
  const std::string inner = "GET /secret HTTP/1.1\r\nHost: h\r\n\r\n";
  const std::string outer =
      "GET /a HTTP/1.1\r\nHost: h\r\nContent-Length: " + std::to_string(inner.size()) + "\r\n\r\n" +
      inner;
  EXPECT_EQ(take(outer + kGet), (Texts{outer, kGet}));
}

TEST_F(StandardCollectorTest, ARequestThatHadToWaitIsTakenOnceMore) {
  const std::string both = kPost + kGet;
  const Collected collected = collector.collect(record, both);
  record.pendingText = std::string(collected.request());
  record.isWhole = true;
  EXPECT_EQ(take({}), (Texts{kPost, kGet}));
}

TEST_F(StandardCollectorTest, RefusesLinesThatEndOtherwise) {
  EXPECT_EQ(first("GET / HTTP/1.1\nHost: h\n\n"), "400");
  EXPECT_EQ(first("GET / HTTP/1.1\r\nHost: h\r\nX: y\n"), "400");
  EXPECT_EQ(first("\nGET / HTTP/1.1\r\n"), "400");
  EXPECT_EQ(first("GET / HTTP/1.1\rHost: h\r\n\r\n"), "400");
  EXPECT_EQ(first("GET / HTTP/1.1\r\nHost: h\r\nX: a\rb\r\n\r\n"), "400");
}

TEST_F(StandardCollectorTest, BoundsOfHeads) {
  const auto target = [](std::size_t length) { return "GET /" + std::string(length, 'a'); };
  EXPECT_EQ(first(target(StandardHead::kMostLine)), "414");
  EXPECT_EQ(first(target(StandardHead::kMostLine) + " HTTP/1.1\r\nHost: h\r\n\r\n"), "414");
  EXPECT_EQ(first(target(StandardHead::kMostLine - 5)), "more");
  const std::string line = "X: " + std::string(8000, 'x') + "\r\n";
  std::string head = "GET / HTTP/1.1\r\nHost: h\r\n";
  while (head.size() < StandardHead::kMostBytes) head += line;
  EXPECT_EQ(first(head), "431");
  EXPECT_EQ(first("GET / HTTP/1.1\r\nX: " + std::string(StandardHead::kMostLine, 'x')), "431");
  EXPECT_FALSE(record.hasNext());
  EXPECT_TRUE(record.pendingText.empty());
}

TEST_F(StandardCollectorTest, BoundsOfBodies) {
  const std::string tooLong = std::to_string(std::int64_t{request_collector::kMostBodyBytes} + 1);
  EXPECT_EQ(first("PUT / HTTP/1.1\r\nHost: h\r\nContent-Length: " + tooLong + "\r\n\r\n"), "413");
  EXPECT_EQ(first(chunked("10000001\r\n")), "413");
  EXPECT_EQ(first(chunked("ffffffffffffffffffff\r\n")), "413");
  EXPECT_EQ(first(chunked("8000000\r\n")), "more");
  EXPECT_EQ(first(chunked("1;" + std::string(ChunkedBody::kMostAround, 'x'))), "431");
  std::string extensions;
  for (int i = 0; i < 20; ++i) extensions += "1;" + std::string(4000, 'x') + "\r\na\r\n";
  EXPECT_EQ(first(chunked(extensions)), "431");
  std::string small;
  for (int i = 0; i < 100'000; ++i) small += "1\r\na\r\n";
  EXPECT_TRUE(first(chunked(small + "0\r\n\r\n")).ends_with(std::string(100'000, 'a')))
      << "small chunks are no fault";
}

TEST_F(StandardCollectorTest, RefusesWhatAreNoChunks) {
  for (const char* body :
       {"x\r\n",          "\r\n",         "-1\r\n",         "+1\r\n",      "0x1\r\n",
        " 1\r\n",         "1\nab",        "1\r\nab\r\n",    "1\r\na\n",    "1 2\r\n",
        "1;\r\n",         "1;=a\r\n",     "1;a=\r\n",       "1;a=\"b\r\n", "1;a b\r\n",
        "1;a=\"b\"c\r\n", "1;a=\x01\r\n", "0\r\nX : y\r\n", "0\r\nx\r\n",  "0\r\n y: z\r\n",
        "0\r\n\n"}) {
    EXPECT_EQ(first(chunked(body)), "400") << body;
  }
}

TEST_F(StandardCollectorTest, TellsThoseToGoOnWhoWaitForIt) {
  const std::string head =
      "PUT / HTTP/1.1\r\nHost: h\r\nExpect: 100-continue\r\nContent-Length: 3\r\n";
  EXPECT_EQ(take(head + "\r\n"), Texts{"go on"});
  EXPECT_EQ(take("abc" + kGet), (Texts{head + "\r\nabc", kGet}));
  EXPECT_EQ(take(head + "\r\na"), Texts{});
  EXPECT_EQ(take("bc").size(), 1u);
  EXPECT_EQ(first("PUT / HTTP/1.1\r\nHost: h\r\nExpect: 100-continue\r\n"
                  "Transfer-Encoding: chunked\r\n\r\n"),
            "go on");
  EXPECT_EQ(first("PUT / HTTP/1.0\r\nExpect: 100-continue\r\nContent-Length: 3\r\n\r\n"), "more");
}

}  // namespace quorvane
