#include "platform/asio/connection.h"

#include <algorithm>
#include <asio/buffer.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/post.hpp>
#include <cstring>
#include <optional>

#include "platform/asio/socket_calls.h"
#include "support/address_ranges.h"
#include "support/ip_address.h"

namespace quorvane {

using std::chrono::steady_clock;

namespace {

/// Once the server has closed: how long a client may take nothing of what it still has to get.
constexpr std::chrono::seconds kStalled{30};
/// And when it has got everything: how long it may say nothing before the connection goes down,
constexpr std::chrono::seconds kQuiet{5};
/// and how long it may go on sending.
constexpr std::chrono::seconds kLongest{30};
/// And how long nobody else takes its place.
constexpr std::chrono::seconds kBrief{1};
constexpr std::chrono::seconds kSweep{1};
/// How often it is asked whether others wait for a client that takes nothing.
constexpr std::chrono::milliseconds kAskAgain{250};

using AnyEndpoint = asio::generic::stream_protocol::endpoint;

/// Nothing when the end of the connection is no address of a network.
std::optional<asio::ip::tcp::endpoint> networkEnd(const AnyEndpoint& end) {
  const int family = end.protocol().family();
  asio::ip::tcp::endpoint network(
      family == asio::ip::tcp::v6().family() ? asio::ip::tcp::v6() : asio::ip::tcp::v4(), 0);
  if (family != network.protocol().family()) return std::nullopt;
  // Some systems tell of more room than the address takes.
  std::memcpy(network.data(), end.data(), std::min(end.size(), network.capacity()));
  return network;
}

std::string addressText(const asio::ip::address& address) {
  if (address.is_v4()) return address.to_string();
  return IpAddress(address.to_v6().to_bytes()).text();
}

std::string addressText(const AnyEndpoint& end) {
  const auto network = networkEnd(end);
  return network ? addressText(network->address()) : std::string(kLocalClient);
}

std::uint16_t portOf(const AnyEndpoint& end) {
  const auto network = networkEnd(end);
  return network ? network->port() : std::uint16_t{0};
}

void sweepLeaving(LoopCore& core) {
  core.sweeping = !core.leaving.empty();
  if (!core.sweeping) return;
  core.sweep.expires_after(kSweep);
  core.sweep.async_wait([&core](const asio::error_code& error) {
    if (error) return;
    const auto now = steady_clock::now();
    const std::vector<std::shared_ptr<Connection>> leaving(core.leaving.begin(),
                                                           core.leaving.end());
    for (const auto& connection : leaving) connection->leaveAfter(now);
    sweepLeaving(core);
  });
}

}  // namespace

Connection::Connection(LoopCore& core, StreamSocket socket, TcpSocketEvents& events, int index)
    : core_(core), socket_(std::move(socket)), events_(&events), files_(*this), index_(index) {}

void Connection::open() {
  armRead();
}

void Connection::armRead() {
  if (reading_ || phase_ == Phase::Gone) return;
  reading_ = true;
  socket_.async_wait(StreamSocket::wait_read,
                     [self = shared_from_this()](const asio::error_code& error) {
                       self->reading_ = false;
                       if (!error) return self->readable();
                       if (error != asio::error::operation_aborted) self->broken();
                     });
}

void Connection::armWrite() {
  if (writing_ || phase_ == Phase::Gone) return;
  writing_ = true;
  socket_.async_wait(StreamSocket::wait_write,
                     [self = shared_from_this()](const asio::error_code& error) {
                       self->writing_ = false;
                       if (!error) self->writable();
                     });
}

void Connection::readable() {
  if (phase_ == Phase::Lingering) {
    readLingering();
  } else if (wantsBytes() && state_ == SocketState::Connected) {
    readOpen();
  }
}

void Connection::readOpen() {
  asio::error_code error;
  const std::size_t count = socket_.receive(asio::buffer(core_.readBuffer), 0, error);
  if (error == asio::error::would_block) return armRead();
  if (error == asio::error::eof) {
    state_ = SocketState::PeerClosing;
    events_->peerClosed(index_);
    return;
  }
  if (error) return broken();
  inEvent_ = true;
  core_.readBufferInUse = true;
  events_->dataArrival(index_, {core_.readBuffer.data(), count});
  core_.readBufferInUse = false;
  inEvent_ = false;
  if (sentToTell_) tellSent();
  if (phase_ == Phase::Lingering || wantsBytes()) armRead();
}

/// Some systems tell it in the wait for bytes, and whoever reads then no more.
void Connection::broken() {
  if (phase_ == Phase::Lingering) return finish();
  if (!wantsBytes() || state_ != SocketState::Connected) return;  // what is sent next meets it
  state_ = SocketState::Error;
  events_->socketError(index_);
}

bool Connection::wantsBytes() const {
  return phase_ == Phase::Open && queue_.empty() && !paused_;
}

void Connection::resume() {
  paused_ = false;
  if (wantsBytes() && !inEvent_) armRead();
}

void Connection::readLingering() {
  asio::error_code error;
  socket_.receive(asio::buffer(core_.readBuffer), 0, error);
  if (error && error != asio::error::would_block) return finish();
  if (!error) lastProgress_ = steady_clock::now();
  armRead();
}

void Connection::send(std::string head, Body body) {
  if (phase_ != Phase::Open || state_ != SocketState::Connected) return;
  const bool wasIdle = queue_.empty();
  queue_.push(std::move(head), std::move(body));
  if (wasIdle && !flush()) fail();
}

/// False when the connection broke.
bool Connection::flush() {
  switch (queue_.sendSome(socket_, files_)) {
    case OutgoingQueue::Result::Empty:
      sent();
      return true;
    case OutgoingQueue::Result::MoreToSend:
    case OutgoingQueue::Result::WouldBlock:
      armWrite();
      return true;
    case OutgoingQueue::Result::UnderWay:
      return true;
    case OutgoingQueue::Result::Failed:
      break;
  }
  return false;
}

void Connection::writable() {
  if (phase_ == Phase::Gone || queue_.empty()) return;
  const std::uint64_t before = queue_.pending();
  if (!flush()) return fail();
  if (phase_ == Phase::Flushing && queue_.pending() < before) lastProgress_ = steady_clock::now();
}

void Connection::fileSent() {
  const auto self = shared_from_this();
  writable();
}

/// Blocks until the system takes bytes, or has those that it was asked to take, or has failed.
bool Connection::waitUntilTaken(std::chrono::milliseconds atMost) {
  return files_.isUnderWay() ? files_.waitUntilOver(atMost) : waitUntilWritable(socket_, atMost);
}

void Connection::sent() {
  if (phase_ == Phase::Flushing) return linger();
  if (sentToTell_) return;
  sentToTell_ = true;
  if (inEvent_) return;  // told when the event returns
  asio::post(core_.io, [self = shared_from_this()] {
    if (self->sentToTell_) self->tellSent();
    if (self->wantsBytes()) self->armRead();
  });
}

void Connection::tellSent() {
  if (!queue_.empty()) {  // more was queued meanwhile
    sentToTell_ = false;
    return;
  }
  sentToTell_ = false;
  if (phase_ == Phase::Open && state_ == SocketState::Connected) events_->sendComplete(index_);
}

void Connection::fail() {
  queue_.clear();
  if (phase_ != Phase::Open) return finish();
  state_ = SocketState::Error;
  asio::post(core_.io, [self = shared_from_this()] {
    if (self->phase_ == Phase::Open) self->events_->socketError(self->index_);
  });
}

bool Connection::isWaiting() {
  if (phase_ != Phase::Open || state_ != SocketState::Connected) return false;
  if (!queue_.empty()) return waitUntilTaken(std::chrono::milliseconds(0));
  asio::error_code error;
  return !paused_ && socket_.available(error) > 0;
}

bool Connection::drainTo(std::uint64_t bytes, const DrainPatience& patience) {
  const auto end = steady_clock::now() + patience.inAll;
  while (phase_ == Phase::Open && state_ == SocketState::Connected && queue_.pending() > bytes) {
    if (waitForRoom(patience, end) && flush()) continue;
    loseQueued();
    fail();
  }
  return phase_ == Phase::Open && state_ == SocketState::Connected;
}

/// Blocks until the client takes something. False when patience is at its end.
bool Connection::waitForRoom(const DrainPatience& patience, steady_clock::time_point end) {
  using std::chrono::milliseconds;
  const auto begun = steady_clock::now();
  const auto last = std::min(end, begun + patience.withoutProgress);
  auto next = begun + patience.whileOthersWait;
  for (;;) {
    const auto now = steady_clock::now();
    if (now >= end) return false;
    const auto wait = std::chrono::ceil<milliseconds>(std::min(last, next) - now);
    if (waitUntilTaken(std::max(wait, milliseconds(0)))) return true;
    if (steady_clock::now() >= last || (patience.othersWait && patience.othersWait())) return false;
    next += kAskAgain;
  }
}

void Connection::close() {
  if (phase_ != Phase::Open) return;
  events_ = nullptr;
  const SocketState last = std::exchange(state_, SocketState::Closed);
  if (last == SocketState::Error) return finish();
  if (queue_.empty()) {
    // A client that has closed its side has nothing unread that a reset could answer.
    return last == SocketState::PeerClosing ? finish() : linger();
  }
  phase_ = Phase::Flushing;
  leave();
  armWrite();
}

void Connection::abort() {
  if (!queue_.empty()) loseQueued();
  finish();
}

/// Has the connection end in a reset: what the system has of an answer would keep its memory for as
/// long as the client likes, and look like a whole one in the end.
void Connection::loseQueued() {
  asio::error_code ignored;
  socket_.set_option(asio::socket_base::linger(true, 0), ignored);
}

std::uint64_t Connection::unconfirmedBytes() {
  return queue_.pending() + quorvane::unconfirmedBytes(socket_);
}

void Connection::linger() {
  asio::error_code error;
  socket_.shutdown(StreamSocket::shutdown_send, error);
  if (error) return finish();
  phase_ = Phase::Lingering;
  leave();
  if (!inEvent_) armRead();
}

void Connection::leave() {
  lastProgress_ = leftAt_ = steady_clock::now();
  core_.leaving.insert(shared_from_this());
  if (!core_.sweeping) sweepLeaving(core_);
}

void Connection::leaveAfter(steady_clock::time_point now) {
  const bool lingering = phase_ == Phase::Lingering;
  const bool tooLong = lingering && now - leftAt_ > kLongest;
  if (tooLong || now - lastProgress_ > (lingering ? kQuiet : kStalled)) finish();
}

bool Connection::endLingering(LoopCore& core) {
  const auto now = steady_clock::now();
  std::shared_ptr<Connection> first;
  for (const auto& connection : core.leaving) {
    const bool canGo = connection->phase_ == Phase::Lingering && now - connection->leftAt_ > kBrief;
    if (canGo && (!first || connection->leftAt_ < first->leftAt_)) first = connection;
  }
  if (first) first->finish();
  return first != nullptr;
}

void Connection::finish() {
  const auto self = shared_from_this();  // the set below may hold the last reference
  phase_ = Phase::Gone;
  state_ = SocketState::Closed;
  events_ = nullptr;
  queue_.clear();
  asio::error_code ignored;
  if (files_.isUnderWay()) socket_.cancel(ignored);  // some systems finish it first
  socket_.close(ignored);
  core_.leaving.erase(self);
}

std::string Connection::localHostIP() const {
  std::error_code error;
  const auto here = socket_.local_endpoint(error);
  return error ? std::string() : addressText(here);
}

std::uint16_t Connection::localPort() const {
  std::error_code error;
  const auto here = socket_.local_endpoint(error);
  return error ? std::uint16_t{0} : portOf(here);
}

AcceptedRequest::AcceptedRequest(StreamSocket from) : socket(std::move(from)) {
  asio::error_code error;
  const auto peer = socket.remote_endpoint(error);
  if (error) return;
  address_ = addressText(peer);
  port_ = portOf(peer);
}

namespace {

class LoopTcpSocket final : public TcpSocket {
 public:
  LoopTcpSocket(LoopCore& core, int index, TcpSocketEvents& events)
      : core_(core), events_(events), index_(index) {}
  LoopTcpSocket(const LoopTcpSocket&) = delete;
  LoopTcpSocket& operator=(const LoopTcpSocket&) = delete;
  ~LoopTcpSocket() override { LoopTcpSocket::close(); }

