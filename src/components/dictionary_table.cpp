#include "components/dictionary_table.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>

#include "vbscript/values/convert.h"
#include "vbscript/values/text_case.h"

namespace quorvane {

using vbs::Type;
using vbs::Value;

namespace {

constexpr std::size_t kFirstSlots = 16;

bool isNumber(const Value& key) {
  constexpr auto bit = [](Type type) { return 1u << static_cast<unsigned>(type); };
  constexpr unsigned kNumbers = bit(Type::Boolean) | bit(Type::Byte) | bit(Type::Integer) |
                                bit(Type::Long) | bit(Type::Single) | bit(Type::Double) |
                                bit(Type::Currency) | bit(Type::Date);
  return (kNumbers >> static_cast<unsigned>(key.type())) & 1u;
}

double numberOf(const Value& key) {
  switch (key.type()) {
    case Type::Single:
    case Type::Double:
    case Type::Date:
      return key.asDouble();
    case Type::Currency:
      return static_cast<double>(key.asCurrency()) / 10000.0;
    default:
      return key.asInt();
  }
}

std::uint32_t mixed(std::uint64_t bits) {
  bits ^= bits >> 32;
  bits *= 0x9E3779B97F4A7C15u;
  return static_cast<std::uint32_t>(bits >> 32);
}

std::uint32_t hashOfNumber(double number) {
  return mixed(std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number));
}

std::uint32_t hashOfFolded(const Value& key) {
  constexpr std::size_t kShort = 64;
  const vbs::String text = key.asString();
  const std::string_view bytes = text.raw();
  vbs::countWork(bytes.size());
  if (!text.isAnsi() || bytes.size() > kShort) {
    const vbs::String folded = text.lower();
    const bool isPlain = folded.isAnsi();
    const vbs::String plain = isPlain ? folded : vbs::String::fromWide(folded.wide());
    return static_cast<std::uint32_t>(vbs::hashOfBytes(plain.raw()));
  }
  std::array<char, kShort> folded;
  std::transform(bytes.begin(), bytes.end(), folded.begin(), vbs::lowerAnsi);
  return static_cast<std::uint32_t>(vbs::hashOfBytes({folded.data(), bytes.size()}));
}

bool sameFolded(const vbs::String& a, const vbs::String& b) {
  if (!a.isAnsi() || !b.isAnsi()) return a.lower() == b.lower();
  return std::equal(a.ansi().begin(), a.ansi().end(), b.ansi().begin(), b.ansi().end(),
                    [](char x, char y) { return vbs::lowerAnsi(x) == vbs::lowerAnsi(y); });
}

/// Of normal keys: a text of another spelling is another text.
bool sameText(const vbs::StringRep* a, const vbs::StringRep* b) {
  if (a == b) return true;
  if (!a || !b) return (a ? a : b)->bytes == 0;
  vbs::countWork(a->bytes);
  return a->encoding == b->encoding && a->bytes == b->bytes &&
         std::memcmp(a->data(), b->data(), a->bytes) == 0;
}

/// A key as the table holds it: behind references, and a text as bytes where it can be, so that
/// both spellings of one text hash alike. Borrows the original where it can. A wide text that has a
/// hash has been here before: it can't be bytes.
class NormalKey {
 public:
  explicit NormalKey(const Value& key) : key_(&key.deref()) {
    const vbs::StringRep* rep = key_->isString() ? key_->stringRep() : nullptr;
    if (!rep || rep->encoding == vbs::Encoding::Ansi || rep->bytes % 2 != 0) return;
    if (rep->hash != 0) return;
    vbs::String plain = vbs::String::fromWide(key_->asString().wide());
    if (!plain.isAnsi()) return;
    own_ = std::move(plain);
    key_ = &own_;
  }
  NormalKey(const NormalKey&) = delete;
  NormalKey& operator=(const NormalKey&) = delete;
  const Value& operator*() const { return *key_; }

 private:
  Value own_;
  const Value* key_;
};

}  // namespace

DictionaryTable::~DictionaryTable() {
  vbs::runContext.memory.release(charged_);
}

std::uint32_t DictionaryTable::hashOf(const Value& key) const {
  if (key.isString())
    return ignoreCase_ ? hashOfFolded(key) : spread(vbs::keptHash(key.stringRep()));
  if (isNumber(key)) return hashOfNumber(numberOf(key));
  switch (key.type()) {
    case Type::Object:
      return mixed(reinterpret_cast<std::uintptr_t>(key.asObject()));
    case Type::Array:
      vbs::throwError(vbs::ErrorCode::InvalidCall);
    case Type::Error:
      return mixed(static_cast<std::uint32_t>(key.asInt()));
    default:
      return static_cast<std::uint32_t>(key.type());
  }
}

