#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/system.h"
#include "testing/test_client.h"

namespace quorvane {

/// Lets a real event loop run until something holds; gives up after a time that only a failure
/// takes.
class LoopTest : public testing::Test {
 protected:
  bool until(const std::function<bool()>& holds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!holds()) {
      if (std::chrono::steady_clock::now() > end) return false;
      loop->runPending(std::chrono::milliseconds(2), holds);
    }
    return true;
  }

  std::unique_ptr<EventLoop> loop = makeEventLoop();
};

/// Accepts every connection into a socket of its own and writes down what happens.
class TestServer : public TcpListenerEvents, public TcpSocketEvents {
 public:
  explicit TestServer(EventLoop& eventLoop)
      : loop(eventLoop), listener(eventLoop.makeListener(*this)) {}

  void connectionRequest(ConnectionRequest& request) override {
    ++requests;
    if (!accepting) return;
    const int index = static_cast<int>(sockets.size());
    sockets.push_back(loop.makeSocket(index, *this));
    EXPECT_TRUE(sockets.back()->accept(request));
  }
  void listenerError() override { ++listenerErrors; }
  void dataArrival(int index, std::string_view data) override {
    received[index] += data;
    if (onData) onData(index);
  }
  void sendComplete(int index) override {
    ++completed[index];
    if (onComplete) onComplete(index);
  }
  void peerClosed(int index) override {
    ++peersClosed;
    if (closing) sockets[static_cast<std::size_t>(index)]->close();
  }
  void socketError(int index) override {
    ++errors;
    if (closing) sockets[static_cast<std::size_t>(index)]->close();
  }

  TcpSocket& socket(int index) { return *sockets[static_cast<std::size_t>(index)]; }

  EventLoop& loop;
  std::unique_ptr<TcpListener> listener;
  std::vector<std::unique_ptr<TcpSocket>> sockets;
  std::map<int, std::string> received;
  std::map<int, int> completed;
  std::function<void(int)> onData;
  std::function<void(int)> onComplete;
  bool accepting = true;
  bool closing = true;  ///< closes on a peer's end or an error
  int requests = 0;
  int peersClosed = 0;
  int errors = 0;
  int listenerErrors = 0;
};

}  // namespace quorvane
