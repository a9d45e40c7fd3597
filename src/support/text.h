#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
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

inline bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// What a hexadecimal digit counts; -1 when it is none.
int hexDigit(char c);

/// The byte that two hexadecimal digits at the front of `text` make; nothing when they are none.
std::optional<char> hexByte(std::string_view text);

/// The number that the whole text is: nothing but digits, and for types with a sign perhaps a "-".
/// Nothing for other texts, and for numbers that the type does not have.
template <class Number>
std::optional<Number> wholeNumber(std::string_view text, int base = 10) {
  Number number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, base);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

/// Cuts blanks (character 32 only, no tabs or line ends) from both ends.
std::string_view trimBlanks(std::string_view text);

/// Cuts all of these characters from both ends.
std::string_view trimmed(std::string_view text, std::string_view characters);

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
