#include "proxies/proxy_protocol.h"

#include <algorithm>
#include <array>
#include <optional>

#include "support/address_ranges.h"
#include "support/text.h"

namespace quorvane {

namespace {

using Outcome = ProxyPreface::Outcome;

constexpr std::string_view kTextStart = "PROXY ";
constexpr std::size_t kLongestText = 107;
constexpr std::string_view kBinaryStart("\r\n\r\n\0\r\nQUIT\n", 12);
constexpr std::size_t kBinaryHead = 16;

bool canBecome(std::string_view bytes, std::string_view start) {
  const std::size_t both = std::min(bytes.size(), start.size());
  return bytes.substr(0, both) == start.substr(0, both);
}

std::uint8_t byteAt(std::string_view bytes, std::size_t place) {
  return static_cast<std::uint8_t>(bytes[place]);
}

std::uint16_t numberAt(std::string_view bytes, std::size_t place) {
  return static_cast<std::uint16_t>(byteAt(bytes, place) << 8 | byteAt(bytes, place + 1));
}

ProxyPreface refused() {
  return {Outcome::Refused, 0, {}};
}

/// "PROXY TCP4 192.0.2.1 198.51.100.1 4711 443"
ProxyPreface readText(std::string_view bytes) {
  const std::size_t end = bytes.substr(0, kLongestText).find("\r\n");
  if (end == bytes.npos) return bytes.size() < kLongestText ? ProxyPreface{} : refused();
  const auto parts = split(bytes.substr(0, end), ' ');
  if (parts.size() > 1 && parts[1] == "UNKNOWN") return {Outcome::Unnamed, end + 2, {}};
  const bool isV4 = parts.size() == 6 && parts[1] == "TCP4";
  if (!isV4 && (parts.size() != 6 || parts[1] != "TCP6")) return refused();
  const auto source = IpAddress::parse(parts[2]);
  const auto target = IpAddress::parse(parts[3]);
  const auto sourcePort = wholeNumber<std::uint16_t>(parts[4]);
  const auto port = wholeNumber<std::uint16_t>(parts[5]);
  const auto fits = [isV4](std::string_view text) { return (text.find(':') == text.npos) == isV4; };
  if (!source || !target || !fits(parts[2]) || !fits(parts[3]) || !sourcePort || !port) {
    return refused();
  }
  return {Outcome::Named, end + 2, {source->text(), false, {}, *port}};
}

/// Whether what follows the addresses says that the client speaks TLS. Nothing when it is not what
/// it should be.
std::optional<bool> readExtras(std::string_view extras) {
  constexpr std::uint8_t kTls = 0x20;
  constexpr std::uint8_t kClientSpeaksIt = 0x01;
  constexpr std::size_t kHead = 3;
  bool isSecure = false;
  while (!extras.empty()) {
    if (extras.size() < kHead) return std::nullopt;
    const std::size_t length = numberAt(extras, 1);
    if (extras.size() < kHead + length) return std::nullopt;
    if (byteAt(extras, 0) == kTls) {
      if (length == 0) return std::nullopt;
      isSecure = (byteAt(extras, kHead) & kClientSpeaksIt) != 0;
    }
    extras.remove_prefix(kHead + length);
  }
  return isSecure;
}

/// An address of the body that `size` bytes make.
std::string addressAt(std::string_view body, std::size_t place, std::size_t size) {
  IpAddress::Bytes bytes = IpAddress().bytes();
  std::copy_n(body.begin() + static_cast<std::ptrdiff_t>(place), size,
              bytes.end() - static_cast<std::ptrdiff_t>(size));
  return IpAddress(bytes).text();
}

std::optional<Visitor> readStreamClient(std::uint8_t family, std::string_view body) {
  struct Family {
    std::uint8_t number;
    std::size_t address;  ///< bytes
    std::size_t port;     ///< bytes
  };
  constexpr std::array<Family, 3> kFamilies{{{0x11, 4, 2}, {0x21, 16, 2}, {0x31, 108, 0}}};
  for (const auto& [number, address, port] : kFamilies) {
    if (family != number) continue;
    const std::size_t length = 2 * (address + port);
    if (body.size() < length) return std::nullopt;
    const auto isSecure = readExtras(body.substr(length));
    if (!isSecure) return std::nullopt;
    if (port == 0) return Visitor{std::string(kLocalClient), *isSecure, {}, 0};
    return Visitor{addressAt(body, 0, address), *isSecure, {}, numberAt(body, 2 * address + port)};
  }
  return std::nullopt;
}

ProxyPreface readBinary(std::string_view bytes) {
  if (bytes.size() < kBinaryHead) return {};
  constexpr std::uint8_t kItself = 0x20;
  constexpr std::uint8_t kForAnother = 0x21;
  constexpr std::uint8_t kUnspecified = 0x00;
  const std::uint8_t command = byteAt(bytes, 12);
  const std::uint8_t family = byteAt(bytes, 13);
  if (command != kItself && command != kForAnother) return refused();
  const std::size_t length = kBinaryHead + numberAt(bytes, 14);
  if (bytes.size() < length) return {};
  if (command == kItself || family == kUnspecified) return {Outcome::Unnamed, length, {}};
  auto client = readStreamClient(family, bytes.substr(kBinaryHead, length - kBinaryHead));
  if (!client) return refused();
  return {Outcome::Named, length, std::move(*client)};
}

}  // namespace

ProxyPreface ProxyPreface::read(std::string_view bytes) {
  const bool isText = canBecome(bytes, kTextStart);
  const bool isBinary = canBecome(bytes, kBinaryStart);
  if (!isText && !isBinary) return refused();
  if (isText && bytes.size() >= kTextStart.size()) return readText(bytes);
  if (isBinary && bytes.size() >= kBinaryStart.size()) return readBinary(bytes);
  return {};
}

}  // namespace quorvane
