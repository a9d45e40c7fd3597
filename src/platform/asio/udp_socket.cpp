#include "platform/asio/udp_socket.h"

#include "platform/asio/datagram_calls.h"

namespace quorvane {

namespace {

using asio::ip::udp;

constexpr int kDatagramsPerTurn = 16;
constexpr std::size_t kLongestDatagram = 65536;

bool isThisMachine(const Envelope& envelope) {
  const auto from = envelope.from.address().to_v4();
  return from.is_loopback() || from == envelope.asked;
}

class LoopUdpSocket;

/// One binding of the port; outlives its socket while a wait is pending.
class Bound final : public std::enable_shared_from_this<Bound> {
 public:
  Bound(LoopCore& core, LoopUdpSocket& owner) : socket(core.io), owner_(&owner) {}

  bool start(std::uint16_t port) {
    const udp::endpoint everywhere(udp::v4(), port);
    asio::error_code error;
    socket.open(everywhere.protocol(), error);
    if (!error) socket.bind(everywhere, error);
    if (!error) socket.non_blocking(true, error);
    if (!error) prepareDatagrams(socket, error);
    if (error) return false;
    wait();
    return true;
  }

  void stop() {
    owner_ = nullptr;
    asio::error_code ignored;
    socket.close(ignored);
  }

  DatagramSocket socket;

 private:
  void wait() {
    socket.async_wait(udp::socket::wait_read,
                      [self = shared_from_this()](const asio::error_code& error) {
                        if (!error && self->owner_) self->receiveWaiting();
                      });
  }
  void receiveWaiting();

  LoopUdpSocket* owner_;
};

class LoopUdpSocket final : public UdpSocket {
 public:
  LoopUdpSocket(LoopCore& core, UdpSocketEvents& udpEvents) : events(udpEvents), core_(core) {}
  LoopUdpSocket(const LoopUdpSocket&) = delete;
  LoopUdpSocket& operator=(const LoopUdpSocket&) = delete;
  ~LoopUdpSocket() override { LoopUdpSocket::close(); }

  bool bind(std::uint16_t port) override {
    close();
    auto bound = std::make_shared<Bound>(core_, *this);
    if (!bound->start(port)) {
      bound->stop();
      return false;
    }
    bound_ = std::move(bound);
    return true;
  }

  void close() override {
    answering = nullptr;
    if (bound_) std::exchange(bound_, nullptr)->stop();
  }

  bool isOpen() const override { return bound_ != nullptr; }

  std::uint16_t localPort() const override {
    asio::error_code error;
    return bound_ ? bound_->socket.local_endpoint(error).port() : std::uint16_t{0};
  }

  void reply(std::string_view text) override {
    if (bound_ && answering) answerDatagram(bound_->socket, *answering, text);
  }

  UdpSocketEvents& events;
  const Envelope* answering = nullptr;  ///< the datagram being told

 private:
  LoopCore& core_;
  std::shared_ptr<Bound> bound_;
};

void Bound::receiveWaiting() {
  std::string bytes(kLongestDatagram, '\0');
  for (int i = 0; i < kDatagramsPerTurn && owner_; ++i) {
    Envelope envelope;
    asio::error_code error;
    const std::size_t count = receiveDatagram(socket, bytes.data(), bytes.size(), envelope, error);
    if (error == asio::error::would_block || error == asio::error::interrupted) break;
    if (error) {
      owner_->events.udpError();
      break;
    }
    const std::string address = envelope.from.address().to_string();
    owner_->answering = &envelope;
    owner_->events.datagramArrival(
        *owner_, {{bytes.data(), count}, address, envelope.from.port(), isThisMachine(envelope)});
    if (owner_) owner_->answering = nullptr;
  }
  if (owner_) wait();
}

}  // namespace

std::unique_ptr<UdpSocket> makeUdpSocket(LoopCore& core, UdpSocketEvents& events) {
  return std::make_unique<LoopUdpSocket>(core, events);
}

}  // namespace quorvane
