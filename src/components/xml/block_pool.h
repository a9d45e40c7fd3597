#pragma once

#include <array>
#include <cstddef>

namespace quorvane::xml {

/// Small blocks for one thread. A tree is thousands of them, which come together and go together:
/// taken out of pages of one size each, they lie in the order in which they are walked, and cost a
/// fraction of what the system's allocator takes, which has to merge what is given back.
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

}  // namespace quorvane::xml
