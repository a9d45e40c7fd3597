#pragma once

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <cstdint>
#include <thread>

namespace quorvane {

/// A server of this machine that gives every request the same answer: a small XML document with a
/// header line of its own, "X-Kept: yes".
class CannedServer {
 public:
  CannedServer();
  ~CannedServer();
  CannedServer(const CannedServer&) = delete;
  CannedServer& operator=(const CannedServer&) = delete;

  std::uint16_t port() const { return acceptor_.local_endpoint().port(); }

 private:
  void accept();

  asio::io_context context_;
  asio::ip::tcp::acceptor acceptor_;
  std::thread thread_;
};

}  // namespace quorvane
