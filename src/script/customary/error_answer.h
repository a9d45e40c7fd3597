#pragma once

#include <cstdint>
#include <string>

#include "script/customary/page.h"
#include "script/customary/page_program.h"
#include "support/files.h"

namespace quorvane::customary {

/// The line that stands at a place, of its first thousand bytes, in a file of this code page or of
/// the one that its mark tells; empty when it can't be read.
vbs::String sourceLine(const Files& files, const Place& place, std::int32_t codePage);

/// All of it in one line, files below `root` named from there on.
std::string errorText(const PageError& error, const std::string& root);

/// What a client gets of a page that failed: with all there is to tell, files named as above, or
/// (null) that something went wrong and no more.
std::string errorHtml(const PageError& error, const std::string* root);

}  // namespace quorvane::customary
