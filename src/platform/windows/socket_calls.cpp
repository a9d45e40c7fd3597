#include "platform/asio/socket_calls.h"

#include <mstcpip.h>
#include <mswsock.h>
#include <winsock2.h>

#include <asio/ip/tcp.hpp>

namespace quorvane {

namespace {

/// Of silence before the system asks whether the client is still there, and how often it asks then.
constexpr std::chrono::duration<ULONG, std::milli> kKeepAliveIdle{120'000};
constexpr std::chrono::duration<ULONG, std::milli> kKeepAliveInterval{30'000};

using ExclusiveUse = asio::detail::socket_option::boolean<SOL_SOCKET, SO_EXCLUSIVEADDRUSE>;

timeval timeOf(std::chrono::milliseconds length) {
  timeval time{};
  time.tv_sec = static_cast<long>(length.count() / 1000);
  time.tv_usec = static_cast<long>(length.count() % 1000 * 1000);
  return time;
}

fd_set setOf(SOCKET socket) {
  fd_set set{};
  set.fd_count = 1;
  set.fd_array[0] = socket;
  return set;
}

}  // namespace

/// A server of this system has no such file to offer: its call for accepting takes networks only.
std::string SocketFile::bind(Acceptor&, const std::string&) {
  return "this system's servers listen at networks only";
}

void SocketFile::remove() {
  path_.clear();
  device_ = number_ = 0;
}

/// Reusing an address lets any program take it over on this system; the opposite is to be asked
/// for.
void prepareAcceptor(Acceptor& acceptor, asio::error_code& error) {
  acceptor.set_option(ExclusiveUse(true), error);
}

void sharePlace(Acceptor&, asio::error_code& error) {
  error = asio::error::operation_not_supported;
}

void prepareConnection(StreamSocket& connection, asio::error_code& error) {
  connection.set_option(asio::ip::tcp::no_delay(true), error);
  tcp_keepalive keep{1, kKeepAliveIdle.count(), kKeepAliveInterval.count()};
  DWORD count = 0;
  ::WSAIoctl(connection.native_handle(), SIO_KEEPALIVE_VALS, &keep, sizeof keep, nullptr, 0, &count,
             nullptr, nullptr);
}

/// Handles are no concern.
ConnectionRoom::ConnectionRoom() : places_(0) {}

bool ConnectionRoom::isFilledBy(StreamSocket&) const {
  return false;
}

bool ConnectionRoom::hasPlace(Acceptor&) const {
  return true;
}

bool waitUntilWritable(StreamSocket& socket, std::chrono::milliseconds atMost) {
  fd_set writable = setOf(socket.native_handle());
  fd_set failed = writable;
  timeval time = timeOf(atMost);
  return ::select(0, nullptr, &writable, &failed, &time) > 0;
}

/// A reset throws away what came before it, so that the next byte can't be looked at; while the
/// loop waits for that byte, looking tells nothing.
bool isReset(StreamSocket& socket) {
  WSAPOLLFD waiting{socket.native_handle(), POLLRDNORM, 0};
  if (::WSAPoll(&waiting, 1, 0) > 0 && (waiting.revents & POLLERR) != 0) return true;
  char next = 0;
  const int count = ::recv(socket.native_handle(), &next, 1, MSG_PEEK);
  return count < 0 && ::WSAGetLastError() != WSAEWOULDBLOCK;
}

/// The system does not tell.
std::uint64_t unconfirmedBytes(StreamSocket&) {
  return 0;
}

}  // namespace quorvane
