#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/files.h"
#include "tools/qvmpack_module.h"

namespace quorvane {

/// Starts a server on the module, with nothing else in its document root, and asks it for every
/// entry, in the entry's language. What is not answered as it should be, a sentence each. Pages run
/// as they would for a visitor, one request each.
std::vector<std::string> failedEntries(std::string_view bytes, const ModuleContents& contents,
                                       const Files& files);

}  // namespace quorvane
