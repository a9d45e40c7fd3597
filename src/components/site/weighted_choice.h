#pragma once

#include <cstdint>
#include <vector>

#include "platform/random.h"

namespace quorvane {

/// An item by chance, each as likely as its `weight` says; null when none has any. Takes anything
/// with a member of that name.
template <class Item>
const Item* chooseByWeight(const std::vector<Item>& items, Random& random) {
  std::uint64_t sum = 0;
  for (const Item& item : items) sum += item.weight;
  auto left = static_cast<std::uint64_t>(random.fraction() * static_cast<double>(sum));
  for (const Item& item : items) {
    if (left < item.weight) return &item;
    left -= item.weight;
  }
  return nullptr;
}

}  // namespace quorvane
