#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text in other character sets, through the system's own converter. Sets go by the names that they
/// have on the Web, in any letter case.
namespace quorvane::charset {

bool isKnown(std::string_view name);

struct Decoded {
  std::u16string text;
  std::size_t bytes = 0;  ///< how many the text stands for
};

/// The text of `bytes`, at most `most` UTF-16 units of it (a character above U+FFFF is not cut in
/// two). What is no character becomes U+FFFD. Of a set that is not known, nothing.
Decoded decode(std::string_view name, std::string_view bytes, std::size_t most);

/// What has no place in the set becomes "?". Of a set that is not known, nothing.
std::string encode(std::string_view name, std::u16string_view text);

}  // namespace quorvane::charset
