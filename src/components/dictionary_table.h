#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "vbscript/values/value.h"

namespace quorvane {

/// Key and item pairs in the order of insertion, found through an open hash. Numbers are one key
/// whatever their subtype, texts another kind, objects are told apart by identity. The memory is
/// charged to the script.
class DictionaryTable {
 public:
  struct Entry {
    vbs::Value key;
    vbs::Value item;
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

  /// Null when the key is missing. The entry stays valid until the next insert or remove. Error 5
  /// for an array, which cannot be a key.
  Entry* find(const vbs::Value& key);
  /// The entry of a key, made with an Empty item when it is missing.
  Entry& findOrInsert(const vbs::Value& key);

  /// False when the key is missing. The removed values end after the table is whole again, because
  /// their end may run script code that uses it.
  bool remove(const vbs::Value& key);
  void clear();
  /// Gives an entry another key, which must be missing; the entry keeps its place.
  void changeKey(Entry& entry, const vbs::Value& key);

 private:
  static constexpr std::uint32_t kFree = 0;  ///< slots hold an entry's index + 1
  static constexpr std::uint32_t kRemoved = UINT32_MAX;

  std::uint32_t hashOf(const vbs::Value& key) const;
  bool sameKey(const vbs::Value& a, const vbs::Value& b) const;
  /// The slot that leads to the key, or slots_.size().
  std::size_t slotOf(const vbs::Value& key, std::uint32_t hash) const;
  template <class IsKey>
  std::size_t slotWhere(std::uint32_t hash, IsKey isKey) const;
  Entry* findPlainText(std::string_view text);
  Entry* findAny(const vbs::Value& key);
  Entry& insert(const vbs::Value& key, std::uint32_t hash);
  void link(std::size_t entry);
  void makeRoom();
  void rebuild(std::size_t slots);
  void chargeFor(std::size_t entries, std::size_t slots);

  std::vector<Entry> entries_;
  std::vector<std::uint32_t> slots_;  ///< a power of two of them
  std::size_t used_ = 0;              ///< slots not free
  std::size_t live_ = 0;
  std::size_t charged_ = 0;
  bool ignoreCase_ = false;
};

}  // namespace quorvane
