#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// The cases of a script file of this folder. A line `'=== name` begins a case; `'> text`, at the
/// end of a line or alone, is a line of output to come; `'! number text` says that the script stops
/// with that error on that very line (the text may be left out). A case with several of these runs
/// on behind each but the last, with all that the lines before have left.
struct LanguageCase {
  struct Error {
    std::int32_t number = 0;
    std::string text;
    std::uint32_t line = 0;
  };
  std::string name;
  struct Part {
    std::string source;  ///< lines above it are blank, so that its lines count as in the file
    std::optional<Error> error;
  };
  std::vector<Part> parts;
  std::vector<std::string> output;
};

std::vector<LanguageCase> parseLanguageCases(std::string_view file);

}  // namespace quorvane
