#include "platform/process.h"

#include <pwd.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <vector>

#include "platform/asio/loop_calls.h"
#include "platform/linux/child_process.h"
#include "platform/linux/program_folder.h"
#include "platform/system.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

class LinuxProcess final : public Process {
 public:
  LinuxProcess(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
      if (i > 1) commandLine_ += ' ';
      commandLine_ += argv[i];
    }
  }

  std::string commandLine() const override { return commandLine_; }

  std::string programFolder() const override { return quorvane::programFolder().string(); }

  std::string currentFolder() const override {
    std::error_code error;
    return fs::current_path(error).string();
  }

  bool setCurrentFolder(const std::string& folder) override { return ::chdir(folder.c_str()) == 0; }

  std::string systemFolder(SystemFolder which) const override {
    if (which == SystemFolder::System) return "/usr";
    if (which == SystemFolder::Libraries) return "/usr/lib";
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
    return error ? "/tmp" : folder.string();
  }

  bool userIsAdmin() const override { return ::geteuid() == 0; }

  bool isAskedToEnd() const override { return terminationIsNoted(); }

  /// Counts as the NT line: services, users with and without rights. The numbers are the kernel's.
  HostVersion hostVersion() const override {
    HostVersion version;
    utsname names{};
    if (::uname(&names) == 0) {
      std::sscanf(names.release, "%u.%u.%u", &version.major, &version.minor, &version.build);
    }
    return version;
  }

  std::string computerName() const override {
    utsname names{};
    return ::uname(&names) == 0 ? names.nodename : "";
  }

  std::string userName() const override {
    const passwd* user = ::getpwuid(::geteuid());
    return user ? user->pw_name : "";
  }

  std::vector<std::string> environment() const override {
    std::vector<std::string> all;
    for (char** variable = environ; variable && *variable; ++variable) all.emplace_back(*variable);
    return all;
  }

  std::unique_ptr<ChildProcess> start(const ChildCommand& command) override {
    return startChild(command);
  }
  bool startDetached(const ChildCommand& command) override {
    return quorvane::startDetached(command);
  }

 private:
  std::string commandLine_;
};

}  // namespace

bool standardErrorIsTerminal() {
  return ::isatty(STDERR_FILENO) != 0;
}

std::unique_ptr<Process> makeProcess(int argc, char** argv) {
  return std::make_unique<LinuxProcess>(argc, argv);
}

}  // namespace quorvane
