#pragma once

#include <filesystem>
#include <system_error>

namespace quorvane {

/// Where this program's file lies.
inline std::filesystem::path programFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

}  // namespace quorvane
