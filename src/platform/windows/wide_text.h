#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Bytes of the system's code page as the texts that its calls take. Bytes that are no characters
/// of it become its replacement.
std::wstring wideOf(std::string_view bytes);

/// Characters that the code page lacks become "?".
std::string narrowOf(std::wstring_view text);

std::wstring wideOfUtf8(std::string_view bytes);
std::string utf8Of(std::wstring_view text);

/// What a path's bytes stand for: each part is a name in the system's code page, unless nothing has
/// that name and the bytes are UTF-8 for something that has.
std::wstring widePathOf(const std::string& path);

/// In the system's code page, or in UTF-8 where that lacks a character.
std::string pathOf(std::wstring_view path);

}  // namespace quorvane
