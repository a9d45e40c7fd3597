#include "platform/linux/tcp_listener.h"

#include <fcntl.h>
#include <netinet/tcp.h>
#include <sys/resource.h>
#include <unistd.h>

#include "platform/linux/connection.h"

namespace quorvane {

namespace {

using asio::ip::tcp;

constexpr int kAcceptsPerTurn = 32;  ///< connections taken before others have their turn
constexpr std::chrono::milliseconds kPause{100};

/// Of silence before the kernel asks whether the client is still there.
constexpr std::chrono::duration<int> kKeepAliveIdle{120};
using KeepAliveIdle = asio::detail::socket_option::integer<IPPROTO_TCP, TCP_KEEPIDLE>;

/// How long a client may leave that question unanswered, or take nothing of what is sent to it.
/// A player that pauses for longer asks for the rest of its file by a range.
constexpr std::chrono::duration<int, std::milli> kUnresponsive{120'000};
using UserTimeout = asio::detail::socket_option::integer<IPPROTO_TCP, TCP_USER_TIMEOUT>;

/// Descriptors that connections leave free, for the files that are being sent over them, logs and
/// the control channel: a quarter of all, up to this many.
constexpr int kMostReserved = 4096;

int highestDescriptorForConnections() {
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) limit.rlim_cur = 1024;
  const auto count = static_cast<int>(std::min<rlim_t>(limit.rlim_cur, 1 << 30));
  return count - std::min(kMostReserved, count / 4);
}

/// One stretch of listening, from listen() to close() or an error.
class Listening final : public std::enable_shared_from_this<Listening> {
 public:
  Listening(LoopCore& core, TcpListenerEvents& events)
      : acceptor_(core.io), pause_(core.io), events_(events) {}

  bool start(std::uint16_t port) {
    const tcp::endpoint everywhere(tcp::v4(), port);
    asio::error_code error;
    acceptor_.open(everywhere.protocol(), error);
    // A port whose old connections are still going down can be bound again at once.
    if (!error) acceptor_.set_option(tcp::acceptor::reuse_address(true), error);
    if (!error) acceptor_.bind(everywhere, error);
    if (!error) acceptor_.listen(asio::socket_base::max_listen_connections, error);
    if (!error) acceptor_.non_blocking(true, error);
    // Accepted connections inherit it; an answer is sent as one piece and must not wait.
    if (!error) acceptor_.set_option(tcp::no_delay(true), error);
    // And these: a client that has vanished without a word gives its place back in the end.
    if (!error) acceptor_.set_option(tcp::acceptor::keep_alive(true), error);
    if (!error) acceptor_.set_option(KeepAliveIdle(kKeepAliveIdle.count()), error);
    if (!error) acceptor_.set_option(UserTimeout(kUnresponsive.count()), error);
    if (error) return false;
    highest_ = highestDescriptorForConnections();
    wait();
    return true;
  }

  void stop() {
    stopped_ = true;
    asio::error_code ignored;
    acceptor_.close(ignored);
    pause_.cancel();
  }

  std::uint16_t port() const {
    asio::error_code error;
    return acceptor_.local_endpoint(error).port();
  }

  bool failed() const { return failed_; }

 private:
  void wait() {
    acceptor_.async_wait(tcp::acceptor::wait_read,
                         [self = shared_from_this()](const asio::error_code& error) {
                           if (error || self->stopped_) return;
                           self->acceptWaiting();
                         });
  }

  void acceptWaiting() {
    for (int i = 0; i < kAcceptsPerTurn; ++i) {
      asio::error_code error;
      StreamSocket accepted = acceptor_.accept(error);
      if (error == asio::error::would_block) break;
      if (error == asio::error::no_descriptors || error == asio::error::no_buffer_space ||
          error == asio::error::no_memory || error == std::errc::too_many_files_open_in_system) {
        return waitForRoom();
      }
      if (error && !isPassing(error)) return fail();
      if (error || !hand(std::move(accepted))) continue;
      if (stopped_) return;
      if (full_) return waitForRoom();
    }
    wait();
  }

  /// The network's own errors come out of accept and say nothing about the listener.
  static bool isPassing(const asio::error_code& error) {
    return error != asio::error::bad_descriptor && error != asio::error::invalid_argument &&
           error != std::errc::not_a_socket;
  }

  bool hand(StreamSocket accepted) {
    asio::error_code error;
    full_ = accepted.native_handle() >= highest_;
    accepted.non_blocking(true, error);
    AcceptedRequest request(std::move(accepted));
    if (error || request.remoteHostIP().empty()) return false;
    events_.connectionRequest(request);
    return true;
  }

  /// Clients wait in the system's queue until descriptors are free again.
  void waitForRoom() {
    pause_.expires_after(kPause);
    pause_.async_wait([self = shared_from_this()](const asio::error_code& error) {
      if (error || self->stopped_) return;
      self->hasRoom() ? self->wait() : self->waitForRoom();
    });
  }

  bool hasRoom() {
    const int lowestFree = ::fcntl(acceptor_.native_handle(), F_DUPFD_CLOEXEC, 0);
    if (lowestFree < 0) return false;
    ::close(lowestFree);
    return lowestFree < highest_;
  }

  void fail() {
    failed_ = true;
    events_.listenerError();
  }

  Acceptor acceptor_;
  SteadyTimer pause_;
  TcpListenerEvents& events_;
  int highest_ = 0;
  bool full_ = false;
  bool failed_ = false;
  bool stopped_ = false;
};

class LoopTcpListener final : public TcpListener {
 public:
  LoopTcpListener(LoopCore& core, TcpListenerEvents& events) : core_(core), events_(events) {}
  LoopTcpListener(const LoopTcpListener&) = delete;
  LoopTcpListener& operator=(const LoopTcpListener&) = delete;
  ~LoopTcpListener() override { LoopTcpListener::close(); }

  SocketState state() const override {
    if (!listening_) return SocketState::Closed;
    return listening_->failed() ? SocketState::Error : SocketState::Listening;
  }

  std::uint16_t localPort() const override { return port_; }

  bool listen(std::uint16_t port) override {
    close();
    auto listening = std::make_shared<Listening>(core_, events_);
    if (!listening->start(port)) {
      listening->stop();
      return false;
    }
    listening_ = std::move(listening);
    port_ = listening_->port();
    return true;
  }

  void close() override {
    if (listening_) std::exchange(listening_, nullptr)->stop();
  }

 private:
  LoopCore& core_;
  TcpListenerEvents& events_;
  std::shared_ptr<Listening> listening_;
  std::uint16_t port_ = 0;
};

}  // namespace

std::unique_ptr<TcpListener> makeTcpListener(LoopCore& core, TcpListenerEvents& events) {
  return std::make_unique<LoopTcpListener>(core, events);
}

}  // namespace quorvane
