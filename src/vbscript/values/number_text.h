#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vbscript/values/string.h"

namespace quorvane::vbs {

/// parseNumber for a whole number of `bits` bits: &HFFFF is -1 with 16 bits, 65535 with 32. With
/// zero bits nothing wraps. The result is infinite when the text spells too large a number.
std::optional<double> parseNumber(const String& text, unsigned bits);

/// The currency amount that a text spells, in ten-thousandths, without a detour over binary
/// fractions. Error 6 when it does not fit; nothing when the text spells no number.
std::optional<std::int64_t> parseCurrency(const String& text);

/// Ten-thousandths nearest to a number, halves to even. Error 6 when it does not fit.
std::int64_t currencyFrom(double number);

/// A number in decimal notation with exactly `places` digits after the point and halves away from
/// zero, as the Format functions and Round's text show it. Always with '.', never an exponent.
std::string fixedText(double number, int places);

}  // namespace quorvane::vbs
