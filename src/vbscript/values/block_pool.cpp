#include "vbscript/values/block_pool.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

namespace quorvane::vbs {

namespace {

constexpr std::size_t kPageBytes = std::size_t{64} << 10;
constexpr std::size_t kEmptyPages = 64;  ///< kept for the next tree
constexpr std::size_t kStep = 16;
constexpr std::size_t kHead = 8;  ///< bytes in front of a block: where its page is

}  // namespace

struct BlockPool::Spare {
  Spare* next;
};

/// Lies at the start of its bytes. A block is the address of its page and the bytes that are handed
/// out.
struct BlockPool::Page {
  Page* next;
  Page* previous;
  Spare* spare;       ///< blocks that were given back
  std::byte* unused;  ///< where those begin that were never taken
  std::size_t blockBytes;
  std::size_t taken;
  std::size_t size;
  bool listed;

  std::byte* bytes() { return reinterpret_cast<std::byte*>(this); }
  std::byte* first() { return bytes() + (sizeof(Page) + kStep - 1) / kStep * kStep; }
  bool hasSpace() { return spare || unused + blockBytes <= bytes() + kPageBytes; }
  void reset(std::size_t newSize) {
    *this = {nullptr, nullptr, nullptr, nullptr, (newSize + 1) * kStep, 0, newSize, false};
    unused = first();
  }
};

BlockPool::~BlockPool() {
  while (empty_) giveMemoryBack(std::exchange(empty_, empty_->next));
}

bool BlockPool::isPooled(const void* block) {
  return reinterpret_cast<std::uintptr_t>(block) % kStep != 0;
}

std::size_t BlockPool::bytesOf(const void* block) {
  return static_cast<Page* const*>(block)[-1]->blockBytes - kHead;
}

void* BlockPool::take(std::size_t bytes) {
  static_assert(sizeof(void*) == kHead && kLargest == kSizes * kStep - kHead);
  const std::size_t size = (bytes + kHead - 1) / kStep;
  Page* page = withSpace_[size];
  if (!page && !(page = pageWithSpace(size))) return nullptr;
  ++page->taken;
  void* block = nullptr;
  if (page->spare) {
    block = std::exchange(page->spare, page->spare->next);
  } else {
    block = new (page->unused) Page*(page) + 1;
    page->unused += page->blockBytes;
  }
  if (!page->hasSpace()) unlink(page);
  return block;
}

void BlockPool::giveBack(void* block) {
  Page* const page = static_cast<Page**>(block)[-1];
  if (--page->taken > 0) {
    page->spare = new (block) Spare{page->spare};
    if (!page->listed) link(page);
    return;
  }
  if (page->listed) unlink(page);
  if (emptyPages_ >= kEmptyPages) return giveMemoryBack(page);
  ++emptyPages_;
  page->next = std::exchange(empty_, page);
}

BlockPool::Page* BlockPool::pageWithSpace(std::size_t size) {
  Page* page = empty_;
  if (page) {
    empty_ = page->next;
    --emptyPages_;
  } else {
    void* const bytes = takeMemory(kPageBytes);
    if (!bytes) return nullptr;
    page = new (bytes) Page;
  }
  page->reset(size);
  link(page);
  return page;
}

void BlockPool::link(Page* page) {
  Page*& head = withSpace_[page->size];
  page->previous = nullptr;
  page->next = head;
  if (head) head->previous = page;
  head = page;
  page->listed = true;
}

void BlockPool::unlink(Page* page) {
  (page->previous ? page->previous->next : withSpace_[page->size]) = page->next;
  if (page->next) page->next->previous = page->previous;
  page->listed = false;
}

void makeThreadPool() {
#ifndef QUORVANE_FINDS_MEMORY_FAULTS
  if (!threadPool) threadPool = new BlockPool;
#endif
}

void* resizeBlock(void* block, std::size_t before, std::size_t bytes) {
  if (!isPooled(block)) return resizeMemory(block, bytes);
  void* const moved = allocateBlock(bytes);
  if (!moved) return nullptr;
  std::memcpy(moved, block, std::min(before, bytes));
  releaseBlock(block);
  return moved;
}

}  // namespace quorvane::vbs
