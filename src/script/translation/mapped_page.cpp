#include "script/translation/mapped_page.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

#include "script/translation/page_translator.h"
#include "script/translation/text_origins.h"

namespace quorvane {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// Makes the map of a program, line by line.
class Mapping {
 public:
  Mapping(const TextOrigins& origins, const std::vector<PageTrace>& traces)
      : origins_(origins), trace_(traces.begin()), end_(traces.end()) {
    for (const std::string& file : origins.files()) lines_.file(file);  // by the same numbers
  }

  LineMap of(std::string_view program) {
    for (std::size_t start = 0; start < program.size();) {
      const std::size_t end = program.find(kLineEnd, start);
      addLine(start, end);
      start = end + kLineEnd.size();
    }
    return std::move(lines_);
  }

 private:
  void addLine(std::size_t start, std::size_t end) {
    start_ = start;
    for (; trace_ != end_ && trace_->program <= end; ++trace_) {
      addStretch(trace_->program, trace_->page);
      const auto next = trace_ + 1;
      const bool isLast = next == end_ || next->program > end;
      addBreaks(isLast ? end : next->program, isLast ? kNowhere : next->page);
    }
  }

  /// From this byte of the program on it is the page's text from that byte on.
  void addStretch(std::size_t program, std::size_t page) {
    const TextOrigins::Spot spot = origins_.spot(page);
    const auto column = static_cast<std::uint32_t>(program - start_) + 1;
    const auto shift = static_cast<std::int32_t>(std::int64_t{spot.column} - column);
    if (column == 1) {
      lines_.add(spot.file, spot.line, shift);
    } else {
      lines_.turn(column, spot.file, spot.line, shift);
    }
  }

  /// The same where one file's text goes over into another's, within the present stretch.
  void addBreaks(std::size_t programEnd, std::size_t pageEnd) {
    const auto& pieces = origins_.pieces();
    auto piece = std::partition_point(pieces.begin(), pieces.end(), [&](const auto& candidate) {
      return candidate.at <= trace_->page;
    });
    for (; piece != pieces.end() && piece->at < pageEnd; ++piece) {
      const std::size_t program = trace_->program + (piece->at - trace_->page);
      if (program >= programEnd) return;
      addStretch(program, piece->at);
    }
  }

  static constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

  const TextOrigins& origins_;
  std::vector<PageTrace>::const_iterator trace_;
  std::vector<PageTrace>::const_iterator end_;
  std::size_t start_ = 0;  ///< of the present line
  LineMap lines_;
};

}  // namespace

MappedPage mapPage(IncludedFile page, const IncludeReader& read) {
  TextOrigins origins(page);
  const std::string whole = expandIncludes(std::move(page.text), read, &origins);
  origins.pass();
  std::vector<PageTrace> traces;
  MappedPage mapped;
  mapped.program = translatePage(whole, &traces);
  mapped.lines = Mapping(origins, traces).of(mapped.program);
  return mapped;
}

}  // namespace quorvane
