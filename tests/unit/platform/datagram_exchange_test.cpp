#include "platform/datagram_exchange.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <string>
#include <thread>

#include "platform/system.h"

namespace quorvane {

namespace {

using Outcome = DatagramExchange::Outcome;
using namespace std::chrono_literals;

bool acceptAll(std::string_view) {
  return true;
}

/// Answers "twice" with two datagrams, "silent" with none and all else by repeating it. Runs on a
/// thread of its own.
class Responder final : private UdpSocketEvents {
 public:
  Responder() : thread_([this] { serve(); }) { port = ready_.get_future().get(); }
  ~Responder() override {
    loop_->post([this] { loop_->stop(); });
    thread_.join();
  }

  std::uint16_t port = 0;

 private:
  void serve() {
    loop_ = makeEventLoop();
    const auto socket = loop_->makeUdpSocket(*this);
    const bool bound = socket->bind(0);
    ready_.set_value(bound ? socket->localPort() : std::uint16_t{0});
    loop_->run();
  }
  void datagramArrival(UdpSocket& socket, const Datagram& datagram) override {
    if (datagram.data == "silent") return;
    if (datagram.data == "twice") socket.reply("stale");
    socket.reply(datagram.data);
  }
  void udpError() override {}

  std::promise<std::uint16_t> ready_;
  std::unique_ptr<EventLoop> loop_;
  std::thread thread_;
};

TEST(DatagramExchange, BringsTheAnswer) {
  const Responder responder;
  const auto result = exchangeDatagrams("127.0.0.1", responder.port, "hello", 10s, acceptAll);
  EXPECT_EQ(result.outcome, Outcome::Answered);
  EXPECT_EQ(result.answer, "hello");
}

TEST(DatagramExchange, FindsTheServerByNameWhicheverAddressComesFirst) {
  const Responder responder;
  const auto result = exchangeDatagrams("localhost", responder.port, "hello", 10s, acceptAll);
  EXPECT_EQ(result.answer, "hello");
}

TEST(DatagramExchange, PassesOverAnswersThatAreNotAccepted) {
  const Responder responder;
  const auto result = exchangeDatagrams("127.0.0.1", responder.port, "twice", 10s,
                                        [](std::string_view answer) { return answer != "stale"; });
  EXPECT_EQ(result.answer, "twice");
}

TEST(DatagramExchange, SilenceEndsWithTheTime) {
  const Responder responder;
  const auto result = exchangeDatagrams("127.0.0.1", responder.port, "silent", 20ms, acceptAll);
  EXPECT_EQ(result.outcome, Outcome::Silence);
}

TEST(DatagramExchange, APortWithoutAListenerRefuses) {
  std::uint16_t port = 0;
  {
    const Responder responder;
    port = responder.port;
  }
  EXPECT_EQ(exchangeDatagrams("127.0.0.1", port, "hello", 10s, acceptAll).outcome,
            Outcome::Refused);
}

TEST(DatagramExchange, ANameWithoutAnAddressIsUnknown) {
  EXPECT_EQ(exchangeDatagrams("no host", 9, "hello", 1s, acceptAll).outcome, Outcome::UnknownHost);
}

}  // namespace

}  // namespace quorvane
