#include "platform/linux/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

namespace quorvane {

namespace {

class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { close(); }
  void close() {
    if (number_ >= 0) ::close(std::exchange(number_, -1));
  }
  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }

 private:
  int number_;
};

struct Pipe {
  Descriptor reader;
  Descriptor writer;

  bool open() {
    int ends[2];
    return ::pipe2(ends, O_CLOEXEC) == 0 && take(ends);
  }
  /// As sockets, whose writer may be told to get no signal when the reader is gone.
  bool openWithoutSignal() {
    int ends[2];
    return ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) == 0 && take(ends);
  }

 private:
  bool take(const int (&ends)[2]) {
    reader = Descriptor(ends[0]);
    writer = Descriptor(ends[1]);
    return true;
  }
};

bool isReady(int descriptor, short events, int milliseconds) {
  pollfd wait{descriptor, events, 0};
  return ::poll(&wait, 1, milliseconds) > 0;
}

/// What the child needs, made before there is a child: between fork and exec nothing may be
/// allocated.
struct Launch {
  std::vector<char*> words;
  std::array<int, 3> streams{-1, -1, -1};  ///< -1: the one that leads nowhere
  int nowhere = -1;
  int report = -1;  ///< takes the error that keeps the program from starting
  rlim_t memory;
  rlim_t seconds;

  explicit Launch(const ChildCommand& command)
      : memory(command.mostMemory), seconds(command.mostSeconds) {
    for (const std::string& word : command.words) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
  }
};

/// The signals that this process takes in its own way are the program's own again.
void resetSignals() {
  sigset_t none;
  sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  for (const int number : {SIGPIPE, SIGINT, SIGTERM, SIGQUIT, SIGHUP, SIGUSR1, SIGUSR2, SIGCHLD}) {
    ::signal(number, SIG_DFL);
  }
}

void bound(int resource, rlim_t most) {
  const rlimit limit{most, most};
  ::setrlimit(static_cast<__rlimit_resource_t>(resource), &limit);
}

/// What a bounded program leaves when it fails is of no use to anybody.
void setBounds(const Launch& launch) {
  if (launch.memory != 0) bound(RLIMIT_AS, launch.memory);
  if (launch.seconds != 0) bound(RLIMIT_CPU, launch.seconds);
  if (launch.memory != 0 || launch.seconds != 0) bound(RLIMIT_CORE, 0);
}

[[noreturn]] void becomeProgram(const Launch& launch) {
  resetSignals();
  setBounds(launch);
  for (int i = 0; i < 3; ++i) ::dup2(launch.streams[i] < 0 ? launch.nowhere : launch.streams[i], i);
  ::execvp(launch.words.front(), launch.words.data());
  const int error = errno;
  (void)!::write(launch.report, &error, sizeof error);
  ::_exit(127);
}

/// Whether the program runs: its pipe is closed by a start and holds an error otherwise.
bool hasStarted(int report) {
  int error = 0;
  ssize_t count = 0;
  do {
    count = ::read(report, &error, sizeof error);
  } while (count < 0 && errno == EINTR);
  return count == 0;
}

void reap(pid_t id) {
  while (::waitpid(id, nullptr, 0) < 0 && errno == EINTR) {
  }
}

int statusOf(int status) {
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

class LinuxChild final : public ChildProcess {
 public:
  LinuxChild(pid_t id, Descriptor input, Descriptor output, Descriptor error)
      : id_(id), input_(std::move(input)), outputs_{std::move(output), std::move(error)} {}
  LinuxChild(const LinuxChild&) = delete;
  LinuxChild& operator=(const LinuxChild&) = delete;

  ~LinuxChild() override {
    if (status_) return;
    ::kill(-id_, SIGKILL);
    reap(id_);
  }

  std::int32_t id() const override { return id_; }

  std::optional<std::int32_t> exitStatus(int milliseconds) override {
    constexpr std::chrono::milliseconds kTurn{2};
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;) {
      int status = 0;
      if (!status_ && ::waitpid(id_, &status, WNOHANG) == id_) status_ = statusOf(status);
      if (status_ || std::chrono::steady_clock::now() >= end) return status_;
      std::this_thread::sleep_for(kTurn);
    }
  }

  std::optional<std::size_t> read(Output from, char* out, std::size_t length,
                                  int milliseconds) override {
    const Descriptor& descriptor = outputs_[from == Output::Error ? 1 : 0];
    if (!descriptor.isOpen()) return 0;
    if (!isReady(descriptor.number(), POLLIN, milliseconds)) return std::nullopt;
    const ssize_t count = ::read(descriptor.number(), out, length);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) return std::nullopt;
    return count > 0 ? static_cast<std::size_t>(count) : 0;
  }

  std::optional<std::size_t> write(std::string_view bytes, int milliseconds) override {
    if (!input_.isOpen()) return std::nullopt;
    if (!isReady(input_.number(), POLLOUT, milliseconds)) return 0;
    const ssize_t count =
        ::send(input_.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) return 0;
    if (count < 0) return std::nullopt;
    return static_cast<std::size_t>(count);
  }
  void closeInput() override { input_.close(); }

  void terminate() override {
    if (!status_) ::kill(-id_, SIGTERM);
  }

 private:
  pid_t id_;
  Descriptor input_;
  std::array<Descriptor, 2> outputs_;
  std::optional<std::int32_t> status_;
};

Descriptor openNowhere() {
  return Descriptor(::open("/dev/null", O_RDWR | O_CLOEXEC));
}

}  // namespace

std::unique_ptr<ChildProcess> startChild(const ChildCommand& command) {
  Pipe input;
  Pipe output;
  Pipe error;
  Pipe report;
  const Descriptor nowhere = openNowhere();
  if (command.words.empty() || !nowhere.isOpen() || !report.open()) return nullptr;
  if (command.piped && (!input.openWithoutSignal() || !output.open() || !error.open()))
    return nullptr;
  Launch launch(command);
  launch.streams = {input.reader.number(), output.writer.number(), error.writer.number()};
  launch.nowhere = nowhere.number();
  launch.report = report.writer.number();

  const pid_t id = ::fork();
  if (id < 0) return nullptr;
  if (id == 0) {
    ::setpgid(0, 0);
    becomeProgram(launch);
  }
  ::setpgid(id, id);
  report.writer.close();
  if (!hasStarted(report.reader.number())) {
    reap(id);
    return nullptr;
  }
  return std::make_unique<LinuxChild>(id, std::move(input.writer), std::move(output.reader),
                                      std::move(error.reader));
}

/// The process between hands the program over to the system, which then reaps it.
bool startDetached(const ChildCommand& command) {
  Pipe report;
  const Descriptor nowhere = openNowhere();
  if (command.words.empty() || !nowhere.isOpen() || !report.open()) return false;
  Launch launch(command);
  launch.nowhere = nowhere.number();
  launch.report = report.writer.number();

  const pid_t between = ::fork();
  if (between < 0) return false;
  if (between == 0) {
    ::setsid();
    const pid_t program = ::fork();
    if (program == 0) becomeProgram(launch);
    if (program < 0) (void)!::write(launch.report, &program, sizeof program);
    ::_exit(0);
  }
  report.writer.close();
  reap(between);
  return hasStarted(report.reader.number());
}

}  // namespace quorvane
