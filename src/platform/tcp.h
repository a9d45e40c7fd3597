#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/outgoing.h"
#include "support/listen_address.h"

namespace quorvane {

/// TCP as the server window sees it: a listener that announces connections, and sockets that are
/// made first and given a connection later. All events come from the event loop's one thread.
///
/// Addresses are texts: those of IPv4 with four numbers, also where they come by a socket of IPv6,
/// and "unix" for both sides of a connection that comes by a file of this machine.

enum class SocketState : std::uint8_t {
  Closed = 0,
  Listening = 2,
  Connected = 7,
  PeerClosing = 8,
  Error = 9,
};

/// A connection that waits to be taken. Lives during the connectionRequest event only; when no
/// socket accepts it there, it is turned away.
class ConnectionRequest {
 public:
  virtual ~ConnectionRequest() = default;
  virtual const std::string& remoteHostIP() const = 0;
  virtual std::uint16_t remotePort() const = 0;
};

/// What a listener tells its owner, who outlives it.
class TcpListenerEvents {
 public:
  virtual ~TcpListenerEvents() = default;
  virtual void connectionRequest(ConnectionRequest& request) = 0;
  /// Connections have taken nearly all the descriptors there are, and others wait: closing one at
  /// once lets the next in.
  virtual void descriptorsShort() {}
  /// The listener has stopped for good; running out of descriptors or memory is not told here but
  /// waited out.
  virtual void listenerError() = 0;
};

class TcpListener {
 public:
  virtual ~TcpListener() = default;

  /// Closed, Listening or Error.
  virtual SocketState state() const = 0;

  /// The port last bound, kept after close; 0 before the first and for a file.
  virtual std::uint16_t localPort() const = 0;

  /// Binds the place and listens. Port 0 takes any free one. What is left of a dead server's file
  /// is replaced, nothing else; the file goes when the listener closes. False when the place can't
  /// be had; the listener is then closed.
  virtual bool listen(const ListenAddress& where) = 0;

  /// Why the last listen() failed, as the end of a sentence.
  virtual const std::string& fault() const = 0;

  virtual void close() = 0;

  /// Whether connections have come that were not announced yet.
  virtual bool hasWaiting() const = 0;
};

/// What a socket tells its owner. The owner outlives the socket. A socket may be closed or
/// destroyed from within any of its own events.
class TcpSocketEvents {
 public:
  virtual ~TcpSocketEvents() = default;
  /// Bytes have arrived. `data` is valid during the call only.
  virtual void dataArrival(int index, std::string_view data) = 0;
  /// Everything that was handed to send() has been taken by the system.
  virtual void sendComplete(int index) = 0;
  virtual void peerClosed(int index) = 0;
  virtual void socketError(int index) = 0;
};

/// How long a client is waited for.
struct DrainPatience {
  std::chrono::milliseconds withoutProgress;  ///< while it takes nothing
  std::chrono::milliseconds inAll;
  /// While it takes nothing and `othersWait`, which is asked after that time and from then on.
  std::chrono::milliseconds whileOthersWait = withoutProgress;
  std::function<bool()> othersWait = nullptr;
};

/// One connection's socket. `index` is the number it was made with.
class TcpSocket {
 public:
  virtual ~TcpSocket() = default;

  virtual SocketState state() const = 0;

  /// Takes a waiting connection. False, and still closed, when it has gone meanwhile or this
  /// socket is not closed.
  virtual bool accept(ConnectionRequest& request) = 0;

  /// Closes the connection. What send() was given has priority over what the client has sent and
  /// nobody read: the answer is delivered whole before the connection goes down, in the
  /// background, for a limited time. No event follows. Closing a closed socket does nothing.
  virtual void close() = 0;

  /// Leaves what the client sends unread until resume().
  virtual void pause() = 0;
  virtual void resume() = 0;

  /// Whether the client waits for the loop: it has sent bytes that nobody has read yet, or takes
  /// bytes that are queued.
  virtual bool isWaiting() const = 0;

  /// Whether the client, or the network, has ended the connection for both directions. It shows
  /// before the bytes that came first are read.
  virtual bool isReset() const = 0;

  /// Closes the connection at once, whatever the client has not taken yet. No event follows.
  virtual void abort() = 0;

  /// Queues `head`, then `body`. Sends at once what the system takes and the rest as it can.
  /// sendComplete follows once for a queue that runs empty, never from within this call.
  /// While anything is queued the client's further bytes are left unread, so that a client that
  /// asks without reading can't fill the server's memory. Does nothing unless connected.
  virtual void send(std::string head, Body body) = 0;

  /// Bytes queued and not yet taken by the system.
  virtual std::uint64_t pendingBytes() const = 0;

  /// Those and what the system has taken and the client not confirmed yet. It may change while
  /// pendingBytes() does not, since systems take much ahead.
  virtual std::uint64_t unconfirmedBytes() const = 0;

  /// Blocks until at most `bytes` are pending. Runs no events of any other socket. False when
  /// `patience` is at its end or the connection failed; the socket is then in the error state and
  /// socketError follows.
  virtual bool drainTo(std::uint64_t bytes, const DrainPatience& patience) = 0;

  /// The client's address as text, empty before the first connection; kept after close.
  virtual const std::string& remoteHostIP() const = 0;
  virtual std::uint16_t remotePort() const = 0;

  /// This machine's address that the client has come to, as text; empty without a connection.
  virtual std::string localHostIP() const = 0;

  /// The port there; 0 without a connection and for a file.
  virtual std::uint16_t localPort() const = 0;

  /// "X": close once the pending send completes; empty: keep open. Free for the owner's use.
  std::string tag;
};

}  // namespace quorvane
