#include "script/sessions/auth_keys.h"

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::size_t kKeyLength = 32;

}  // namespace

std::string AuthKeys::issue(std::chrono::minutes lifetime) {
  std::string key = upperCase(hexDigits(random_.guid()));
  if (keys_.size() >= kMostKeys) removeFirst();
  if (keys_.insert(key).second) {
    byTime_.emplace(std::chrono::floor<std::chrono::seconds>(clock_.now() + lifetime), key);
  }
  return key;
}

bool AuthKeys::validate(std::string_view key) const {
  return key.size() == kKeyLength && keys_.contains(upperCase(key));
}

void AuthKeys::expire() {
  const TimePoint now = std::chrono::floor<std::chrono::seconds>(clock_.now());
  while (!byTime_.empty() && byTime_.begin()->first < now) removeFirst();
}

void AuthKeys::clear() {
  keys_.clear();
  byTime_.clear();
}

void AuthKeys::removeFirst() {
  keys_.erase(byTime_.begin()->second);
  byTime_.erase(byTime_.begin());
}

}  // namespace quorvane
