#include "vbscript/values/heap.h"

#include <cstdlib>

namespace quorvane::vbs {

void* takeMemory(std::size_t bytes) noexcept {
  return std::malloc(bytes);
}

void* resizeMemory(void* memory, std::size_t bytes) noexcept {
  return std::realloc(memory, bytes);
}

void giveMemoryBack(void* memory) noexcept {
  std::free(memory);
}

}  // namespace quorvane::vbs
