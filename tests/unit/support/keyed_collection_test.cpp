#include "support/keyed_collection.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

std::string keysOf(const KeyedCollection<int>& collection) {
  std::string keys;
  for (const auto& entry : collection) keys += entry.key + "=" + std::to_string(entry.value) + ";";
  return keys;
}

}  // namespace

TEST(KeyedCollection, KeepsTheOrderOfAddingAndIgnoresLetterCase) {
  KeyedCollection<int> numbers;
  EXPECT_NE(numbers.add("b", 1), nullptr);
  EXPECT_NE(numbers.add("A", 2), nullptr);
  EXPECT_EQ(numbers.add("B", 3), nullptr);
  EXPECT_EQ(*numbers.find("B"), 1);
  EXPECT_EQ(keysOf(numbers), "b=1;A=2;");
}

TEST(KeyedCollection, PutReplacesAndMovesToTheEnd) {
  KeyedCollection<int> numbers;
  numbers.put("a", 1);
  numbers.put("b", 2);
  numbers.put("A", 3);
  EXPECT_EQ(keysOf(numbers), "b=2;A=3;");
}

TEST(KeyedCollection, RemovesByKeyAndByCondition) {
  KeyedCollection<int> numbers;
  for (int i = 0; i < 6; ++i) numbers.add("k" + std::to_string(i), i);
  EXPECT_TRUE(numbers.remove("K3"));
  EXPECT_FALSE(numbers.remove("k3"));
  numbers.removeIf([](const auto& entry) { return entry.value % 2 == 0; });
  EXPECT_EQ(keysOf(numbers), "k1=1;k5=5;");
  EXPECT_EQ(numbers.find("k2"), nullptr);
  numbers.clear();
  EXPECT_TRUE(numbers.empty());
}

TEST(KeyedCollection, ReferencesAndLookUpsSurviveAMove) {
  KeyedCollection<int> numbers;
  int* value = numbers.add("key", 7);
  KeyedCollection<int> moved = std::move(numbers);
  EXPECT_EQ(moved.find("KEY"), value);
}

}  // namespace quorvane
