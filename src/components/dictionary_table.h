#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "vbscript/values/text_hash.h"
#include "vbscript/values/value.h"

namespace quorvane {

/// Key and item pairs in the order of insertion, found through an open hash. Numbers are one key
/// whatever their subtype, texts another kind, objects are told apart by identity. The memory is
/// charged to the script.
class DictionaryTable {
 public:
  struct Entry {
    vbs::Value item;
    vbs::Value key;
    std::uint32_t hash = 0;
    bool live = true;
  };

  DictionaryTable() = default;
  ~DictionaryTable();
  DictionaryTable(const DictionaryTable&) = delete;
  DictionaryTable& operator=(const DictionaryTable&) = delete;

  bool ignoresCase() const { return ignoreCase_; }
  void setIgnoresCase(bool ignore) { ignoreCase_ = ignore; }  ///< of an empty table only

  std::size_t count() const { return live_; }
  /// All entries; those that are not live have been removed.
  const std::vector<Entry>& entries() const { return entries_; }
  std::vector<Entry>& entries() { return entries_; }

  /// Null when the key, which is no reference, is missing. The entry stays valid until the next
  /// insert or remove. Error 5 for an array, which cannot be a key. Calls nothing for a short text
  /// that has been a key before.
  [[gnu::always_inline]] inline Entry* find(const vbs::Value& key) {
    vbs::ShortText text;
    if (!key.isString() || ignoreCase_ || !text.set(key.stringRep())) return findAny(key);
    return entryWhere(spread(text.hash()), [&text](const Entry& entry) {
      return entry.key.isString() && text.isSame(entry.key.stringRep());
    });
  }
  /// The entry of a key, made with an Empty item when it is missing.
  Entry& findOrInsert(const vbs::Value& key);

  /// False when the key is missing. The removed values end after the table is whole again, because
  /// their end may run script code that uses it.
  bool remove(const vbs::Value& key);
  void clear();
  /// Gives an entry another key, which must be missing; the entry keeps its place.
  void changeKey(Entry& entry, const vbs::Value& key);

 private:
  static constexpr std::uint32_t kFree = 0;
  static constexpr std::uint32_t kUsed = 0x80000000;

  std::uint32_t hashOf(const vbs::Value& key) const;
  bool sameKey(const vbs::Value& a, const vbs::Value& b) const;
  /// Of a kept hash, so that a table of more slots than there are such hashes fills evenly.
  static std::uint32_t spread(std::uint32_t hash) { return hash * 0x9E3779B1u; }
  /// A slot that is not free is an entry's index in the bits of the mask, which are those that say
  /// where the search begins, and the others of its hash: so most others need no look at the entry.
  template <class IsKey>
  [[gnu::always_inline]] inline Entry* entryWhere(std::uint32_t hash, IsKey isKey) {
    const std::uint32_t mask = mask_;
    if (mask == 0) return nullptr;
    const std::uint32_t* const slots = slots_.data();
    for (std::uint32_t at = hash & mask;; at = (at + 1) & mask) {
      const std::uint32_t slot = slots[at];
      if (((slot ^ (hash | kUsed)) & ~mask) == 0) {
        Entry& entry = entries_[slot & mask];
        if (isKey(entry)) return &entry;
      } else if (slot == kFree) {
        return nullptr;
      }
    }
  }
  Entry* entryOf(const vbs::Value& key, std::uint32_t hash);  ///< of a normal key
  Entry* findAny(const vbs::Value& key);
  Entry& insert(const vbs::Value& key, std::uint32_t hash);
  void link(std::size_t entry);
  void makeRoom();
  void rebuild(std::size_t slots);
  void chargeFor(std::size_t entries, std::size_t slots);

  std::vector<Entry> entries_;
  std::vector<std::uint32_t> slots_;  ///< none, or a power of two of them
  std::uint32_t mask_ = 0;            ///< their number less one
  std::size_t used_ = 0;              ///< slots not free
  std::size_t live_ = 0;
  std::size_t charged_ = 0;
  bool ignoreCase_ = false;
};

}  // namespace quorvane
