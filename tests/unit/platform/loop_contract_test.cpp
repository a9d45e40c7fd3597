#include <algorithm>
#include <csignal>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "kinds.h"
#include "platform/fake/fake_event_loop.h"
#include "platform/loop_fixture.h"
#include "platform/udp_client.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;

/// The host system's loop, and clients at the other end of its sockets.
class HostWorld {
 public:
  static constexpr const char* kName = "Host";

  class Client {
   public:
    Client(HostWorld&, std::uint16_t port) : client_(port) {}
    void send(std::string_view text) { client_.send(text); }
    void close() { client_.close(); }
    void reset() { client_.closeWithReset(); }
    const std::string& received() {
      client_.receive();
      return client_.received;
    }
    bool ended() {
      client_.receive();
      return client_.ended;
    }

   private:
    TestClient client_;
  };

  class Asker {
   public:
    Asker(HostWorld&, std::uint16_t port) : client_("127.0.0.1", port) {}
    void ask(std::string_view text) { client_.send(text); }
    std::string answer() { return client_.receive(); }

   private:
    UdpClient client_;
  };

  /// Lets time pass and events run until something holds, or a time is over that only a failure
  /// takes.
  bool until(const std::function<bool()>& holds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!holds()) {
      if (std::chrono::steady_clock::now() > end) return false;
      loop->runPending(milliseconds(2), holds);
    }
    return true;
  }
  /// What could come has come.
  void settle() { loop->runPending(milliseconds(10), nullptr); }
  void askToEnd() { std::raise(SIGTERM); }

  std::unique_ptr<EventLoop> loop = makeEventLoop();
};

/// The fake, whose network and time are played by hand.
class FakeWorld {
 public:
  static constexpr const char* kName = "Fake";

  class Client {
   public:
    Client(FakeWorld& world, std::uint16_t port) : loop_(*world.fake) {
      const bool listens = loop_.listener && loop_.listener->localPort() == port;
      const FakeSocket* taken = listens ? loop_.listener->connect() : nullptr;
      if (taken) index_ = taken->index;
    }
    void send(std::string_view text) { socket()->arrive(text); }
    void close() { socket()->peerClose(); }
    void reset() { socket()->fail(); }
    const std::string& received() { return socket()->sent; }
    bool ended() { return !socket() || socket()->state() == SocketState::Closed; }

   private:
    FakeSocket* socket() {
      const auto found = loop_.sockets.find(index_);
      return found == loop_.sockets.end() ? nullptr : found->second;
    }

    FakeEventLoop& loop_;
    int index_ = -1;
  };

  class Asker {
   public:
    Asker(FakeWorld& world, std::uint16_t) : udp_(*world.fake->udp) {}
    void ask(std::string_view text) { udp_.deliver(text); }
    std::string answer() {
      if (udp_.replies.empty()) return {};
      const std::string first = udp_.replies.front();
      udp_.replies.erase(udp_.replies.begin());
      return first;
    }

   private:
    FakeUdpSocket& udp_;
  };

  bool until(const std::function<bool()>& holds) {
    for (int i = 0; i < 100 && !holds(); ++i) settle();
    return holds();
  }
  void settle() {
    fake->runPosted();
    for (const auto& [index, socket] : std::map(fake->sockets)) {
      if (std::exchange(told_[index], socket->sends) != socket->sends) socket->completeSend();
    }
    for (FakeTimer* timer : std::vector(fake->timers)) timer->tick();
  }
  void askToEnd() { fake->post(fake->terminate); }

  std::unique_ptr<EventLoop> loop = std::make_unique<FakeEventLoop>();
  FakeEventLoop* fake = static_cast<FakeEventLoop*>(loop.get());

 private:
  std::map<int, int> told_;  ///< how many sends of a socket were told as complete
};

template <typename World>
class LoopContract : public testing::Test {
 protected:
  using Client = typename World::Client;
  using Asker = typename World::Asker;

  bool until(const std::function<bool()>& holds) { return world.until(holds); }

  World world;
  EventLoop& loop = *world.loop;
};

using Worlds = testing::Types<HostWorld, FakeWorld>;
TYPED_TEST_SUITE(LoopContract, Worlds, KindNames);

TYPED_TEST(LoopContract, RunsPostedTasksInOrderUntilStopped) {
  std::string order;
  this->loop.post([&] { order += 'a'; });
  this->loop.post([&] {
    order += 'b';
    this->loop.post([&] {
      order += 'c';
      this->loop.stop();
    });
    this->loop.post([&] {
      order += 'd';
      this->loop.stop();
    });
  });
  this->loop.run();
  EXPECT_EQ(order, "abc");
  this->loop.run();
  EXPECT_EQ(order, "abcd") << "what was posted waits for the next run";
}

