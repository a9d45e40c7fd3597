#pragma once

#include <string>
#include <string_view>

namespace quorvane::mail {

/// A domain (UTF-8) as it stands in addresses on the wire: labels that are not ASCII in lower case
/// and in the form of RFC 3492, "xn--mnchen-3ya.example".
std::string asciiDomain(std::string_view domain);

}  // namespace quorvane::mail
