#include "script/sessions/auth_keys.h"

#include "support/text.h"

namespace quorvane {

std::string AuthKeys::issue(std::chrono::minutes lifetime) {
  std::string key = upperCase(hexDigits(random_.guid()));
  keys_.add(key, std::chrono::floor<std::chrono::seconds>(clock_.now() + lifetime));
  return key;
}

void AuthKeys::expire() {
  const TimePoint now = std::chrono::floor<std::chrono::seconds>(clock_.now());
  keys_.removeIf([now](const auto& entry) { return entry.value < now; });
}

}  // namespace quorvane
