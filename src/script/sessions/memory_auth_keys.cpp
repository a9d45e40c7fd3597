#include "script/sessions/memory_auth_keys.h"

#include "support/text.h"

namespace quorvane {

std::string MemoryAuthKeys::issue(std::chrono::minutes lifetime) {
  std::string key = upperCase(hexDigits(random_.guid()));
  if (keys_.size() >= kMostKeys) removeFirst();
  if (keys_.insert(key).second) {
    byTime_.emplace(std::chrono::floor<std::chrono::seconds>(clock_.now() + lifetime), key);
  }
  return key;
}

bool MemoryAuthKeys::validate(std::string_view key) {
  return key.size() == kKeyLength && keys_.contains(upperCase(key));
}

void MemoryAuthKeys::expire() {
  const TimePoint now = std::chrono::floor<std::chrono::seconds>(clock_.now());
  while (!byTime_.empty() && byTime_.begin()->first < now) removeFirst();
}

void MemoryAuthKeys::clear() {
  keys_.clear();
  byTime_.clear();
}

void MemoryAuthKeys::removeFirst() {
  keys_.erase(byTime_.begin()->second);
  byTime_.erase(byTime_.begin());
}

}  // namespace quorvane
