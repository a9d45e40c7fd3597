#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vbscript/values/string.h"

namespace quorvane::customary {

/// Between the bytes that pages, requests and answers are made of and the texts of scripts, by the
/// numbers that pages know the character sets by.
inline constexpr std::int32_t kAnsi = 1252;
inline constexpr std::int32_t kUtf8 = 65001;

/// Whether there is a character set of this number.
bool isCodePage(std::int32_t codePage);

/// Whether bytes of its texts mean letters by what stands before them, plain ones too: no part of
/// such a text can be told from another before it is read.
bool isStateful(std::int32_t codePage);

/// What is no character becomes U+FFFD; with Windows-1252 every byte is a character.
vbs::String decode(std::int32_t codePage, std::string_view bytes);

/// A character that the set lacks becomes "?".
std::string encode(std::int32_t codePage, const vbs::String& text);

/// Adds the encoded text to `out`.
void append(std::string& out, std::int32_t codePage, const vbs::String& text);

}  // namespace quorvane::customary
