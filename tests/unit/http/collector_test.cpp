#include <gtest/gtest.h>

#include <random>

#include "http/request_collector.h"

namespace quorvane {

using namespace request_collector;

namespace {

const std::string kGet = "GET /a.htm HTTP/1.1\r\nHost: h\r\nAccept: */*\r\n\r\n";
const std::string kPost =
    "POST /a.qvs HTTP/1.1\r\nHost: h\r\nContent-Length: 11\r\n\r\nname=value1";

/// Feeds the pieces in turn; all but the last must leave the request incomplete.
std::string joined(const std::vector<std::string>& pieces) {
  SlotRecord record;
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
    EXPECT_EQ(collect(record, pieces[i]).outcome, Outcome::NeedMore) << i;
  }
  const Collected last = collect(record, pieces.back());
  EXPECT_EQ(last.outcome, Outcome::Complete);
  EXPECT_TRUE(record.pendingText.empty());
  EXPECT_EQ(record.expectedBodyLength, 0);
  return std::string(last.request());
}

}  // namespace

TEST(Collector, AWholeRequestIsNotCopied) {
  SlotRecord record;
  const Collected collected = collect(record, kGet);
  EXPECT_EQ(collected.outcome, Outcome::Complete);
  EXPECT_EQ(collected.direct.data(), kGet.data());
}

TEST(Collector, JoinsARequestCutAnywhere) {
  for (const std::string& request : {kGet, kPost}) {
    for (std::size_t cut = 1; cut < request.size(); ++cut) {
      EXPECT_EQ(joined({request.substr(0, cut), request.substr(cut)}), request) << cut;
    }
    std::vector<std::string> bytes;
    for (const char c : request) bytes.emplace_back(1, c);
    EXPECT_EQ(joined(bytes), request);
  }
}

TEST(Collector, APostIsHeldUntilItsBodyIsThere) {
  SlotRecord record;
  EXPECT_EQ(collect(record, kPost.substr(0, kPost.size() - 1)).outcome, Outcome::NeedMore);
  EXPECT_EQ(record.expectedBodyLength, 11);
  EXPECT_EQ(collect(record, "12").request(), kPost + "2");
}

TEST(Collector, AClientThatWaitsIsToldToGoOnOnce) {
  const std::string head =
      "POST /a.qvs HTTP/1.1\r\nExpect: 100-Continue\r\nContent-Length: 11\r\n\r\n";
  SlotRecord record;
  EXPECT_EQ(collect(record, head.substr(0, 40)).outcome, Outcome::NeedMore);
  EXPECT_EQ(collect(record, head.substr(40)).outcome, Outcome::TellToGoOn);
  EXPECT_EQ(collect(record, "name=").outcome, Outcome::NeedMore);
  EXPECT_EQ(collect(record, "value1").request(), head + "name=value1");
  EXPECT_EQ(collect(record, head + "name=value1").outcome, Outcome::Complete);
}

TEST(Collector, APostWithoutALengthIsCompleteAtOnce) {
  for (const std::string header :
       {"", "Content-Length: x\r\n", "Content-Length:5\r\n", "Content-Length: 0\r\n",
        "Content-Length: -7\r\n", "Content-Length: -99999999999\r\n"}) {
    EXPECT_EQ(joined({"POST / HTTP/1.1\r\n" + header + "\r\n"}),
              "POST / HTTP/1.1\r\n" + header + "\r\n");
  }
}

TEST(Collector, LengthsAreRoundedNumbers) {
  SlotRecord record;
  EXPECT_EQ(collect(record, "POST / HTTP/1.1\r\ncontent-LENGTH: 2.5 \r\n\r\n").outcome,
            Outcome::NeedMore);
  EXPECT_EQ(record.expectedBodyLength, 2);
}

TEST(Collector, OtherMethodsNeedNoBody) {
  EXPECT_EQ(joined({"GET / HTTP/1.1\r\nContent-Length: 5\r\n\r\n"}),
            "GET / HTTP/1.1\r\nContent-Length: 5\r\n\r\n");
  EXPECT_EQ(joined({"PUT / HTTP/1.1\r\nContent-Length: 5\r\n\r\n"}),
            "PUT / HTTP/1.1\r\nContent-Length: 5\r\n\r\n");
}

