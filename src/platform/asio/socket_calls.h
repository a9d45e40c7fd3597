#pragma once

#include <asio/error_code.hpp>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/asio/loop_core.h"

namespace quorvane {

/// What the event-loop library leaves to the system, or does slower than the system can. Each
/// system's folder implements these calls.

/// Sets what an open acceptor of TCP needs before it is bound. Whatever connections inherit from it
/// on this system is set here too: an answer is sent as one piece and must not wait for more, and a
/// client that has vanished without a word gives its place back in the end.
void prepareAcceptor(Acceptor& acceptor, asio::error_code& error);

/// Lets other processes bind the same place, as long as they ask for it as well; the system hands
/// each connection to one of them.
void sharePlace(Acceptor& acceptor, asio::error_code& error);

/// The file by which programs of this machine find a listener, for as long as it listens.
class SocketFile {
 public:
  SocketFile() = default;
  SocketFile(const SocketFile&) = delete;
  SocketFile& operator=(const SocketFile&) = delete;
  ~SocketFile() { remove(); }

  /// Opens the acceptor and binds it to a new file, for its owner and group. It takes the place of
  /// one whose server has died; where anything else stands there, it fails and says why.
  std::string bind(Acceptor& acceptor, const std::string& path);

  /// Takes the file away, unless another stands in its place by now.
  void remove();

 private:
  std::string path_;          ///< empty without a file
  std::uint64_t device_ = 0;  ///< by which the file is known
  std::uint64_t number_ = 0;
};

/// Sets what an accepted connection did not inherit.
void prepareConnection(StreamSocket& connection, asio::error_code& error);

/// How many connections there may be: some descriptors stay free for the files that are being sent
/// over them, logs and the control channel. Where descriptors are no concern there is always room.
class ConnectionRoom {
 public:
  ConnectionRoom();
  /// Whether `accepted` has taken the last place.
  bool isFilledBy(StreamSocket& accepted) const;
  bool hasPlace(Acceptor& acceptor) const;

 private:
  std::int64_t places_;
};

/// Blocks until `socket` takes bytes or has failed. False when `atMost` passes before.
bool waitUntilWritable(StreamSocket& socket, std::chrono::milliseconds atMost);

/// Whether the connection is over for both directions.
bool isReset(StreamSocket& socket);

/// Bytes that the system has taken for the client and the client has not confirmed; 0 where the
/// system does not tell.
std::uint64_t unconfirmedBytes(StreamSocket& socket);

}  // namespace quorvane
