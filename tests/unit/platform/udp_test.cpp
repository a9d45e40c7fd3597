#include "platform/loop_fixture.h"
#include "platform/udp_client.h"

namespace quorvane {

namespace {

class UdpServer : public UdpSocketEvents {
 public:
  explicit UdpServer(EventLoop& loop) : socket(loop.makeUdpSocket(*this)) {}
  void datagramArrival(UdpSocket& from, const Datagram& datagram) override {
    texts.emplace_back(datagram.data);
    sender = datagram.remoteHostIP;
    local = datagram.fromThisMachine;
    if (onDatagram) onDatagram();
    from.reply("re:" + std::string(datagram.data));
  }
  void udpError() override { ++errors; }

  std::unique_ptr<UdpSocket> socket;
  std::vector<std::string> texts;
  std::string sender;
  bool local = false;
  int errors = 0;
  std::function<void()> onDatagram;
};

class Udp : public LoopTest {
 protected:
  void SetUp() override { ASSERT_TRUE(server.socket->bind(0)); }
  std::string answerTo(UdpClient& client) {
    std::string answer;
    EXPECT_TRUE(until([&] {
      if (answer.empty()) answer = client.receive();
      return !answer.empty();
    }));
    return answer;
  }
  UdpServer server{*loop};
};

TEST_F(Udp, ADatagramIsToldAndAnswered) {
  UdpClient client("127.0.0.1", server.socket->localPort());
  client.send("[?state]");
  EXPECT_EQ(answerTo(client), "re:[?state]");
  EXPECT_EQ(server.sender, "127.0.0.1");
  EXPECT_TRUE(server.local);
}

TEST_F(Udp, TheReplyComesFromTheAddressThatWasAsked) {
  UdpClient client("127.0.0.77", server.socket->localPort());
  client.send("x");
  EXPECT_EQ(answerTo(client), "re:x") << "a connected socket drops replies from elsewhere";
}

TEST_F(Udp, EmptyAndBinaryDatagramsArriveAsTheyAre) {
  UdpClient client("127.0.0.1", server.socket->localPort());
  client.send("");
  client.send(std::string_view("a\0b", 3));
  EXPECT_TRUE(until([&] { return server.texts.size() == 2; }));
  EXPECT_EQ(server.texts[0], "");
  EXPECT_EQ(server.texts[1], std::string_view("a\0b", 3));
}

TEST_F(Udp, AFloodLeavesTurnsForOthers) {
  UdpClient client("127.0.0.1", server.socket->localPort());
  TestServer http(*loop);
  ASSERT_TRUE(http.listener->listen(0));
  for (int i = 0; i < 150; ++i) client.send("flood");
  TestClient visitor(http.listener->localPort());
  std::size_t before = 0;
  EXPECT_TRUE(until([&] {
    before = server.texts.size();
    return !http.sockets.empty();
  }));
  EXPECT_LT(before, 150U) << "the visitor waited for the whole flood";
}

TEST_F(Udp, TheSocketMayBeClosedOrBoundAgainInItsEvent) {
  UdpClient client("127.0.0.1", server.socket->localPort());
  const std::uint16_t port = server.socket->localPort();
  server.onDatagram = [&] { server.socket->bind(port); };
  client.send("one");
  EXPECT_TRUE(until([&] { return server.texts.size() == 1; }));
  server.onDatagram = [&] { server.socket->close(); };
  client.send("two");
  EXPECT_TRUE(until([&] { return server.texts.size() == 2; }));
  EXPECT_FALSE(server.socket->isOpen());
}

}  // namespace

}  // namespace quorvane
