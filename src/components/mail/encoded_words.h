#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Words of header lines that stand for text which is not ASCII: "=?utf-8?Q?K=C3=A4se?=". Texts are
/// UTF-8.
namespace quorvane::mail {

/// How many bytes the character at the front of a text that is not empty has.
std::size_t characterLength(std::string_view text);

/// `text` with what encoded words in it stand for. Those of a character set that is not known stay.
std::string decodeWords(std::string_view text);

/// How long the encoded word at the front of `text` is; 0 when there is none.
std::size_t encodedWordLength(std::string_view text);

inline constexpr std::size_t kLongestEncodedWord = 75;

/// One encoded word of at most `room` characters for what is in front of `left`, which it takes
/// from there: whole characters only, and nothing when there is no room for one.
std::string takeEncodedWord(std::string_view& left, std::size_t room);

}  // namespace quorvane::mail
