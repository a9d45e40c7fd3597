#include "platform/asio/socket_calls.h"

#include <fcntl.h>
#include <linux/sockios.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <asio/ip/tcp.hpp>
#include <cerrno>
#include <optional>
#include <system_error>

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
using ReusePort = asio::detail::socket_option::boolean<SOL_SOCKET, SO_REUSEPORT>;
using KeepAliveCount = asio::detail::socket_option::integer<IPPROTO_TCP, TCP_KEEPCNT>;

/// Descriptors that connections leave free: a quarter of all, up to this many.
constexpr std::int64_t kMostReserved = 4096;

constexpr mode_t kSocketFileMode = 0660;

std::string systemText(int number) {
  return std::generic_category().message(number);
}

std::optional<sockaddr_un> localAddress(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path || path.find('\0') != path.npos) return std::nullopt;
  std::copy(path.begin(), path.end(), address.sun_path);
  return address;
}

/// Whether nobody listens any more at that file of a socket.
bool isLeftOver(const sockaddr_un& address) {
  const int probe = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (probe < 0) return false;
  const int result = ::connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  const bool refused = result != 0 && errno == ECONNREFUSED;
  ::close(probe);
  return refused;
}

/// Takes away what a dead server has left at its place; why that can't be.
std::string clearPlace(const sockaddr_un& address) {
  struct stat found {};
  if (::lstat(address.sun_path, &found) != 0) return {};
  if (!S_ISSOCK(found.st_mode)) return "what stands there is no socket";
  if (!isLeftOver(address)) return "another server listens there";
  return ::unlink(address.sun_path) == 0 ? std::string() : systemText(errno);
}

}  // namespace

std::string SocketFile::bind(Acceptor& acceptor, const std::string& path) {
  const auto address = localAddress(path);
  if (!address) return "its name is too long";
  std::string fault = clearPlace(*address);
  if (!fault.empty()) return fault;
  asio::error_code error;
  acceptor.open({AF_UNIX, 0}, error);
  if (error) return error.message();
  // The file has the mode of its socket, less what the process masks, from the beginning.
  const auto* place = reinterpret_cast<const sockaddr*>(&*address);
  if (::fchmod(acceptor.native_handle(), kSocketFileMode) != 0 ||
      ::bind(acceptor.native_handle(), place, sizeof *address) != 0) {
    return systemText(errno);
  }
  struct stat made {};
  if (::lstat(path.c_str(), &made) != 0) return systemText(errno);
  path_ = path;
  device_ = made.st_dev;
  number_ = made.st_ino;
  return ::chmod(path.c_str(), kSocketFileMode) == 0 ? std::string() : systemText(errno);
}

void SocketFile::remove() {
  struct stat found {};
  const bool isOwn = !path_.empty() && ::lstat(path_.c_str(), &found) == 0 &&
                     found.st_dev == device_ && found.st_ino == number_;
  if (isOwn) ::unlink(path_.c_str());
  path_.clear();
}

void prepareAcceptor(Acceptor& acceptor, asio::error_code& error) {
  // A port whose old connections are still going down can be bound again at once.
  acceptor.set_option(Acceptor::reuse_address(true), error);
  if (!error) acceptor.set_option(asio::ip::tcp::no_delay(true), error);
  if (!error) acceptor.set_option(Acceptor::keep_alive(true), error);
  if (!error) acceptor.set_option(KeepAliveIdle(kKeepAliveIdle.count()), error);
  if (!error) acceptor.set_option(KeepAliveInterval(kKeepAliveInterval.count()), error);
  if (!error) acceptor.set_option(KeepAliveCount(kUnanswered), error);
}

void sharePlace(Acceptor& acceptor, asio::error_code& error) {
  acceptor.set_option(ReusePort(true), error);
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

std::uint64_t unconfirmedBytes(StreamSocket& socket) {
  int count = 0;
  if (::ioctl(socket.native_handle(), SIOCOUTQ, &count) != 0 || count < 0) return 0;
  return static_cast<std::uint64_t>(count);
}

}  // namespace quorvane
