#include "window_fixture.h"

namespace quorvane {

namespace {

const std::string kGet = "GET /a.txt HTTP/1.1\r\nHost: h\r\n\r\n";
const std::string kPage = "GET /p.qvs HTTP/1.1\r\nHost: h\r\n\r\n";
const std::string kPost =
    "POST /p.qvs HTTP/1.1\r\nHost: h\r\nContent-Length: " + std::to_string(kGet.size()) +
    "\r\n\r\n" + kGet;

/// A server that keeps to the standard, and one client of it.
class StandardRequests : public WindowTest {
 protected:
  void SetUp() override {
    files.put("/base/Server/Scripts/a.txt", "content");
    files.put("/base/Server/Scripts/p.qvs", "page");
    files.put("/base/Server/Scripts/p.jpg", "picture");
    state.StandardHTTP = true;
    state.HeadSeconds = 2;
    state.BodySeconds = 3;
    window.StartServer();
    socket = connect();
    ASSERT_NE(socket, nullptr);
  }

  /// The first words of the bodies that have been sent, in their order.
  std::vector<std::string> bodies() const {
    std::vector<std::string> all;
    for (std::size_t at = 0; (at = socket->sent.find("\r\n\r\n", at)) != std::string::npos;) {
      at += 4;
      all.push_back(socket->sent.substr(at, socket->sent.find("HTTP/", at) - at));
    }
    return all;
  }
  void pass(int seconds) {
    for (int i = 0; i < seconds; ++i) {
      for (FakeTimer* timer : std::vector(loop.timers)) {
        if (timer->interval == std::chrono::seconds(1)) timer->tick();
      }
    }
  }

  FakeSocket* socket = nullptr;
};

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(StandardRequests, AnswersRequestsThatComeTogetherInTheirOrder) {
  socket->arrive(kGet + kPage + kPost + kGet);
  EXPECT_EQ(bodies(), (Texts{"content", "page", "page", "content"}));
  EXPECT_EQ(socket->state(), SocketState::Connected);
}

TEST_F(StandardRequests, GoesOnWhenTheAnswerBeforeIsOnItsWay) {
  socket->pending = 1;
  socket->arrive(kGet + kPage + kGet.substr(0, 9));
  EXPECT_EQ(bodies(), Texts{"content"});
  socket->pending = 0;
  socket->completeSend();
  EXPECT_EQ(bodies(), (Texts{"content", "page"}));
  socket->arrive(kGet.substr(9));
  EXPECT_EQ(bodies(), (Texts{"content", "page", "content"}));
}

TEST_F(StandardRequests, NothingFollowsARequestToClose) {
  socket->arrive("GET /a.txt HTTP/1.0\r\n\r\n" + kPage);
  EXPECT_EQ(bodies(), Texts{"content"});
  socket->arrive(kPage);
  EXPECT_EQ(socket->sends, 1);
  socket->completeSend();
  EXPECT_EQ(socket->state(), SocketState::Closed);
}

TEST_F(StandardRequests, WhatFollowsWaitsForAPictureToBeRendered) {
  socket->arrive("GET /p.jpg?rx=10 HTTP/1.1\r\nHost: h\r\n\r\n" + kGet);
  EXPECT_TRUE(bodies().empty());
  loop.runPosted();
  socket->completeSend();
  ASSERT_EQ(bodies().size(), 2u) << socket->sent;
  EXPECT_EQ(bodies().back(), "content");
}

TEST_F(StandardRequests, WhoSaysNoMoreOfARequestIsTold) {
  socket->arrive(kGet.substr(0, 20));
  pass(4);
  EXPECT_TRUE(socket->sent.starts_with("HTTP/1.1 408 ")) << socket->sent;
  EXPECT_EQ(socket->state(), SocketState::Closed);
  EXPECT_EQ(socket->aborts, 0);

  socket = connect();
  socket->arrive(kPost.substr(0, kPost.size() - 1));
  pass(5);
  EXPECT_TRUE(socket->sent.starts_with("HTTP/1.1 408 ")) << socket->sent;

  socket = connect();
  pass(4);
  EXPECT_EQ(socket->sent, "");
  EXPECT_EQ(socket->aborts, 1);
}

TEST_F(StandardRequests, AnEmptyLineBeginsNoRequest) {
  socket->arrive("\r\n");
  pass(4);
  EXPECT_EQ(socket->sent, "");
  EXPECT_EQ(socket->aborts, 1);
}

TEST_F(StandardRequests, FlushedPagesKeepTheConnection) {
  files.put("/base/Server/Scripts/p.qvs", "one<% Response.Flush %>two");
  socket->arrive(kPage + kGet);
  EXPECT_NE(socket->sent.find("Transfer-Encoding: chunked\r\n"), std::string::npos);
  EXPECT_NE(socket->sent.find("\r\n\r\n3\r\none\r\n3\r\ntwo\r\n0\r\n\r\nHTTP/1.1 200 OK\r\n"),
            std::string::npos)
      << socket->sent;
  EXPECT_EQ(socket->tag, "");
}

}  // namespace quorvane
