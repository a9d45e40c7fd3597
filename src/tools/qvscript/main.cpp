#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "qvscript/command_line.h"
#include "qvscript/console_host.h"
#include "qvscript/page_program.h"
#include "qvscript/wscript_object.h"
#include "vbscript/dumps/dumps.h"
#include "vbscript/engine.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;
using qvscript::CommandLine;
using qvscript::Task;

enum ExitCode { kSuccess = 0, kScriptError = 1, kUsageError = 2 };

void print(std::FILE* file, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), file);
}

int complain(const std::string& text) {
  print(stderr, "qvscript: " + text + "\n");
  return kUsageError;
}

struct SourceFile {
  std::string text;
  std::string complaint;  ///< empty: the file was read
};

SourceFile readSource(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) return {{}, "there is no file " + path};
  if (fs::is_directory(status)) return {{}, path + " is a folder"};
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return {{}, path + " cannot be read"};
  SourceFile source{{std::istreambuf_iterator<char>(stream), {}}, {}};
  if (stream.bad()) source.complaint = path + " cannot be read";
  return source;
}

std::string describe(const std::string& file, const vbs::ErrorReport& error) {
  const std::string kind = !error.source.empty()  ? error.source
                           : error.isCompileError ? "compilation error"
                                                  : "runtime error";
  return file + '(' + std::to_string(error.line) + ", " + std::to_string(error.column) + ") " +
         kind + ": " + error.description + '\n';
}

int check(const CommandLine& command, const std::string& source) {
  vbs::ProgramCache cache;
  vbs::ErrorReport error;
  if (cache.get(source, error)) return kSuccess;
  print(stderr, describe(command.file, error));
  return kScriptError;
}

std::string absolutePath(const std::string& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  return error ? path : absolute.lexically_normal().string();
}

int run(const CommandLine& command, const std::string& source, const std::string& program) {
  constexpr std::int64_t kMemoryBytes = std::int64_t{8} << 30;
  qvscript::ConsoleHost host;
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
  print(stderr, describe(command.file, *error));
  return kScriptError;
}

int perform(const CommandLine& command, const std::string& program) {
  if (command.task == Task::Help) {
    print(stdout, qvscript::kHelpText);
    return kSuccess;
  }
  SourceFile source = readSource(command.file);
  if (!source.complaint.empty()) return complain(source.complaint);
  switch (command.task) {
    case Task::Check:
      return check(command, source.text);
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
      print(stdout, qvscript::pageProgram(absolutePath(command.file), std::move(source.text)));
      return kSuccess;
    default:
      return run(command, source.text, program);
  }
}

int run(int argc, char** argv) {
  const std::vector<std::string_view> words(argv + (argc > 0 ? 1 : 0), argv + argc);
  const auto parsed = qvscript::parseCommandLine(words);
  if (!parsed.complaint.empty()) {
    return complain(parsed.complaint + "\nTry: qvscript --help");
  }
  return perform(parsed.command, argc > 0 ? absolutePath(argv[0]) : std::string());
}

}  // namespace

}  // namespace quorvane

int main(int argc, char** argv) {
  return quorvane::run(argc, argv);
}
