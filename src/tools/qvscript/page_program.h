#pragma once

#include <string>

namespace quorvane::qvscript {

/// The program that the server makes of a page, its includes in place, a line each. Every line
/// stands behind the number that an error page names it by. `path` is absolute.
std::string pageProgram(const std::string& path, std::string source);

}  // namespace quorvane::qvscript
