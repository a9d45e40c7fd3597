#pragma once

#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/udp.hpp>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

/// Asks `address` and takes only what comes back from there.
class UdpClient {
 public:
  UdpClient(const char* address, std::uint16_t port) : socket_(io_) {
    socket_.connect({asio::ip::make_address_v4(address), port});
    socket_.non_blocking(true);
  }
  void send(std::string_view text) { socket_.send(asio::buffer(text)); }
  std::string receive() {
    char bytes[2048];
    asio::error_code error;
    return std::string(bytes, socket_.receive(asio::buffer(bytes), 0, error));
  }

 private:
  asio::io_context io_;
  asio::ip::udp::socket socket_;
};

}  // namespace quorvane
