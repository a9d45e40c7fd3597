#pragma once

#include <string>

#include "script/translation/mapped_page.h"

namespace quorvane::qvscript {

/// Whether the file is a page, by its extension.
bool isPage(const std::string& path);

/// The program that the server makes of a page, its includes in place. `path` is absolute.
MappedPage pageProgram(const std::string& path, std::string source);

/// The same, a line each: every line stands behind the number that an error page names it by, and
/// behind the file and line that it comes from. Of an .asp file it is the program of the customary
/// dialect, whose error pages name file and line.
std::string pageListing(const std::string& path, std::string source);

}  // namespace quorvane::qvscript
