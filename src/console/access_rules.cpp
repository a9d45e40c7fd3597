#include "console/access_rules.h"

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kThisMachine = "127.0.0.1";

/// 172.16.0.0 to 172.31.255.255.
bool isIn172Range(std::string_view address) {
  const auto parts = split(address, '.');
  if (parts.size() != 4) return false;
  const auto second = numericValue(parts[1]);
  return second && *second > 15 && *second < 32;
}

}  // namespace

bool isPrivateAddress(std::string_view address) {
  if (address == kThisMachine) return true;
  if (address.starts_with("10.") || address.starts_with("192.168.")) return true;
  return address.starts_with("172.") && isIn172Range(address);
}

bool mayConnect(const ServerState& state, std::string_view address) {
  if (state.LocalhostOnly) return address == kThisMachine;
  return !state.LocalAddrControl || isPrivateAddress(address);
}

}  // namespace quorvane
