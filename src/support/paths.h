#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quorvane {

/// File paths as text. Both "/" and "\" count as separators on reading, since pages and requests
/// bring either; what is made here uses the system's own.
namespace paths {

inline constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

inline constexpr std::string_view kSeparators = "/\\";

inline bool isSeparator(char c) {
  return c == '/' || c == '\\';
}

/// Every separator turned into the system's own.
std::string native(std::string_view path);

/// The folder with one separator at its end; an empty folder becomes the separator alone.
std::string withSeparator(std::string folder);

/// `folder` and `name` with exactly one separator added between when neither brings one.
std::string join(std::string_view folder, std::string_view name);

/// `path` as it is when it begins at a root, a drive's or the present one, else below `base`.
std::string absolute(const std::string& path, std::string_view base);

/// The text after the last separator, or the whole text.
std::string_view fileNameOf(std::string_view path);

/// The text up to and including the last separator, or nothing.
std::string_view folderOf(std::string_view path);

/// The text from the last "." on, the dot included; empty without a dot. Folders are not told
/// apart from names: "/a.b/c" gives ".b/c".
std::string_view extensionOf(std::string_view path);

/// What lies below the folder `root` as an address names it, with "/" in front of each part; a path
/// that lies elsewhere as it is.
std::string asAddress(const std::string& path, const std::string& root);

}  // namespace paths

}  // namespace quorvane
