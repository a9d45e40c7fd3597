#pragma once

#include <asio/error_code.hpp>
#include <memory>

#include "platform/asio/loop_core.h"

namespace quorvane {

/// Who is told of a listener's connections.
class NextConnectionEvents {
 public:
  virtual ~NextConnectionEvents() = default;
  virtual void accepted(const asio::error_code& error, StreamSocket connection) = 0;
};

/// The wait for a listener's next connection, one at a time. Each system's folder implements it.
class NextConnection {
 public:
  /// `told`, who owns this, is told once, in an event; with an error when the acceptor is closed.
  void await(Acceptor& acceptor, std::shared_ptr<NextConnectionEvents> told);

  /// Whether one has come that was not told yet.
  bool hasCome(Acceptor& acceptor) const;

 private:
  struct Waiting;

  std::shared_ptr<Waiting> waiting_;  ///< where the system takes connections by itself
};

}  // namespace quorvane
