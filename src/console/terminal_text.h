#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// Windows-1252 texts as cells of a terminal, one cell a character.

/// One line: tabs lead to the next multiple of eight columns, other control characters show as a
/// middle dot.
std::wstring cellsOf(std::string_view text);

/// Exactly `width` cells: filled with blanks, or cut with an ellipsis at the end.
std::wstring fitted(std::wstring cells, std::size_t width);

/// The lines of a text that CR LF, CR or LF separates, broken where they exceed `width`: after the
/// last blank that fits, else within the word. At least one line; `width` counts as at least 1.
std::vector<std::wstring> wrapped(std::string_view text, std::size_t width);

}  // namespace quorvane
