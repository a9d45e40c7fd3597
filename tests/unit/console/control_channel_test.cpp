#include "console/control_channel.h"

#include "window_fixture.h"

namespace quorvane {

namespace {

class Control : public WindowTest {
 protected:
  void SetUp() override { window.load(); }

  /// What came back; empty for silence.
  std::string ask(std::string_view text, bool fromThisMachine = true) {
    loop.udp->replies.clear();
    loop.udp->deliver(text, fromThisMachine);
    EXPECT_LE(loop.udp->replies.size(), 1U);
    return loop.udp->replies.empty() ? "" : loop.udp->replies.front();
  }
};

TEST_F(Control, TheChannelIsOpenWhetherTheServerRunsOrNot) {
  EXPECT_EQ(loop.udp->localPort(), 7008);
  EXPECT_EQ(ask("[?state]"), "[?state]:0");
  EXPECT_EQ(ask("[>start]"), "[>start]:OK");
  EXPECT_EQ(ask("[?state]"), "[?state]:1");
  EXPECT_EQ(ask("[>stop]"), "[>stop]:OK");
  EXPECT_EQ(ask("[?state]"), "[?state]:0");
}

TEST_F(Control, StartWhileRunningDoesNotRestart) {
  window.StartServer();
  forgetLines();
  EXPECT_EQ(ask("[>start]"), "[>start]:OK");
  EXPECT_TRUE(lines().empty());
}

TEST_F(Control, StopWhileStoppedStopsAgain) {
  EXPECT_EQ(ask("[>stop]"), "[>stop]:OK");
  EXPECT_EQ(lastLine(), "Server Stop");
}

TEST_F(Control, RestartStopsLetsEventsRunAndStarts) {
  window.StartServer();
  forgetLines();
  EXPECT_EQ(ask("[>restart]"), "[>restart]:OK");
  EXPECT_EQ(lines(), (std::vector<std::string>{"Server Stop", "Server Start", "LCID: 0"}));
  EXPECT_EQ(loop.pendingRuns, 1);
  EXPECT_TRUE(window.running());
}

TEST_F(Control, ARestartDuringWhichTheWindowClosesStaysStopped) {
  window.StartServer();
  loop.duringPending = [this] { window.closeWindow(); };
  loop.udp->deliver("[>restart]");
  EXPECT_FALSE(window.running());
  EXPECT_NE(loop.listener->state(), SocketState::Listening);
}

TEST_F(Control, QuitRepliesThenClosesTheWindow) {
  window.StartServer();
  EXPECT_EQ(ask("[>quit]"), "[>quit]:OK");
  EXPECT_FALSE(window.running());
  EXPECT_TRUE(loop.stopped);
  EXPECT_FALSE(loop.udp->isOpen());
  EXPECT_EQ(lastLine(), "Server Closing");
}

TEST_F(Control, Uptime) {
  EXPECT_EQ(ask("[?uptime]"), "") << "stopped";
  window.StartServer();
  EXPECT_EQ(ask("[?uptime]"), "[?uptime]:00:00:00");
  clock.advance(std::chrono::hours(26));
  EXPECT_EQ(ask("[?uptime]"), "[?uptime]:1 days, 02:00:00");
}

TEST_F(Control, Version) {
  EXPECT_EQ(ask("[?version]"), "[?version]:1.2.3 (Beta)");
}

TEST_F(Control, AnythingElseIsMetWithSilence) {
  for (const auto* text : {"[>START]", "[?State]", " [?state]", "[?state] ", "[?state]\r\n", "",
                           "[>start", "start", "[?state][?state]"}) {
    EXPECT_EQ(ask(text), "") << text;
  }
  EXPECT_EQ(ask(std::string_view("[?state]\0", 9)), "");
  EXPECT_FALSE(window.running());
}

TEST_F(Control, SendersElsewhereAreHeardOnlyWhenTheSettingsSaySo) {
  EXPECT_EQ(ask("[?state]", false), "");
  EXPECT_EQ(ask("[>start]", false), "");
  EXPECT_FALSE(window.running());
  state.ControlAnyAddress = true;
  EXPECT_EQ(ask("[?state]", false), "[?state]:0");
}

TEST_F(Control, AnErrorBindsThePortAgain) {
  const int before = loop.udp->binds;
  loop.udp->fail();
  EXPECT_EQ(loop.udp->binds, before + 1);
  EXPECT_EQ(ask("[?state]"), "[?state]:0");
}

TEST_F(Control, WithoutItsPortTheChannelIsAbsent) {
  loop.udp->bindFails = true;
  window.load();
  EXPECT_EQ(ask("[?state]"), "");
  window.StartServer();
  EXPECT_TRUE(window.running());
  window.StopServer();
  forgetLines();
  tickSlowTimers();
  EXPECT_TRUE(lines().empty()) << "nobody is told";
}

TEST_F(Control, AChosenPortIsTold) {
  using Lines = std::vector<std::string>;
  const int before = loop.udp->binds;
  state.ControlPort = 9000;
  loop.udp->bindFails = true;
  window.load();
  EXPECT_EQ(lines(), Lines{"Control channel: unable to bind to port 9000; tried again every 30 s"});
  forgetLines();
  tickSlowTimers();
  EXPECT_TRUE(lines().empty()) << "once is enough";
  loop.udp->bindFails = false;
  tickSlowTimers();
  EXPECT_EQ(lines(), Lines{"Control channel open on port 9000"});
  EXPECT_EQ(loop.udp->localPort(), 9000);
  EXPECT_EQ(loop.udp->binds, before + 3);
  tickSlowTimers();
  loop.udp->fail();
  EXPECT_EQ(loop.udp->binds, before + 4);
  EXPECT_EQ(lines().size(), 1U);
  loop.udp->bindFails = true;
  loop.udp->fail();
  EXPECT_EQ(lines().size(), 2U);
  window.closeWindow();
  tickSlowTimers();
  EXPECT_EQ(loop.udp->binds, before + 5);
}

}  // namespace

}  // namespace quorvane