TYPED_TEST(LoopContract, RunningPendingDoesNothingWithinItself) {
  int ran = 0;
  this->loop.post([&] {
    this->loop.post([&] { ++ran; });
    this->loop.runPending(milliseconds(0), nullptr);
    EXPECT_EQ(ran, 0);
  });
  this->loop.runPending(milliseconds(0), nullptr);
  this->loop.runPending(milliseconds(0), nullptr);
  EXPECT_EQ(ran, 1);
}

TYPED_TEST(LoopContract, AnEventThatThrowsLeavesRunningPendingAsItWas) {
  int ran = 0;
  this->loop.post([] { throw std::runtime_error("broken"); });
  this->loop.post([&] { ++ran; });
  EXPECT_THROW(this->loop.runPending(milliseconds(0), nullptr), std::runtime_error);
  this->loop.runPending(milliseconds(0), nullptr);
  EXPECT_EQ(ran, 1);
}

TYPED_TEST(LoopContract, RunningPendingFromAnEventLetsTheOthersRun) {
  int ran = 0;
  this->loop.post([&] {
    this->loop.post([&] { ++ran; });
    this->loop.runPending(milliseconds(0), nullptr);
    EXPECT_EQ(ran, 1);
    this->loop.stop();
  });
  this->loop.run();
  EXPECT_EQ(ran, 1);
}

TYPED_TEST(LoopContract, RunningPendingEndsAsSoonAsItsConditionHolds) {
  bool reached = false;
  int later = 0;
  this->loop.post([&] { reached = true; });
  this->loop.post([&] { ++later; });
  this->loop.runPending(std::chrono::hours(1), [&] { return reached; });
  EXPECT_TRUE(reached);
  EXPECT_EQ(later, 0);
}

TYPED_TEST(LoopContract, ATimerTicksUntilStopped) {
  int ticks = 0;
  const auto timer = this->loop.makeTimer(milliseconds(1), [&] { ++ticks; });
  EXPECT_FALSE(timer->enabled());
  this->world.settle();
  EXPECT_EQ(ticks, 0);
  timer->start();
  EXPECT_TRUE(timer->enabled());
  EXPECT_TRUE(this->until([&] { return ticks >= 3; }));
  timer->stop();
  EXPECT_FALSE(timer->enabled());
  const int before = ticks;
  this->world.settle();
  EXPECT_EQ(ticks, before);
}

TYPED_TEST(LoopContract, ATimerMayBeStoppedOrDestroyedInItsTick) {
  int ticks = 0;
  std::unique_ptr<Timer> timer;
  timer = this->loop.makeTimer(milliseconds(1), [&] {
    ++ticks;
    timer->stop();
  });
  timer->start();
  EXPECT_TRUE(this->until([&] { return ticks == 1; }));
  this->world.settle();
  EXPECT_EQ(ticks, 1);

  timer = this->loop.makeTimer(milliseconds(1), [&, held = std::string(100, 'x')] {
    timer.reset();
    ticks += held.size() == 100 ? 1 : 0;
  });
  timer->start();
  EXPECT_TRUE(this->until([&] { return ticks == 2; }));
  this->world.settle();
  EXPECT_EQ(ticks, 2);
}

TYPED_TEST(LoopContract, TheWishToEndIsToldAsAnEventEachTime) {
  int asked = 0;
  this->loop.onTerminationRequest([&] { asked += 100; });
  this->loop.onTerminationRequest([&] { ++asked; });
  this->world.askToEnd();
  EXPECT_EQ(asked, 0);
  EXPECT_TRUE(this->until([&] { return asked == 1; }));
  this->world.askToEnd();
  EXPECT_TRUE(this->until([&] { return asked == 2; }));
}

TYPED_TEST(LoopContract, AListenerTellsItsStateAndKeepsItsPort) {
  TestServer server(this->loop);
  EXPECT_EQ(server.listener->state(), SocketState::Closed);
  EXPECT_EQ(server.listener->localPort(), 0);
  ASSERT_TRUE(server.listener->listen(0));
  EXPECT_EQ(server.listener->state(), SocketState::Listening);
  const std::uint16_t port = server.listener->localPort();
  EXPECT_NE(port, 0);
  server.listener->close();
  EXPECT_EQ(server.listener->state(), SocketState::Closed);
  EXPECT_EQ(server.listener->localPort(), port);
  typename TestFixture::Client client(this->world, port);
  EXPECT_TRUE(this->until([&] { return client.ended(); }));
  EXPECT_EQ(server.requests, 0);
}

