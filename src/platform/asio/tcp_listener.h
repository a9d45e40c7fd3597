#pragma once

#include <memory>

#include "platform/asio/loop_core.h"
#include "platform/tcp.h"

namespace quorvane {

std::unique_ptr<TcpListener> makeTcpListener(LoopCore& core, TcpListenerEvents& events);

}  // namespace quorvane
