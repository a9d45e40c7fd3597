#pragma once

#include <algorithm>
#include <cstddef>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "support/text.h"

namespace quorvane {

/// Values under text keys that compare without regard to letter case, in the order in which they
/// were added. A balanced tree rather than a hash table: keys come from clients, and no choice of
/// keys makes it slow. References to values last until their removal.
template <class T>
class KeyedCollection {
 public:
  struct Entry {
    std::string key;  ///< as first given
    T value;
  };
  using Iterator = typename std::list<Entry>::iterator;
  using ConstIterator = typename std::list<Entry>::const_iterator;

  KeyedCollection() = default;
  KeyedCollection(const KeyedCollection&) = delete;
  KeyedCollection& operator=(const KeyedCollection&) = delete;
  KeyedCollection(KeyedCollection&&) = default;
  KeyedCollection& operator=(KeyedCollection&&) = default;

  /// About what an entry takes beside the memory that its value holds elsewhere.
  static std::size_t bytesFor(std::string_view key) {
    constexpr std::size_t kPointers = 8;  // of the two nodes, with what the heap adds to them
    return sizeof(Entry) + sizeof(std::pair<std::string_view, Iterator>) +
           kPointers * sizeof(void*) + key.size();
  }

  /// Null when the key is taken; the value held under it stays.
  T* add(std::string key, T value) {
    if (index_.find(key) != index_.end()) return nullptr;
    entries_.push_back({std::move(key), std::move(value)});
    index_.emplace(entries_.back().key, std::prev(entries_.end()));
    return &entries_.back().value;
  }

  /// Removes what is held under the key, then adds.
  T& put(std::string key, T value) {
    remove(key);
    return *add(std::move(key), std::move(value));
  }

  T* find(std::string_view key) {
    const auto it = index_.find(key);
    return it == index_.end() ? nullptr : &it->second->value;
  }
  const T* find(std::string_view key) const {
    const auto it = index_.find(key);
    return it == index_.end() ? nullptr : &it->second->value;
  }

  bool remove(std::string_view key) {
    const auto it = index_.find(key);
    if (it == index_.end()) return false;
    const Iterator entry = it->second;
    index_.erase(it);
    entries_.erase(entry);
    return true;
  }

  /// Removes every entry for which `isOver(entry)` holds.
  template <class Predicate>
  void removeIf(Predicate isOver) {
    for (auto it = entries_.begin(); it != entries_.end();) {
      if (isOver(*it)) {
        index_.erase(index_.find(it->key));
        it = entries_.erase(it);
      } else {
        ++it;
      }
    }
  }

  void clear() {
    index_.clear();
    entries_.clear();
  }

  std::size_t size() const { return entries_.size(); }
  bool empty() const { return entries_.empty(); }
  Iterator begin() { return entries_.begin(); }
  Iterator end() { return entries_.end(); }
  ConstIterator begin() const { return entries_.begin(); }
  ConstIterator end() const { return entries_.end(); }

 private:
  struct LessNoCase {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const {
      return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                          [](char x, char y) {
                                            return static_cast<unsigned char>(lowerChar(x)) <
                                                   static_cast<unsigned char>(lowerChar(y));
                                          });
    }
  };

  std::list<Entry> entries_;
  std::map<std::string_view, Iterator, LessNoCase> index_;  ///< views into entries_
};

}  // namespace quorvane
