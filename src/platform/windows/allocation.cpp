#include "platform/allocation.h"

// This file alone: it defines all operators new and delete.
#include <mimalloc-new-delete.h>

namespace quorvane {

std::size_t allocatedBytes(void* allocated) {
  return mi_usable_size(allocated);
}

/// The allocator keeps what is free by itself.
void keepFreeMemory() {}

}  // namespace quorvane