bool DictionaryTable::sameKey(const Value& a, const Value& b) const {
  if (a.isString()) {
    if (!b.isString()) return false;
    return ignoreCase_ ? sameFolded(a.asString(), b.asString())
                       : sameText(a.stringRep(), b.stringRep());
  }
  if (isNumber(a)) return isNumber(b) && numberOf(a) == numberOf(b);
  if (a.type() != b.type()) return false;
  switch (a.type()) {
    case Type::Object:
      return a.asObject() == b.asObject();
    case Type::Error:
      return a.asInt() == b.asInt();
    default:
      return true;  // Empty and Null
  }
}

DictionaryTable::Entry* DictionaryTable::entryOf(const Value& key, std::uint32_t hash) {
  return entryWhere(hash, [&](const Entry& e) { return e.live && sameKey(e.key, key); });
}

DictionaryTable::Entry* DictionaryTable::findAny(const Value& key) {
  const NormalKey normal(key);
  return entryOf(*normal, hashOf(*normal));
}

DictionaryTable::Entry& DictionaryTable::findOrInsert(const Value& key) {
  const NormalKey normal(key);
  const std::uint32_t hash = hashOf(*normal);
  Entry* found = entryOf(*normal, hash);
  return found ? *found : insert(*normal, hash);
}

DictionaryTable::Entry& DictionaryTable::insert(const Value& key, std::uint32_t hash) {
  makeRoom();
  entries_.push_back({Value(), key, hash, true});
  ++live_;
  link(entries_.size() - 1);
  return entries_.back();
}

void DictionaryTable::link(std::size_t entry) {
  const std::uint32_t hash = entries_[entry].hash;
  std::uint32_t at = hash & mask_;
  while (slots_[at] != kFree) at = (at + 1) & mask_;
  slots_[at] = ((hash | kUsed) & ~mask_) | static_cast<std::uint32_t>(entry);
  ++used_;
}

/// Room for one more entry, with at least half of the slots free.
void DictionaryTable::makeRoom() {
  if (entries_.size() == entries_.capacity() || (used_ + 1) * 2 > slots_.size()) {
    std::size_t slots = std::max(slots_.size(), kFirstSlots);
    while ((live_ + 1) * 2 > slots) slots *= 2;
    rebuild(slots);
  }
}

/// Drops the removed entries and links the others anew.
void DictionaryTable::rebuild(std::size_t slots) {
  const std::size_t capacity = slots / 2 + 1;
  chargeFor(capacity, slots);
  std::vector<Entry> kept;
  kept.reserve(capacity);
  for (Entry& entry : entries_) {
    if (entry.live) kept.push_back(std::move(entry));
  }
  entries_ = std::move(kept);
  slots_.assign(slots, kFree);
  mask_ = static_cast<std::uint32_t>(slots - 1);
  used_ = 0;
  for (std::size_t i = 0; i < entries_.size(); ++i) link(i);
}

void DictionaryTable::chargeFor(std::size_t entries, std::size_t slots) {
  const std::size_t bytes = entries * sizeof(Entry) + slots * sizeof(std::uint32_t);
  if (bytes > charged_) {
    vbs::runContext.memory.charge(bytes - charged_);
  } else {
    vbs::runContext.memory.release(charged_ - bytes);
  }
  charged_ = bytes;
}

/// The slot goes on leading to the entry, whose end is what a search takes for another key.
bool DictionaryTable::remove(const Value& key) {
  Entry* entry = find(key.deref());
  if (!entry) return false;
  entry->live = false;
  --live_;
  const Entry removed = std::move(*entry);
  return true;
}

void DictionaryTable::clear() {
  const std::vector<Entry> removed = std::exchange(entries_, {});
  slots_.clear();
  mask_ = 0;
  used_ = 0;
  live_ = 0;
  chargeFor(0, 0);
}

void DictionaryTable::changeKey(Entry& entry, const Value& key) {
  const NormalKey normal(key);
  const std::uint32_t hash = hashOf(*normal);
  const auto index = static_cast<std::size_t>(&entry - entries_.data());
  const Value old = std::exchange(entry.key, *normal);
  entry.hash = hash;
  if ((used_ + 1) * 2 > slots_.size()) {
    rebuild(slots_.size());
  } else {
    link(index);
  }
}

}  // namespace quorvane
