#include "platform/process.h"

#include <windows.h>
// After it.
#include <lmcons.h>
#include <shlobj.h>

#include <array>
#include <string>
#include <vector>

#include "platform/asio/loop_calls.h"
#include "platform/system.h"
#include "platform/windows/child_process.h"
#include "platform/windows/program_file.h"
#include "platform/windows/wide_text.h"

namespace quorvane {

namespace {

/// The longest path that the system has.
constexpr DWORD kLongestPath = 32768;

/// What a call of the kind gives that fills a buffer and returns a length.
template <typename Call>
std::wstring filledBy(Call call) {
  std::wstring text(kLongestPath, L'\0');
  text.resize(call(text.data(), kLongestPath));
  return text;
}

std::string withoutEndSeparator(std::wstring path) {
  const bool isDrive = path.size() == 3 && path[1] == L':';
  while (!path.empty() && path.back() == L'\\' && !isDrive) path.pop_back();
  return pathOf(path);
}

class WindowsProcess final : public Process {
 public:
  WindowsProcess(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
      if (i > 1) commandLine_ += ' ';
      commandLine_ += argv[i];
    }
  }

  std::string commandLine() const override { return commandLine_; }

  std::string programFolder() const override {
    const std::wstring file = programFile();
    return withoutEndSeparator(file.substr(0, file.find_last_of(L'\\') + 1));
  }

  std::string currentFolder() const override {
    return withoutEndSeparator(
        filledBy([](wchar_t* out, DWORD room) { return ::GetCurrentDirectoryW(room, out); }));
  }

  bool setCurrentFolder(const std::string& folder) override {
    return ::SetCurrentDirectoryW(widePathOf(folder).c_str()) != 0;
  }

  std::string systemFolder(SystemFolder which) const override {
    return withoutEndSeparator(filledBy([which](wchar_t* out, DWORD room) -> DWORD {
      if (which == SystemFolder::System) return ::GetWindowsDirectoryW(out, room);
      if (which == SystemFolder::Libraries) return ::GetSystemDirectoryW(out, room);
      return ::GetTempPathW(room, out);
    }));
  }

  bool userIsAdmin() const override { return ::IsUserAnAdmin() != 0; }

  bool isAskedToEnd() const override { return terminationIsNoted(); }

  HostVersion hostVersion() const override {
    HostVersion version;
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof info;
    if (::GetVersionExA(&info)) {
      version.platform = info.dwPlatformId;
      version.major = info.dwMajorVersion;
      version.minor = info.dwMinorVersion;
      version.build = info.dwBuildNumber;
      version.servicePack.assign(info.szCSDVersion, sizeof info.szCSDVersion);
    }
    return version;
  }

  std::string computerName() const override {
    std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
    DWORD length = name.size();
    return ::GetComputerNameW(name.data(), &length) ? narrowOf({name.data(), length}) : "";
  }

  std::string userName() const override {
    std::array<wchar_t, UNLEN + 1> name{};
    DWORD length = name.size();
    const bool known = ::GetUserNameW(name.data(), &length) && length > 0;
    return known ? narrowOf({name.data(), length - 1}) : "";
  }

  /// Without the drives' current folders, whose names begin with "=".
  std::vector<std::string> environment() const override {
    std::vector<std::string> all;
    wchar_t* const block = ::GetEnvironmentStringsW();
    for (const wchar_t* next = block; next && *next;) {
      const std::wstring_view variable = next;
      if (variable.front() != L'=') all.push_back(narrowOf(variable));
      next += variable.size() + 1;
    }
    if (block) ::FreeEnvironmentStringsW(block);
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

std::wstring programFile() {
  return filledBy(
      [](wchar_t* out, DWORD room) { return ::GetModuleFileNameW(nullptr, out, room); });
}

std::unique_ptr<Process> makeProcess(int argc, char** argv) {
  return std::make_unique<WindowsProcess>(argc, argv);
}

}  // namespace quorvane
