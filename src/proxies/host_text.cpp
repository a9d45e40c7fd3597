#include "proxies/host_text.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane::host_text {

namespace {

/// Where the port's colon stands, or the end of the text.
std::size_t colonOf(std::string_view host) {
  const std::size_t from = host.starts_with('[') ? host.find(']') : 0;
  return std::min(host.find(':', std::min(from, host.size())), host.size());
}

bool isPlainCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '.' || c == '-' ||
         c == '_' || c == ':' || c == '[' || c == ']';
}

}  // namespace

std::string_view name(std::string_view host) {
  return host.substr(0, colonOf(host));
}

std::uint16_t port(std::string_view host) {
  host.remove_prefix(std::min(colonOf(host) + 1, host.size()));
  return wholeNumber<std::uint16_t>(host).value_or(0);
}

bool isPlain(std::string_view host) {
  return !host.empty() && std::all_of(host.begin(), host.end(), isPlainCharacter);
}

}  // namespace quorvane::host_text
