#pragma once

#include <string>

#include "platform/outgoing.h"

namespace quorvane {

/// What is to be sent on a slot.
struct Response {
  std::string head;  ///< empty when the script has sent its own
  Body body;
  bool keepAlive = false;

  /// Nothing to send; the connection is still to be closed unless it is kept alive.
  bool empty() const { return head.empty() && bodyLength(body) == 0; }
};

}  // namespace quorvane
