#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "support/files.h"
#include "tools/exit_code.h"

namespace quorvane {

/// Encodes, decodes and checks language files. `arguments` are those after the program's name.
ExitCode runLanguageTool(const std::vector<std::string>& arguments, const Files& files,
                         std::ostream& out, std::ostream& err);

}  // namespace quorvane
