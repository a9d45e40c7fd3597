#include "platform/system.h"
#include "testing/temporary_folder.h"
#include "testing/test_client.h"
#include "window_fixture.h"

namespace quorvane {

namespace {

/// A whole server on the host's own platform layer, with settings of its own.
class Server {
 public:
  Server(EventLoop& eventLoop, const std::string& content) : loop(eventLoop) {
    state.AppVersion = content;
    state.MainPath = folder.path() + "/";
    state.ControlPort = 0;  // any that is free
    state.ScriptsFolder = folder.path();
    state.CacheFolder = folder.path();
    files->writeAll(folder / "a.txt", content);
    settings.onLoad = [](ServerState& s) { s.ServerPort = 0; };  // any free one
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  EventLoop& loop;
  std::unique_ptr<Clock> clock = makeClock();
  std::unique_ptr<Files> files = makeFiles();
  std::unique_ptr<Random> random = makeRandom();
  TemporaryFolder folder;
  ServerState state;
  FakeSettings settings{state};
  FakeProcess process;
  FormModel form;
  StatusLists status{state, *clock, form};
  Services services{state, status, *clock, *files, *random, process};
  mainForm window{{services, loop, form, status, settings}};
};

TEST(TwoServers, ServeAtTheSameTimeInOneProcess) {
  const auto loop = makeEventLoop();
  Server one(*loop, "one");
  Server two(*loop, "two");
  one.window.load();
  two.window.load();
  one.window.StartServer();
  two.window.StartServer();
  ASSERT_TRUE(one.window.running());
  ASSERT_TRUE(two.window.running());
  EXPECT_NE(one.window.port(), two.window.port());

  TestClient clients[] = {TestClient(one.window.port()), TestClient(two.window.port())};
  const std::string& first = clients[0].received;
  const std::string& second = clients[1].received;
  // Each answered, and answered again while both connections are open.
  for (int round = 1; round <= 2; ++round) {
    for (TestClient& client : clients) {
      client.received.clear();
      client.send("GET /a.txt HTTP/1.1\r\nHost: h\r\n\r\n");
    }
    for (int i = 0; i < 5000 && !(first.ends_with("one") && second.ends_with("two")); ++i) {
      loop->runPending(std::chrono::milliseconds(1), nullptr);
      for (TestClient& client : clients) client.receive();
    }
    EXPECT_TRUE(first.ends_with("\r\n\r\none")) << first;
    EXPECT_TRUE(second.ends_with("\r\n\r\ntwo")) << second;
  }
  one.window.StopServer();
  EXPECT_FALSE(one.window.running());
  EXPECT_TRUE(two.window.running());
  EXPECT_EQ(one.window.version(), "one (Beta)");
  EXPECT_EQ(two.window.version(), "two (Beta)");
}

}  // namespace

}  // namespace quorvane
