#pragma once

#include <cstddef>
#include <string_view>

#include "proxies/visitor.h"

namespace quorvane {

/// The PROXY protocol, versions 1 and 2: what a proxy says of its client in front of everything
/// else on a connection.
struct ProxyPreface {
  enum class Outcome {
    NeedMore,
    Named,    ///< the client stands in `visitor`
    Unnamed,  ///< the proxy speaks for itself, or does not know for whom
    Refused,  ///< something else, or a client of no kind that comes by a stream
  };

  /// Reads it from the beginning of a connection. The work is that of the bytes that have come,
  /// each time; there are at most some 64 KiB.
  static ProxyPreface read(std::string_view bytes);

  Outcome outcome = Outcome::NeedMore;
  std::size_t length = 0;  ///< in bytes, when it has come whole
  Visitor visitor;
};

}  // namespace quorvane
