#pragma once

#include <cstdint>

#include "vbscript/values/string.h"

namespace quorvane::ado {

/// Whether a text is like a pattern: "%" any characters, "_" one, "[a-z]" one of a set, "[^a-z]" or
/// "[!a-z]" one that is not; letter case does not matter. A pattern without "%" and "_" may have
/// "*" and "?" for them. The character behind `escape` (0: none) stands for itself.
bool isLike(const vbs::String& text, const vbs::String& pattern, char16_t escape = 0);

/// The place, from 1, at which the part of the text begins that is like the pattern without its
/// "%" at both ends; 0 when there is none.
std::int32_t placeLike(const vbs::String& text, const vbs::String& pattern);

}  // namespace quorvane::ado
