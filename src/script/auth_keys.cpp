#include "script/auth_keys.h"

namespace quorvane {

std::string AuthKeys::issue(std::chrono::minutes lifetime) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string key;
  for (const std::uint8_t byte : random_.guid()) {
    key += kDigits[byte >> 4];
    key += kDigits[byte & 15];
  }
  keys_.add(key, std::chrono::floor<std::chrono::seconds>(clock_.now() + lifetime));
  return key;
}

void AuthKeys::expire() {
  const TimePoint now = std::chrono::floor<std::chrono::seconds>(clock_.now());
  keys_.removeIf([now](const auto& entry) { return entry.value < now; });
}

}  // namespace quorvane
