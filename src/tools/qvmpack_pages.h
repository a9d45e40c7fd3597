#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/files.h"
#include "tools/qvmpack_module.h"

namespace quorvane {

/// Pages in modules. The server takes a page's text from the module, and whatever else the page
/// asks for from files.

/// Puts the includes of a page in their place, by the server's own rules; `root` is the folder that
/// is packed. Of files that are no pages, and of pages without includes, nothing changes. A
/// sentence when that can't be done; the page is then as it was.
std::optional<std::string> expandPage(ModuleFile& file, const std::string& root,
                                      const Files& files);

/// What a file's content asks of the server that a module can't give, a sentence each.
std::vector<std::string> needsBesideTheModule(const ModuleFile& file);

}  // namespace quorvane
