#include <atomic>
#include <filesystem>
#include <optional>
#include <thread>

#include "platform/loop_fixture.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;

class Tcp : public LoopTest {
 protected:
  void SetUp() override { ASSERT_TRUE(server.listener->listen(0)); }

  std::uint16_t port() const { return server.listener->localPort(); }

  /// Connects a client and waits for its socket, which gets the next index.
  TestClient connected(int receiveBuffer = 0) {
    const auto before = server.sockets.size();
    TestClient client(port(), receiveBuffer);
    EXPECT_TRUE(until([&] { return server.sockets.size() > before; }));
    return client;
  }

  bool receives(TestClient& client, std::size_t bytes) {
    return until([&] {
      client.receive();
      return client.received.size() >= bytes;
    });
  }

  bool ends(TestClient& client) {
    return until([&] {
      client.receive();
      return client.ended;
    });
  }

  TestServer server{*loop};
};

std::string pattern(std::size_t length) {
  std::string bytes(length, '\0');
  for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<char>('a' + (i * i / 7) % 26);
  return bytes;
}

TEST_F(Tcp, ListenerTellsItsStateAndPort) {
  EXPECT_EQ(server.listener->state(), SocketState::Listening);
  EXPECT_NE(port(), 0);
  const std::uint16_t before = port();
  server.listener->close();
  EXPECT_EQ(server.listener->state(), SocketState::Closed);
  EXPECT_EQ(port(), before);
  TestClient client(before);
  EXPECT_TRUE(ends(client));
  EXPECT_TRUE(client.reset);
}

TEST_F(Tcp, ATakenPortIsToldAndCanBeHadAgainAfterClose) {
  const std::uint16_t taken = port();
  TestServer second(*loop);
  EXPECT_FALSE(second.listener->listen(taken));
  EXPECT_EQ(second.listener->state(), SocketState::Closed);

  TestClient client = connected();  // its going down must not hold the port
  server.socket(0).close();
  server.listener->close();
  EXPECT_TRUE(second.listener->listen(taken));
}

TEST_F(Tcp, SendCompleteComesOnceForSendsOutsideAnEvent) {
  TestClient client = connected();
  server.socket(0).send("a", {});
  server.socket(0).send("b", {});
  EXPECT_EQ(server.completed[0], 0);
  EXPECT_TRUE(receives(client, 2));
  EXPECT_TRUE(until([&] { return server.completed[0] > 0; }));
  loop->runPending(milliseconds(5), nullptr);
  EXPECT_EQ(server.completed[0], 1);
}

TEST_F(Tcp, ALargeBodyArrivesWholeThroughANarrowClient) {
  TestClient client = connected(4096);
  const std::string body = pattern(8'000'000);
  server.socket(0).send("H", std::make_shared<const std::string>(body));
  EXPECT_GT(server.socket(0).pendingBytes(), 0U);
  EXPECT_TRUE(receives(client, body.size() + 1));
  EXPECT_EQ(client.received, "H" + body);
  EXPECT_TRUE(until([&] { return server.completed[0] == 1; }));
  EXPECT_EQ(server.socket(0).pendingBytes(), 0U);
}

TEST_F(Tcp, AFileSliceAndSeveralSegmentsArriveInOrder) {
  TemporaryFolder folder;
  const auto files = makeFiles();
  const std::string content = pattern(3'000'000);
  ASSERT_TRUE(files->writeAll(folder / "f", content));
  Body body(std::string("one"));
  body.rest.emplace_back(FileSlice{files->open(folder / "f"), 5, 2'500'000});
  body.rest.emplace_back(std::make_shared<const std::string>("two"));
  body.rest.emplace_back(FileSlice{files->open(folder / "f"), 0, 10});
  const std::string expected =
      "Hone" + content.substr(5, 2'500'000) + "two" + content.substr(0, 10);

  TestClient client = connected(4096);
  server.socket(0).send("H", std::move(body));
  EXPECT_TRUE(receives(client, expected.size()));
  EXPECT_EQ(client.received, expected);
}

