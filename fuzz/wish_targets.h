#pragma once

#include <string_view>

namespace quorvane {

/// The head of a request, with what it says of codings, ranges, versions and dates.
void fuzzWishes(std::string_view bytes);

}  // namespace quorvane
