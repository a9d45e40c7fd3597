#pragma once

#include <algorithm>
#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

/// A TCP client that never blocks, so that a test can drive it and the server on one thread.
class TestClient {
 public:
  explicit TestClient(std::uint16_t port, int receiveBuffer = 0) : socket_(context()) {
    socket_.open(asio::ip::tcp::v4());
    socket_.non_blocking(true);
    using Room = asio::socket_base::receive_buffer_size;
    if (receiveBuffer > 0) socket_.set_option(Room(receiveBuffer));
    asio::error_code error;
    socket_.connect({asio::ip::address_v4::loopback(), port}, error);
    ended = reset = static_cast<bool>(error);
  }

  std::size_t send(std::string_view bytes) {
    asio::error_code error;
    return socket_.send(asio::buffer(bytes), 0, error);
  }
  void shutdownSend() { socket_.shutdown(asio::ip::tcp::socket::shutdown_send); }
  void close() { socket_.close(); }
  void closeWithReset() {
    socket_.set_option(asio::socket_base::linger(true, 0));
    close();
  }

  /// Takes what has come, up to `most` bytes.
  void receive(std::size_t most = SIZE_MAX) {
    char block[64 * 1024];
    while (most > 0 && !ended) {
      asio::error_code error;
      const std::size_t count =
          socket_.receive(asio::buffer(block, std::min(most, sizeof block)), 0, error);
      if (error == asio::error::would_block) return;
      ended = static_cast<bool>(error);
      reset = error && error != asio::error::eof;
      received.append(block, count);
      most -= count;
    }
  }

  std::string received;
  bool ended = false;  ///< the server has closed or did not listen
  bool reset = false;  ///< not in an orderly way

 private:
  /// Shared, as each has descriptors of its own.
  static asio::io_context& context() {
    static asio::io_context io;
    return io;
  }

  asio::ip::tcp::socket socket_;
};

}  // namespace quorvane
