#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// An address of IPv4 or IPv6. One of IPv4 that is written as one of IPv6 (::ffff:10.0.0.1) is the
/// IPv4 address itself, so that rules and texts know one form of it.
class IpAddress {
 public:
  using Bytes = std::array<std::uint8_t, 16>;

  /// 0.0.0.0.
  IpAddress() : IpAddress(Bytes{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff}) {}

  /// IPv4 in the form ::ffff:a.b.c.d.
  explicit IpAddress(const Bytes& bytes) : bytes_(bytes) {}

  /// Nothing unless the whole text is an address: no name, zone, port or blank, no number in octal.
  static std::optional<IpAddress> parse(std::string_view text);

  bool isV4() const;
  const Bytes& bytes() const { return bytes_; }

  /// The customary text: four numbers, or lower-case groups with the longest run of zeros left out.
  std::string text() const;

  /// Whether the first `bits`, 0 to 128, of the sixteen bytes are the same.
  bool sharesPrefix(const IpAddress& other, int bits) const;

  friend bool operator==(const IpAddress&, const IpAddress&) = default;

 private:
  Bytes bytes_;
};

}  // namespace quorvane
