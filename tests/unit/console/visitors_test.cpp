#include "console/visitors.h"

#include "window_fixture.h"

namespace quorvane {

namespace {

/// A server whose clients come by trusted proxies.
class ProxiedVisitors : public WindowTest {
 protected:
  ProxiedVisitors() {
    files.put(
        "/base/Server/Scripts/who.qvs",
        "<%= Server.ClientIP & \" \" & Request.ServerVariables(\"REMOTE_ADDR\") & \" \" & "
        "Request.ServerVariables(\"HTTPS\") & \" \" & Request.ServerVariables(\"SERVER_NAME\") & "
        "\":\" & Request.ServerVariables(\"SERVER_PORT\") %>");
    settings.onLoad = [this](ServerState& s) {
      s.TrustedProxies = AddressRanges::parse(trusted);
      s.ProxyProtocol = proxyProtocol;
      s.LocalhostOnly = localhostOnly;
      s.LocalAddrControl = privateOnly;
    };
  }

  static std::string body(const FakeSocket& socket) {
    return socket.sent.substr(socket.sent.find("\r\n\r\n") + 4);
  }
  static std::string request(const std::string& lines) {
    return "GET /who.qvs HTTP/1.1\r\nHost: inner:81\r\n" + lines + "\r\n";
  }

  /// What a page sees of the client in a request with these lines.
  std::string who(const std::string& lines, const std::string& peer = "127.0.0.1") {
    if (!window.running()) window.StartServer();
    FakeSocket* socket = connect(peer);
    if (!socket) return "not connected";
    socket->arrive(request(lines));
    return body(*socket);
  }

  std::string trusted = "127.0.0.1 10.0.0.1";
  bool proxyProtocol = false;
  bool localhostOnly = false;
  bool privateOnly = false;
};

TEST_F(ProxiedVisitors, ANamedClientIsWhatPagesAndLogsSee) {
  EXPECT_EQ(who("X-Forwarded-For: 192.0.2.1\r\nX-Forwarded-Proto: https\r\n"
                "X-Forwarded-Host: Site.Example\r\n"),
            "192.0.2.1 192.0.2.1 on site.example:443");
  EXPECT_EQ(lastLine(), "192.0.2.1 > GET /who.qvs");
  EXPECT_EQ(who("Forwarded: for=192.0.2.1;proto=https\r\n"), "192.0.2.1 192.0.2.1 on inner:81");
  EXPECT_EQ(who(""), "127.0.0.1 127.0.0.1 off inner:7007");
}

TEST_F(ProxiedVisitors, EachRequestOfAConnectionNamesItsOwn) {
  window.StartServer();
  FakeSocket* socket = connect();
  socket->arrive(request("X-Forwarded-For: 192.0.2.1\r\nX-Forwarded-Proto: https\r\n"));
  socket->completeSend();
  socket->sent.clear();
  socket->arrive(request("X-Forwarded-For: 192.0.2.2\r\n"));
  EXPECT_EQ(body(*socket), "192.0.2.2 192.0.2.2 off inner:7007");
  socket->sent.clear();
  socket->arrive(request(""));
  EXPECT_EQ(body(*socket), "127.0.0.1 127.0.0.1 off inner:7007");
}

TEST_F(ProxiedVisitors, OfAnybodyElseTheHeadersCountForNothing) {
  const std::string lines =
      "X-Forwarded-For: 192.0.2.1\r\nForwarded: for=\"rubbish\r\n"
      "X-Forwarded-Proto: https\r\nX-Forwarded-Host: evil\r\n";
  EXPECT_EQ(who(lines, "10.0.0.2"), "10.0.0.2 10.0.0.2 off inner:7007");
  trusted = "";
  window.StartServer(true);
  EXPECT_EQ(who(lines, "127.0.0.1"), "127.0.0.1 127.0.0.1 off inner:7007");
}

TEST_F(ProxiedVisitors, LinesThatProxiesDoNotKnowAsSuchAreNone) {
  EXPECT_EQ(who("X-Forwarded-For : 192.0.2.1\r\n"), "127.0.0.1 127.0.0.1 off inner:7007");
  EXPECT_EQ(who("A: b\r\n X-Forwarded-For: 192.0.2.1\r\n"), "127.0.0.1 127.0.0.1 off inner:7007");
  EXPECT_EQ(who("A: b\nX-Forwarded-For: 192.0.2.1\r\n"), "127.0.0.1 127.0.0.1 off inner:7007");
  EXPECT_EQ(who("X_Forwarded_For: 192.0.2.1\r\n"), "127.0.0.1 127.0.0.1 off inner:7007");
}

TEST_F(ProxiedVisitors, ABodyNamesNobody) {
  window.StartServer();
  FakeSocket* socket = connect();
  socket->arrive(
      "POST /who.qvs HTTP/1.1\r\nHost: a\r\nContent-Length: 32\r\n\r\n"
      "a\r\nX-Forwarded-For: 192.0.2.1\r\n\r\n");
  EXPECT_EQ(body(*socket), "127.0.0.1 127.0.0.1 off a:7007");
}

TEST_F(ProxiedVisitors, WhatIsNotToBeBelievedIsRefused) {
  const std::string answer = who("X-Forwarded-For: 192.0.2.1\r\nForwarded: for=6.6.6.6\r\n");
  EXPECT_NE(answer.find("400 Bad Request"), std::string::npos);
  EXPECT_EQ(lastLine(), "127.0.0.1 > REFUSED: Forwarded and X-Forwarded contradict each other");
  EXPECT_EQ(loop.sockets[0]->tag, "X") << "what follows on the connection is not read";
}

TEST_F(ProxiedVisitors, TheAccessRulesWaitForTheNamedClient) {
  localhostOnly = true;
  EXPECT_EQ(who("", "192.168.1.5"), "not connected");
  EXPECT_EQ(who("X-Forwarded-For: 127.0.0.1\r\n", "10.0.0.1"),
            "127.0.0.1 127.0.0.1 off inner:7007");
  EXPECT_NE(who("", "10.0.0.1").find("403 Forbidden"), std::string::npos) << "the proxy itself";
  EXPECT_NE(who("X-Forwarded-For: 192.0.2.1\r\n").find("403 Forbidden"), std::string::npos);
  EXPECT_EQ(lastLine(), "192.0.2.1 > REFUSED: not by the access rules");
  EXPECT_NE(who("Forwarded: for=unknown\r\n").find("403 Forbidden"), std::string::npos);
  localhostOnly = false;
  privateOnly = true;
  window.StartServer(true);
  EXPECT_EQ(who("X-Forwarded-For: 192.168.1.5\r\n"), "192.168.1.5 192.168.1.5 off inner:7007");
  FakeSocket* socket = connect();
  socket->arrive(request("X-Forwarded-For: 8.8.8.8\r\n"));
  EXPECT_TRUE(socket->sent.starts_with("HTTP/1.1 403 Forbidden\r\n"));
  EXPECT_NE(socket->sent.find("\r\nDate: "), std::string::npos) << "a head that proxies take";
  EXPECT_EQ(socket->tag, "X");
}

class ProxyPrefaces : public ProxiedVisitors {
 protected:
  ProxyPrefaces() { proxyProtocol = true; }

