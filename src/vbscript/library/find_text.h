#pragma once

#include <cstddef>
#include <string_view>

namespace quorvane::vbs {

/// The first place of `part` in `text` at or behind `from`, the last one at or before it; npos when
/// there is none. The time grows with the length of the text only, also where text and part are
/// made of the same repeated characters, so that no script can keep a search busy for minutes.
std::size_t findText(std::string_view text, std::string_view part, std::size_t from);
std::size_t findText(std::u16string_view text, std::u16string_view part, std::size_t from);
std::size_t findLastText(std::string_view text, std::string_view part, std::size_t from);
std::size_t findLastText(std::u16string_view text, std::u16string_view part, std::size_t from);

}  // namespace quorvane::vbs
