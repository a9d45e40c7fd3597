#include "script/customary/page_program.h"

#include <algorithm>

namespace quorvane::customary {

std::uint32_t LineMap::file(const std::string& path) {
  const auto known = std::find(files_.begin(), files_.end(), path);
  if (known == files_.end()) files_.push_back(path);
  return static_cast<std::uint32_t>(std::find(files_.begin(), files_.end(), path) - files_.begin());
}

std::optional<Place> LineMap::place(std::uint32_t line, std::uint32_t column) const {
  if (line == 0 || rows_.empty()) return std::nullopt;
  const bool behind = line > rows_.size();
  const Row& row = behind ? rows_.back() : rows_[line - 1];
  if (behind) column = 0;
  const std::int64_t shifted = std::int64_t{column} + row.shift;
  return Place{files_[row.file], row.line,
               column == 0 ? 0 : static_cast<std::uint32_t>(std::max<std::int64_t>(shifted, 1))};
}

}  // namespace quorvane::customary
