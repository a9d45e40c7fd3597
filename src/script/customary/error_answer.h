#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/services.h"
#include "script/customary/page.h"
#include "script/customary/page_program.h"
#include "support/files.h"
#include "vbscript/machine/error_report.h"

namespace quorvane::customary {

/// The line that stands at a place, of its first thousand bytes, in a file of this code page or of
/// the one that its mark tells; empty when it can't be read.
vbs::String sourceLine(const Files& files, const Place& place, std::int32_t codePage);

/// What stopped a program; `place`, if it is known, in a file of this code page.
PageError pageError(const vbs::ErrorReport& report, const std::optional<Place>& place,
                    const Files& files, std::int32_t codePage);

/// All of it in one line, files below `root` named from there on.
std::string errorText(const PageError& error, const std::string& root);

/// The same as a line of the log.
void logError(const Services& services, const PageError& error);

/// What a client gets of a page that failed: with all there is to tell, files named as above, or
/// (null) that something went wrong and no more.
std::string errorHtml(const PageError& error, const std::string* root);

}  // namespace quorvane::customary
