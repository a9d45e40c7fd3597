#include "http/byte_ranges.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

#include "http/header_lines.h"
#include "platform/random.h"
#include "support/text.h"

namespace quorvane {

namespace byte_ranges {
namespace {

constexpr std::int64_t kBeyondAnyFile = std::numeric_limits<std::int64_t>::max();

/// A numeric text as a whole number; numbers too large for one stand beyond every file.
std::optional<std::int64_t> numberOf(std::string_view text) {
  std::int64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc{} && stop == end) return number;
  const auto value = numericValue(text);
  if (!value) return std::nullopt;
  const double rounded = roundHalfEven(*value);
  if (rounded >= 9e18 || rounded <= -9e18) return kBeyondAnyFile;
  return static_cast<std::int64_t>(rounded);
}

struct Piece {
  std::int64_t first = 0;
  std::int64_t last = 0;
};

/// One piece of a set, or nothing when it is to be skipped.
std::optional<Piece> pieceOf(std::string_view text, std::int64_t length) {
  const std::size_t dash = text.find('-');
  if (dash == std::string_view::npos) return std::nullopt;
  const std::string_view first = text.substr(0, dash);
  const std::string_view behind = text.substr(dash + 1);
  const std::string_view last = behind.substr(0, behind.find('-'));
  if (first.empty() && last.empty()) return std::nullopt;
  const auto firstNumber = numberOf(first);
  const auto lastNumber = numberOf(last);
  if (first.empty()) {
    if (!lastNumber) return std::nullopt;
    return Piece{*lastNumber < 0 ? -1 : length - *lastNumber, length - 1};
  }
  if (!firstNumber || (!last.empty() && !lastNumber)) return std::nullopt;
  return Piece{*firstNumber, last.empty() ? length - 1 : *lastNumber};
}

bool liesInside(const Piece& piece, std::int64_t length) {
  return piece.first >= 0 && piece.first <= piece.last && piece.last < length;
}

std::string contentRange(const Range& range, std::uint64_t length) {
  return "bytes " + std::to_string(range.first) + '-' + std::to_string(range.last) + '/' +
         std::to_string(length);
}

/// The lines that say what a range is.
std::string headersOf(const Range& range, std::uint64_t length, std::string_view contentType) {
  std::string lines;
  header_lines::add(lines, "Content-Type", contentType);
  header_lines::add(lines, "Content-Range", contentRange(range, length));
  return lines;
}

/// The content's bytes of a range, of which a file's are not read.
Body sliceOf(const BodySegment& content, const Range& range) {
  const std::uint64_t length = range.last - range.first + 1;
  if (const auto* file = std::get_if<FileSlice>(&content)) {
    return FileSlice{file->file, file->offset + range.first, length};
  }
  const auto* shared = std::get_if<std::shared_ptr<const std::string>>(&content);
  const std::string& bytes = shared ? **shared : std::get<std::string>(content);
  return bytes.substr(range.first, length);
}

}  // namespace

std::vector<Range> parse(std::string_view set, std::uint64_t length) {
  std::vector<Range> ranges;
  std::uint64_t bytes = 0;
  const auto signedLength = static_cast<std::int64_t>(length);
  for (const std::string_view text : split(set, ',')) {
    const auto piece = pieceOf(text, signedLength);
    if (!piece) continue;
    if (!liesInside(*piece, signedLength) || ranges.size() == kMostRanges) return {};
    ranges.push_back(
        {static_cast<std::uint64_t>(piece->first), static_cast<std::uint64_t>(piece->last)});
    bytes += ranges.back().last - ranges.back().first + 1;
    if (bytes > std::max(2 * length, kMostBytes)) return {};
  }
  return ranges;
}

std::string newBoundary(Random& random) {
  constexpr std::size_t kLength = 38;
  std::string text;
  while (text.size() < kLength) text += hexDigits(random.guid());
  text.resize(kLength);
  return text;
}

Answer answer(const BodySegment& content, const std::vector<Range>& ranges,
              std::string_view contentType, std::string_view boundary) {
  const std::uint64_t length = segmentLength(content);
  if (ranges.size() == 1) {
    return {sliceOf(content, ranges[0]), headersOf(ranges[0], length, contentType)};
  }
  Answer result;
  header_lines::add(result.headers, "Content-Type",
                    std::string("multipart/byteranges; boundary=").append(boundary));
  for (const Range& range : ranges) {
    std::string partHead = result.body.rest.empty() ? "--" : "\r\n--";
    partHead.append(boundary).append("\r\n").append(headersOf(range, length, contentType));
    result.body.rest.emplace_back(std::move(partHead.append("\r\n\r\n")));
    result.body.rest.push_back(sliceOf(content, range).first);
  }
  result.body.rest.emplace_back("\r\n--" + std::string(boundary) + "--\r\n\r\n");
  return result;
}

}  // namespace byte_ranges

}  // namespace quorvane