  const std::string preface = "PROXY TCP4 192.0.2.1 198.51.100.1 4711 8443\r\n";
};

TEST_F(ProxyPrefaces, NameTheClientOfAllRequests) {
  window.StartServer();
  FakeSocket* socket = connect();
  socket->arrive(preface + request(""));
  EXPECT_EQ(body(*socket), "192.0.2.1 192.0.2.1 off inner:8443");
  socket->completeSend();
  socket->sent.clear();
  socket->arrive(request("X-Forwarded-For: 6.6.6.6\r\nX-Forwarded-Proto: https\r\n"));
  EXPECT_EQ(body(*socket), "192.0.2.1 192.0.2.1 off inner:8443") << "the head is the client's own";
}

TEST_F(ProxyPrefaces, ComeInPieces) {
  window.StartServer();
  FakeSocket* socket = connect();
  for (const char c : preface + request("")) socket->arrive(std::string(1, c));
  EXPECT_EQ(body(*socket), "192.0.2.1 192.0.2.1 off inner:8443");
}

TEST_F(ProxyPrefaces, AreForConnectionsOfTrustedProxiesOnly) {
  window.StartServer();
  EXPECT_EQ(who("", "10.0.0.2"), "10.0.0.2 10.0.0.2 off inner:7007");
  FakeSocket* socket = connect("10.0.0.2");
  socket->arrive(preface + request(""));
  EXPECT_NE(socket->sent.find("400 Bad Request"), std::string::npos);
}

TEST_F(ProxyPrefaces, AConnectionWithoutOneIsClosed) {
  window.StartServer();
  FakeSocket* socket = connect();
  socket->arrive(request("X-Forwarded-For: 192.0.2.1\r\n"));
  EXPECT_EQ(socket->state(), SocketState::Closed);
  EXPECT_EQ(socket->sent, "");
  EXPECT_EQ(lastLine(), "127.0.0.1 > REFUSED: the connection begins without a client's name");
}

TEST_F(ProxyPrefaces, OfAProxyThatSpeaksForItselfNameNobody) {
  window.StartServer();
  FakeSocket* socket = connect();
  socket->arrive("PROXY UNKNOWN\r\n" + request("X-Forwarded-For: 6.6.6.6\r\n"));
  EXPECT_EQ(body(*socket), "127.0.0.1 127.0.0.1 off inner:7007");
}

TEST_F(ProxyPrefaces, MayNameAnotherTrustedProxyWhoseHeadersCount) {
  window.StartServer();
  FakeSocket* socket = connect();
  socket->arrive("PROXY TCP4 10.0.0.1 198.51.100.1 4711 80\r\n" +
                 request("X-Forwarded-For: 192.0.2.7\r\n"));
  EXPECT_EQ(body(*socket), "192.0.2.7 192.0.2.7 off inner:80");
}

TEST_F(ProxyPrefaces, AccessRulesSeeTheNamedClient) {
  localhostOnly = true;
  window.StartServer();
  FakeSocket* socket = connect();
  socket->arrive(preface + request(""));
  EXPECT_TRUE(socket->sent.starts_with("HTTP/1.1 403 Forbidden\r\n"));
}

TEST_F(ProxyPrefaces, TheNextConnectionOfASlotBeginsAnew) {
  window.StartServer();
  FakeSocket* socket = connect();
  socket->arrive(preface.substr(0, 10));
  socket->peerClose();
  ASSERT_EQ(connect(), socket);
  socket->arrive(preface + request(""));
  EXPECT_EQ(body(*socket), "192.0.2.1 192.0.2.1 off inner:8443");
  socket->peerClose();
  ASSERT_EQ(connect("10.0.0.2"), socket);
  socket->arrive(request(""));
  EXPECT_EQ(body(*socket), "10.0.0.2 10.0.0.2 off inner:7007");
}

TEST_F(ProxyPrefaces, TheListOfSocketsShowsTheNamedClient) {
  window.StartServer();
  connect()->arrive(preface);
  loop.timer(std::chrono::milliseconds(1'000))->tick();
  EXPECT_EQ(form.llist[FormModel::kSockets].lines()[1], "0 [192.0.2.1] = 7");
}

}  // namespace

}  // namespace quorvane
