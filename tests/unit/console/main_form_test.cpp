#include "console/mainForm.h"

#include "window_fixture.h"

namespace quorvane {

namespace {

class MainForm : public WindowTest {};

TEST_F(MainForm, AStartReadsSettingsBindsThePortAndMakesTenSockets) {
  settings.onLoad = [](ServerState& s) { s.ServerPort = 8080; };
  window.StartServer();
  EXPECT_TRUE(window.running());
  EXPECT_EQ(settings.loads, 1);
  EXPECT_EQ(loop.listener->state(), SocketState::Listening);
  EXPECT_EQ(window.port(), 8080);
  EXPECT_EQ(loop.sockets.size(), 10U);
  EXPECT_EQ(lines(), (std::vector<std::string>{"Server Start", "LCID: 0"}));
}

TEST_F(MainForm, AStartWhileRunningDoesNothingUnlessForced) {
  window.StartServer();
  window.StartServer();
  EXPECT_EQ(settings.loads, 1);
  const std::string key = output("<%= Server.IssueAuthKey(60) %>");
  const auto before = sessions();
  connect();
  forgetLines();
  window.StartServer(true);
  EXPECT_EQ(lines().front(), "Server Start (forced)");
  EXPECT_EQ(settings.loads, 2);
  EXPECT_EQ(loop.sockets[0]->state(), SocketState::Closed);
  EXPECT_EQ(before.size(), 1U);
  EXPECT_EQ(sessions(), before) << "sessions survive a forced start";
  EXPECT_EQ(output("<%= Server.ValidateAuthKey(\"" + key + "\") %>"), "False") << "keys don't";
  EXPECT_TRUE(window.running());
}

TEST_F(MainForm, AForcedStartOfAStoppedServerIsAnOrdinaryOne) {
  window.StartServer(true);
  EXPECT_EQ(lines().front(), "Server Start");
}

TEST_F(MainForm, AStopReleasesEverything) {
  window.StartServer();
  output("<% Application(\"kept\") = \"kept\" %>");
  connect();
  window.StopServer();
  EXPECT_FALSE(window.running());
  EXPECT_EQ(loop.sockets.size(), 1U);
  EXPECT_EQ(loop.sockets[0]->state(), SocketState::Closed);
  EXPECT_EQ(loop.listener->state(), SocketState::Closed);
  EXPECT_EQ(lastLine(), "Server Stop");
  window.StartServer();
  EXPECT_TRUE(sessions().empty());
  EXPECT_EQ(output("<%= Application(\"kept\") %>"), "");
}

TEST_F(MainForm, ATakenPortIsAnErrorAndLeavesTheServerStopped) {
  loop.takenPorts = {7007};
  window.StartServer();
  EXPECT_FALSE(window.running());
  const auto all = lines();
  ASSERT_GE(all.size(), 2U);
  EXPECT_EQ(all[all.size() - 2], "******* PORT ERROR: Unable to bind to port 7007");
  EXPECT_EQ(all.back(), "Server Stop");
  EXPECT_FALSE(loop.stopped) << "the window stays";
  loop.takenPorts.clear();
  window.StartServer();
  EXPECT_TRUE(window.running());
}

TEST_F(MainForm, ATakenPortIsTriedAgainWhenTheSettingsSaySo) {
  loop.takenPorts = {7007};
  window.StartServer();
  tickSlowTimers();
  forgetLines();
  loop.takenPorts.clear();
  tickSlowTimers();
  EXPECT_FALSE(window.running()) << "nobody asked for it";

  loop.takenPorts = {7007};
  state.RetryPort = true;
  window.StartServer();
  forgetLines();
  tickSlowTimers();
  EXPECT_TRUE(lines().empty()) << "looking leaves no lines";
  loop.takenPorts.clear();
  tickSlowTimers();
  EXPECT_TRUE(window.running());
  EXPECT_EQ(lines(), (std::vector<std::string>{"Server Start", "LCID: 0"}));
}

TEST_F(MainForm, WhoeverStopsTheServerEndsTheTrying) {
  state.RetryPort = true;
  loop.takenPorts = {7007};
  window.StartServer();
  window.StopServer();
  loop.takenPorts.clear();
  tickSlowTimers();
  EXPECT_FALSE(window.running());
}

TEST_F(MainForm, TellsWhatItDoes) {
  std::vector<std::string> told;
  window.onState = [&](const std::string& sentence) { told.push_back(sentence); };
  window.StartServer();
  window.StopServer();
  EXPECT_EQ(told, (std::vector<std::string>{"Serving on port 7007", "Stopped"}));
  loop.takenPorts = {7007};
  window.StartServer();
  EXPECT_EQ(told.back(), "port 7007 is taken or not for this user; nothing is served");
  state.RetryPort = true;
  window.StartServer();
  EXPECT_EQ(told.back(),
            "port 7007 is taken or not for this user; nothing is served; tried again every 30 s");
}

TEST_F(MainForm, AConnectionGoesIntoTheLowestClosedSlot) {
  window.StartServer();
  forgetLines();
  EXPECT_EQ(connect("10.0.0.1"), loop.sockets[0]);
  EXPECT_EQ(lastLine(), "Connection request from IP 10.0.0.1");
  for (int i = 1; i < 10; ++i) connect();
  EXPECT_EQ(connect()->index, 10);
  loop.sockets[3]->peerClose();
  EXPECT_EQ(connect()->index, 3);
}

TEST_F(MainForm, ARefusedConnectionLeavesNoTrace) {
  settings.onLoad = [](ServerState& s) { s.LocalhostOnly = s.LocalAddrControl = true; };
  window.StartServer();
  forgetLines();
  EXPECT_EQ(connect("192.168.1.5"), nullptr);
  EXPECT_TRUE(lines().empty());
  EXPECT_NE(connect("127.0.0.1"), nullptr);
}

TEST_F(MainForm, SendCompleteClosesOnlyWhatIsMarked) {
  window.StartServer();
  FakeSocket& socket = *connect();
  socket.completeSend();
  EXPECT_EQ(socket.state(), SocketState::Connected);
  socket.tag = "X";
  socket.completeSend();
  EXPECT_EQ(socket.state(), SocketState::Closed);
  EXPECT_EQ(socket.tag, "");
}

TEST_F(MainForm, APeersEndClosesTheSlot) {
  window.StartServer();
  FakeSocket& socket = *connect();
  socket.tag = "X";
  socket.peerClose();
  EXPECT_EQ(socket.state(), SocketState::Closed);
  EXPECT_EQ(socket.tag, "");
}

TEST_F(MainForm, AnErrorClosesTheSlotAndTidiesUp) {
  window.StartServer();
  for (int i = 0; i < 12; ++i) connect();
  loop.sockets[3]->become(SocketState::PeerClosing);
  loop.sockets[11]->fail();
  EXPECT_EQ(loop.sockets.size(), 11U);
  EXPECT_EQ(loop.sockets[3]->state(), SocketState::Closed);
}

TEST_F(MainForm, AListenerErrorListensAgainWhileRunning) {
  window.StartServer();
  loop.listener->fail();
  EXPECT_EQ(loop.listener->state(), SocketState::Listening);
  EXPECT_EQ(window.port(), 7007);
  window.StopServer();
  loop.listener->fail();
  EXPECT_EQ(loop.listener->state(), SocketState::Closed);
}

TEST_F(MainForm, DispatchSendsOnAConnectedSlotOnly) {
  window.StartServer();
  FakeSocket& socket = *connect();
  socket.tag = "X";
  window.vbsParser_Dispatch(0, "early", false);
  EXPECT_EQ(socket.sent, "early");
  EXPECT_EQ(socket.tag, "");
  window.vbsParser_Dispatch(0, " last", true);
  EXPECT_EQ(socket.sent, "early last");
  EXPECT_EQ(socket.tag, "X");
  socket.become(SocketState::PeerClosing);
  window.vbsParser_Dispatch(0, "gone", false);
  window.vbsParser_Dispatch(1, "closed", false);
  window.vbsParser_Dispatch(99, "none", false);
  window.vbsParser_Dispatch(-1, "none", false);
  EXPECT_EQ(socket.sent, "early last");
  EXPECT_EQ(loop.sockets[1]->sent, "");
}

TEST_F(MainForm, DispatchWaitsForASlowClientButNotForEver) {
  window.StartServer();
  FakeSocket& socket = *connect();
  window.vbsParser_Dispatch(0, "x", false);
  EXPECT_EQ(socket.drained.first, 8u << 20);
  EXPECT_EQ(socket.drained.second.withoutProgress, std::chrono::seconds{30});
  EXPECT_EQ(socket.drained.second.inAll, std::chrono::seconds{60});
  EXPECT_EQ(socket.drained.second.whileOthersWait, std::chrono::seconds{3});
  EXPECT_FALSE(socket.drained.second.othersWait());
  connect()->waiting = true;
  EXPECT_TRUE(socket.drained.second.othersWait());
  socket.stalls = true;
  EXPECT_FALSE(window.vbsParser_Dispatch(0, "x", false));
  EXPECT_TRUE(window.vbsParser_Dispatch(0, "x", false)) << "nobody is kept waiting any more";
}

TEST_F(MainForm, DispatchRunsNoOtherEvents) {
  window.StartServer();
  connect();
  window.vbsParser_Dispatch(0, "x", false);
  EXPECT_EQ(loop.pendingRuns, 0);
}

TEST_F(MainForm, DebugOutputIsAStatusLine) {
  window.StartServer();
  window.vbsParser_DebugOutput("here");
  EXPECT_EQ(lastLine(), "[SERVER.DEBUGOUT] here");
}

TEST_F(MainForm, ButtonsStartStopAndClear) {
  window.clickButton(0);
  EXPECT_TRUE(window.running());
  window.clickStatusLine(0);
  EXPECT_EQ(window.form().dbgText.text, "10:00:00 Server Start");
  window.clickButton(1);
  EXPECT_TRUE(lines().empty());
  EXPECT_EQ(window.form().dbgText.text, "");
  window.clickButton(0);
  EXPECT_FALSE(window.running());
  const auto before = lines();
  window.clickButton(7);
  EXPECT_FALSE(window.running()) << "no such button";
  EXPECT_EQ(lines(), before);
}

TEST_F(MainForm, AClickedLineIsShownWithItsLineBreaks) {
  window.status().LogLine("Header (9 bytes): GET /||Host: a||");
  window.clickStatusLine(0);
  EXPECT_EQ(window.form().dbgText.text, "10:00:00 Header (9 bytes): GET /\r\nHost: a\r\n");
  window.clickStatusLine(5);
  EXPECT_EQ(window.form().llist[0].selected(), -1);
}

TEST_F(MainForm, AComplaintAboutThePortIsForRunsThatShowNoLines) {
  std::vector<std::string> complaints;
  window.status().onComplaint = [&](std::string_view text) { complaints.emplace_back(text); };
  loop.takenPorts = {7007};
  window.StartServer();
  EXPECT_TRUE(complaints.empty()) << "the console shows the line";
  state.DebugMode = false;
  window.StartServer();
  EXPECT_EQ(complaints.size(), 1U);
}

TEST_F(MainForm, ClosingTheWindowStopsTheServerForGood) {
  window.load();
  window.StartServer();
  forgetLines();
  window.closeWindow();
  EXPECT_EQ(lines(), (std::vector<std::string>{"Server Stop", "Server Closing"}));
  EXPECT_TRUE(loop.stopped);
  EXPECT_FALSE(loop.udp->isOpen());
  window.closeWindow();
  window.StartServer();
  EXPECT_FALSE(window.running());
  EXPECT_EQ(lines().size(), 2U);
}

TEST_F(MainForm, ClosingAStoppedWindowStopsNothing) {
  window.closeWindow();
  EXPECT_EQ(lines(), std::vector<std::string>{"Server Closing"});
}

TEST_F(MainForm, TheServiceManagerStartsAndStops) {
  window.serviceStarted();
  EXPECT_TRUE(window.running());
  EXPECT_EQ(lines().front(), "Starting service");
  forgetLines();
  window.serviceStopped();
  EXPECT_FALSE(window.running());
  EXPECT_EQ(lines(),
            (std::vector<std::string>{"Stopping service", "Server Stop", "Server Closing"}));
}

class Draining : public WindowTest {
 protected:
  Draining() {
    settings.onLoad = [](ServerState& loaded) { loaded.DrainSeconds = 2; };
    files.put("/base/Server/Scripts/a.txt", "content");
    window.StartServer();
    busy = connect();
    busy->arrive("GET /a.txt HTTP/1.1\r\n\r\n");
    busy->pending = 7;
    idle = connect();
  }

