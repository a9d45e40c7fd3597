#include "console/listeners.h"

#include "window_fixture.h"

namespace quorvane {

namespace {

/// A server that listens where the setting Listen says.
class ListenSetting : public WindowTest {
 protected:
  ListenSetting() {
    settings.onLoad = [this](ServerState& s) { s.Listen = ListenAddress::parseList(places); };
    window.onState = [this](const std::string& sentence) { told = sentence; };
  }

  std::string listened() {
    std::string all;
    for (const FakeListener* one : loop.listeners) {
      if (one->state() == SocketState::Listening) all += one->place.text() + ' ';
    }
    return all;
  }

  std::string places = "8080 127.0.0.1:8081 [::1]:8082 unix:/run/site.sock";
  std::string told;
};

TEST_F(ListenSetting, ListensInEveryPlaceInsteadOfThePort) {
  window.StartServer();
  EXPECT_EQ(listened(), places + ' ');
  EXPECT_EQ(told, "Serving on 8080, 127.0.0.1:8081, [::1]:8082, unix:/run/site.sock");
  EXPECT_NE(loop.listeners[2]->connect("::1"), nullptr);
  EXPECT_EQ(lastLine(), "Connection request from IP ::1");
  window.StopServer();
  EXPECT_EQ(listened(), "");
}

TEST_F(ListenSetting, TheSocketsListShowsEachPlace) {
  window.StartServer();
  loop.timer(std::chrono::milliseconds(1'000))->tick();
  const auto& list = window.form().llist[FormModel::kSockets].lines();
  EXPECT_EQ(list[0], "8080 = 2");
  EXPECT_EQ(list[3], "unix:/run/site.sock = 2");
}

TEST_F(ListenSetting, APlaceThatCanNotBeHadKeepsNobodyFromTheOthers) {
  loop.takenPorts = {8081};
  window.StartServer();
  EXPECT_TRUE(window.running());
  EXPECT_EQ(lastLine(), "******* PORT ERROR: Unable to listen on 127.0.0.1:8081: it is taken");
  EXPECT_EQ(told,
            "Serving on 8080, [::1]:8082, unix:/run/site.sock; not on 127.0.0.1:8081: it is taken");
  forgetLines();
  loop.takenPorts.clear();
  tickSlowTimers();
  EXPECT_TRUE(lines().empty()) << "nobody asked for it";
}

TEST_F(ListenSetting, APlaceIsTriedAgainWhenTheSettingsSaySo) {
  state.RetryPort = true;
  loop.takenPorts = {8081};
  window.StartServer();
  FakeSocket* client = loop.listeners[0]->connect();
  forgetLines();
  tickSlowTimers();
  EXPECT_TRUE(lines().empty());
  loop.takenPorts.clear();
  tickSlowTimers();
  EXPECT_EQ(lines(), std::vector<std::string>{"Listening on 127.0.0.1:8081"});
  EXPECT_EQ(listened(), places + ' ');
  EXPECT_EQ(told, "Serving on 8080, 127.0.0.1:8081, [::1]:8082, unix:/run/site.sock");
  EXPECT_EQ(client->state(), SocketState::Connected) << "the others go on";
}

TEST_F(ListenSetting, WithoutAnyPlaceNothingIsServed) {
  places = "8080 rubbish";
  loop.takenPorts = {8080};
  state.RetryPort = true;
  window.StartServer();
  EXPECT_FALSE(window.running());
  const auto all = lines();
  ASSERT_GE(all.size(), 3U);
  EXPECT_EQ(all[all.size() - 3], "******* PORT ERROR: Unable to listen on 8080: it is taken");
  EXPECT_EQ(all[all.size() - 2], "******* PORT ERROR: Unable to listen on rubbish: it is taken");
  EXPECT_EQ(all.back(), "Server Stop");
  EXPECT_EQ(told,
            "8080: it is taken; rubbish: it is taken; nothing is served; tried again every 30 s");
  loop.takenPorts.clear();
  tickSlowTimers();
  EXPECT_TRUE(window.running());
}

TEST_F(ListenSetting, OneThatFailsListensAgainAlone) {
  window.StartServer();
  FakeSocket* client = loop.listeners[0]->connect();
  loop.listeners[1]->fail();
  EXPECT_EQ(listened(), places + ' ');
  EXPECT_EQ(loop.listeners[0]->listens, 1);
  EXPECT_EQ(client->state(), SocketState::Connected);
}

TEST_F(ListenSetting, OneThatFailsForGoodIsTold) {
  window.StartServer();
  loop.takenPorts = {8081};
  loop.listeners[1]->fail();
  EXPECT_TRUE(window.running());
  EXPECT_EQ(lastLine(), "******* PORT ERROR: Unable to listen on 127.0.0.1:8081: it is taken");
  EXPECT_TRUE(told.ends_with("; not on 127.0.0.1:8081: it is taken"));
}

TEST_F(ListenSetting, NoPlaceIsTriedAgainWhileTheServerComesToItsEnd) {
  state.RetryPort = true;
  state.DrainSeconds = 2;
  loop.takenPorts = {8081};
  window.StartServer();
  files.put("/base/Server/Scripts/a.txt", "content");
  FakeSocket* client = loop.listeners[0]->connect();
  client->arrive("GET /a.txt HTTP/1.1\r\n\r\n");
  client->pending = 7;
  window.closeWhenDrained();
  loop.takenPorts.clear();
  tickSlowTimers();
  EXPECT_EQ(listened(), "");
}

TEST_F(ListenSetting, IsReadAgainAtEveryStart) {
  window.StartServer();
  places = "8083";
  window.StartServer(true);
  EXPECT_EQ(listened(), "8083 ");
  places = "";
  window.StartServer(true);
  EXPECT_EQ(told, "Serving on port 7007");
}

}  // namespace

}  // namespace quorvane
