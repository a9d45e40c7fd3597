#pragma once

#include <string>

namespace quorvane::qvscript {

/// Whether the file is a page, by its extension.
bool isPage(const std::string& path);

/// The program that the server makes of a page, its includes in place. `path` is absolute.
std::string pageProgram(const std::string& path, std::string source);

/// The same, a line each: every line stands behind the number that an error page names it by. Of an
/// .asp file it is the program of the customary dialect, behind the file and line that error pages
/// name.
std::string pageListing(const std::string& path, std::string source);

}  // namespace quorvane::qvscript
