#pragma once

#include "platform/event_loop.h"

namespace quorvane {

/// An owner of sockets that heeds nothing they tell.
class NoSocketEvents final : public TcpSocketEvents {
  void dataArrival(int, std::string_view) override {}
  void sendComplete(int) override {}
  void peerClosed(int) override {}
  void socketError(int) override {}
};

}  // namespace quorvane
