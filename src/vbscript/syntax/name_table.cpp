#include "vbscript/syntax/name_table.h"

#include <cstring>

#include "vbscript/syntax/keywords.h"
#include "vbscript/values/text_case.h"

namespace quorvane::vbs {

namespace {

constexpr std::size_t kFirstSlots = 256;

std::uint32_t foldedHash(std::string_view text) {
  std::uint32_t hash = 2166136261u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(lowerAnsi(c))) * 16777619u;
  return hash ^ (hash >> 15);
}

bool foldsTo(std::string_view text, std::string_view lower) {
  if (text.size() != lower.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (lowerAnsi(text[i]) != lower[i]) return false;
  }
  return true;
}

}  // namespace

NameTable::NameTable() : storage_(4096), slots_(kFirstSlots, nullptr) {
  for (const std::string_view keyword : kKeywordTexts) intern(keyword);
}

const NameTable::Entry& NameTable::intern(std::string_view text) {
  const std::uint32_t hash = foldedHash(text);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = hash & mask; slots_[at]; at = (at + 1) & mask) {
    if (slots_[at]->hash == hash && foldsTo(text, slots_[at]->lower)) return *slots_[at];
  }
  char* lower = static_cast<char*>(storage_.allocate(text.size() + 1, 1));
  for (std::size_t i = 0; i < text.size(); ++i) lower[i] = lowerAnsi(text[i]);
  return add({lower, text.size()}, hash);
}

const NameTable::Entry& NameTable::add(std::string_view lower, std::uint32_t hash) {
  if (count_ * std::size_t{2} >= slots_.size()) grow();
  void* room = storage_.allocate(sizeof(Entry), alignof(Entry));
  const auto* entry = new (room) Entry{lower, count_++, hash};
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (slots_[at]) at = (at + 1) & mask;
  slots_[at] = entry;
  return *entry;
}

void NameTable::grow() {
  std::vector<const Entry*> old(slots_.size() * 2, nullptr);
  old.swap(slots_);
  const std::size_t mask = slots_.size() - 1;
  for (const Entry* entry : old) {
    if (!entry) continue;
    std::size_t at = entry->hash & mask;
    while (slots_[at]) at = (at + 1) & mask;
    slots_[at] = entry;
  }
}

std::string foldName(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = lowerAnsi(c);
  return lower;
}

}  // namespace quorvane::vbs
