#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "http/byte_ranges.h"

namespace quorvane {

/// The ranges of a Range field, RFC 9110 14.
namespace range_set {

/// Each costs a part with a head of its own. A set that still has more when near ones are joined is
/// nobody's who wants parts of a file.
inline constexpr std::size_t kMostRanges = 100;

/// Ranges that overlap, or lie nearer to each other than the head of a part is long, become one.
inline constexpr std::uint64_t kNear = 80;

/// The ranges in content of that length, in the order asked for and none of them twice. Empty: none
/// can be satisfied. Nothing: the field is to be taken as if it were not there, since its unit or
/// its grammar is unknown or it asks for too much.
std::optional<std::vector<byte_ranges::Range>> read(std::string_view field, std::uint64_t length);

}  // namespace range_set

}  // namespace quorvane
