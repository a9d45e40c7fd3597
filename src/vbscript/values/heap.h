#pragma once

#include <cstddef>

namespace quorvane::vbs {

/// What std::malloc, std::realloc and std::free do, by the allocator that the build has chosen: one
/// file each. Memory from here goes back here.
void* takeMemory(std::size_t bytes) noexcept;
void* resizeMemory(void* memory, std::size_t bytes) noexcept;
void giveMemoryBack(void* memory) noexcept;

}  // namespace quorvane::vbs
