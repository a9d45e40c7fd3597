#pragma once

#include <string>

namespace quorvane::qvscript {

/// Whether the file is a page, by its extension.
bool isPage(const std::string& path);

/// The program that the server makes of a page, its includes in place. `path` is absolute.
std::string pageProgram(const std::string& path, std::string source);

/// The same, a line each: every line stands behind the number that an error page names it by.
std::string pageListing(const std::string& path, std::string source);

}  // namespace quorvane::qvscript
