#include "platform/linux/udp_socket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>

namespace quorvane {

namespace {

using asio::ip::udp;

constexpr int kDatagramsPerTurn = 16;
constexpr std::size_t kLongestDatagram = 65536;

/// A received datagram's envelope: who sent it and which of this machine's addresses was asked.
struct Envelope {
  sockaddr_in from{};
  in_addr asked{};
};

/// Room for the one control message either way.
struct ControlRoom {
  alignas(cmsghdr) char bytes[CMSG_SPACE(sizeof(in_pktinfo))] = {};
};

bool isThisMachine(const Envelope& envelope) {
  const auto first = reinterpret_cast<const std::uint8_t*>(&envelope.from.sin_addr.s_addr)[0];
  return first == 127 || envelope.from.sin_addr.s_addr == envelope.asked.s_addr;
}

ssize_t receiveFrom(int descriptor, char* bytes, std::size_t size, Envelope& envelope) {
  iovec room{bytes, size};
  ControlRoom control;
  msghdr message{};
  message.msg_name = &envelope.from;
  message.msg_namelen = sizeof envelope.from;
  message.msg_iov = &room;
  message.msg_iovlen = 1;
  message.msg_control = control.bytes;
  message.msg_controllen = sizeof control.bytes;
  const ssize_t count = ::recvmsg(descriptor, &message, MSG_DONTWAIT);
  if (count < 0) return count;
  for (cmsghdr* part = CMSG_FIRSTHDR(&message); part; part = CMSG_NXTHDR(&message, part)) {
    if (part->cmsg_level != IPPROTO_IP || part->cmsg_type != IP_PKTINFO) continue;
    in_pktinfo info{};
    std::memcpy(&info, CMSG_DATA(part), sizeof info);
    envelope.asked = info.ipi_addr;
  }
  return count;
}

void sendBack(int descriptor, std::string_view text, Envelope& envelope) {
  iovec bytes{const_cast<char*>(text.data()), text.size()};
  ControlRoom control;
  msghdr message{};
  message.msg_name = &envelope.from;
  message.msg_namelen = sizeof envelope.from;
  message.msg_iov = &bytes;
  message.msg_iovlen = 1;
  message.msg_control = control.bytes;
  message.msg_controllen = sizeof control.bytes;
  cmsghdr* part = CMSG_FIRSTHDR(&message);
  part->cmsg_level = IPPROTO_IP;
  part->cmsg_type = IP_PKTINFO;
  part->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
  in_pktinfo info{};
  info.ipi_spec_dst = envelope.asked;
  std::memcpy(CMSG_DATA(part), &info, sizeof info);
  ::sendmsg(descriptor, &message, MSG_DONTWAIT | MSG_NOSIGNAL);
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
    const int on = 1;
    if (error ||
        ::setsockopt(socket.native_handle(), IPPROTO_IP, IP_PKTINFO, &on, sizeof on) != 0) {
      return false;
    }
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
    if (bound_ && answering) sendBack(bound_->socket.native_handle(), text, *answering);
  }

  UdpSocketEvents& events;
  Envelope* answering = nullptr;  ///< the datagram being told

 private:
  LoopCore& core_;
  std::shared_ptr<Bound> bound_;
};

void Bound::receiveWaiting() {
  std::string bytes(kLongestDatagram, '\0');
  for (int i = 0; i < kDatagramsPerTurn && owner_; ++i) {
    Envelope envelope;
    const ssize_t count = receiveFrom(socket.native_handle(), bytes.data(), bytes.size(), envelope);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) break;
    if (count < 0) {
      owner_->events.udpError();
      break;
    }
    char address[INET_ADDRSTRLEN] = {};
    ::inet_ntop(AF_INET, &envelope.from.sin_addr, address, sizeof address);
    owner_->answering = &envelope;
    owner_->events.datagramArrival(*owner_, {{bytes.data(), static_cast<std::size_t>(count)},
                                             address,
                                             ntohs(envelope.from.sin_port),
                                             isThisMachine(envelope)});
    if (owner_) owner_->answering = nullptr;
  }
  if (owner_) wait();
}

}  // namespace

std::unique_ptr<UdpSocket> makeUdpSocket(LoopCore& core, UdpSocketEvents& events) {
  return std::make_unique<LoopUdpSocket>(core, events);
}

}  // namespace quorvane
