#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quorvane::qvscript {

/// How a list of files stood up to the compiler.
struct CheckResult {
  std::size_t faulty = 0;
  std::size_t unread = 0;
};

/// Compiles each file, pages as the server makes programs of them, and tells each fault on standard
/// error. With `showsProgress` a line there tells how far a long list has come.
CheckResult checkFiles(const std::vector<std::string>& files, bool showsProgress);

}  // namespace quorvane::qvscript
