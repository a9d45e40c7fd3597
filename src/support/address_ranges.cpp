#include "support/address_ranges.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane {

namespace {

constexpr int kAllBits = 128;
constexpr int kBitsBeforeV4 = 96;

/// The length of a prefix in the sixteen bytes; -1 when the text is none.
int prefixBits(std::string_view text, bool isV4) {
  const auto bits = wholeNumber<std::uint8_t>(text);
  const int before = isV4 ? kBitsBeforeV4 : 0;
  return bits && before + *bits <= kAllBits ? before + *bits : -1;
}

}  // namespace

AddressRanges AddressRanges::parse(std::string_view text) {
  AddressRanges all;
  for (const std::string_view word : words(text)) all.add(word);
  return all;
}

void AddressRanges::add(std::string_view word) {
  if (equalsNoCase(word, kLocalClient)) {
    hasLocal_ = true;
    return;
  }
  const std::size_t slash = word.find('/');
  const auto address = IpAddress::parse(word.substr(0, slash));
  const int bits = !address             ? -1
                   : slash == word.npos ? kAllBits
                                        : prefixBits(word.substr(slash + 1), address->isV4());
  if (bits < 0) {
    isPartial_ = true;
  } else {
    ranges_.push_back({*address, bits});
  }
}

bool AddressRanges::contains(const IpAddress& address) const {
  return std::any_of(ranges_.begin(), ranges_.end(), [&](const Range& range) {
    return range.start.isV4() == address.isV4() && range.start.sharesPrefix(address, range.bits);
  });
}

bool AddressRanges::contains(std::string_view client) const {
  if (client == kLocalClient) return hasLocal_;
  const auto address = IpAddress::parse(client);
  return address && contains(*address);
}

}  // namespace quorvane
