#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace quorvane {

/// A TCP client that never blocks, so that a test can drive it and the server on one thread.
class TestClient {
 public:
  explicit TestClient(std::uint16_t port, int receiveBuffer = 0)
      : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
    if (receiveBuffer > 0) {
      ::setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address);
  }
  TestClient(TestClient&& other) noexcept
      : received(std::move(other.received)),
        ended(other.ended),
        reset(other.reset),
        socket_(std::exchange(other.socket_, -1)) {}
  TestClient& operator=(TestClient&&) = delete;
  ~TestClient() { close(); }

  std::size_t send(std::string_view bytes) {
    const ssize_t count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    return count < 0 ? 0 : static_cast<std::size_t>(count);
  }
  void shutdownSend() { ::shutdown(socket_, SHUT_WR); }
  void close() {
    if (socket_ >= 0) ::close(std::exchange(socket_, -1));
  }
  void closeWithReset() {
    const linger hard{1, 0};
    ::setsockopt(socket_, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
    close();
  }

  /// Takes what has come, up to `most` bytes.
  void receive(std::size_t most = SIZE_MAX) {
    char block[64 * 1024];
    while (most > 0 && !ended) {
      const ssize_t count = ::recv(socket_, block, std::min(most, sizeof block), 0);
      if (count < 0 && errno == EAGAIN) return;
      ended = count <= 0;
      reset = count < 0;
      if (count <= 0) return;
      received.append(block, static_cast<std::size_t>(count));
      most -= static_cast<std::size_t>(count);
    }
  }

  std::string received;
  bool ended = false;  ///< the server has closed
  bool reset = false;  ///< not in an orderly way

 private:
  int socket_;
};

}  // namespace quorvane
