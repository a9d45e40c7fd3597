#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "proxies/visitor.h"
#include "support/address_ranges.h"

namespace quorvane {

/// What the proxies between a client and this server have written into a request's head: the values
/// of each header in the order of its lines, and the client's own "Host". Views of the head.
struct ProxyHeaders {
  std::vector<std::string_view> forwarded;
  std::vector<std::string_view> forwardedFor;
  std::vector<std::string_view> forwardedProto;
  std::vector<std::string_view> forwardedHost;
  std::string_view host;

  /// Takes a line of the head when it is one of these.
  void take(std::string_view name, std::string_view value);
};

/// Puts into `visitor`, which is a trusted proxy, the client that it speaks for. Each proxy adds
/// what it knows at the end of a list, so that the list is read from there: as long as an address
/// is a trusted proxy's, the one before it is believed; the first that isn't is the client,
/// whatever it may have written in front of it.
///
/// Where "Forwarded" and the headers that begin with "X-Forwarded" both stand, one may be the
/// client's own. They have to name the same client then, and what only one of them says of scheme
/// and host doesn't count.
///
/// Why the head is not to be believed; empty when `visitor` is named, or nobody is, which leaves
/// it.
std::string_view nameVisitor(const ProxyHeaders& headers, const AddressRanges& trusted,
                             Visitor& visitor);

}  // namespace quorvane
