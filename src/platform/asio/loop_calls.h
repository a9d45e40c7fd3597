#pragma once

#include <asio/io_context.hpp>
#include <span>
#include <vector>

#include "platform/event_loop.h"

namespace quorvane {

/// What an event loop needs of its process; each system's folder implements it.

/// Makes room for thousands of connections, and has a client that went away or a full disk show as
/// an error of the call that meets it.
void prepareProcessForLoop();

/// Runs events until `io` is stopped, from then on none.
void runUntilStopped(asio::io_context& io);

/// The signals by which this system asks a program to end.
std::span<const int> terminationSignals();

/// From now on the arrival of one of them is noted at once, before the handler that is in place now
/// gets it. What was noted before is forgotten.
void noteTermination();
bool terminationIsNoted();

/// A signal that tells something without asking the program to end.
struct NoticeSignal {
  int number;
  EventLoop::Notice notice;
};
/// All of them but those that this process was started to ignore.
std::vector<NoticeSignal> noticeSignals();

}  // namespace quorvane
