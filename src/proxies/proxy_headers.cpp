#include "proxies/proxy_headers.h"

#include <algorithm>
#include <optional>

#include "proxies/host_text.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kUnknown = "unknown";
constexpr std::string_view kBlanks = " \t";
constexpr std::uint16_t kPlainPort = 80;
constexpr std::uint16_t kSecurePort = 443;

/// What is said of one stretch of the way from the client.
struct Hop {
  std::string client;  ///< as written; empty when it isn't said
  std::string scheme;
  std::string host;
};

/// What one kind of headers says; nothing of what it leaves out.
struct Named {
  std::optional<std::string> address;
  std::optional<bool> isSecure;
  std::optional<std::string> host;
};

/// The elements of a header's list, over all its lines; empty ones are none.
std::vector<std::string_view> elements(const std::vector<std::string_view>& lines) {
  std::vector<std::string_view> all;
  for (const std::string_view line : lines) {
    for (const std::string_view part : split(line, ',')) {
      if (const auto element = trimmed(part, kBlanks); !element.empty()) all.push_back(element);
    }
  }
  return all;
}

/// "192.0.2.1", "192.0.2.1:4711", "2001:db8::1", "[2001:db8::1]:4711" and what stands in place of
/// an address. Nothing of any other text.
std::optional<std::string> addressOf(std::string_view node) {
  if (equalsNoCase(node, kLocalClient) || equalsNoCase(node, "unix:")) {
    return std::string(kLocalClient);
  }
  if (equalsNoCase(node, kUnknown) || (node.size() > 1 && node.front() == '_')) {
    return std::string(kUnknown);
  }
  auto address = IpAddress::parse(node);
  if (!address) {
    std::string_view name = host_text::name(node);
    const std::string_view behind = node.substr(name.size());
    if (!behind.empty() && host_text::port(node) == 0) return std::nullopt;
    if (name.starts_with('[') && name.ends_with(']')) {
      name = name.substr(1, name.size() - 2);
      if (name.find(':') == name.npos) return std::nullopt;
    }
    address = IpAddress::parse(name);
  }
  return address ? std::optional(address->text()) : std::nullopt;
}

/// Reads the pieces of "Forwarded" (RFC 7239), which stand in quotes as they like.
class ForwardedReader {
 public:
  explicit ForwardedReader(std::string_view line) : rest_(line) {}

  /// False when the line is not what it should be.
  bool read(std::vector<Hop>& hops) {
    for (;;) {
      Hop hop;
      bool isEmpty = true;
      if (!element(hop, isEmpty)) return false;
      if (!isEmpty) hops.push_back(std::move(hop));
      if (rest_.empty()) return true;
      rest_.remove_prefix(1);  // the comma
    }
  }

 private:
  /// Up to a comma or the end.
  bool element(Hop& hop, bool& isEmpty) {
    for (;;) {
      skipBlanks();
      if (!rest_.empty() && rest_.front() != ',' && rest_.front() != ';') {
        if (!pair(hop)) return false;
        isEmpty = false;
        skipBlanks();
      }
      if (rest_.empty() || rest_.front() == ',') return true;
      if (rest_.front() != ';') return false;
      rest_.remove_prefix(1);
    }
  }

  bool pair(Hop& hop) {
    const std::string_view name = token();
    if (name.empty() || rest_.empty() || rest_.front() != '=') return false;
    rest_.remove_prefix(1);
    std::string text;
    if (!value(text)) return false;
    std::string* into = equalsNoCase(name, "for")     ? &hop.client
                        : equalsNoCase(name, "proto") ? &hop.scheme
                        : equalsNoCase(name, "host")  ? &hop.host
                                                      : nullptr;
    if (into && !into->empty()) return false;  // said twice
    if (into) *into = std::move(text);
    return true;
  }

  bool value(std::string& text) {
    if (rest_.empty() || rest_.front() != '"') {
      text = token();
      return !text.empty();
    }
    rest_.remove_prefix(1);
    while (!rest_.empty() && rest_.front() != '"') {
      if (rest_.front() == '\\') rest_.remove_prefix(1);
      if (rest_.empty()) return false;
      text += rest_.front();
      rest_.remove_prefix(1);
    }
    if (rest_.empty()) return false;
    rest_.remove_prefix(1);
    return !text.empty();
  }

  /// Addresses of IPv6 and ports belong into quotes; many leave them out.
  std::string_view token() {
    const std::size_t end = std::min(rest_.find_first_of(" \t,;=\""), rest_.size());
    const std::string_view text = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return text;
  }

