#include "platform/allocation.h"

#include <malloc.h>

namespace quorvane {

std::size_t allocatedBytes(void* allocated) {
  return malloc_usable_size(allocated);
}

void keepFreeMemory() {
  constexpr int kKept = 4 << 20;
  constexpr int kLeastOfItsOwn =
      1 << 20;  ///< blocks from that size on go back as soon as they are free
  mallopt(M_TRIM_THRESHOLD, kKept);
  mallopt(M_MMAP_THRESHOLD, kLeastOfItsOwn);
}

}  // namespace quorvane
