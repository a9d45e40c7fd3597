#include <mimalloc.h>

#include "vbscript/values/heap.h"

namespace quorvane::vbs {

void* takeMemory(std::size_t bytes) noexcept {
  return mi_malloc(bytes);
}

void* resizeMemory(void* memory, std::size_t bytes) noexcept {
  return mi_realloc(memory, bytes);
}

void giveMemoryBack(void* memory) noexcept {
  mi_free(memory);
}

}  // namespace quorvane::vbs
