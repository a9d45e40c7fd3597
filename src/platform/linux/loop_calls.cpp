#include "platform/asio/loop_calls.h"

#include <sys/resource.h>

#include <array>
#include <csignal>

namespace quorvane {

namespace {

/// Each connection needs a descriptor, and the customary limit is made for programs that open a
/// handful of files.
void raiseDescriptorLimit() {
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
  limit.rlim_cur = limit.rlim_max;
  ::setrlimit(RLIMIT_NOFILE, &limit);
}

/// As nohup(1) starts a program.
bool isIgnored(int number) {
  struct sigaction present {};
  return ::sigaction(number, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

using Handler = void (*)(int);

volatile std::sig_atomic_t terminationNoted = 0;
volatile Handler handlerBehind = SIG_DFL;  ///< the same for all signals of termination

void note(int number) {
  terminationNoted = 1;
  handlerBehind(number);
}

}  // namespace

void prepareProcessForLoop() {
  raiseDescriptorLimit();
  // A client that has gone away shows as an error of the send that finds out.
  std::signal(SIGPIPE, SIG_IGN);
  // And a file that reaches the size the system allows, as one of the write.
  std::signal(SIGXFSZ, SIG_IGN);
}

void runUntilStopped(asio::io_context& io) {
  io.run();
}

std::span<const int> terminationSignals() {
  static constexpr std::array kSignals{SIGTERM, SIGINT, SIGQUIT};
  return kSignals;
}

void noteTermination() {
  terminationNoted = 0;
  for (const int number : terminationSignals()) {
    struct sigaction action {};
    ::sigaction(number, nullptr, &action);
    if (action.sa_handler == note) continue;
    handlerBehind = action.sa_handler;
    action.sa_handler = note;
    ::sigaction(number, &action, nullptr);
  }
}

bool terminationIsNoted() {
  return terminationNoted != 0;
}

std::vector<NoticeSignal> noticeSignals() {
  using Notice = EventLoop::Notice;
  std::vector<NoticeSignal> signals{{SIGUSR1, Notice::NewLog}, {SIGUSR2, Notice::NewLog}};
  if (!isIgnored(SIGHUP)) signals.push_back({SIGHUP, Notice::HangUp});
  return signals;
}

}  // namespace quorvane
