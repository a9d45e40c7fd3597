#pragma once

#include <string>

namespace quorvane {

/// A variable of this process's environment, empty when it is not set.
std::string environmentText(const char* name);

/// `path` below the present folder unless it is absolute, without "." and ".." parts; as it is
/// where the system can't tell.
std::string wholePath(const std::string& path);

}  // namespace quorvane
