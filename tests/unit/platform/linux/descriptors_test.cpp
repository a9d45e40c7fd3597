#include <sys/resource.h>

#include "platform/loop_fixture.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;

class Descriptors : public LoopTest {};

TEST_F(Descriptors, RunningOutOfDescriptorsStopsNobodyForGood) {
  TestServer server(*loop);
  ASSERT_TRUE(server.listener->listen(0));
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  std::vector<TestClient> clients;
  for (int i = 0; i < 40; ++i) clients.emplace_back(server.listener->localPort());
  rlimit low = before;
  low.rlim_cur = 64;  // the clients above hold most of them
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
  EXPECT_TRUE(until([&] { return server.sockets.size() > 5; }));
  loop->runPending(milliseconds(300), nullptr);
  EXPECT_LT(server.sockets.size(), 40U);
  EXPECT_EQ(server.listenerErrors, 0);
  const auto files = makeFiles();
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_TRUE(until([&] { return server.sockets.size() == 40; }));
  clients.back().send("served");
  EXPECT_TRUE(until([&] { return server.received[39] == "served"; }));
}

TEST_F(Descriptors, TheOwnerIsAskedToMakeRoomForWaitingClients) {
  struct Tidy final : TestServer {
    using TestServer::TestServer;
    void descriptorsShort() override {
      while (next < sockets.size() && sockets[next]->state() != SocketState::Connected) ++next;
      if (next < sockets.size()) sockets[next]->abort();
    }
    std::size_t next = 0;
  };
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  std::vector<TestClient> clients;
  clients.reserve(40);
  Tidy server(*loop);
  ASSERT_TRUE(server.listener->listen(0));
  for (int i = 0; i < 40; ++i) clients.emplace_back(server.listener->localPort());
  rlimit low = before;
  low.rlim_cur = 64;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
  EXPECT_TRUE(until([&] { return server.sockets.size() == 40; }));
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_GT(server.next, 0U);
}

}  // namespace

}  // namespace quorvane