  void look(int times) {
    while (times-- > 0) loop.timer(std::chrono::milliseconds(100))->tick();
  }

  FakeSocket* busy = nullptr;
  FakeSocket* idle = nullptr;
};

TEST_F(Draining, EndsWhenNothingIsUnderWay) {
  window.closeWhenDrained();
  EXPECT_EQ(loop.listener->state(), SocketState::Closed);
  look(3);
  EXPECT_EQ(idle->state(), SocketState::Closed);
  EXPECT_EQ(busy->state(), SocketState::Connected);
  EXPECT_FALSE(loop.stopped);
  busy->pending = 0;
  look(1);
  EXPECT_TRUE(loop.stopped);
}

TEST_F(Draining, WaitsForRequestsThatAreBeingReceived) {
  busy->pending = 0;
  busy->arrive("POST /a.txt HTTP/1.1\r\nContent-Length: 5\r\n\r\nab");
  window.closeWhenDrained();
  look(3);
  EXPECT_FALSE(loop.stopped);
  EXPECT_EQ(busy->state(), SocketState::Connected);
}

TEST_F(Draining, EndsWhenItsTimeIsOver) {
  window.closeWhenDrained();
  look(19);
  EXPECT_FALSE(loop.stopped);
  look(1);
  EXPECT_TRUE(loop.stopped);
}

TEST_F(Draining, EndsAtOnceWhenAskedAgain) {
  window.closeWhenDrained();
  EXPECT_FALSE(loop.stopped);
  window.closeWhenDrained();
  EXPECT_TRUE(loop.stopped);
}

}  // namespace

}  // namespace quorvane