TYPED_TEST(LoopContract, ATakenPortIsToldAndCanBeHadAfterClose) {
  TestServer server(this->loop);
  TestServer second(this->loop);
  ASSERT_TRUE(server.listener->listen(0));
  const std::uint16_t taken = server.listener->localPort();
  EXPECT_FALSE(second.listener->listen(taken));
  EXPECT_EQ(second.listener->state(), SocketState::Closed);
  server.listener->close();
  EXPECT_TRUE(second.listener->listen(taken));
  EXPECT_TRUE(second.listener->listen(taken)) << "its own";
}

TYPED_TEST(LoopContract, AcceptTakesTheConnectionAndItsAddress) {
  TestServer server(this->loop);
  ASSERT_TRUE(server.listener->listen(0));
  typename TestFixture::Client client(this->world, server.listener->localPort());
  ASSERT_TRUE(this->until([&] { return !server.sockets.empty(); }));
  EXPECT_EQ(server.socket(0).state(), SocketState::Connected);
  EXPECT_EQ(server.socket(0).remoteHostIP(), "127.0.0.1");
  EXPECT_NE(server.socket(0).remotePort(), 0);
  server.socket(0).close();
  server.socket(0).close();
  EXPECT_EQ(server.socket(0).state(), SocketState::Closed);
  EXPECT_EQ(server.socket(0).remoteHostIP(), "127.0.0.1");
  EXPECT_TRUE(this->until([&] { return client.ended(); }));
}

TYPED_TEST(LoopContract, ARequestNobodyAcceptsIsTurnedAway) {
  TestServer server(this->loop);
  server.accepting = false;
  ASSERT_TRUE(server.listener->listen(0));
  typename TestFixture::Client client(this->world, server.listener->localPort());
  EXPECT_TRUE(this->until([&] { return client.ended(); }));
  EXPECT_EQ(server.requests, 1);
}

TYPED_TEST(LoopContract, ARequestIsAcceptedOnceAndOnlyByAClosedSocket) {
  struct Twice : TcpListenerEvents {
    void connectionRequest(ConnectionRequest& request) override {
      results.push_back(first->accept(request));
      results.push_back(first->accept(request));
      results.push_back(second->accept(request));
    }
    void listenerError() override {}
    TcpSocket* first = nullptr;
    TcpSocket* second = nullptr;
    std::vector<bool> results;
  } twice;
  TestServer server(this->loop);
  const auto first = this->loop.makeSocket(10, server);
  const auto second = this->loop.makeSocket(11, server);
  twice.first = first.get();
  twice.second = second.get();
  const auto listener = this->loop.makeListener(twice);
  ASSERT_TRUE(listener->listen(0));
  typename TestFixture::Client client(this->world, listener->localPort());
  ASSERT_TRUE(this->until([&] { return !twice.results.empty(); }));
  EXPECT_EQ(twice.results, (std::vector<bool>{true, false, false}));
  client.send("hello");
  EXPECT_TRUE(this->until([&] { return server.received[10] == "hello"; }));
}

TYPED_TEST(LoopContract, BytesGoBothWaysAndCompletionFollows) {
  TestServer server(this->loop);
  int duringSend = -1;
  server.onData = [&](int index) {
    server.socket(index).send("head ", std::string("body"));
    duringSend = server.completed[index];
  };
  ASSERT_TRUE(server.listener->listen(0));
  typename TestFixture::Client client(this->world, server.listener->localPort());
  ASSERT_TRUE(this->until([&] { return !server.sockets.empty(); }));
  client.send("question");
  EXPECT_TRUE(this->until([&] { return client.received() == "head body"; }));
  EXPECT_EQ(server.received[0], "question");
  EXPECT_EQ(duringSend, 0) << "told from within send";
  EXPECT_TRUE(this->until([&] { return server.completed[0] == 1; }));
  EXPECT_EQ(server.socket(0).pendingBytes(), 0U);
  client.send("again");
  EXPECT_TRUE(this->until([&] { return client.received() == "head bodyhead body"; }));
}

TYPED_TEST(LoopContract, NothingIsSentUnlessConnected) {
  TestServer server(this->loop);
  const auto idle = this->loop.makeSocket(5, server);
  idle->send("lost", {});
  this->world.settle();
  EXPECT_EQ(server.completed[5], 0);
  EXPECT_EQ(idle->state(), SocketState::Closed);
  EXPECT_EQ(idle->remoteHostIP(), "");
  EXPECT_FALSE(idle->drainTo(0, {milliseconds(1), milliseconds(1)}));
}

