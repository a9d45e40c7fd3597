#pragma once

#include <string_view>

namespace quorvane {

/// Ends the process when what must hold for every input does not, and shows the input.
void require(bool condition, std::string_view what, std::string_view input);

}  // namespace quorvane
