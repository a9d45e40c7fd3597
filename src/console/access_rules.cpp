#include "console/access_rules.h"

#include "support/address_ranges.h"
#include "support/text.h"

namespace quorvane {

namespace {

/// Of 127.0.0.0/8 only the usual address counts.
bool isThisMachine(std::string_view address) {
  return address == "127.0.0.1" || address == "::1" || address == kLocalClient;
}

/// Unique local addresses, and those that lead no further than a link.
bool isPrivateV6(std::string_view text) {
  static const AddressRanges kRanges = AddressRanges::parse("fc00::/7, fe80::/10");
  return kRanges.contains(text);
}

/// 172.16.0.0 to 172.31.255.255.
bool isIn172Range(std::string_view address) {
  const auto parts = split(address, '.');
  if (parts.size() != 4) return false;
  const auto second = numericValue(parts[1]);
  return second && *second > 15 && *second < 32;
}

}  // namespace

bool isPrivateAddress(std::string_view address) {
  if (isThisMachine(address) || isPrivateV6(address)) return true;
  if (address.starts_with("10.") || address.starts_with("192.168.")) return true;
  return address.starts_with("172.") && isIn172Range(address);
}

bool mayConnect(const ServerState& state, std::string_view address) {
  if (state.LocalhostOnly) return isThisMachine(address);
  return !state.LocalAddrControl || isPrivateAddress(address);
}

}  // namespace quorvane
