#include "support/listen_address.h"

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kLocalPrefix = "unix:";

/// Whether the address stands in the form that its kind has in front of a port.
bool isBracketedAsFits(std::string_view& host) {
  const bool isBracketed = host.size() > 1 && host.front() == '[' && host.back() == ']';
  if (isBracketed) host = host.substr(1, host.size() - 2);
  return isBracketed == (host.find(':') != host.npos);
}

}  // namespace

ListenAddress ListenAddress::parse(std::string_view text) {
  ListenAddress where;
  where.path = text;
  if (text.starts_with(kLocalPrefix)) {
    if (text.size() == kLocalPrefix.size()) return where;
    where.kind = Kind::Local;
    where.path = text.substr(kLocalPrefix.size());
    return where;
  }
  const std::size_t colon = text.rfind(':');
  const auto port = wholeNumber<std::uint16_t>(text.substr(colon + 1));  // all without a colon
  if (!port || *port == 0) return where;
  if (colon != text.npos) {
    std::string_view host = text.substr(0, colon);
    const auto address = isBracketedAsFits(host) ? IpAddress::parse(host) : std::nullopt;
    if (!address) return where;
    where.address = *address;
  }
  where.kind = colon == text.npos ? Kind::Everywhere : Kind::Address;
  where.port = *port;
  where.path.clear();
  return where;
}

std::vector<ListenAddress> ListenAddress::parseList(std::string_view text) {
  std::vector<ListenAddress> all;
  for (const std::string_view word : words(text)) all.push_back(parse(word));
  return all;
}

std::string ListenAddress::text() const {
  switch (kind) {
    case Kind::EveryIPv4:
    case Kind::Everywhere:
      return std::to_string(port);
    case Kind::Address: {
      const std::string host = address.text();
      return (address.isV4() ? host : '[' + host + ']') + ':' + std::to_string(port);
    }
    case Kind::Local:
      return std::string(kLocalPrefix) + path;
    case Kind::Unclear:
      break;
  }
  return path;
}

}  // namespace quorvane
