#include "members/canned_server.h"

#include <asio/buffer.hpp>
#include <asio/read_until.hpp>
#include <asio/streambuf.hpp>
#include <asio/write.hpp>
#include <string_view>

namespace quorvane {

namespace {

constexpr std::string_view kAnswer =
    "HTTP/1.1 200 Fine\r\nContent-Type: text/xml\r\nX-Kept: yes\r\nContent-Length: 10\r\n"
    "Connection: close\r\n\r\n<a>one</a>";

}  // namespace

CannedServer::CannedServer()
    : acceptor_(context_, {asio::ip::address_v4::loopback(), 0}), thread_([this] {
        accept();
        context_.run();
      }) {}

CannedServer::~CannedServer() {
  context_.stop();
  thread_.join();
}

void CannedServer::accept() {
  acceptor_.async_accept([this](asio::error_code error, asio::ip::tcp::socket client) {
    if (error) return;
    asio::streambuf head;
    asio::read_until(client, head, "\r\n\r\n", error);
    asio::write(client, asio::buffer(kAnswer), error);
    client.shutdown(asio::ip::tcp::socket::shutdown_send, error);
    accept();
  });
}

}  // namespace quorvane
