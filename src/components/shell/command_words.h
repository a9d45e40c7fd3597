#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/services.h"

namespace quorvane::shell {

/// The words of a command line: blanks divide them, except between quotes; a backslash in front of
/// a quote makes it part of the word.
std::vector<std::string> commandWords(std::string_view line);

/// The text with every %NAME% of a variable that is known replaced. Names count in any letter case;
/// of those that every system has, some are known although nobody set them.
std::string expanded(std::string_view text, const Services& services);

/// The variable's value in this process's environment; empty when it is not there.
std::string variable(std::string_view name, const Services& services);

}  // namespace quorvane::shell
