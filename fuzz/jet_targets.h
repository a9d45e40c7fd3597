#pragma once

#include <string_view>

namespace quorvane {

/// Any bytes as the beginning of an Access file, and as what the program that reads such files
/// tells of one: an import fails, or makes a sound database. Ends the process otherwise.
void fuzzJet(std::string_view bytes);

/// Whether they are imported.
bool jetImports(std::string_view bytes);

}  // namespace quorvane
