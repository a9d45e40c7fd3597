#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// The standard alphabet, padded with "=", without line breaks.
std::string encodeBase64(std::string_view bytes);

/// The bytes that `text` stands for. Characters outside the alphabet are skipped, decoding ends at
/// the first "=".
std::string decodeBase64(std::string_view text);

}  // namespace quorvane
