#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "support/files.h"
#include "tools/exit_code.h"

namespace quorvane {

/// Packs folders into resource modules, and lists, verifies and unpacks these. `arguments` are
/// those after the program's name.
ExitCode runModuleTool(const std::vector<std::string>& arguments, const Files& files,
                       std::ostream& out, std::ostream& err);

}  // namespace quorvane
