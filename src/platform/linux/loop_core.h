#pragma once

#include <array>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <memory>
#include <unordered_set>

class Connection;
class EventLoop;

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
  asio::steady_timer sweep;
  bool sweeping = false;
};

/// What is shared by everything that `loop` has made; null when it is no loop of this system's.
LoopCore* loopCoreOf(EventLoop& loop);
