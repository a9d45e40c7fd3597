#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers as other programs read and write them, whatever the script's locale is.
namespace quorvane::ado {

/// "-12.3456", always with four places.
std::string currencyText(std::int64_t tenThousandths);
/// Exact, which a way over Double is not. Places beyond the fourth are cut off.
std::int64_t currencyOfText(std::string_view text);

/// The shortest text that is this number again.
std::string numberText(double number);
double numberOfText(std::string_view text);  ///< 0 for what is none

}  // namespace quorvane::ado
