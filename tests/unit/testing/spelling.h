#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "support/paths.h"

namespace quorvane {

/// Tests write paths from the root on, with "/" between their parts; where there are drives, they
/// mean those of this one.
inline constexpr std::string_view kDrive = paths::kSeparator == '/' ? "" : "C:";

/// A whole path that tests write, as this system spells it.
inline std::string localPath(std::string_view path) {
  return std::string(kDrive) + paths::native(path);
}

/// As tests write it, what has this system's paths in it.
inline std::string spelled(std::string text) {
  std::replace(text.begin(), text.end(), paths::kSeparator, '/');
  if (kDrive.empty()) return text;
  const std::string root = std::string(kDrive) + '/';
  for (auto at = text.find(root); at != text.npos; at = text.find(root)) {
    text.erase(at, kDrive.size());
  }
  return text;
}

}  // namespace quorvane
