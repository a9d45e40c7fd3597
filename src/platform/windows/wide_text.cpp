#include "platform/windows/wide_text.h"

#include <windows.h>

#include <algorithm>

namespace quorvane {

namespace {

std::wstring widened(unsigned codePage, unsigned long flags, std::string_view bytes) {
  std::wstring text(bytes.size(), L'\0');  // no character has fewer bytes than units
  const int length = static_cast<int>(bytes.size());
  const int count = length == 0 ? 0
                                : ::MultiByteToWideChar(codePage, flags, bytes.data(), length,
                                                        text.data(), length);
  text.resize(static_cast<std::size_t>(std::max(count, 0)));
  return text;
}

std::string narrowed(unsigned codePage, std::wstring_view text, BOOL* lost) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  const int room =
      ::WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, lost);
  std::string bytes(static_cast<std::size_t>(std::max(room, 0)), '\0');
  ::WideCharToMultiByte(codePage, 0, text.data(), length, bytes.data(), room, nullptr, nullptr);
  return bytes;
}

bool isPlain(std::string_view bytes) {
  return std::none_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) != 0; });
}

/// Its calls take separators of one kind only where a path is long, so there is one kind.
void useOneSeparator(std::wstring& path) {
  std::replace(path.begin(), path.end(), L'/', L'\\');
}

}  // namespace

std::wstring wideOf(std::string_view bytes) {
  return widened(CP_ACP, 0, bytes);
}

std::string narrowOf(std::wstring_view text) {
  return narrowed(CP_ACP, text, nullptr);
}

std::wstring wideOfUtf8(std::string_view bytes) {
  return widened(CP_UTF8, 0, bytes);
}

std::string utf8Of(std::wstring_view text) {
  return narrowed(CP_UTF8, text, nullptr);
}

std::wstring widePathOf(const std::string& path) {
  std::wstring wide = wideOf(path);
  if (!isPlain(path) && ::GetFileAttributesW(wide.c_str()) == INVALID_FILE_ATTRIBUTES) {
    std::wstring other = widened(CP_UTF8, MB_ERR_INVALID_CHARS, path);
    const bool isThere =
        !other.empty() && ::GetFileAttributesW(other.c_str()) != INVALID_FILE_ATTRIBUTES;
    if (isThere) wide = std::move(other);
  }
  useOneSeparator(wide);
  return wide;
}

std::string pathOf(std::wstring_view path) {
  BOOL lost = FALSE;
  std::string bytes = narrowed(CP_ACP, path, &lost);
  return lost ? utf8Of(path) : bytes;
}

}  // namespace quorvane
