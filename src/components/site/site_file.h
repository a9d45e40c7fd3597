#pragma once

#include <string>

#include "platform/services.h"
#include "vbscript/values/value.h"

namespace quorvane {

/// The text of a file of the site that a page names as a client would: from the document root on,
/// or from the page's own folder. Error 53 for one that is not there, 70 for one that scripts may
/// not read.
std::string readSiteFile(const Services& services, const vbs::Value& path);

/// The full path of such a file, there or not.
std::string sitePath(const Services& services, std::string_view path);

}  // namespace quorvane
