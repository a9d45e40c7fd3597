#pragma once

#include <string_view>

namespace quorvane {

/// Any bytes as SQL: they are refused, or the library parses what becomes of them as far as its
/// tables and columns go; and as a connection text. Ends the process when something is wrong.
void fuzzSql(std::string_view text);

}  // namespace quorvane
