#pragma once

#include <string>
#include <string_view>

/// What tools and tests show of a script. A text that does not compile gives its error instead.
namespace quorvane::vbs {

std::string dumpTokens(std::string_view source);
std::string dumpTree(std::string_view source);
std::string dumpBytecode(std::string_view source);

}  // namespace quorvane::vbs
