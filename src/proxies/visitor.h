#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// Who asks, and how: by the connection, or by what a trusted proxy says of the client that it
/// speaks for.
struct Visitor {
  std::string address;     ///< as texts of addresses are; "unknown" where a proxy keeps it secret
  bool isSecure = false;   ///< the client speaks TLS with the proxy
  std::string host;        ///< that it has asked for at the proxy, perhaps with a port; else empty
  std::uint16_t port = 0;  ///< of the server, as the client sees it; 0: the server's own

  friend bool operator==(const Visitor&, const Visitor&) = default;
};

}  // namespace quorvane
