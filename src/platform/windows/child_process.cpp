#include "platform/windows/child_process.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <thread>
#include <vector>

#include "platform/windows/handle.h"
#include "platform/windows/wide_text.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kTurn{2};

/// A word as programs read it back: quoted where it holds blanks, backslashes doubled where they
/// stand before a quote.
std::wstring quoted(const std::wstring& word) {
  if (!word.empty() && word.find_first_of(L" \t\"") == word.npos) return word;
  std::wstring text = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : word) {
    if (c == L'"') text.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    text += c;
  }
  return text.append(backslashes, L'\\') + L'"';
}

std::wstring commandLineOf(const ChildCommand& command) {
  std::wstring line;
  for (const std::string& word : command.words) {
    if (!line.empty()) line += L' ';
    line += quoted(wideOf(word));
  }
  return line;
}

struct Pipe {
  SystemHandle reader;
  SystemHandle writer;

  bool open() {
    HANDLE ends[2] = {};
    if (!::CreatePipe(&ends[0], &ends[1], nullptr, 0)) return false;
    reader = SystemHandle(ends[0]);
    writer = SystemHandle(ends[1]);
    return true;
  }
};

void letInherit(const SystemHandle& handle) {
  ::SetHandleInformation(handle.get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
}

SystemHandle openNowhere() {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  return SystemHandle(::CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING,
                                    0, nullptr));
}

using Streams = std::array<HANDLE, 3>;

Streams allTo(const SystemHandle& place) {
  return {place.get(), place.get(), place.get()};
}

/// What the program and all that it starts are held in: it ends them with itself.
SystemHandle makeJob(const ChildCommand& command) {
  SystemHandle job(::CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  DWORD& flags = limits.BasicLimitInformation.LimitFlags;
  flags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  if (command.mostMemory != 0) {
    flags |= JOB_OBJECT_LIMIT_PROCESS_MEMORY;
    limits.ProcessMemoryLimit = static_cast<SIZE_T>(command.mostMemory);
  }
  if (command.mostSeconds != 0) {
    constexpr LONGLONG kTicksASecond = 10'000'000;
    flags |= JOB_OBJECT_LIMIT_PROCESS_TIME;
    limits.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart =
        kTicksASecond * command.mostSeconds;
  }
  ::SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return job;
}

struct Started {
  SystemHandle process;
  DWORD id = 0;
};

/// What a new process gets of the handles that this one has: those that are named, not whatever
/// else could be inherited, such as the server's sockets.
class InheritedHandles {
 public:
  explicit InheritedHandles(const Streams& streams) : handles_(streams) {
    std::sort(handles_.begin(), handles_.end());
    const auto end = std::unique(handles_.begin(), handles_.end());  // none may be named twice
    SIZE_T room = 0;
    ::InitializeProcThreadAttributeList(nullptr, 1, 0, &room);
    storage_.resize(room);
    isMade_ = ::InitializeProcThreadAttributeList(list(), 1, 0, &room) != 0;
    if (isMade_) {
      ::UpdateProcThreadAttribute(list(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(),
                                  static_cast<SIZE_T>(end - handles_.begin()) * sizeof(HANDLE),
                                  nullptr, nullptr);
    }
  }
  ~InheritedHandles() {
    if (isMade_) ::DeleteProcThreadAttributeList(list());
  }
  InheritedHandles(const InheritedHandles&) = delete;
  InheritedHandles& operator=(const InheritedHandles&) = delete;

  LPPROC_THREAD_ATTRIBUTE_LIST list() {
    return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(storage_.data());
  }

 private:
  Streams handles_;
  std::vector<std::byte> storage_;
  bool isMade_ = false;
};

/// Held until it is in `job`, if there is one, so that nothing that it starts escapes.
Started launch(const ChildCommand& command, const Streams& streams, HANDLE job) {
  if (command.words.empty()) return {};
  InheritedHandles inherited(streams);
  STARTUPINFOEXW start{};
  start.StartupInfo.cb = sizeof start;
  start.StartupInfo.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
  start.StartupInfo.wShowWindow = SW_HIDE;
  start.StartupInfo.hStdInput = streams[0];
  start.StartupInfo.hStdOutput = streams[1];
  start.StartupInfo.hStdError = streams[2];
  start.lpAttributeList = inherited.list();
  PROCESS_INFORMATION made{};
  std::wstring line = commandLineOf(command);
  constexpr DWORD kFlags =
      CREATE_SUSPENDED | CREATE_NO_WINDOW | CREATE_NEW_PROCESS_GROUP | EXTENDED_STARTUPINFO_PRESENT;
  if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, kFlags, nullptr, nullptr,
                        &start.StartupInfo, &made)) {
    return {};
  }
  if (job) ::AssignProcessToJobObject(job, made.hProcess);
  ::ResumeThread(made.hThread);
  ::CloseHandle(made.hThread);
  return {SystemHandle(made.hProcess), made.dwProcessId};
}

