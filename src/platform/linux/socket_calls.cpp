#include "platform/asio/socket_calls.h"

#include <fcntl.h>
#include <linux/sockios.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/sendfile.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/linux/open_file.h"

namespace quorvane {

namespace {

using std::chrono::steady_clock;

/// Of silence before the kernel asks whether the client is still there.
constexpr std::chrono::duration<int> kKeepAliveIdle{120};
using KeepAliveIdle = asio::detail::socket_option::integer<IPPROTO_TCP, TCP_KEEPIDLE>;

/// How often it asks again, and how many questions a client may leave unanswered. One that is
/// there and takes nothing is the owner's matter.
constexpr std::chrono::duration<int> kKeepAliveInterval{30};
using KeepAliveInterval = asio::detail::socket_option::integer<IPPROTO_TCP, TCP_KEEPINTVL>;
constexpr int kUnanswered = 4;
using KeepAliveCount = asio::detail::socket_option::integer<IPPROTO_TCP, TCP_KEEPCNT>;

/// Descriptors that connections leave free: a quarter of all, up to this many.
constexpr std::int64_t kMostReserved = 4096;

}  // namespace

void prepareAcceptor(Acceptor& acceptor, asio::error_code& error) {
  // A port whose old connections are still going down can be bound again at once.
  acceptor.set_option(Acceptor::reuse_address(true), error);
  if (!error) acceptor.set_option(asio::ip::tcp::no_delay(true), error);
  if (!error) acceptor.set_option(Acceptor::keep_alive(true), error);
  if (!error) acceptor.set_option(KeepAliveIdle(kKeepAliveIdle.count()), error);
  if (!error) acceptor.set_option(KeepAliveInterval(kKeepAliveInterval.count()), error);
  if (!error) acceptor.set_option(KeepAliveCount(kUnanswered), error);
}

void prepareConnection(StreamSocket&, asio::error_code& error) {
  error.clear();
}

/// Descriptors are given out from the lowest up, so the number of one tells how many there are.
ConnectionRoom::ConnectionRoom() {
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) limit.rlim_cur = 1024;
  const auto count = static_cast<std::int64_t>(std::min<rlim_t>(limit.rlim_cur, 1 << 30));
  places_ = count - std::min(kMostReserved, count / 4);
}

bool ConnectionRoom::isFilledBy(StreamSocket& accepted) const {
  return accepted.native_handle() >= places_;
}

bool ConnectionRoom::hasPlace(Acceptor& acceptor) const {
  const int lowestFree = ::fcntl(acceptor.native_handle(), F_DUPFD_CLOEXEC, 0);
  if (lowestFree < 0) return false;
  ::close(lowestFree);
  return lowestFree < places_;
}

bool waitUntilWritable(StreamSocket& socket, std::chrono::milliseconds atMost) {
  const auto end = steady_clock::now() + atMost;
  for (auto left = atMost;;) {
    pollfd waiting{socket.native_handle(), POLLOUT, 0};
    const int ready = ::poll(&waiting, 1, static_cast<int>(left.count()));
    if (ready >= 0 || errno != EINTR) return ready > 0;
    left = std::max(std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now()),
                    std::chrono::milliseconds(0));
  }
}

bool isReset(StreamSocket& socket) {
  pollfd waiting{socket.native_handle(), 0, 0};
  return ::poll(&waiting, 1, 0) > 0 && (waiting.revents & (POLLERR | POLLHUP)) != 0;
}

bool hasWaiting(Acceptor& acceptor) {
  pollfd waiting{acceptor.native_handle(), POLLIN, 0};
  return ::poll(&waiting, 1, 0) > 0;
}

std::uint64_t unconfirmedBytes(StreamSocket& socket) {
  int count = 0;
  if (::ioctl(socket.native_handle(), SIOCOUTQ, &count) != 0 || count < 0) return 0;
  return static_cast<std::uint64_t>(count);
}

// The header block before it does not wait for its file (MSG_MORE): sendfile then takes three times
// as long.
std::size_t sendFile(StreamSocket& socket, const OpenFile& file, std::uint64_t offset,
                     std::size_t length, asio::error_code& error) {
  const auto* own = dynamic_cast<const LinuxFile*>(&file);
  auto position = static_cast<off_t>(offset);
  const ssize_t count =
      own ? ::sendfile(socket.native_handle(), own->descriptor(), &position, length) : -1;
  if (count >= 0) {
    error.clear();
    return static_cast<std::size_t>(count);
  }
  const bool cannot = !own || errno == EINVAL || errno == ENOSYS;
  error = cannot ? asio::error_code(asio::error::operation_not_supported)
                 : asio::error_code(errno, asio::error::get_system_category());
  return 0;
}

}  // namespace quorvane
