#include "platform/windows/wide_text.h"

#include <windows.h>

#include <algorithm>
#include <optional>

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

/// A character that looks like another one does not become it: a wide slash is no slash.
std::string narrowed(unsigned codePage, std::wstring_view text, bool* lost = nullptr) {
  if (text.empty()) return {};
  const bool isUtf8 = codePage == CP_UTF8;  // has all characters, and takes no such questions
  const DWORD flags = isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS;
  BOOL missing = FALSE;
  const int length = static_cast<int>(text.size());
  const int room = ::WideCharToMultiByte(codePage, flags, text.data(), length, nullptr, 0, nullptr,
                                         isUtf8 ? nullptr : &missing);
  std::string bytes(static_cast<std::size_t>(std::max(room, 0)), '\0');
  ::WideCharToMultiByte(codePage, flags, text.data(), length, bytes.data(), room, nullptr, nullptr);
  if (lost) *lost = missing != FALSE;
  return bytes;
}

bool isPlain(std::string_view bytes) {
  return std::none_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) != 0; });
}

bool isThere(const std::wstring& path) {
  return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Nothing where no part is the UTF-8 name of something.
std::optional<std::wstring> withUtf8Parts(std::string_view path) {
  std::wstring whole;
  bool isChanged = false;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("/\\"), path.size());
    const std::string_view part = path.substr(0, end);
    std::wstring name = wideOf(part);
    if (!isPlain(part) && !isThere(whole + name)) {
      const std::wstring other = widened(CP_UTF8, MB_ERR_INVALID_CHARS, part);
      if (!other.empty() && isThere(whole + other)) {
        name = other;
        isChanged = true;
      }
    }
    whole += name;
    if (end < path.size()) whole += L'\\';
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return isChanged ? std::optional(whole) : std::nullopt;
}

/// Its calls take separators of one kind only where a path is long, so there is one kind.
void useOneSeparator(std::wstring& path) {
  std::replace(path.begin(), path.end(), L'/', L'\\');
}

}  // namespace

std::wstring wideOf(std::string_view bytes) {
  return widened(::GetACP(), 0, bytes);
}

std::string narrowOf(std::wstring_view text) {
  return narrowed(::GetACP(), text);
}

std::wstring wideOfUtf8(std::string_view bytes) {
  return widened(CP_UTF8, 0, bytes);
}

std::string utf8Of(std::wstring_view text) {
  return narrowed(CP_UTF8, text);
}

std::wstring widePathOf(const std::string& path) {
  std::wstring wide = wideOf(path);
  if (!isPlain(path) && !isThere(wide)) wide = withUtf8Parts(path).value_or(wide);
  useOneSeparator(wide);
  return wide;
}

std::string pathOf(std::wstring_view path) {
  bool lost = false;
  std::string bytes = narrowed(::GetACP(), path, &lost);
  return lost ? utf8Of(path) : bytes;
}

}  // namespace quorvane