class WindowsChild final : public ChildProcess {
 public:
  WindowsChild(Started started, SystemHandle job, SystemHandle input, SystemHandle output,
               SystemHandle error)
      : started_(std::move(started)),
        job_(std::move(job)),
        input_(std::move(input)),
        outputs_{std::move(output), std::move(error)} {}

  std::int32_t id() const override { return static_cast<std::int32_t>(started_.id); }

  std::optional<std::int32_t> exitStatus(int atMost) override {
    if (::WaitForSingleObject(started_.process.get(), static_cast<DWORD>(atMost)) !=
        WAIT_OBJECT_0) {
      return std::nullopt;
    }
    DWORD status = 0;
    ::GetExitCodeProcess(started_.process.get(), &status);
    return static_cast<std::int32_t>(status);
  }

  /// A pipe of this system can't be waited for, only looked at.
  std::optional<std::size_t> read(Output from, char* out, std::size_t length, int atMost) override {
    const SystemHandle& pipe = outputs_[from == Output::Error ? 1 : 0];
    if (!pipe.isOpen()) return 0;
    const auto end = steady_clock::now() + milliseconds(atMost);
    for (;;) {
      DWORD waiting = 0;
      if (!::PeekNamedPipe(pipe.get(), nullptr, 0, nullptr, &waiting, nullptr)) return 0;
      if (waiting > 0) break;
      if (steady_clock::now() >= end) return std::nullopt;
      std::this_thread::sleep_for(kTurn);
    }
    DWORD count = 0;
    if (!::ReadFile(pipe.get(), out, static_cast<DWORD>(length), &count, nullptr)) return 0;
    return count;
  }

  std::optional<std::size_t> write(std::string_view bytes, int atMost) override {
    if (!input_.isOpen()) return std::nullopt;
    const auto end = steady_clock::now() + milliseconds(atMost);
    for (;;) {
      DWORD returnsAtOnce = PIPE_NOWAIT;
      ::SetNamedPipeHandleState(input_.get(), &returnsAtOnce, nullptr, nullptr);
      DWORD count = 0;
      const auto piece = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 4096));
      if (!::WriteFile(input_.get(), bytes.data(), piece, &count, nullptr)) return std::nullopt;
      if (count > 0 || steady_clock::now() >= end) return count;
      std::this_thread::sleep_for(kTurn);
    }
  }
  void closeInput() override { input_.close(); }

  /// The system has no way to ask.
  void terminate() override { ::TerminateJobObject(job_.get(), 1); }

 private:
  Started started_;
  SystemHandle job_;
  SystemHandle input_;
  std::array<SystemHandle, 2> outputs_;
};

}  // namespace

std::unique_ptr<ChildProcess> startChild(const ChildCommand& command) {
  Pipe input;
  Pipe output;
  Pipe error;
  const SystemHandle nowhere = openNowhere();
  Streams streams = allTo(nowhere);
  if (command.piped) {
    if (!input.open() || !output.open() || !error.open()) return nullptr;
    streams = {input.reader.get(), output.writer.get(), error.writer.get()};
    letInherit(input.reader);
    letInherit(output.writer);
    letInherit(error.writer);
  }
  SystemHandle job = makeJob(command);
  Started started = launch(command, streams, job.get());
  if (!started.process.isOpen()) return nullptr;
  return std::make_unique<WindowsChild>(std::move(started), std::move(job), std::move(input.writer),
                                        std::move(output.reader), std::move(error.reader));
}

bool startDetached(const ChildCommand& command) {
  const SystemHandle nowhere = openNowhere();
  return launch(command, allTo(nowhere), nullptr).process.isOpen();
}

}  // namespace quorvane
