#include "script/objects/cookie_keys.h"

#include "support/clsWEncode.h"
#include "support/text.h"

namespace quorvane {

CookieKeys parseCookieKeys(std::string_view value, const clsWEncode& encoder) {
  const auto decoded = [&](std::string_view text) {
    return encoder.afDecodeURL(text).value_or(std::string(text));
  };
  CookieKeys keys;
  for (const std::string_view pair : split(value, '&')) {
    const std::size_t equals = pair.find('=');
    if (equals == std::string_view::npos || equals == 0) continue;
    keys.put(decoded(pair.substr(0, equals)), decoded(pair.substr(equals + 1)));
  }
  return keys;
}

std::string joinCookieKeys(const CookieKeys& keys, const clsWEncode& encoder) {
  std::string value;
  for (const auto& entry : keys) {
    if (!value.empty()) value += '&';
    value.append(encoder.afEncodeURL(entry.key)).append(1, '=');
    value.append(encoder.afEncodeURL(entry.value));
  }
  return value;
}

}  // namespace quorvane
