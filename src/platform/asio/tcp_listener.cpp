#include "platform/asio/tcp_listener.h"

#include <asio/ip/tcp.hpp>
#include <asio/ip/v6_only.hpp>
#include <cstring>
#include <optional>
#include <string>

#include "platform/asio/connection.h"
#include "platform/asio/next_connection.h"
#include "platform/asio/socket_calls.h"

namespace quorvane {

namespace {

using asio::ip::tcp;

constexpr std::chrono::milliseconds kPause{100};

using Kind = ListenAddress::Kind;

tcp::endpoint endpointOf(const ListenAddress& where) {
  if (where.kind == Kind::EveryIPv4) return {tcp::v4(), where.port};
  if (where.kind == Kind::Everywhere) return {tcp::v6(), where.port};
  const IpAddress::Bytes& bytes = where.address.bytes();
  if (!where.address.isV4()) return {asio::ip::address_v6(bytes), where.port};
  return {asio::ip::address_v4({bytes[12], bytes[13], bytes[14], bytes[15]}), where.port};
}

/// One stretch of listening, from listen() to close() or an error.
class Listening final : public NextConnectionEvents,
                        public std::enable_shared_from_this<Listening> {
 public:
  Listening(LoopCore& core, TcpListenerEvents& events)
      : core_(core), acceptor_(core.io), pause_(core.io), events_(events) {}

  /// Why it can't be; empty when it listens.
  std::string start(const ListenAddress& where) {
    std::string fault = bind(where);
    if (!fault.empty()) return fault;
    asio::error_code error;
    acceptor_.listen(asio::socket_base::max_listen_connections, error);
    if (error) return error.message();
    port_ = where.kind == Kind::Local ? std::uint16_t{0} : boundPort();
    room_.emplace();
    acceptNext();
    return {};
  }

  void stop() {
    stopped_ = true;
    asio::error_code ignored;
    file_.remove();
    acceptor_.close(ignored);
    pause_.cancel();
  }

  std::uint16_t port() const { return port_; }
  bool failed() const { return failed_; }
  bool hasWaiting() { return !stopped_ && next_.hasCome(acceptor_); }

 private:
  std::string bind(const ListenAddress& where) {
    switch (where.kind) {
      case Kind::Unclear:
        return "it is no place to listen at";
      case Kind::Local:
        return file_.bind(acceptor_, where.path);
      case Kind::Everywhere: {
        std::string fault = bindNetwork(where);
        if (acceptor_.is_open()) return fault;
        ListenAddress ofIPv4 = where.port;  // this machine has no IPv6
        ofIPv4.isShared = where.isShared;
        return bindNetwork(ofIPv4);
      }
      default:
        return bindNetwork(where);
    }
  }

  /// Where the machine does not know the address's family, the acceptor is not open afterwards.
  std::string bindNetwork(const ListenAddress& where) {
    const tcp::endpoint place = endpointOf(where);
    asio::error_code error;
    acceptor_.open(place.protocol(), error);
    if (!error) prepareAcceptor(acceptor_, error);
    if (!error && where.isShared) sharePlace(acceptor_, error);
    if (!error && place.protocol() == tcp::v6()) {
      acceptor_.set_option(asio::ip::v6_only(where.kind == Kind::Address), error);
    }
    if (!error) acceptor_.bind(place, error);
    const bool lacksFamily = where.kind == Kind::Everywhere && error &&
                             error != asio::error::address_in_use &&
                             error != asio::error::access_denied;
    asio::error_code ignored;
    if (lacksFamily) acceptor_.close(ignored);
    return error ? error.message() : std::string();
  }

  std::uint16_t boundPort() const {
    asio::error_code error;
    const auto bound = acceptor_.local_endpoint(error);
    tcp::endpoint network;
    if (error || bound.size() > network.capacity()) return 0;
    std::memcpy(network.data(), bound.data(), bound.size());
    return network.port();
  }

  void acceptNext() { next_.await(acceptor_, shared_from_this()); }

  void accepted(const asio::error_code& error, StreamSocket connection) override {
    if (stopped_) return;
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
  NextConnection next_;
  SteadyTimer pause_;
  TcpListenerEvents& events_;
  std::optional<ConnectionRoom> room_;  ///< as it was when listening began
  SocketFile file_;
  std::uint16_t port_ = 0;
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

  const std::string& fault() const override { return fault_; }

  bool listen(const ListenAddress& where) override {
    close();
    auto listening = std::make_shared<Listening>(core_, events_);
    fault_ = listening->start(where);
    if (!fault_.empty()) {
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
  std::string fault_;
};

}  // namespace

std::unique_ptr<TcpListener> makeTcpListener(LoopCore& core, TcpListenerEvents& events) {
  return std::make_unique<LoopTcpListener>(core, events);
}

}  // namespace quorvane
