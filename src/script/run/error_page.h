#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

/// What a client gets of a page that failed: one HTML text without line breaks. The texts are
/// inserted as they stand.
std::string errorPage(std::int32_t number, std::string_view description, std::string_view pageName,
                      std::int64_t line);

}  // namespace quorvane
