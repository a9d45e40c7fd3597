#pragma once

#include <list>
#include <string>
#include <unordered_map>
#include <utility>

namespace quorvane {

/// What waits for somebody: each owner has one turn after another's, however much it has waiting.
/// Of one owner's the first comes first.
template <class T>
class Turns {
 public:
  bool empty() const { return owners_.empty(); }

  void add(const std::string& owner, T item) {
    const auto known = byName_.find(owner);
    if (known != byName_.end()) return known->second->items.push_back(std::move(item));
    owners_.push_back({owner, {}});
    owners_.back().items.push_back(std::move(item));
    byName_[owner] = std::prev(owners_.end());
  }

  /// Not of an empty queue.
  T take() {
    Owner& owner = owners_.front();
    T item = std::move(owner.items.front());
    owner.items.pop_front();
    if (owner.items.empty()) {
      byName_.erase(owner.name);
      owners_.pop_front();
    } else {
      owners_.splice(owners_.end(), owners_, owners_.begin());
    }
    return item;
  }

  void clear() {
    owners_.clear();
    byName_.clear();
  }

 private:
  struct Owner {
    std::string name;
    std::list<T> items;
  };
  using Owners = std::list<Owner>;

  Owners owners_;  ///< whose turn is next comes first; nobody without an item
  std::unordered_map<std::string, typename Owners::iterator> byName_;
};

}  // namespace quorvane
