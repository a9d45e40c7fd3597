#include "platform/allocation.h"

#include <malloc.h>

namespace quorvane {

std::size_t allocatedBytes(void* allocated) {
  return malloc_usable_size(allocated);
}

}  // namespace quorvane
