#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/system.h"
#include "window_fixture.h"

namespace quorvane {

namespace {

/// A whole server on the host's own platform layer, with settings of its own.
class Server {
 public:
  Server(EventLoop& eventLoop, const std::string& content) : loop(eventLoop) {
    std::string pattern = "/tmp/quorvane-XXXXXX";
    folder = ::mkdtemp(pattern.data());
    state.AppVersion = content;
    state.MainPath = folder + "/";
    state.ScriptsFolder = folder;
    state.CacheFolder = folder;
    files->writeAll(folder + "/a.txt", content);
    settings.onLoad = [](ServerState& s) { s.ServerPort = 0; };  // any free one
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() {
    files->remove(folder + "/a.txt");
    ::rmdir(folder.c_str());
  }

  EventLoop& loop;
  std::unique_ptr<Clock> clock = makeClock();
  std::unique_ptr<Files> files = makeFiles();
  std::unique_ptr<Random> random = makeRandom();
  std::string folder;
  ServerState state;
  FakeSettings settings{state};
  ScriptStage stage;
  mainForm window{{state, loop, *clock, *files, *random, settings,
                   [this](const ScriptSideParts& side) {
                     return std::make_unique<FakeScriptSide>(stage, side);
                   },
                   nullptr, 1033, 0}};
};

int connectTo(std::uint16_t port) {
  const int client = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  ::connect(client, reinterpret_cast<sockaddr*>(&address), sizeof address);
  return client;
}

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

  const int clients[] = {connectTo(one.window.port()), connectTo(two.window.port())};
  std::string answers[2];
  const std::string request = "GET /a.txt HTTP/1.1\r\nHost: h\r\n\r\n";
  // Each answered, and answered again while both connections are open.
  for (int round = 1; round <= 2; ++round) {
    for (const int client : clients) ::send(client, request.data(), request.size(), MSG_NOSIGNAL);
    for (int i = 0; i < 5000; ++i) {
      loop->runPending(std::chrono::milliseconds(1), nullptr);
      for (int c = 0; c < 2; ++c) {
        char bytes[4096];
        const ssize_t count = ::recv(clients[c], bytes, sizeof bytes, 0);
        if (count > 0) answers[c].append(bytes, static_cast<std::size_t>(count));
      }
      if (answers[0].ends_with("one") && answers[1].ends_with("two")) break;
    }
    EXPECT_TRUE(answers[0].ends_with("\r\n\r\none")) << answers[0];
    EXPECT_TRUE(answers[1].ends_with("\r\n\r\ntwo")) << answers[1];
    answers[0].clear();
    answers[1].clear();
  }
  one.window.StopServer();
  EXPECT_FALSE(one.window.running());
  EXPECT_TRUE(two.window.running());
  EXPECT_EQ(one.window.version(), "one (Beta)");
  EXPECT_EQ(two.window.version(), "two (Beta)");
  for (const int client : clients) ::close(client);
}

}  // namespace

}  // namespace quorvane
