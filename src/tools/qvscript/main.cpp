#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "components/ado/database_pool.h"
#include "components/script_host.h"
#include "platform/system.h"
#include "qvscript/check.h"
#include "qvscript/command_line.h"
#include "qvscript/page_program.h"
#include "qvscript/site_check.h"
#include "qvscript/source_file.h"
#include "qvscript/wscript_object.h"
#include "support/server_state.h"
#include "support/status_lines.h"
#include "vbscript/dumps/dumps.h"
#include "vbscript/engine.h"

namespace quorvane {

namespace {

using qvscript::absolutePath;
using qvscript::CommandLine;
using qvscript::SourceFile;
using qvscript::Task;

enum ExitCode { kSuccess = 0, kScriptError = 1, kUsageError = 2 };

void print(std::FILE* file, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), file);
}

int complain(const std::string& text) {
  print(stderr, "qvscript: " + text + "\n");
  return kUsageError;
}

int check(const CommandLine& command) {
  std::vector<std::string> files = command.arguments;
  files.insert(files.begin(), command.file);
  const qvscript::CheckResult result = qvscript::checkFiles(files, standardErrorIsTerminal());
  if (files.size() > 1) {
    const std::size_t good = files.size() - result.faulty - result.unread;
    print(stdout,
          std::to_string(good) + " of " + std::to_string(files.size()) + " files have no fault\n");
  }
  if (result.unread > 0) return kUsageError;
  return result.faulty > 0 ? kScriptError : kSuccess;
}

int checkSite(const std::string& folder, const Services& services) {
  const auto info = services.files.stat(absolutePath(folder));
  if (!info || !info->isFolder) return complain("there is no folder " + folder);
  const qvscript::SiteReport report = qvscript::checkSite(folder, services);
  print(stdout, report.text);
  return report.hasFailures ? kScriptError : kSuccess;
}

/// There is no server here whose status lines anybody would read.
class NoStatusLines final : public StatusLines {
 public:
  void LogLine(std::string_view) override {}
};

/// What components get when no server runs.
struct ToolServices {
  ToolServices(int argc, char** argv) : process(makeProcess(argc, argv)) {
    state.ScriptFolders = "*";
    state.ServerPort = 0;  // no server of this process that a script could ask by mistake
    state.AllowShell = true;
  }

  ServerState state;
  NoStatusLines log;
  std::unique_ptr<Clock> clock = makeClock();
  std::unique_ptr<Files> files = makeFiles();
  std::unique_ptr<Random> random = makeRandom();
  std::unique_ptr<Process> process;
  std::unique_ptr<SettingsStorage> settings = makeSettingsStorage(*files, settingsRoot());
  ado::DatabasePool databases{*clock, settings.get()};
  Services all{state,    log,     *clock,         *files,  *random,
               *process, nullptr, settings.get(), nullptr, &databases};
};

int run(const CommandLine& command, const std::string& source, const std::string& program,
        const Services& services) {
  constexpr std::int64_t kMemoryBytes = std::int64_t{8} << 30;
  ScriptHost host(services);
  vbs::ProgramCache cache;
  vbs::Limits limits;
  limits.time = command.timeLimit.value_or(std::chrono::hours(24 * 365));
  limits.memoryBytes = kMemoryBytes;

  const auto wscript = vbs::make<qvscript::WScriptObject>(
      host,
      qvscript::WScriptObject::Setting{absolutePath(command.file), program, command.arguments});
  std::optional<vbs::ErrorReport> error;
  {
    vbs::Engine engine(host, cache, limits);
    engine.addObject("WScript", *wscript, false);
    error = engine.run(source);
  }
  std::fflush(stdout);
  if (!error) return wscript->exitCode();
  print(stderr, qvscript::describe(command.file, *error));
  return kScriptError;
}

int perform(const CommandLine& command, const std::string& program, const Services& services) {
  if (command.task == Task::Help) {
    print(stdout, qvscript::kHelpText);
    return kSuccess;
  }
  if (command.task == Task::Check) return check(command);
  if (command.task == Task::CheckSite) return checkSite(command.file, services);
  SourceFile source = qvscript::readSource(command.file);
  if (!source.complaint.empty()) return complain(source.complaint);
  switch (command.task) {
    case Task::DumpTokens:
      print(stdout, vbs::dumpTokens(source.text));
      return kSuccess;
    case Task::DumpTree:
      print(stdout, vbs::dumpTree(source.text));
      return kSuccess;
    case Task::DumpBytecode:
      print(stdout, vbs::dumpBytecode(source.text));
      return kSuccess;
    case Task::DumpPage:
      print(stdout, qvscript::pageListing(absolutePath(command.file), std::move(source.text)));
      return kSuccess;
    default:
      return run(command, source.text, program, services);
  }
}

int run(int argc, char** argv) {
  const std::vector<std::string_view> words(argv + (argc > 0 ? 1 : 0), argv + argc);
  const auto parsed = qvscript::parseCommandLine(words);
  if (!parsed.complaint.empty()) {
    return complain(parsed.complaint + "\nTry: qvscript --help");
  }
  ToolServices services(argc, argv);
  services.state.Components = parsed.command.components;
  return perform(parsed.command, argc > 0 ? absolutePath(argv[0]) : std::string(), services.all);
}

}  // namespace

}  // namespace quorvane

int main(int argc, char** argv) {
  return quorvane::run(argc, argv);
}
