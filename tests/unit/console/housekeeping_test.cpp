#include "console/housekeeping.h"

#include "window_fixture.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;

class HousekeepingTest : public WindowTest {
 protected:
  FakeTimer& ctlTimer() { return *loop.timer(milliseconds(30'000)); }
  FakeTimer& dbgTimer() { return *loop.timer(milliseconds(1'000)); }
  const std::deque<std::string>& list(int index) {
    return window.form().llist[static_cast<std::size_t>(index)].lines();
  }
};

TEST_F(HousekeepingTest, TimersRunWithTheServer) {
  EXPECT_FALSE(ctlTimer().enabled());
  EXPECT_FALSE(dbgTimer().enabled());
  window.StartServer();
  EXPECT_TRUE(ctlTimer().enabled());
  EXPECT_TRUE(dbgTimer().enabled());
  window.StopServer();
  EXPECT_FALSE(ctlTimer().enabled());
  EXPECT_FALSE(dbgTimer().enabled());
}

TEST_F(HousekeepingTest, ListsAreRefreshedOnlyInDebugMode) {
  state.DebugMode = false;
  window.StartServer();
  output("");
  const auto listed = [this](bool debugMode) {
    state.DebugMode = debugMode;
    window.StartServer(true);
    ctlTimer().tick();
    dbgTimer().tick();
    return std::pair{list(1).size(), list(2).size()};
  };
  EXPECT_EQ(listed(false), (std::pair<std::size_t, std::size_t>{0, 0}));
  EXPECT_EQ(listed(true), (std::pair<std::size_t, std::size_t>{11, 1}));
}

TEST_F(HousekeepingTest, ATickExpiresSessionsAndKeys) {
  window.StartServer();
  const std::string key = output("<% Session.Timeout = 5 %><%= Server.IssueAuthKey(3) %>");
  const std::string check = "<%= Server.ValidateAuthKey(\"" + key + "\") %>";
  EXPECT_EQ(sessions().size(), 1U);
  clock.advance(std::chrono::minutes(4));
  EXPECT_EQ(output(check), "True") << "until a tick";
  ctlTimer().tick();
  EXPECT_EQ(output(check), "False");
  EXPECT_EQ(sessions().size(), 3U);
  clock.advance(std::chrono::minutes(2));
  ctlTimer().tick();
  EXPECT_EQ(sessions().size(), 2U) << "those of the later pages last longer";
}

TEST_F(HousekeepingTest, ATickTrimsTheSlots) {
  window.StartServer();
  for (int i = 0; i < 15; ++i) connect();
  loop.sockets[14]->become(SocketState::PeerClosing);
  loop.sockets[13]->become(SocketState::Error);
  ctlTimer().tick();
  EXPECT_EQ(loop.sockets.size(), 13U);
}

TEST_F(HousekeepingTest, AListenerThatDiedIsBroughtBackByAForcedStart) {
  window.StartServer();
  output("");
  const auto before = sessions();
  loop.listener->become(SocketState::Error);
  forgetLines();
  ctlTimer().tick();
  EXPECT_EQ(lines().front(), "Server Start (forced)");
  EXPECT_EQ(loop.listener->state(), SocketState::Listening);
  EXPECT_EQ(loop.longestPending, milliseconds(250));
  EXPECT_EQ(before.size(), 1U);
  EXPECT_EQ(sessions(), before) << "sessions survive";
}

TEST_F(HousekeepingTest, AListenerThatComesBackInTimeIsLeftAlone) {
  window.StartServer();
  forgetLines();
  loop.listener->become(SocketState::Closed);
  loop.duringPending = [this] { loop.listener->become(SocketState::Listening); };
  ctlTimer().tick();
  EXPECT_TRUE(lines().empty());
}

TEST_F(HousekeepingTest, AStopWhileTheWatchdogWaitsIsFinal) {
  window.StartServer();
  loop.listener->become(SocketState::Error);
  loop.duringPending = [this] { window.StopServer(); };
  ctlTimer().tick();
  EXPECT_FALSE(window.running());
  EXPECT_EQ(lastLine(), "Server Stop");
}

TEST_F(HousekeepingTest, SocketsAreListedWithAddressAndState) {
  window.StartServer();
  connect("10.0.0.7");
  connect("127.0.0.1")->become(SocketState::PeerClosing);
  dbgTimer().tick();
  ASSERT_EQ(list(1).size(), 11U);
  EXPECT_EQ(list(1)[0], "Localhost:7007 = 2");
  EXPECT_EQ(list(1)[1], "0 [10.0.0.7] = 7");
  EXPECT_EQ(list(1)[2], "1 [127.0.0.1] = 8");
  EXPECT_EQ(list(1)[3], "2 [] = 0");
  EXPECT_EQ(window.form().Label1[0].caption, "10 Talkers, 10 cached.");
  for (int i = 0; i < 10; ++i) connect();
  dbgTimer().tick();
  EXPECT_EQ(list(1).size(), 13U);
  EXPECT_EQ(window.form().Label1[0].caption, "12 Talkers, 10 cached.");
}

TEST_F(HousekeepingTest, SessionsAreListedWithAMarkWhenOutOfDate) {
  window.StartServer();
  const std::string number = "<%= Session.SessionID %>";
  const std::string first = output("<% Session.Timeout = 5 %>" + number);
  clock.advance(std::chrono::minutes(6));
  const std::string second = output(number);
  EXPECT_EQ(sessions(), (std::vector<std::string>{first + " X", second}));
  ctlTimer().tick();
  EXPECT_EQ(sessions(), (std::vector<std::string>{second}));
}

}  // namespace

}  // namespace quorvane
