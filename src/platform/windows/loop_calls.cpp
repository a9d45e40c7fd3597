#include "platform/asio/loop_calls.h"

#include <array>
#include <csignal>

namespace quorvane {

namespace {

using Handler = void (*)(int);

volatile std::sig_atomic_t terminationNoted = 0;
volatile Handler handlerBehind = SIG_DFL;

/// The system puts the usual handler back each time it calls one.
void note(int number) {
  terminationNoted = 1;
  std::signal(number, note);
  const Handler behind = handlerBehind;
  if (behind != SIG_DFL && behind != SIG_IGN) behind(number);
}

}  // namespace

/// There is neither a limit to raise nor a signal to turn off: both show as errors of calls.
void prepareProcessForLoop() {}

/// A loop of this system learns that it is stopped from an event, which stands behind those that
/// are there already.
void runUntilStopped(asio::io_context& io) {
  while (!io.stopped()) io.run_one();
}

std::span<const int> terminationSignals() {
  static constexpr std::array kSignals{SIGTERM, SIGINT, SIGBREAK};
  return kSignals;
}

void noteTermination() {
  terminationNoted = 0;
  for (const int number : terminationSignals()) {
    const Handler present = std::signal(number, note);
    if (present != note && present != SIG_ERR) handlerBehind = present;
  }
}

bool terminationIsNoted() {
  return terminationNoted != 0;
}

/// The system has none.
std::vector<NoticeSignal> noticeSignals() {
  return {};
}

}  // namespace quorvane