TYPED_TEST(LoopContract, APeersEndAndAnErrorAreToldOnceAndLeaveTheState) {
  TestServer server(this->loop);
  server.closing = false;
  ASSERT_TRUE(server.listener->listen(0));
  typename TestFixture::Client leaving(this->world, server.listener->localPort());
  ASSERT_TRUE(this->until([&] { return server.sockets.size() == 1; }));
  typename TestFixture::Client broken(this->world, server.listener->localPort());
  ASSERT_TRUE(this->until([&] { return server.sockets.size() == 2; }));
  leaving.close();
  broken.reset();
  EXPECT_TRUE(this->until([&] { return server.peersClosed > 0 && server.errors > 0; }));
  EXPECT_EQ(server.socket(0).state(), SocketState::PeerClosing);
  EXPECT_EQ(server.socket(1).state(), SocketState::Error);
  this->world.settle();
  EXPECT_EQ(server.peersClosed, 1);
  EXPECT_EQ(server.errors, 1);
}

TYPED_TEST(LoopContract, ASocketMayBeDestroyedInItsOwnEvents) {
  TestServer server(this->loop);
  ASSERT_TRUE(server.listener->listen(0));
  server.onData = [&](int index) { server.sockets[static_cast<std::size_t>(index)].reset(); };
  typename TestFixture::Client client(this->world, server.listener->localPort());
  ASSERT_TRUE(this->until([&] { return !server.sockets.empty(); }));
  client.send("x");
  EXPECT_TRUE(this->until([&] { return client.ended(); }));
}

TYPED_TEST(LoopContract, RunningPendingInsideARequestStartsNothing) {
  TestServer server(this->loop);
  int ran = 0;
  int ranInside = -1;
  server.onData = [&](int) {
    this->loop.post([&] { ++ran; });
    this->loop.runPending(milliseconds(5), nullptr);
    ranInside = ran;
  };
  ASSERT_TRUE(server.listener->listen(0));
  typename TestFixture::Client client(this->world, server.listener->localPort());
  ASSERT_TRUE(this->until([&] { return !server.sockets.empty(); }));
  client.send("x");
  EXPECT_TRUE(this->until([&] { return ran == 1; }));
  EXPECT_EQ(ranInside, 0);
}

/// Repeats each datagram to its sender.
struct Echo : UdpSocketEvents {
  void datagramArrival(UdpSocket& socket, const Datagram& datagram) override {
    ++arrived;
    local = datagram.fromThisMachine;
    sender = datagram.remoteHostIP;
    if (onDatagram) onDatagram();
    socket.reply("re:" + std::string(datagram.data));
  }
  void udpError() override {}

  int arrived = 0;
  bool local = false;
  std::string sender;
  std::function<void()> onDatagram;
};

TYPED_TEST(LoopContract, ADatagramIsToldAndAnswered) {
  Echo echo;
  const auto socket = this->loop.makeUdpSocket(echo);
  EXPECT_FALSE(socket->isOpen());
  EXPECT_EQ(socket->localPort(), 0);
  ASSERT_TRUE(socket->bind(0));
  EXPECT_TRUE(socket->isOpen());
  typename TestFixture::Asker asker(this->world, socket->localPort());
  asker.ask("[?state]");
  ASSERT_TRUE(this->until([&] { return echo.arrived == 1; }));
  EXPECT_EQ(asker.answer(), "re:[?state]");
  EXPECT_TRUE(echo.local);
  EXPECT_EQ(echo.sender, "127.0.0.1");
  socket->reply("late");
  this->world.settle();
  EXPECT_EQ(asker.answer(), "") << "a reply that answers nothing";
}

TYPED_TEST(LoopContract, ATakenDatagramPortIsToldAndCloseFreesIt) {
  Echo echo;
  const auto first = this->loop.makeUdpSocket(echo);
  const auto second = this->loop.makeUdpSocket(echo);
  ASSERT_TRUE(first->bind(0));
  const std::uint16_t port = first->localPort();
  EXPECT_NE(port, 0);
  EXPECT_FALSE(second->bind(port));
  EXPECT_FALSE(second->isOpen());
  first->close();
  EXPECT_FALSE(first->isOpen());
  EXPECT_EQ(first->localPort(), 0);
  EXPECT_TRUE(second->bind(port));
  EXPECT_EQ(second->localPort(), port);
  EXPECT_TRUE(second->bind(port)) << "its own";
}

TYPED_TEST(LoopContract, ADatagramSocketMayBeClosedInItsEvent) {
  Echo echo;
  const auto socket = this->loop.makeUdpSocket(echo);
  ASSERT_TRUE(socket->bind(0));
  echo.onDatagram = [&] { socket->close(); };
  typename TestFixture::Asker asker(this->world, socket->localPort());
  asker.ask("x");
  ASSERT_TRUE(this->until([&] { return echo.arrived == 1; }));
  this->world.settle();
  EXPECT_FALSE(socket->isOpen());
  EXPECT_EQ(asker.answer(), "");
}

}  // namespace

}  // namespace quorvane
