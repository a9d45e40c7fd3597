#pragma once

#include <string_view>

namespace quorvane {

/// Tokens, tree and their texts for any bytes. Ends the process when something is wrong.
void fuzzParse(std::string_view source);

/// Compiles and runs any bytes as a script under tight limits, twice in one engine.
void fuzzRun(std::string_view source);

}  // namespace quorvane
