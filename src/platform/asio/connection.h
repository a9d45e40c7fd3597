#pragma once

#include <chrono>
#include <memory>

#include "platform/asio/file_sender.h"
#include "platform/asio/loop_core.h"
#include "platform/asio/outgoing_queue.h"
#include "platform/asio/socket_calls.h"
#include "platform/tcp.h"

namespace quorvane {

/// One accepted connection, from accept to the closing of its descriptor. A TcpSocket holds it
/// while it is open; after close() it lives on its own until its bytes are over:
///
///   Open -> Flushing (closed with bytes queued) -> Lingering (all sent, the client's rest is
///   read and thrown away) -> Gone
///
/// Closing a socket with unread bytes makes the system reset the connection, and a reset may
/// overtake the answer; hence Lingering.
class Connection final : public std::enable_shared_from_this<Connection>, private FileSenderEvents {
 public:
  Connection(LoopCore& core, StreamSocket socket, TcpSocketEvents& events, int index);

  void open();
  void close();
  void abort();
  void pause() { paused_ = true; }
  void resume();
  bool isWaiting();
  bool isReset() { return quorvane::isReset(socket_); }
  std::string localHostIP() const;
  std::uint16_t localPort() const;
  void send(std::string head, Body body);
  bool drainTo(std::uint64_t bytes, const DrainPatience& patience);

  SocketState state() const { return state_; }
  std::uint64_t pendingBytes() const { return queue_.pending(); }
  std::uint64_t unconfirmedBytes();

  /// Ends a leaving connection that has had its time.
  void leaveAfter(std::chrono::steady_clock::time_point now);

  /// Ends one that has left for longest of those that got everything a while ago and have not
  /// closed their side. False when there is none.
  static bool endLingering(LoopCore& core);

 private:
  enum class Phase : std::uint8_t { Open, Flushing, Lingering, Gone };

  bool wantsBytes() const;
  void armRead();
  void armWrite();
  void readable();
  void readOpen();
  void readLingering();
  void broken();
  void writable();
  void fileSent() override;
  bool waitUntilTaken(std::chrono::milliseconds atMost);
  bool flush();
  void sent();
  void tellSent();
  bool waitForRoom(const DrainPatience& patience, std::chrono::steady_clock::time_point end);
  void fail();
  void linger();
  void loseQueued();
  void leave();
  void finish();

  LoopCore& core_;
  StreamSocket socket_;
  TcpSocketEvents* events_;  ///< null once the owner has let go
  OutgoingQueue queue_;
  FileSender files_;
  std::chrono::steady_clock::time_point lastProgress_;
  std::chrono::steady_clock::time_point leftAt_;
  int index_;
  Phase phase_ = Phase::Open;
  SocketState state_ = SocketState::Connected;
  bool paused_ = false;
  bool reading_ = false;     ///< a wait for bytes is pending
  bool writing_ = false;     ///< a wait for room is pending
  bool inEvent_ = false;     ///< within dataArrival of this connection
  bool sentToTell_ = false;  ///< sendComplete is owed
};

std::unique_ptr<TcpSocket> makeTcpSocket(LoopCore& core, int index, TcpSocketEvents& events);

/// The request as the listener makes it; a socket moves the connection out of it.
class AcceptedRequest final : public ConnectionRequest {
 public:
  explicit AcceptedRequest(StreamSocket from);

  const std::string& remoteHostIP() const override { return address_; }
  std::uint16_t remotePort() const override { return port_; }

  StreamSocket socket;

 private:
  std::string address_;
  std::uint16_t port_ = 0;
};

}  // namespace quorvane