  void skipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
  }

  std::string_view rest_;
};

/// Of a list beside that of the clients: the element that was added together with the client's,
/// counted from the end; the first of a shorter list.
std::string_view beside(const std::vector<std::string_view>& list, std::size_t fromEnd) {
  if (list.empty()) return {};
  return list[list.size() - 1 - std::min(fromEnd, list.size() - 1)];
}

std::vector<Hop> hopsOf(const ProxyHeaders& headers) {
  const auto clients = elements(headers.forwardedFor);
  const auto schemes = elements(headers.forwardedProto);
  const auto hosts = elements(headers.forwardedHost);
  std::vector<Hop> hops;
  const std::size_t count =
      std::max<std::size_t>(clients.size(), !schemes.empty() || !hosts.empty());
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t fromEnd = count - 1 - i;
    hops.push_back({clients.empty() ? std::string() : std::string(clients[i]),
                    std::string(beside(schemes, fromEnd)), std::string(beside(hosts, fromEnd))});
  }
  return hops;
}

/// False when the scheme or the host is none.
bool takeHop(const Hop& hop, Named& named) {
  const bool isSecure = equalsNoCase(hop.scheme, "https") || equalsNoCase(hop.scheme, "wss");
  const bool isPlain = equalsNoCase(hop.scheme, "http") || equalsNoCase(hop.scheme, "ws");
  if (!hop.scheme.empty() && !isSecure && !isPlain) return false;
  if (!hop.host.empty() && !host_text::isPlain(hop.host)) return false;
  if (!hop.scheme.empty()) named.isSecure = isSecure;
  if (!hop.host.empty()) named.host = hop.host;
  return true;
}

/// Walks from the end to the client. False when what is met there is not to be understood.
bool walk(const std::vector<Hop>& hops, const AddressRanges& trusted, Named& named) {
  for (std::size_t i = hops.size(); i-- > 0;) {
    const Hop& hop = hops[i];
    named.isSecure.reset();
    named.host.reset();
    if (!takeHop(hop, named)) return false;
    if (hop.client.empty()) return true;  // it only says how, or keeps the client to itself
    named.address = addressOf(hop.client);
    if (!named.address) return false;
    if (!trusted.contains(std::string_view(*named.address))) return true;
  }
  return true;
}

/// What both say; nothing when they contradict each other.
template <class Value>
bool agree(std::optional<Value>& one, const std::optional<Value>& other) {
  if (one && other) return *one == *other;
  one.reset();
  return true;
}

void apply(Named& named, std::string_view ownHost, Visitor& visitor) {
  if (named.address) visitor.address = std::move(*named.address);
  if (named.isSecure) visitor.isSecure = *named.isSecure;
  const std::string_view host = named.host ? std::string_view(*named.host) : ownHost;
  const std::uint16_t port = host_text::port(host);
  if (named.host || named.isSecure) {
    visitor.port = port > 0 ? port : visitor.isSecure ? kSecurePort : kPlainPort;
  }
  if (named.host) visitor.host = std::move(*named.host);
}

}  // namespace

void ProxyHeaders::take(std::string_view name, std::string_view value) {
  if (equalsNoCase(name, "host") && host.empty()) host = trimmed(value, kBlanks);
  if (equalsNoCase(name, "forwarded")) forwarded.push_back(value);
  if (equalsNoCase(name, "x-forwarded-for")) forwardedFor.push_back(value);
  if (equalsNoCase(name, "x-forwarded-proto")) forwardedProto.push_back(value);
  if (equalsNoCase(name, "x-forwarded-host")) forwardedHost.push_back(value);
}

std::string_view nameVisitor(const ProxyHeaders& headers, const AddressRanges& trusted,
                             Visitor& visitor) {
  std::vector<Hop> standard;
  for (const std::string_view line : headers.forwarded) {
    if (!ForwardedReader(line).read(standard)) return "Forwarded is not to be understood";
  }
  const std::vector<Hop> customary = hopsOf(headers);
  Named named;
  if (!walk(standard, trusted, named)) return "Forwarded is not to be understood";
  Named other;
  if (!walk(customary, trusted, other)) return "X-Forwarded is not to be understood";
  if (standard.empty()) {
    named = std::move(other);
  } else if (!customary.empty()) {
    const bool same = named.address == other.address && agree(named.isSecure, other.isSecure) &&
                      agree(named.host, other.host);
    if (!same) return "Forwarded and X-Forwarded contradict each other";
  }
  apply(named, headers.host, visitor);
  return {};
}

}  // namespace quorvane
