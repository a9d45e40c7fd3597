#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

/// A datagram as it arrived. The views are valid during the event only.
struct Datagram {
  std::string_view data;
  std::string_view remoteHostIP;
  std::uint16_t remotePort = 0;
  bool fromThisMachine = false;  ///< the sender's address is one of this machine's own
};

class UdpSocket;

/// What a datagram socket tells its owner, who outlives it.
class UdpSocketEvents {
 public:
  virtual ~UdpSocketEvents() = default;
  virtual void datagramArrival(UdpSocket& socket, const Datagram& datagram) = 0;
  virtual void udpError() = 0;
};

/// A datagram socket. However many datagrams wait, a few are told at a time and the other sockets
/// have their turn in between.
class UdpSocket {
 public:
  virtual ~UdpSocket() = default;

  /// Closes, then binds `port` on all interfaces; 0 takes any free one.
  virtual bool bind(std::uint16_t port) = 0;
  virtual void close() = 0;
  virtual bool isOpen() const = 0;
  virtual std::uint16_t localPort() const = 0;

  /// Answers a datagram from the address it was sent to. Only within its datagramArrival event.
  /// A reply that can't be sent is lost.
  virtual void reply(std::string_view text) = 0;
};

}  // namespace quorvane
