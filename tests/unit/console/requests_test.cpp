#include "window_fixture.h"

namespace quorvane {

namespace {

const std::string kGet = "GET /a.txt HTTP/1.1\r\nHost: h\r\n\r\n";
const std::string kGetClose = "GET /a.txt HTTP/1.1\r\nHost: h\r\nConnection: close\r\n\r\n";
const std::string kPage = "GET /p.qvs HTTP/1.1\r\nHost: h\r\n\r\n";
const std::string kPicture = "GET /p.jpg?rx=10 HTTP/1.1\r\nHost: h\r\n\r\n";

class Requests : public WindowTest {
 protected:
  void SetUp() override {
    files.put("/base/Server/Scripts/a.txt", "content");
    files.put("/base/Server/Scripts/p.jpg", "picture");
    window.StartServer();
    socket = connect();
    ASSERT_NE(socket, nullptr);
  }

  FakeSocket* socket = nullptr;
};

TEST_F(Requests, AKeptConnectionServesAgainAndAgain) {
  socket->arrive(kGet);
  EXPECT_TRUE(socket->sent.starts_with("HTTP/1.1 200 OK\r\n")) << socket->sent;
  EXPECT_TRUE(socket->sent.ends_with("\r\n\r\ncontent"));
  EXPECT_EQ(socket->tag, "");
  EXPECT_EQ(socket->sends, 1) << "head and body go together";
  socket->completeSend();
  EXPECT_EQ(socket->state(), SocketState::Connected);
  socket->arrive(kGet);
  EXPECT_EQ(socket->sends, 2);
}

TEST_F(Requests, AnotherConnectionIsClosedOnceItsAnswerIsSent) {
  socket->arrive(kGetClose);
  EXPECT_EQ(socket->tag, "X");
  EXPECT_EQ(socket->state(), SocketState::Connected);
  socket->completeSend();
  EXPECT_EQ(socket->state(), SocketState::Closed);
}

TEST_F(Requests, ARequestInPiecesIsAnsweredOnce) {
  for (const char c : kGet) socket->arrive(std::string(1, c));
  EXPECT_EQ(socket->sends, 1);
  EXPECT_TRUE(socket->sent.ends_with("content"));
}

TEST_F(Requests, ANewConnectionDoesNotInheritAnUnfinishedRequest) {
  socket->arrive(kGet.substr(0, 20));
  socket->peerClose();
  FakeSocket* next = connect();
  ASSERT_EQ(next->index, socket->index);
  next->arrive(kGet.substr(20));
  EXPECT_TRUE(next->sent.starts_with("HTTP/1.1 400 ")) << next->sent;
}

TEST_F(Requests, SlotsCollectApart) {
  FakeSocket* other = connect();
  socket->arrive(kGet.substr(0, 10));
  other->arrive(kGet.substr(0, 15));
  socket->arrive(kGet.substr(10));
  other->arrive(kGet.substr(15));
  EXPECT_TRUE(socket->sent.ends_with("content"));
  EXPECT_TRUE(other->sent.ends_with("content"));
}

TEST_F(Requests, NothingIsSentOnASocketThatIsNoLongerConnected) {
  socket->become(SocketState::PeerClosing);
  socket->arrive(kGet);
  EXPECT_EQ(socket->sends, 0);
}

TEST_F(Requests, AFlushedPageSendsItsRestAndCloses) {
  files.put("/base/Server/Scripts/p.qvs", "first <% Response.Flush %>rest");
  socket->arrive(kPage);
  EXPECT_TRUE(socket->sent.starts_with("HTTP/1.1 200 OK\r\nServer: ")) << socket->sent;
  EXPECT_TRUE(socket->sent.ends_with("\r\n\r\nfirst rest"));
  EXPECT_EQ(socket->sends, 2);
  EXPECT_EQ(socket->tag, "X");
}

TEST_F(Requests, AFlushedPageWithNothingLeftIsClosedAtOnce) {
  files.put("/base/Server/Scripts/p.qvs", "all<% Response.Flush %>");
  socket->arrive(kPage);
  EXPECT_TRUE(socket->sent.ends_with("\r\n\r\nall")) << socket->sent;
  EXPECT_EQ(socket->state(), SocketState::Closed);
}

TEST_F(Requests, AnExceptionCostsOnlyItsConnection) {
  FakeSocket* other = connect();
  socket->throwsOnSend = true;
  socket->arrive(kGet);
  EXPECT_EQ(socket->state(), SocketState::Closed);
  EXPECT_EQ(lastLine(), "Request failed: out of luck");
  other->arrive(kGet);
  EXPECT_TRUE(other->sent.ends_with("content"));
}

TEST_F(Requests, APictureIsRenderedBesideTheLoopAndAnsweredInItsOrder) {
  FakeSocket* other = connect();
  socket->arrive(kPicture);
  EXPECT_TRUE(socket->paused);
  EXPECT_EQ(socket->sends, 0);
  other->arrive(kGet);
  EXPECT_TRUE(other->sent.ends_with("content"));
  loop.runPosted();
  EXPECT_TRUE(socket->sent.ends_with("\r\n\r\npicture")) << "rendering failed, and its source came";
  EXPECT_FALSE(socket->paused);
  EXPECT_EQ(lastLine(), "127.0.0.1 > GET /a.txt") << "the picture was logged when it was asked for";
}

TEST_F(Requests, AnAnswerGoesToNobodyElse) {
  socket->arrive(kPicture);
  socket->fail();
  FakeSocket* next = connect();
  ASSERT_EQ(next, socket) << "the same slot";
  loop.runPosted();
  EXPECT_EQ(next->sent, "");
  socket->arrive(kPicture);
  window.StopServer();
  loop.runPosted();
}

TEST_F(Requests, BytesAfterAStopAreIgnored) {
  window.StopServer();
  loop.sockets[0]->arrive(kGet);
  EXPECT_EQ(loop.sockets[0]->sends, 0);
}

TEST_F(Requests, TheRequestIsLoggedWithItsClient) {
  socket->arrive(kGet);
  EXPECT_EQ(lastLine(), "127.0.0.1 > GET /a.txt");
}

}  // namespace

}  // namespace quorvane
