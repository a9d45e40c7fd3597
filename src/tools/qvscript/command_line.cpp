#include "qvscript/command_line.h"

#include "support/text.h"

#include "components/components.h"

namespace quorvane::qvscript {

namespace {

struct Option {
  std::string_view word;
  Task task;
};

constexpr Option kOptions[] = {
    {"--check", Task::Check},        {"--dump-tokens", Task::DumpTokens},
    {"--dump-tree", Task::DumpTree}, {"--dump-bytecode", Task::DumpBytecode},
    {"--dump-page", Task::DumpPage}, {"--check-site", Task::CheckSite},
    {"--help", Task::Help},
};
constexpr std::string_view kTimeLimit = "--time-limit=";
constexpr std::string_view kComponents = "--components=";

std::optional<std::chrono::seconds> parseSeconds(std::string_view text) {
  const auto seconds = wholeNumber<int>(text);
  if (!seconds || *seconds <= 0) return {};
  return std::chrono::seconds(*seconds);
}

/// False when there is no such option.
bool applyOption(std::string_view word, CommandLine& command) {
  if (word.starts_with(kTimeLimit)) {
    command.timeLimit = parseSeconds(word.substr(kTimeLimit.size()));
    return command.timeLimit.has_value();
  }
  if (word.starts_with(kComponents)) {
    const auto source = componentSourceOf(word.substr(kComponents.size()));
    command.components = source.value_or(command.components);
    return source.has_value();
  }
  for (const Option& option : kOptions) {
    if (option.word != word) continue;
    command.task = option.task;
    return true;
  }
  return false;
}

}  // namespace

const std::string_view kHelpText =
    "usage: qvscript [options] file.vbs [arguments]\n"
    "       qvscript --check files\n"
    "       qvscript --check-site folder\n"
    "\n"
    "Runs a VBScript file. The script reads its arguments in WScript.Arguments and\n"
    "writes with WScript.Echo and WScript.StdOut.\n"
    "\n"
    "options, before the file:\n"
    "  --check             only compile scripts, and pages (.qvs) as the server does, and\n"
    "                      report the first fault of each\n"
    "  --check-site        look at every page below a document root: what would fail or\n"
    "                      differ in each dialect, and which setting fits\n"
    "  --dump-tokens       show the tokens of the script\n"
    "  --dump-tree         show how the script is understood\n"
    "  --dump-bytecode     show what the script is compiled to\n"
    "  --dump-page         show what a page becomes, under the line numbers of\n"
    "                      the server's error pages\n"
    "  --time-limit=N      stop the script after N seconds; without it there is no limit\n"
    "  --components=WHOSE  what CreateObject makes first: what the system has (system),\n"
    "                      or what this program has (own); or nothing at all (none)\n"
    "  --help              show this text\n"
    "  --                  the next word is the file, whatever it looks like\n"
    "\n"
    "An error is reported on standard error as\n"
    "  file(line, column) kind: text\n"
    "\n"
    "exit code: 0, or what the script gave to WScript.Quit; 1 after an error in the\n"
    "script; 2 when the command line or the file is at fault\n";

ParsedCommandLine parseCommandLine(std::span<const std::string_view> words) {
  ParsedCommandLine parsed;
  CommandLine& command = parsed.command;
  std::size_t at = 0;
  for (; at < words.size() && words[at].starts_with("-"); ++at) {
    if (words[at] == "--") {
      ++at;
      break;
    }
    if (!applyOption(words[at], command)) {
      parsed.complaint = "unknown option " + std::string(words[at]);
      return parsed;
    }
    if (command.task == Task::Help) return parsed;
  }
  if (at == words.size()) {
    parsed.complaint = "no script file given";
    return parsed;
  }
  command.file = words[at];
  for (const std::string_view word : words.subspan(at + 1)) command.arguments.emplace_back(word);
  return parsed;
}

}  // namespace quorvane::qvscript
