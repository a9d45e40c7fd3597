#pragma once

#include <cstddef>

namespace quorvane {

/// The bytes that the system has set aside for what the engine's heap gave; 0 for null.
std::size_t allocatedBytes(void* allocated);

/// Has the allocator keep a few MiB that are free for what comes next, rather than give them back
/// to the system and ask for them anew with every page. For the start of a program that runs for
/// long.
void keepFreeMemory();

}  // namespace quorvane
