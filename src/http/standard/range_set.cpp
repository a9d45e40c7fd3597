#include "http/standard/range_set.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "http/standard/grammar.h"
#include "support/text.h"

namespace quorvane {

namespace range_set {
namespace {

using byte_ranges::Range;

/// Numbers too large for one stand beyond every file. Nothing for what is not digits alone.
std::optional<std::uint64_t> numberOf(std::string_view text) {
  std::uint64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || stop != end || error == std::errc::invalid_argument) return std::nullopt;
  if (error == std::errc::result_out_of_range) return std::numeric_limits<std::uint64_t>::max();
  return number;
}

struct Piece {
  bool isValid = false;
  std::optional<Range> range;  ///< of one that can be satisfied
};

Piece pieceOf(std::string_view text, std::uint64_t length) {
  const std::size_t dash = text.find('-');
  if (dash == std::string_view::npos) return {};
  const std::string_view lastText = text.substr(dash + 1);
  const auto last = numberOf(lastText);
  if (dash == 0) {                                       // so many bytes at the end
    if (!last || (*last > 0 && length == 0)) return {};  // the whole of nothing has no range
    if (*last == 0) return {true, std::nullopt};
    return {true, Range{length - std::min(*last, length), length - 1}};
  }
  const auto first = numberOf(text.substr(0, dash));
  if (!first || (!last && !lastText.empty()) || (last && *last < *first)) return {};
  if (*first >= length) return {true, std::nullopt};
  return {true, Range{*first, std::min(last.value_or(length - 1), length - 1)}};
}

/// Of one that does not begin before the other.
bool isApart(const Range& range, const Range& next) {
  return next.first > range.last && next.first - range.last > kNear;
}

/// Joins what is near. What remains keeps the order in which it was asked for.
std::vector<Range> joined(const std::vector<Range>& ranges) {
  struct Placed {
    Range range;
    std::size_t place;
  };
  std::vector<Placed> placed;
  placed.reserve(ranges.size());
  for (const Range& range : ranges) placed.push_back({range, placed.size()});
  std::sort(placed.begin(), placed.end(),
            [](const Placed& a, const Placed& b) { return a.range.first < b.range.first; });
  std::vector<Placed> kept;
  for (const Placed& next : placed) {
    if (kept.empty() || isApart(kept.back().range, next.range)) {
      kept.push_back(next);
      continue;
    }
    kept.back().range.last = std::max(kept.back().range.last, next.range.last);
    kept.back().place = std::min(kept.back().place, next.place);
  }
  std::sort(kept.begin(), kept.end(),
            [](const Placed& a, const Placed& b) { return a.place < b.place; });
  std::vector<Range> result;
  result.reserve(kept.size());
  for (const Placed& one : kept) result.push_back(one.range);
  return result;
}

}  // namespace

std::optional<std::vector<Range>> read(std::string_view field, std::uint64_t length) {
  constexpr std::string_view kUnit = "bytes=";
  if (!startsWithNoCase(field, kUnit)) return std::nullopt;
  std::vector<Range> ranges;
  bool isValid = true;
  bool isEmpty = true;
  standard_grammar::forEachElement(field.substr(kUnit.size()), [&](std::string_view text) {
    const Piece piece = pieceOf(text, length);
    isEmpty = false;
    isValid = isValid && piece.isValid;
    if (piece.range) ranges.push_back(*piece.range);
  });
  if (!isValid || isEmpty) return std::nullopt;
  ranges = joined(ranges);
  if (ranges.size() > kMostRanges) return std::nullopt;
  return ranges;
}

}  // namespace range_set

}  // namespace quorvane