TEST_F(Tcp, ManyShortStretchesOfAFileArriveInOrder) {
  TemporaryFolder folder;
  const auto files = makeFiles();
  const std::string content = pattern(200'000);
  ASSERT_TRUE(files->writeAll(folder / "f", content));
  const auto file = files->open(folder / "f");
  Body body(std::string("first"));
  std::string expected = "Hfirst";
  for (const std::size_t length : {1, 30'000, 65'536, 100'000, 10, 20, 81'920, 65'000, 40'000, 7}) {
    for (int i = 0; i < 3; ++i) {
      body.rest.emplace_back(FileSlice{file, length / 2, length});
      body.rest.emplace_back(std::to_string(length));
      expected += content.substr(length / 2, length) + std::to_string(length);
    }
  }
  TestClient client = connected(4096);
  server.socket(0).send("H", std::move(body));
  EXPECT_GT(server.socket(0).pendingBytes(), 0U);
  EXPECT_TRUE(receives(client, expected.size()));
  EXPECT_TRUE(client.received == expected);
  EXPECT_TRUE(until([&] { return server.completed[0] == 1; }));
}

TEST_F(Tcp, AFileThatShrinksWhileSentBreaksThatConnectionOnly) {
  TemporaryFolder folder;
  const auto files = makeFiles();
  ASSERT_TRUE(files->append(folder / "f", pattern(1000)));
  TestClient other = connected();
  TestClient client = connected();
  server.socket(1).send("H", FileSlice{files->open(folder / "f"), 0, 5000});
  EXPECT_EQ(server.errors, 0) << "told from within send";
  EXPECT_TRUE(ends(client));
  EXPECT_EQ(client.received, "H" + pattern(1000));
  EXPECT_EQ(server.errors, 1);
  EXPECT_EQ(server.completed[1], 0);
  server.socket(0).send("fine", {});
  EXPECT_TRUE(receives(other, 4));
}

/// A file that is on its way to a client that takes little.
class TcpFile : public Tcp {
 protected:
  void SetUp() override {
    Tcp::SetUp();
    client.emplace(connected(4096));
    ASSERT_TRUE(files->writeAll(folder / "f", content));
    server.socket(0).send("H", FileSlice{files->open(folder / "f"), 1, content.size() - 1});
    EXPECT_GT(server.socket(0).pendingBytes(), 0U);
    EXPECT_TRUE(until([&] {
      client->receive(4096);
      return client->received.size() > 100'000;
    }));
  }

  /// Whether what the client has got is the beginning of the answer.
  bool hasBeginning() const { return ("H" + content.substr(1)).starts_with(client->received); }

  TemporaryFolder folder;
  std::unique_ptr<Files> files = makeFiles();
  std::string content = pattern(12'000'000);
  std::optional<TestClient> client;
};

TEST_F(TcpFile, ArrivesWhole) {
  EXPECT_TRUE(receives(*client, content.size()));
  EXPECT_TRUE(client->received == "H" + content.substr(1));
  EXPECT_TRUE(until([&] { return server.completed[0] == 1; }));
  EXPECT_EQ(server.socket(0).pendingBytes(), 0U);
}

TEST_F(TcpFile, ArrivesWholeAfterClose) {
  server.socket(0).close();
  EXPECT_TRUE(ends(*client));
  EXPECT_FALSE(client->reset);
  EXPECT_TRUE(client->received == "H" + content.substr(1));
}

TEST_F(TcpFile, AbortLosesTheRest) {
  server.socket(0).abort();
  EXPECT_TRUE(ends(*client));
  EXPECT_LT(client->received.size(), content.size());
  EXPECT_TRUE(hasBeginning());
  EXPECT_EQ(server.completed[0] + server.errors + server.peersClosed, 0) << "an event after it";
}

TEST_F(TcpFile, OneOfSeveralClientsMayBreakOff) {
  TestClient other = connected(4096);
  server.socket(1).send("H", FileSlice{files->open(folder / "f"), 1, content.size() - 1});
  client->closeWithReset();
  EXPECT_TRUE(until([&] { return server.errors == 1; }));
  EXPECT_EQ(server.socket(0).state(), SocketState::Closed);
  EXPECT_TRUE(receives(other, content.size()));
  EXPECT_TRUE(other.received == "H" + content.substr(1));
}

TEST_F(TcpFile, DrainTakesItAlongAndMoreMayFollow) {
  std::thread taking([&] {
    while (client->received.size() < content.size() + 5 && !client->ended) client->receive();
  });
  EXPECT_TRUE(server.socket(0).drainTo(0, {milliseconds(10'000), milliseconds(20'000)}));
  server.socket(0).send("after", {});
  taking.join();
  EXPECT_TRUE(client->received == "H" + content.substr(1) + "after");
}

TEST_F(TcpFile, DrainGivesUpOnAClientThatTakesNothing) {
  EXPECT_FALSE(server.socket(0).drainTo(1000, {milliseconds(30), milliseconds(60'000)}));
  EXPECT_TRUE(until([&] { return server.errors == 1; }));
  EXPECT_TRUE(ends(*client));
  EXPECT_TRUE(hasBeginning());
}

TEST_F(TcpFile, MayShrinkMeanwhile) {
  std::filesystem::resize_file(folder / "f", 9'000'000);
  EXPECT_TRUE(ends(*client));
  EXPECT_TRUE(hasBeginning());
  EXPECT_LE(client->received.size(), 9'000'000U);
  EXPECT_EQ(server.errors, 1);
  EXPECT_EQ(server.completed[0], 0);
}

TEST_F(TcpFile, MayBeRemovedMeanwhile) {
  files->remove(folder / "f");
  EXPECT_TRUE(receives(*client, content.size()));
  EXPECT_TRUE(client->received == "H" + content.substr(1));
}

TEST_F(Tcp, TheAnswerIsDeliveredWholeAlthoughBytesStayUnread) {
  // The client's further bytes wait unread when the server answers and closes, and more come
  // afterwards; a plain close would answer them with a reset that overtakes the response.
  const std::string body = pattern(3'000'000);
  server.onData = [&](int index) {
    if (server.socket(index).state() != SocketState::Connected) return;
    server.socket(index).send("H", body);
    server.onData = nullptr;
  };
  server.onComplete = [&](int index) { server.socket(index).close(); };
  TestClient client = connected(4096);
  client.send("begin " + std::string(500'000, 'x'));
  EXPECT_TRUE(until([&] {
    client.send(std::string(10'000, 'y'));
    client.receive(100'000);
    return client.received.size() >= body.size() + 1 || client.ended;
  }));
  EXPECT_TRUE(ends(client));
  EXPECT_FALSE(client.reset);
  EXPECT_EQ(client.received, "H" + body);
  EXPECT_EQ(server.errors, 0);
}

TEST_F(Tcp, CloseWithBytesQueuedStillDeliversThem) {
  const std::string body = pattern(4'000'000);
  TestClient client = connected(4096);
  server.socket(0).send("H", body);
  EXPECT_GT(server.socket(0).pendingBytes(), 0U);
  server.socket(0).close();
  EXPECT_EQ(server.socket(0).state(), SocketState::Closed);
  EXPECT_TRUE(ends(client));
  EXPECT_FALSE(client.reset);
  EXPECT_EQ(client.received, "H" + body);
  EXPECT_EQ(server.completed[0], 0) << "an event after close";
}

TEST_F(Tcp, AbortDropsWhatIsQueued) {
  const std::string body = pattern(4'000'000);
  TestClient client = connected(4096);
  server.socket(0).send("H", body);
  EXPECT_GT(server.socket(0).pendingBytes(), 0U);
  server.socket(0).abort();
  EXPECT_EQ(server.socket(0).state(), SocketState::Closed);
  EXPECT_EQ(server.socket(0).pendingBytes(), 0U);
  EXPECT_TRUE(ends(client));
  EXPECT_TRUE(client.reset);
  EXPECT_LT(client.received.size(), body.size());
  server.socket(0).abort();
  loop->runPending(milliseconds(20), nullptr);
  EXPECT_EQ(server.completed[0] + server.errors + server.peersClosed, 0) << "an event after it";
}

TEST_F(Tcp, WhatTheClientHasNotConfirmedIsTold) {
  TestClient client = connected(4096);
  EXPECT_EQ(server.socket(0).unconfirmedBytes(), 0U);
  server.socket(0).send("H", pattern(4'000'000));
  const std::uint64_t queued = server.socket(0).pendingBytes();
  const std::uint64_t unconfirmed = server.socket(0).unconfirmedBytes();
  EXPECT_GT(unconfirmed, queued);
  client.receive(64 * 1024);
  EXPECT_TRUE(until([&] { return server.socket(0).unconfirmedBytes() < unconfirmed; }));
}

TEST_F(Tcp, AClientThatOnlyHalfClosesStillGetsItsAnswer) {
  server.onData = [&](int index) { server.socket(index).send("answer", {}); };
  TestClient client = connected();
  client.send("question");
  client.shutdownSend();
  EXPECT_TRUE(ends(client));
  EXPECT_EQ(client.received, "answer");
  EXPECT_FALSE(client.reset);
}

TEST_F(Tcp, ASocketMayBeClosedOrDestroyedInItsOwnEvents) {
  server.onData = [&](int index) { server.sockets[static_cast<std::size_t>(index)].reset(); };
  TestClient first = connected();
  first.send("x");
  EXPECT_TRUE(ends(first));

  server.onData = [&](int index) { server.socket(index).send("bye", {}); };
  server.onComplete = [&](int index) { server.sockets[static_cast<std::size_t>(index)].reset(); };
  TestClient second = connected();
  second.send("x");
  EXPECT_TRUE(ends(second));
  EXPECT_EQ(second.received, "bye");
}

TEST_F(Tcp, AClosedSocketCanTakeAnotherConnection) {
  TestClient first = connected();
  server.socket(0).close();
  struct Again : TcpListenerEvents {
    explicit Again(TcpSocket& which) : socket(which) {}
    void connectionRequest(ConnectionRequest& request) override {
      accepted = socket.accept(request);
      acceptedAgain = socket.accept(request);
    }
    void listenerError() override {}
    TcpSocket& socket;
    bool accepted = false;
    bool acceptedAgain = true;
  } again(server.socket(0));
  const auto listener = loop->makeListener(again);
  ASSERT_TRUE(listener->listen(0));
  TestClient second(listener->localPort());
  EXPECT_TRUE(until([&] { return again.accepted; }));
  EXPECT_FALSE(again.acceptedAgain);
  second.send("hello");
  EXPECT_TRUE(until([&] { return server.received[0] == "hello"; }));
}

TEST_F(Tcp, WhileAnAnswerIsQueuedTheClientIsNotRead) {
  TestClient client = connected(4096);
  server.onData = [&](int index) { server.socket(index).send("", pattern(4'000'000)); };
  client.send("one");
  EXPECT_TRUE(until([&] { return server.received[0] == "one"; }));
  client.send("two");
  loop->runPending(milliseconds(20), nullptr);
  EXPECT_EQ(server.received[0], "one");
  EXPECT_TRUE(receives(client, 8'000'000));
  EXPECT_EQ(server.received[0], "onetwo");
}

TEST_F(Tcp, DrainWaitsForAClientThatTakes) {
  TestClient client = connected();
  server.socket(0).send("", pattern(100));
  EXPECT_TRUE(server.socket(0).drainTo(0, {milliseconds(1000), milliseconds(1000)}));
  EXPECT_TRUE(receives(client, 100));
}

TEST_F(Tcp, DrainGivesUpOnAClientThatTakesNothing) {
  TestClient client = connected(4096);
  server.socket(0).send("", pattern(20'000'000));
  EXPECT_FALSE(server.socket(0).drainTo(1000, {milliseconds(30), milliseconds(60'000)}));
  EXPECT_EQ(server.socket(0).state(), SocketState::Error);
  EXPECT_EQ(server.errors, 0) << "told from within drainTo";
  EXPECT_TRUE(until([&] { return server.errors == 1; }));
  EXPECT_EQ(server.socket(0).state(), SocketState::Closed);
}

TEST_F(Tcp, DrainGivesUpSoonerWhenOthersWait) {
  TestClient client = connected(4096);
  TestClient other = connected();
  EXPECT_FALSE(server.socket(1).isWaiting());
  EXPECT_FALSE(server.listener->hasWaiting());
  server.socket(0).send("", pattern(20'000'000));
  int asked = 0;
  const DrainPatience patience{milliseconds(60'000), milliseconds(60'000), milliseconds(20), [&] {
                                 if (++asked == 2) other.send("question");
                                 return server.socket(1).isWaiting();
                               }};
  EXPECT_FALSE(server.socket(0).drainTo(1000, patience));
  EXPECT_EQ(asked, 2);
  TestClient third(port());
  EXPECT_TRUE(server.listener->hasWaiting());
}

TEST_F(Tcp, DrainGivesUpOnAClientThatTakesTooLittle) {
  TestClient client = connected(4096);
  server.socket(0).send("", pattern(20'000'000));
  std::atomic<bool> over = false;
  std::thread taking([&] {
    while (!over) {
      client.receive(100'000);
      std::this_thread::sleep_for(milliseconds(1));
    }
  });
  EXPECT_FALSE(server.socket(0).drainTo(1000, {milliseconds(60'000), milliseconds(50)}));
  over = true;
  taking.join();
  EXPECT_GT(client.received.size(), 0U);
  EXPECT_EQ(server.socket(0).state(), SocketState::Error);
}

TEST_F(Tcp, RunningPendingEventsInsideARequestStartsNoOther) {
  TestClient first = connected();
  TestClient second = connected();
  int depth = 0;
  int deepest = 0;
  server.onData = [&](int) {
    deepest = std::max(deepest, ++depth);
    loop->runPending(milliseconds(20), nullptr);
    --depth;
  };
  first.send("a");
  second.send("b");
  EXPECT_TRUE(until([&] { return !server.received[0].empty() && !server.received[1].empty(); }));
  EXPECT_EQ(deepest, 1);
}

TEST_F(Tcp, ALoopMayGoWhileConnectionsAreOpenOrLeaving) {
  TestClient open = connected();
  TestClient leaving = connected();
  TestClient flushing = connected(4096);
  server.socket(1).close();
  server.socket(2).send("", pattern(5'000'000));
  server.socket(2).close();
  server.sockets.clear();
  server.listener.reset();
  loop.reset();
  open.receive();
  EXPECT_TRUE(open.ended);
}

}  // namespace

}  // namespace quorvane