  SocketState state() const override {
    return connection_ ? connection_->state() : SocketState::Closed;
  }

  bool accept(ConnectionRequest& request) override {
    auto& accepted = static_cast<AcceptedRequest&>(request);
    if (connection_ || !accepted.socket.is_open()) return false;
    remoteHostIP_ = accepted.remoteHostIP();
    remotePort_ = accepted.remotePort();
    connection_ = std::make_shared<Connection>(core_, std::move(accepted.socket), events_, index_);
    connection_->open();
    return true;
  }

  void close() override {
    if (!connection_) return;
    const auto connection = std::exchange(connection_, nullptr);
    connection->close();
  }

  void pause() override {
    if (connection_) connection_->pause();
  }
  void resume() override {
    if (connection_) connection_->resume();
  }
  bool isWaiting() const override { return connection_ && connection_->isWaiting(); }
  bool isReset() const override { return connection_ && connection_->isReset(); }

  void abort() override {
    if (!connection_) return;
    const auto connection = std::exchange(connection_, nullptr);
    connection->abort();
  }

  void send(std::string head, Body body) override {
    if (connection_) connection_->send(std::move(head), std::move(body));
  }

  std::uint64_t pendingBytes() const override {
    return connection_ ? connection_->pendingBytes() : 0;
  }

  std::uint64_t unconfirmedBytes() const override {
    return connection_ ? connection_->unconfirmedBytes() : 0;
  }

  bool drainTo(std::uint64_t bytes, const DrainPatience& patience) override {
    return connection_ && connection_->drainTo(bytes, patience);
  }

  const std::string& remoteHostIP() const override { return remoteHostIP_; }
  std::uint16_t remotePort() const override { return remotePort_; }
  std::string localHostIP() const override {
    return connection_ ? connection_->localHostIP() : std::string();
  }
  std::uint16_t localPort() const override {
    return connection_ ? connection_->localPort() : std::uint16_t{0};
  }

 private:
  LoopCore& core_;
  TcpSocketEvents& events_;
  int index_;
  std::shared_ptr<Connection> connection_;
  std::string remoteHostIP_;
  std::uint16_t remotePort_ = 0;
};

}  // namespace

std::unique_ptr<TcpSocket> makeTcpSocket(LoopCore& core, int index, TcpSocketEvents& events) {
  return std::make_unique<LoopTcpSocket>(core, index, events);
}

}  // namespace quorvane
