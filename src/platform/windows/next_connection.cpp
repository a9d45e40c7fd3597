#include "platform/asio/next_connection.h"

#include <mswsock.h>
#include <winsock2.h>
#include <ws2tcpip.h>

#include <asio/windows/overlapped_ptr.hpp>

namespace quorvane {

namespace {

/// The system wants so much room for each of a connection's two addresses.
constexpr DWORD kAddressRoom = sizeof(sockaddr_storage) + 16;

/// The socket takes after its acceptor, and knows its addresses from then on.
asio::error_code settle(SOCKET connection, SOCKET acceptor) {
  const int result = ::setsockopt(connection, SOL_SOCKET, SO_UPDATE_ACCEPT_CONTEXT,
                                  reinterpret_cast<const char*>(&acceptor), sizeof acceptor);
  return result == 0 ? asio::error_code() : asio::error::connection_aborted;
}

}  // namespace

/// A socket into which the system puts a connection.
struct NextConnection::Waiting {
  explicit Waiting(Acceptor& from)
      : acceptor(from.native_handle()), connection(from.get_executor()) {
    const auto here = from.local_endpoint(error);
    if (!error) connection.open(here.protocol(), error);
  }

  SOCKET acceptor;
  StreamSocket connection;
  asio::error_code error;
  OVERLAPPED* pending = nullptr;
  char addresses[2 * kAddressRoom] = {};
};

/// The library's own accepting does not let go of what would tell whether a connection has come.
void NextConnection::await(Acceptor& acceptor, std::shared_ptr<NextConnectionEvents> told) {
  const auto waiting = std::make_shared<Waiting>(acceptor);
  asio::windows::overlapped_ptr operation(
      acceptor.get_executor(),
      [this, waiting, told = std::move(told)](asio::error_code error, std::size_t) {
        waiting_.reset();
        if (!error) error = settle(waiting->connection.native_handle(), waiting->acceptor);
        told->accepted(error, std::move(waiting->connection));
      });
  DWORD count = 0;
  const bool isBegun =
      !waiting->error &&
      ::AcceptEx(waiting->acceptor, waiting->connection.native_handle(), waiting->addresses, 0,
                 kAddressRoom, kAddressRoom, &count, operation.get()) != 0;
  if (!isBegun && !waiting->error && ::WSAGetLastError() != WSA_IO_PENDING) {
    waiting->error.assign(::WSAGetLastError(), asio::error::get_system_category());
  }
  if (waiting->error) return operation.complete(waiting->error, 0);
  waiting->pending = operation.release();
  waiting_ = waiting;
}

bool NextConnection::hasCome(Acceptor& acceptor) const {
  if (waiting_) return HasOverlappedIoCompleted(waiting_->pending);
  fd_set readable{};
  FD_SET(acceptor.native_handle(), &readable);
  timeval atOnce{};
  return ::select(0, &readable, nullptr, nullptr, &atOnce) > 0;
}

}  // namespace quorvane
