#include "script/shared/kept_fields.h"

#include <algorithm>

#include "script/script_values.h"
#include "script/shared/value_bytes.h"

namespace quorvane {

namespace {

constexpr std::size_t kPlaceBytes = 8;

/// The highest byte first, so that the order is that of texts too.
std::uint64_t placeIn(std::string_view bytes) {
  std::uint64_t place = 0;
  for (const char byte : bytes.substr(0, kPlaceBytes)) {
    place = place << 8 | static_cast<unsigned char>(byte);
  }
  return place;
}

}  // namespace

std::string KeptFields::bytesOf(std::uint64_t place, const vbs::Value& key,
                                const vbs::Value& value) {
  std::string bytes(kPlaceBytes, '\0');
  for (std::size_t i = kPlaceBytes; i > 0; --i, place >>= 8) {
    bytes[i - 1] = static_cast<char>(place & 0xff);
  }
  value_bytes::append(bytes, key);
  value_bytes::append(bytes, value);
  return bytes;
}

std::vector<KeptFields::Entry> KeptFields::entries(std::string_view prefix) const {
  std::vector<Entry> found;
  for (const auto& [field, bytes] : stored_) {
    if (!field.starts_with(prefix) || bytes.size() < kPlaceBytes) continue;
    std::string_view rest = std::string_view(bytes).substr(kPlaceBytes);
    auto key = value_bytes::take(rest);
    auto value = value_bytes::take(rest);
    if (!key || !key->isString() || !value || !rest.empty()) continue;
    found.push_back({placeIn(bytes), std::move(*key), std::move(*value)});
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const Entry& a, const Entry& b) { return a.place < b.place; });
  return found;
}

/// The place of a field is kept as long as the order allows it.
std::uint64_t KeptFields::placeOf(const std::string& field) const {
  const auto at = stored_.find(field);
  const std::uint64_t before = at == stored_.end() ? 0 : placeIn(at->second);
  if (before > last_) return before;
  std::uint64_t highest = last_;
  for (const auto& [name, bytes] : stored_) highest = std::max(highest, placeIn(bytes));
  return highest + 1;
}

void KeptFields::note(std::string_view prefix, std::string_view foldedKey, const vbs::Value& key,
                      const vbs::Value& value) {
  std::string field(prefix);
  field += foldedKey;
  last_ = placeOf(field);
  noted_[field] = bytesOf(last_, key, value);
}

KeptFields::Changes KeptFields::changes() const {
  Changes changes;
  std::size_t size = 0;
  for (const auto& [field, bytes] : noted_) {
    size += field.size() + bytes.size();
    const auto before = stored_.find(field);
    if (before != stored_.end() && before->second == bytes) continue;
    changes.set.push_back(field);
    changes.set.push_back(bytes);
  }
  if (size > kMostBytes && !changes.set.empty()) {
    script_values::fail(vbs::ErrorCode::OutOfMemory,
                        "A session in the shared store keeps 1 MiB at most");
  }
  for (const auto& [field, bytes] : stored_) {
    if (!noted_.contains(field)) changes.removed.push_back(field);
  }
  return changes;
}

}  // namespace quorvane
