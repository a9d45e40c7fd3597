#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// Text helpers. A character is a byte of Windows-1252; letter case covers its accented letters
/// too, as the scripts' own LCase and UCase do.

namespace text_detail {
extern const std::array<char, 256> kLower;
extern const std::array<char, 256> kUpper;
}  // namespace text_detail

inline char lowerChar(char c) {
  return text_detail::kLower[static_cast<unsigned char>(c)];
}
inline char upperChar(char c) {
  return text_detail::kUpper[static_cast<unsigned char>(c)];
}

std::string lowerCase(std::string_view text);
std::string upperCase(std::string_view text);

bool equalsNoCase(std::string_view a, std::string_view b);
bool startsWithNoCase(std::string_view text, std::string_view prefix);

/// Where `needle` occurs in `text` from `from` on, without regard to letter case, or npos.
std::size_t findNoCase(std::string_view text, std::string_view needle, std::size_t from = 0);

/// Cuts blanks (character 32 only, no tabs or line ends) from both ends.
std::string_view trimBlanks(std::string_view text);

/// The pieces between separators: always one more than there are separators. The views last as
/// long as what `text` views.
std::vector<std::string_view> split(std::string_view text, char separator);

/// The words of a list that has commas, blanks or tabs between them. Views as of split().
std::vector<std::string_view> words(std::string_view list);

/// Two lower-case hexadecimal digits a byte.
std::string hexDigits(std::span<const std::uint8_t> bytes);

/// `text` with every occurrence of `from` (not empty) replaced, left to right.
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

/// The value of a text that the script language calls numeric: blanks around it, a sign, digits
/// with or without thousands commas, a decimal point, an exponent (E or D), "&H" and "&O" forms.
/// Nothing when the text isn't numeric or its value is not finite.
std::optional<double> numericValue(std::string_view text);

/// Halves go to the even neighbour.
double roundHalfEven(double value);

/// The numeric value rounded to a signed 32-bit number; nothing when the text isn't numeric or the
/// value doesn't fit.
std::optional<std::int32_t> numericLong(std::string_view text);

}  // namespace quorvane
