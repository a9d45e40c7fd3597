#include "platform/allocation.h"

#include <malloc.h>

namespace quorvane {

std::size_t allocatedBytes(void* allocated) {
  return allocated ? ::_msize(allocated) : 0;
}

/// The system's heap keeps what is free by itself.
void keepFreeMemory() {}

}  // namespace quorvane
