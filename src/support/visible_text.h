#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane {

/// Texts from elsewhere in lines that people read, where a control character could move a
/// terminal's cursor or pass for the end of a line.

/// Every control character is shown by its number, such as `\x1b`.
std::string visible(std::string_view text);

/// The same for a text of more than `most` bytes cut there, with "..." behind it; 0 is no bound.
std::string visible(std::string_view text, std::size_t most);

/// As `visible` for a text of several lines: tabs and CR LF are left.
std::string visibleLines(std::string_view text);

/// The same with "||" for each CR LF.
std::string visibleLine(std::string_view line);

}  // namespace quorvane
