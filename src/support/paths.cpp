#include "support/paths.h"

#include <algorithm>

namespace quorvane {

namespace paths {

std::string native(std::string_view path) {
  std::string result(path);
  for (char& c : result) {
    if (isSeparator(c)) c = kSeparator;
  }
  return result;
}

std::string withSeparator(std::string folder) {
  if (folder.empty() || !isSeparator(folder.back())) folder += kSeparator;
  return folder;
}

std::string join(std::string_view folder, std::string_view name) {
  std::string result;
  result.reserve(folder.size() + 1 + name.size());
  result += folder;
  const bool separated = (!folder.empty() && isSeparator(folder.back())) ||
                         (!name.empty() && isSeparator(name.front()));
  if (!separated) result += kSeparator;
  result += name;
  return result;
}

std::string absolute(const std::string& path, std::string_view base) {
  return std::filesystem::path(path).has_root_path() ? path : join(base, path);
}

std::string_view fileNameOf(std::string_view path) {
  const std::size_t last = path.find_last_of(kSeparators);
  return last == std::string_view::npos ? path : path.substr(last + 1);
}

std::string_view folderOf(std::string_view path) {
  const std::size_t last = path.find_last_of(kSeparators);
  return last == std::string_view::npos ? std::string_view() : path.substr(0, last + 1);
}

std::string_view extensionOf(std::string_view path) {
  const std::size_t dot = path.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : path.substr(dot);
}

std::string asAddress(const std::string& path, const std::string& root) {
  if (root.empty() || !path.starts_with(root)) return path;
  std::string address = path.substr(root.size());
  std::replace(address.begin(), address.end(), kSeparator, '/');
  return address;
}

}  // namespace paths

}  // namespace quorvane
