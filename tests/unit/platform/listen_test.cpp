#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/ip/v6_only.hpp>

#include "platform/loop_fixture.h"

namespace quorvane {

namespace {

using asio::ip::tcp;

/// Listening on chosen addresses of this machine.
class Listen : public LoopTest {
 protected:
  bool listen(std::string_view host) {
    ListenAddress where = ListenAddress::parse(std::string(host) + ":1");
    where.port = 0;
    return server.listener->listen(where);
  }
  bool listenEverywhere() {
    ListenAddress where(0);
    where.kind = ListenAddress::Kind::Everywhere;
    return server.listener->listen(where);
  }

  /// Who has come, as the server sees it; empty when it can't be reached at that address.
  std::string visitorAt(const char* address) {
    tcp::socket client(io);
    asio::error_code error;
    client.connect({asio::ip::make_address(address), server.listener->localPort()}, error);
    if (error) return {};
    const int before = server.requests;
    EXPECT_TRUE(until([&] { return server.requests > before; }));
    return server.sockets.back()->remoteHostIP() + " > " + server.sockets.back()->localHostIP();
  }

  static bool hasIPv6() {
    asio::io_context io;
    tcp::acceptor probe(io);
    asio::error_code error;
    probe.open(tcp::v6(), error);
    if (!error) probe.bind({asio::ip::address_v6::loopback(), 0}, error);
    return !error;
  }

  asio::io_context io;
  TestServer server{*loop};
};

TEST_F(Listen, OnOneAddress) {
  ASSERT_TRUE(listen("127.0.0.1"));
  EXPECT_EQ(visitorAt("127.0.0.1"), "127.0.0.1 > 127.0.0.1");
  EXPECT_EQ(visitorAt("127.0.0.2"), "");
}

TEST_F(Listen, OnOneAddressOfIPv6) {
  if (!hasIPv6()) GTEST_SKIP() << "no IPv6 here";
  ASSERT_TRUE(listen("[::1]"));
  EXPECT_EQ(visitorAt("::1"), "::1 > ::1");
  EXPECT_EQ(visitorAt("127.0.0.1"), "");
}

TEST_F(Listen, AllAddressesOfIPv6AreNoneOfIPv4) {
  if (!hasIPv6()) GTEST_SKIP() << "no IPv6 here";
  ASSERT_TRUE(listen("[::]"));
  EXPECT_EQ(visitorAt("::1"), "::1 > ::1");
  EXPECT_EQ(visitorAt("127.0.0.1"), "");
}

TEST_F(Listen, EverywhereIsInBothFamiliesAndAddressesOfIPv4AreShownAsSuch) {
  ASSERT_TRUE(listenEverywhere());
  EXPECT_EQ(visitorAt("127.0.0.1"), "127.0.0.1 > 127.0.0.1");
  if (hasIPv6()) {
    EXPECT_EQ(visitorAt("::1"), "::1 > ::1");
  }
}

TEST_F(Listen, APlainPortIsInIPv4Only) {
  ASSERT_TRUE(server.listener->listen(0));
  EXPECT_EQ(visitorAt("127.0.0.1"), "127.0.0.1 > 127.0.0.1");
  EXPECT_EQ(server.sockets.back()->localPort(), server.listener->localPort());
  EXPECT_EQ(visitorAt("::1"), "");
}

TEST_F(Listen, APlaceThatIsTakenSaysSo) {
  ASSERT_TRUE(listen("127.0.0.1"));
  ListenAddress same = ListenAddress::parse("127.0.0.1:1");
  same.port = server.listener->localPort();
  const auto second = loop->makeListener(server);
  EXPECT_FALSE(second->listen(same));
  EXPECT_EQ(second->fault(), "Address already in use");
  EXPECT_FALSE(second->listen(ListenAddress::parse("192.0.2.1:7007")));
  EXPECT_NE(second->fault(), "");
}

}  // namespace

}  // namespace quorvane
