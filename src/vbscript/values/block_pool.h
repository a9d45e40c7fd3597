#pragma once

#include <array>
#include <cstddef>
#include <new>

#include "vbscript/values/heap.h"

namespace quorvane::vbs {

/// Small blocks for one thread. The values of a run and the nodes of trees are thousands of them,
/// which come and go together: taken out of pages of one size each, they lie in the order in which
/// they were made, and cost a fraction of what the system's allocator takes, which has to merge
/// what is given back.
///
/// Blocks are aligned to 8 bytes and never to 16, so that they are told from the system's own.
class BlockPool {
 public:
  static constexpr std::size_t kLargest = 248;  ///< bytes

  BlockPool() = default;
  /// What is still in use by then stays for ever.
  ~BlockPool();
  BlockPool(const BlockPool&) = delete;
  BlockPool& operator=(const BlockPool&) = delete;

  /// Of kLargest bytes at most. Null when there is no memory left.
  void* take(std::size_t bytes);
  /// Takes back what take() has given.
  void giveBack(void* block);

  /// Whether a block is a pool's, the system's otherwise.
  static bool isPooled(const void* block);
  static std::size_t bytesOf(const void* block);

 private:
  struct Page;
  struct Spare;
  static constexpr std::size_t kSizes = 16;

  Page* pageWithSpace(std::size_t size);
  void link(Page* page);
  void unlink(Page* page);

  std::array<Page*, kSizes> withSpace_{};
  Page* empty_ = nullptr;
  std::size_t emptyPages_ = 0;
};

/// The pool of a thread that makes values; it never ends, as values may outlive all else of a
/// thread. Null on other threads, and in builds that look for faults of memory, from which it would
/// hide blocks that are used after their end.
inline constinit thread_local BlockPool* threadPool = nullptr;

/// Sees to it that this thread has its pool, unless the build has none.
void makeThreadPool();

inline bool isPooled(const void* block) {
  return threadPool && BlockPool::isPooled(block);
}

/// Null when there is no memory left.
inline void* allocateBlock(std::size_t bytes) {
  if (bytes > BlockPool::kLargest) return takeMemory(bytes);
  if (!threadPool) makeThreadPool();
  return threadPool ? threadPool->take(bytes) : takeMemory(bytes);
}
inline void releaseBlock(void* block) {
  isPooled(block) ? threadPool->giveBack(block) : giveMemoryBack(block);
}
/// What realloc does, for a block of `before` bytes.
void* resizeBlock(void* block, std::size_t before, std::size_t bytes);

/// Base of objects that come in great numbers.
struct InBlocks {
  static void* operator new(std::size_t bytes) {
    if (void* const block = allocateBlock(bytes)) return block;
    throw std::bad_alloc();
  }
  static void operator delete(void* block) { releaseBlock(block); }
};

}  // namespace quorvane::vbs
