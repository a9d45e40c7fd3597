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
  /// for an array, which cannot be a key. Calls nothing for a text that has been a key before.
  Entry* find(const vbs::Value& key) {
    const vbs::Value& direct = key.deref();
    if (!direct.isString() || ignoreCase_) return findAny(direct);
    vbs::StringRep* const text = direct.stringRep();
    if (!text || text->encoding != vbs::Encoding::Ansi) return findAny(direct);
    return text->hash == 0 ? findNew(text) : findText(text);
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
  static constexpr std::uint32_t kFree = 0;  ///< slots hold an entry's index + 1

  std::uint32_t hashOf(const vbs::Value& key) const;
  bool sameKey(const vbs::Value& a, const vbs::Value& b) const;
  /// Of a kept hash, so that a table of more slots than there are such hashes fills evenly.
  static std::uint32_t spread(std::uint32_t hash) { return hash * 0x9E3779B1u; }
  /// Of normal keys: a text of another spelling is another text.
  static bool sameText(const vbs::StringRep* a, const vbs::StringRep* b) {
    if (a == b) return true;
    if (!a || !b) return (a ? a : b)->bytes == 0;
    return a->encoding == b->encoding && a->bytes == b->bytes && vbs::sameBytes(*a, *b, a->bytes);
  }

  template <class IsKey>
  [[gnu::always_inline]] inline Entry* entryWhere(std::uint32_t hash, IsKey isKey) {
    if (slots_.empty()) return nullptr;
    const std::uint32_t* const slots = slots_.data();
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t slot = hash & mask; slots[slot] != kFree; slot = (slot + 1) & mask) {
      Entry& entry = entries_[slots[slot] - 1];
      if (entry.hash == hash && isKey(entry)) return &entry;
    }
    return nullptr;
  }
  Entry* entryOf(const vbs::Value& key, std::uint32_t hash);  ///< of a normal key
  /// With a text of bytes that has its hash.
  [[gnu::always_inline]] inline Entry* findText(const vbs::StringRep* text) {
    return entryWhere(spread(text->hash), [text](const Entry& entry) {
      return entry.key.isString() && sameText(entry.key.stringRep(), text);
    });
  }
  Entry* findNew(vbs::StringRep* text);  ///< with one that has none yet
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
