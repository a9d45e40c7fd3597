#pragma once

#include <cstddef>

namespace quorvane {

/// The bytes that the system has set aside for what std::malloc gave; 0 for null.
std::size_t allocatedBytes(void* allocated);

}  // namespace quorvane
