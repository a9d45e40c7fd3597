#include <sys/socket.h>
#include <sys/stat.h>

#include <asio/io_context.hpp>
#include <asio/local/stream_protocol.hpp>
#include <filesystem>

#include "platform/loop_fixture.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

using asio::local::stream_protocol;

/// Listening by a file of this machine.
class LocalListener : public LoopTest {
 protected:
  ListenAddress place() const { return ListenAddress::parse("unix:" + path); }

  std::string connectAndSend(stream_protocol::socket& from, std::string_view text) {
    asio::error_code error;
    from.connect(path, error);
    if (error) return error.message();
    from.send(asio::buffer(text), 0, error);
    return error.message();
  }

  /// A file of a socket at which nobody listens, as a dead server leaves it.
  void leaveFile() {
    asio::io_context other;
    stream_protocol::acceptor dead(other, path);
  }

  TemporaryFolder folder;
  const std::string path = folder / "site.sock";
  TestServer server{*loop};
  asio::io_context io;
  stream_protocol::socket client{io};
};

TEST_F(LocalListener, TakesConnectionsAsAnyOther) {
  ASSERT_TRUE(server.listener->listen(place())) << server.listener->fault();
  EXPECT_EQ(server.listener->localPort(), 0);
  connectAndSend(client, "hello");
  EXPECT_TRUE(until([&] { return server.received[0] == "hello"; }));
  EXPECT_EQ(server.socket(0).remoteHostIP(), "unix");
  EXPECT_EQ(server.socket(0).localHostIP(), "unix");
  EXPECT_EQ(server.socket(0).localPort(), 0);
  server.socket(0).send("answer", std::string(500'000, 'x'));
  server.socket(0).close();
  client.non_blocking(true);
  std::string received;
  bool ended = false;
  EXPECT_TRUE(until([&] {
    char block[65536];
    asio::error_code error;
    received.append(block, client.receive(asio::buffer(block), 0, error));
    ended = error == asio::error::eof;
    return ended;
  }));
  EXPECT_EQ(received.size(), 500'006U);
}

TEST_F(LocalListener, ItsFileIsForOwnerAndGroupWhateverTheMask) {
  const mode_t before = ::umask(0077);
  const bool listens = server.listener->listen(place());
  ::umask(before);
  ASSERT_TRUE(listens);
  struct stat found {};
  ASSERT_EQ(::lstat(path.c_str(), &found), 0);
  EXPECT_TRUE(S_ISSOCK(found.st_mode));
  EXPECT_EQ(found.st_mode & 0777, 0660U);
}

TEST_F(LocalListener, ItsFileGoesWithIt) {
  ASSERT_TRUE(server.listener->listen(place()));
  server.listener->close();
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(LocalListener, AFileThatAnotherHasPutInItsPlaceStays) {
  ASSERT_TRUE(server.listener->listen(place()));
  std::filesystem::rename(path, path + ".old");
  leaveFile();
  server.listener->close();
  EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(LocalListener, ReplacesWhatADeadServerHasLeft) {
  leaveFile();
  ASSERT_TRUE(std::filesystem::is_socket(path));
  ASSERT_TRUE(server.listener->listen(place())) << server.listener->fault();
  connectAndSend(client, "x");
  EXPECT_TRUE(until([&] { return server.received[0] == "x"; }));
}

TEST_F(LocalListener, LeavesAloneWhatIsNoSocket) {
  folder.write("site.sock", "precious");
  EXPECT_FALSE(server.listener->listen(place()));
  EXPECT_EQ(server.listener->fault(), "what stands there is no socket");
  EXPECT_EQ(folder.read("site.sock"), "precious");
  EXPECT_EQ(server.listener->state(), SocketState::Closed);

  std::filesystem::remove(path);
  std::filesystem::create_symlink(folder / "elsewhere", path);
  EXPECT_FALSE(server.listener->listen(place()));
  EXPECT_TRUE(std::filesystem::is_symlink(path));
}

TEST_F(LocalListener, LeavesAloneWhereAnotherServerListens) {
  asio::io_context other;
  stream_protocol::acceptor living(other, path);
  EXPECT_FALSE(server.listener->listen(place()));
  EXPECT_EQ(server.listener->fault(), "another server listens there");
  EXPECT_TRUE(std::filesystem::is_socket(path));
}

TEST_F(LocalListener, SaysWhyItCanNotBe) {
  EXPECT_FALSE(server.listener->listen(ListenAddress::parse("unix:" + folder.path() + "/no/a")));
  EXPECT_EQ(server.listener->fault(), "No such file or directory");
  EXPECT_FALSE(server.listener->listen(ListenAddress::parse("unix:/" + std::string(200, 'x'))));
  EXPECT_EQ(server.listener->fault(), "its name is too long");
  EXPECT_FALSE(server.listener->listen(ListenAddress::parse("rubbish")));
  EXPECT_EQ(server.listener->fault(), "it is no place to listen at");
}

}  // namespace

}  // namespace quorvane
