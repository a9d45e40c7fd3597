#pragma once

#include <string>
#include <string_view>

namespace quorvane::vbs {

/// Rewrites a script's pattern in the matcher's dialect. Scripts write ECMAScript 3 patterns: no
/// look-behind, no named groups, no possessive quantifiers, and letters without a meaning of their
/// own stand for themselves behind a backslash. Errors 5017 to 5021.
std::u16string translatePattern(std::u16string_view pattern, bool multiline);

}  // namespace quorvane::vbs
