#pragma once

#include <string>
#include <string_view>

#include "support/keyed_collection.h"

namespace quorvane {

class clsWEncode;

/// The texts under keys that one cookie may hold as "key=text&key=text", keys and texts
/// URL-encoded.
using CookieKeys = KeyedCollection<std::string>;

/// No keys when `value` has no "=".
CookieKeys parseCookieKeys(std::string_view value, const clsWEncode& encoder);
std::string joinCookieKeys(const CookieKeys& keys, const clsWEncode& encoder);

}  // namespace quorvane
