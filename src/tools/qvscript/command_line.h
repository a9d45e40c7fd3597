#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "support/server_state.h"

namespace quorvane::qvscript {

enum class Task { Run, Check, DumpTokens, DumpTree, DumpBytecode, DumpPage, CheckSite, Help };

struct CommandLine {
  Task task = Task::Run;
  std::string file;
  std::vector<std::string> arguments;             ///< for the script; with Check, more files
  std::optional<std::chrono::seconds> timeLimit;  ///< none: the script may run for ever
  ComponentSource components = ComponentSource::System;
};

/// What the words after the program's name ask for, or the complaint about them.
struct ParsedCommandLine {
  CommandLine command;
  std::string complaint;  ///< empty: all is well
};
ParsedCommandLine parseCommandLine(std::span<const std::string_view> words);

extern const std::string_view kHelpText;

}  // namespace quorvane::qvscript
