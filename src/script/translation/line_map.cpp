#include "script/translation/line_map.h"

#include <algorithm>
#include <limits>

namespace quorvane {

std::uint32_t LineMap::file(const std::string& path) {
  const auto known = std::find(files_.begin(), files_.end(), path);
  const auto number = static_cast<std::uint32_t>(known - files_.begin());
  if (known == files_.end()) files_.push_back(path);
  return number;
}

std::optional<LineMap::Place> LineMap::place(std::uint32_t line, std::uint32_t column) const {
  if (line == 0 || rows_.empty()) return std::nullopt;
  const bool behind = line > rows_.size();
  if (behind) {
    line = static_cast<std::uint32_t>(rows_.size());
    column = 0;
  }
  const Row* row = &rows_[line - 1];
  // A column that the translation put in stands no further on than what follows it.
  std::int64_t furthest = std::numeric_limits<std::uint32_t>::max();
  auto next = std::partition_point(turns_.begin(), turns_.end(),
                                   [&](const Turn& turn) { return turn.line < line; });
  for (; next != turns_.end() && next->line == line && next->column <= column; ++next) {
    row = &next->row;
  }
  if (next != turns_.end() && next->line == line && next->row.file == row->file &&
      next->row.line == row->line) {
    furthest = std::int64_t{next->column} + next->row.shift;
  }
  const std::int64_t shifted = std::min(std::int64_t{column} + row->shift, furthest);
  return Place{files_[row->file], row->line,
               column == 0 ? 0 : static_cast<std::uint32_t>(std::max<std::int64_t>(shifted, 1))};
}

}  // namespace quorvane
