#pragma once

#include <memory>

#include "platform/asio/loop_core.h"
#include "platform/udp.h"

namespace quorvane {

std::unique_ptr<UdpSocket> makeUdpSocket(LoopCore& core, UdpSocketEvents& events);

}  // namespace quorvane
