#pragma once

#include <span>

namespace quorvane {

/// What an event loop needs of its process; each system's folder implements it.

/// Makes room for thousands of connections, and has a client that went away or a full disk show as
/// an error of the call that meets it.
void prepareProcessForLoop();

/// The signals by which this system asks a program to end.
std::span<const int> terminationSignals();

}  // namespace quorvane