TEST(Collector, ANewRequestDiscardsAnUnfinishedOne) {
  SlotRecord record;
  EXPECT_EQ(collect(record, kPost.substr(0, kPost.size() - 3)).outcome, Outcome::NeedMore);
  EXPECT_EQ(collect(record, kGet).request(), kGet);
  EXPECT_EQ(collect(record, "GET /unfin").outcome, Outcome::NeedMore);
  EXPECT_EQ(record.expectedBodyLength, 0);
  EXPECT_EQ(collect(record, "GET /b HTTP/1.1\r\n\r\n").request(), "GET /b HTTP/1.1\r\n\r\n");
}

TEST(Collector, APieceThatLooksLikeARequestStartsOne) {
  SlotRecord record;
  collect(record, "POST / HTTP/1.1\r\nContent-Length: 50\r\n\r\ntext=");
  EXPECT_EQ(collect(record, "HEAD is a word").outcome, Outcome::NeedMore);
  EXPECT_EQ(record.pendingText, "HEAD is a word");
}

TEST(Collector, TextBehindARequestBelongsToIt) {
  const std::string pipelined = kGet + "GET /second HTTP/1.1\r\n\r\n";
  EXPECT_EQ(joined({pipelined}), pipelined);
  for (std::size_t cut = 1; cut < kGet.size(); ++cut) {
    EXPECT_EQ(joined({pipelined.substr(0, cut), pipelined.substr(cut)}), pipelined) << cut;
  }
}

TEST(Collector, ADiscardedRequestGivesItsMemoryBack) {
  SlotRecord record;
  collect(record, "POST / HTTP/1.1\r\nContent-Length: 999999\r\n\r\n" + std::string(500000, 'x'));
  EXPECT_GT(record.pendingText.capacity(), 500000u);
  collect(record, "GET /");
  EXPECT_LT(record.pendingText.capacity(), 1000u);
}

TEST(Collector, NothingIsNothing) {
  SlotRecord record;
  EXPECT_EQ(collect(record, "").outcome, Outcome::NeedMore);
  collect(record, "GET /a");
  EXPECT_EQ(collect(record, "").outcome, Outcome::NeedMore);
  EXPECT_EQ(record.pendingText, "GET /a");
}

TEST(Collector, HeaderBlocksAreBounded) {
  SlotRecord record;
  const std::string block(1000, 'x');
  collect(record, "GET / HTTP/1.1\r\n");
  Outcome outcome = Outcome::NeedMore;
  std::size_t sent = 0;
  while (outcome == Outcome::NeedMore && sent < 2 * kMostHeaderBytes) {
    outcome = collect(record, block).outcome;
    sent += block.size();
  }
  EXPECT_EQ(outcome, Outcome::TooLarge);
  EXPECT_LE(sent, kMostHeaderBytes + block.size());
  EXPECT_TRUE(record.pendingText.empty());

  const std::string whole =
      "GET / HTTP/1.1\r\nX: " + std::string(kMostHeaderBytes, 'x') + "\r\n\r\n";
  EXPECT_EQ(collect(record, whole).outcome, Outcome::TooLarge);
}

TEST(Collector, AnnouncedBodiesAreBounded) {
  for (const char* length : {"268435457", "2147483648", "99999999999999999999", "1e30"}) {
    SlotRecord record;
    const std::string head =
        "POST / HTTP/1.1\r\nContent-Length: " + std::string(length) + "\r\n\r\n";
    EXPECT_EQ(collect(record, head).outcome, Outcome::TooLarge) << length;
  }
  SlotRecord record;
  EXPECT_EQ(collect(record, "POST / HTTP/1.1\r\nContent-Length: 268435456\r\n\r\n").outcome,
            Outcome::NeedMore);
  EXPECT_LT(record.pendingText.capacity(), 4096u);
}

TEST(Collector, ALargeBodyInSmallPiecesArrivesWhole) {
  constexpr std::size_t kLength = 4 << 20;
  SlotRecord record;
  collect(record, "POST / HTTP/1.1\r\nContent-Length: " + std::to_string(kLength) + "\r\n\r\n");
  const std::string piece(1024, 'b');
  Collected collected;
  for (std::size_t sent = 0; sent < kLength; sent += piece.size()) {
    EXPECT_EQ(collected.outcome, Outcome::NeedMore);
    collected = collect(record, piece);
  }
  EXPECT_EQ(collected.outcome, Outcome::Complete);
  EXPECT_TRUE(collected.request().ends_with(std::string(kLength, 'b')));
}

}  // namespace quorvane
