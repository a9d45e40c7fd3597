#include "vbscript/values/block_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

namespace quorvane::vbs {

namespace {

TEST(BlockPool, BlocksAreLargeEnoughAndTheirOwn) {
  struct Held {
    unsigned char* block;
    std::size_t bytes;
    unsigned char mark;
  };
  BlockPool pool;
  std::vector<Held> held;
  std::mt19937 chance(7);
  const auto check = [](const Held& one) {
    EXPECT_TRUE(std::all_of(one.block, one.block + one.bytes,
                            [&](unsigned char byte) { return byte == one.mark; }));
  };
  for (int i = 0; i < 50'000; ++i) {
    if (held.empty() || chance() % 5 < 3) {
      const std::size_t bytes = chance() % (BlockPool::kLargest + 1);
      auto* const block = static_cast<unsigned char*>(pool.take(bytes));
      ASSERT_TRUE(block);
      EXPECT_TRUE(BlockPool::isPooled(block));
      ASSERT_GE(BlockPool::bytesOf(block), bytes);
      ASSERT_LT(BlockPool::bytesOf(block), bytes + 24);
      held.push_back({block, bytes, static_cast<unsigned char>(i)});
      std::memset(block, held.back().mark, bytes);
    } else {
      std::swap(held[chance() % held.size()], held.back());
      check(held.back());
      pool.giveBack(held.back().block);
      held.pop_back();
    }
  }
  for (const Held& one : held) {
    check(one);
    pool.giveBack(one.block);
  }
}

TEST(BlockPool, WhatIsFreeIsUsedAgainInOrder) {
  BlockPool pool;
  std::vector<void*> first(400);  // in one page
  for (void*& block : first) block = pool.take(120);
  for (std::size_t i = 1; i < 100; ++i) EXPECT_EQ(first[i], static_cast<char*>(first[i - 1]) + 128);
  for (void* block : first) pool.giveBack(block);
  std::vector<void*> second(400);
  for (void*& block : second) block = pool.take(120);
  EXPECT_EQ(first, second);
  for (void* block : second) pool.giveBack(block);
}

TEST(BlockPool, BlocksOfTheSystemAreTold) {
  for (const std::size_t bytes : {1, 8, 100, 1000, 100'000}) {
    const std::unique_ptr<void, decltype(&std::free)> block(std::malloc(bytes), &std::free);
    EXPECT_FALSE(BlockPool::isPooled(block.get()));
  }
}

}  // namespace

}  // namespace quorvane::vbs
