#include "support/turns.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorvane {

TEST(Turns, OwnersTakeTurnsAndEachHasItsOrder) {
  Turns<int> turns;
  for (int i = 1; i <= 4; ++i) turns.add("a", i);
  turns.add("b", 11);
  turns.add("c", 21);
  turns.add("b", 12);
  std::vector<int> order;
  while (!turns.empty()) {
    order.push_back(turns.take());
    if (order.size() == 3) turns.add("d", 31);
  }
  EXPECT_EQ(order, (std::vector<int>{1, 11, 21, 2, 12, 31, 3, 4}));
}

TEST(Turns, MayBeClearedAndUsedAgain) {
  Turns<int> turns;
  turns.add("a", 1);
  turns.clear();
  EXPECT_TRUE(turns.empty());
  turns.add("a", 2);
  EXPECT_EQ(turns.take(), 2);
  EXPECT_TRUE(turns.empty());
}

}  // namespace quorvane
