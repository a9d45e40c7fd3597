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

}  // namespace

}  // namespace quorvane
