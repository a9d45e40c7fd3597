#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/ip_address.h"

namespace quorvane {

/// Where a server listens.
struct ListenAddress {
  enum class Kind : std::uint8_t {
    EveryIPv4,   ///< a port on all addresses of IPv4
    Everywhere,  ///< a port on all addresses
    Address,     ///< a port on one address
    Local,       ///< a file by which clients on this machine find the server
    Unclear,     ///< a text that names no such place
  };

  ListenAddress() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a port is where servers listen
  ListenAddress(std::uint16_t portNumber) : kind(Kind::EveryIPv4), port(portNumber) {}

  /// Takes "7007", "127.0.0.1:7007", "[::1]:7007" or "unix:/run/site.sock"; all else is unclear.
  static ListenAddress parse(std::string_view text);

  /// Those of a list with commas or blanks between them.
  static std::vector<ListenAddress> parseList(std::string_view text);

  /// What parse() takes.
  std::string text() const;

  friend bool operator==(const ListenAddress&, const ListenAddress&) = default;

  Kind kind = Kind::Unclear;
  std::uint16_t port = 0;
  IpAddress address;
  bool isShared = false;  ///< with other processes of the same user that listen there too
  std::string path;       ///< of the file; the whole text where it is unclear
};

}  // namespace quorvane
