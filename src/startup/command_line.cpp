#include "startup/command_line.h"

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kName = "Quorvane Server ";
constexpr std::string_view kHelp =
    " - serves a folder of files and script pages\n"
    "\n"
    "  (no switch)   serve the folder Server/Scripts beside the program\n"
    "  /debug        show the console in the terminal\n"
    "  /idle         start without listening\n"
    "  /noqvm        serve loose files only, no resource modules\n"
    "  /logheaders   write every request's raw text to the log\n"
    "  /devmode      take the base folder from the setting MainPath\n"
    "  /install      install the service; /uninstall removes it\n"
    "  /start        start the installed service; /stop stops it\n"
    "  --version     say which version this is\n"
    "\n"
    "Exit status: 0 done or ended as asked; 69 not done by the service manager, or there is none;\n"
    "75 another instance runs with the same settings; 77 no right to install or uninstall.\n";

}  // namespace

CommandLine::CommandLine(std::string_view text) : text_(lowerCase(text)) {}

std::optional<std::string> answerAbout(const CommandLine& line, std::string_view version) {
  const std::string title = std::string(kName).append(version);
  if (line.text() == "--version") return title + "\n";
  if (line.text() == "--help" || line.text() == "/?") return title + std::string(kHelp);
  return std::nullopt;
}

}  // namespace quorvane
