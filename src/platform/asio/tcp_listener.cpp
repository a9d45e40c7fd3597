#include "platform/asio/tcp_listener.h"

#include <optional>

#include "platform/asio/connection.h"
#include "platform/asio/socket_calls.h"

namespace quorvane {

namespace {

using asio::ip::tcp;

constexpr std::chrono::milliseconds kPause{100};

/// One stretch of listening, from listen() to close() or an error.
class Listening final : public std::enable_shared_from_this<Listening> {
 public:
  Listening(LoopCore& core, TcpListenerEvents& events)
      : core_(core), acceptor_(core.io), pause_(core.io), events_(events) {}

  bool start(std::uint16_t port) {
    const tcp::endpoint everywhere(tcp::v4(), port);
    asio::error_code error;
    acceptor_.open(everywhere.protocol(), error);
    if (!error) prepareAcceptor(acceptor_, error);
    if (!error) acceptor_.bind(everywhere, error);
    if (!error) acceptor_.listen(asio::socket_base::max_listen_connections, error);
    if (error) return false;
    room_.emplace();
    acceptNext();
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
  bool hasWaiting() { return !stopped_ && quorvane::hasWaiting(acceptor_); }

 private:
  void acceptNext() {
    acceptor_.async_accept(
        [self = shared_from_this()](const asio::error_code& error, StreamSocket accepted) {
          if (!self->stopped_) self->accepted(error, std::move(accepted));
        });
  }

  void accepted(const asio::error_code& error, StreamSocket connection) {
    if (error == asio::error::no_descriptors || error == asio::error::no_buffer_space ||
        error == asio::error::no_memory || error == std::errc::too_many_files_open_in_system) {
      return makeRoom();
    }
    if (error && !isPassing(error)) return fail();
    const bool full = !error && room_->isFilledBy(connection);
    if (!error) hand(std::move(connection));
    if (stopped_) return;
    full ? makeRoom() : acceptNext();
  }

  /// The network's own errors come out of accept and say nothing about the listener.
  static bool isPassing(const asio::error_code& error) {
    return error != asio::error::bad_descriptor && error != asio::error::invalid_argument &&
           error != std::errc::not_a_socket;
  }

  void hand(StreamSocket connection) {
    asio::error_code error;
    connection.non_blocking(true, error);
    if (!error) prepareConnection(connection, error);
    AcceptedRequest request(std::move(connection));
    if (!error && !request.remoteHostIP().empty()) events_.connectionRequest(request);
  }

  /// One that has got everything goes before one that may still ask.
  void makeRoom() {
    if (!Connection::endLingering(core_)) events_.descriptorsShort();
    if (stopped_) return;
    room_->hasPlace(acceptor_) ? acceptNext() : waitForRoom();
  }

  /// Clients wait in the system's queue until descriptors are free again.
  void waitForRoom() {
    pause_.expires_after(kPause);
    pause_.async_wait([self = shared_from_this()](const asio::error_code& error) {
      if (error || self->stopped_) return;
      self->room_->hasPlace(self->acceptor_) ? self->acceptNext() : self->makeRoom();
    });
  }

  void fail() {
    failed_ = true;
    events_.listenerError();
  }

  LoopCore& core_;
  Acceptor acceptor_;
  SteadyTimer pause_;
  TcpListenerEvents& events_;
  std::optional<ConnectionRoom> room_;  ///< as it was when listening began
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
  bool hasWaiting() const override { return listening_ && listening_->hasWaiting(); }

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
