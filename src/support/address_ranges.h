#pragma once

#include <string_view>
#include <vector>

#include "support/ip_address.h"

namespace quorvane {

/// The text that stands in place of an address for clients that come by a file of this machine.
inline constexpr std::string_view kLocalClient = "unix";

/// A set of client addresses.
class AddressRanges {
 public:
  /// A list with commas or blanks between its words: addresses, prefixes ("10.0.0.0/8", "fd00::/8")
  /// and "unix". Other words are left out.
  static AddressRanges parse(std::string_view text);

  bool empty() const { return ranges_.empty() && !hasLocal_; }

  /// Whether parse() has left out a word.
  bool isPartial() const { return isPartial_; }

  bool contains(const IpAddress& address) const;

  /// The same of a client's address as text: an address or kLocalClient.
  bool contains(std::string_view client) const;

 private:
  struct Range {
    IpAddress start;
    int bits;  ///< of the sixteen bytes
  };

  void add(std::string_view word);

  std::vector<Range> ranges_;
  bool hasLocal_ = false;
  bool isPartial_ = false;
};

}  // namespace quorvane
