#include "support/store_address.h"

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kScheme = "redis://";
constexpr std::string_view kFile = "unix:";
constexpr std::size_t kMostDigits = 5;

template <class Number>
std::optional<Number> numberOf(std::string_view text) {
  return text.size() > kMostDigits ? std::nullopt : wholeNumber<Number>(text);
}

bool takePort(StoreAddress& address, std::string_view text) {
  const auto port = numberOf<std::uint16_t>(text);
  if (!port || *port == 0) return false;
  address.port = *port;
  return true;
}

/// Host and port; the colons of an IPv6 address stand in brackets.
bool takePlace(StoreAddress& address, std::string_view text) {
  std::size_t end = text.find(':');
  std::size_t behind = end;
  if (text.starts_with('[')) {
    end = text.find(']');
    if (end == std::string_view::npos) return false;
    behind = end + 1;
    text.remove_prefix(1);
    --end;
    --behind;
  }
  address.host = text.substr(0, end);
  const std::string_view rest = behind < text.size() ? text.substr(behind) : std::string_view();
  if (rest.empty()) return !address.host.empty();
  return !address.host.empty() && rest.front() == ':' && takePort(address, rest.substr(1));
}

}  // namespace

std::optional<StoreAddress> StoreAddress::of(std::string_view text) {
  StoreAddress address;
  if (text.starts_with(kFile)) {
    address.path = text.substr(kFile.size());
    return address.path.starts_with('/') ? std::optional(address) : std::nullopt;
  }
  if (!text.starts_with(kScheme)) return std::nullopt;
  text.remove_prefix(kScheme.size());
  if (const auto at = text.rfind('@'); at != std::string_view::npos) {
    const std::string_view who = text.substr(0, at);
    const auto colon = who.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    address.user = who.substr(0, colon);
    address.password = who.substr(colon + 1);
    text.remove_prefix(at + 1);
  }
  if (const auto slash = text.find('/'); slash != std::string_view::npos) {
    if (slash + 1 < text.size()) {
      const auto database = numberOf<std::uint32_t>(text.substr(slash + 1));
      if (!database) return std::nullopt;
      address.database = static_cast<std::int32_t>(*database);
    }
    text = text.substr(0, slash);
  }
  return takePlace(address, text) ? std::optional(address) : std::nullopt;
}

}  // namespace quorvane
