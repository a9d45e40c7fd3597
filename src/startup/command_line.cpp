#include "startup/command_line.h"

#include "support/text.h"

namespace quorvane {

CommandLine::CommandLine(std::string_view text) : text_(lowerCase(text)) {}

}  // namespace quorvane
