#pragma once

#include <array>
#include <asio/basic_socket_acceptor.hpp>
#include <asio/basic_stream_socket.hpp>
#include <asio/basic_waitable_timer.hpp>
#include <asio/generic/stream_protocol.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/udp.hpp>
#include <chrono>
#include <memory>
#include <unordered_set>

namespace quorvane {

class Connection;
class EventLoop;

/// Sockets and timers that name the loop's own executor; the library's usual ones ask through a
/// type-erased one, which costs an allocation for each event. A stream may be one of TCP or between
/// two programs of this machine.
using LoopExecutor = asio::io_context::executor_type;
using StreamSocket = asio::basic_stream_socket<asio::generic::stream_protocol, LoopExecutor>;
using Acceptor = asio::basic_socket_acceptor<asio::generic::stream_protocol, LoopExecutor>;
using DatagramSocket = asio::basic_datagram_socket<asio::ip::udp, LoopExecutor>;
using SteadyTimer =
    asio::basic_waitable_timer<std::chrono::steady_clock,
                               asio::wait_traits<std::chrono::steady_clock>, LoopExecutor>;

/// What the loop and everything made by it share. One thread, so no locks.
struct LoopCore {
  LoopCore() : io(ASIO_CONCURRENCY_HINT_UNSAFE_IO), sweep(io) {}

  asio::io_context io;

  /// Every connection reads into this one buffer and hands it out at once, so an idle connection
  /// owns none.
  std::array<char, 128 * 1024> readBuffer;
  bool readBufferInUse = false;

  /// Connections whose owner has let go and which still have bytes to bring over.
  std::unordered_set<std::shared_ptr<Connection>> leaving;
  SteadyTimer sweep;
  bool sweeping = false;
};

/// What is shared by everything that `loop` has made; null when it is no loop of the event-loop
/// library.
LoopCore* loopCoreOf(EventLoop& loop);

}  // namespace quorvane
