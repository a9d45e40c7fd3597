#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/outgoing.h"
#include "support/files.h"

namespace quorvane {

class Random;

/// Byte ranges of a file, single and multipart.
namespace byte_ranges {

/// Sets of more ranges than this are not satisfied: each costs a part of its own, and a header
/// block has room for hundreds of thousands.
inline constexpr std::size_t kMostRanges = 1000;

struct Range {
  std::uint64_t first = 0;  ///< offset of the first byte
  std::uint64_t last = 0;   ///< offset of the last byte, included

  friend bool operator==(const Range&, const Range&) = default;
};

/// Nor are sets whose ranges overlap for more bytes in all than this, or twice the file where that
/// is more.
inline constexpr std::uint64_t kMostBytes = std::uint64_t{64} << 20;

/// The ranges of a set such as "0-99,-100,500-" (the text behind "bytes=", without blanks) in a
/// file of `length` bytes. Empty when the set can't be satisfied: it names no range, too many, too
/// much, or one that does not lie in the file wholly, the wrong way round included.
std::vector<Range> parse(std::string_view set, std::uint64_t length);

struct Answer {
  Body body;
  std::string headers;  ///< "Content-Type" and "Content-Range" lines, no line end behind the last
};

/// 38 random hexadecimal digits.
std::string newBoundary(Random& random);

/// The answer for at least one range of content of that length. Nothing of a file is read. The
/// boundary stands between the parts of several.
Answer answer(const BodySegment& content, const std::vector<Range>& ranges,
              std::string_view contentType, std::string_view boundary);

}  // namespace byte_ranges

}  // namespace quorvane
