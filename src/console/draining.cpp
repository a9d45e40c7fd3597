#include "console/draining.h"

#include <algorithm>
#include <utility>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kBetweenLooks = 100ms;
constexpr std::chrono::seconds kLongest = 24h;

}  // namespace

Draining::Draining(EventLoop& loop, Listeners& listeners, Slots& slots)
    : listeners_(listeners),
      slots_(slots),
      timer_(loop.makeTimer(kBetweenLooks, [this] { look(); })) {}

void Draining::start(std::chrono::seconds atMost, std::function<void()> done) {
  done_ = std::move(done);
  looksLeft_ = static_cast<int>(std::min(atMost, kLongest) / kBetweenLooks);
  listeners_.close();
  timer_->start();
}

void Draining::look() {
  const bool isIdle = closeIdle();
  if (!isIdle && --looksLeft_ > 0) return;
  timer_->stop();
  std::exchange(done_, nullptr)();
}

/// False when something is still under way.
bool Draining::closeIdle() {
  bool isIdle = true;
  for (int index = 0; index <= slots_.highest(); ++index) {
    const TcpSocket& socket = slots_.socket(index);
    if (socket.state() == SocketState::Closed) continue;
    const bool isBusy = socket.state() == SocketState::Connected &&
                        (socket.pendingBytes() > 0 || !slots_.record(index).pendingText.empty());
    isIdle &= !isBusy;
    if (!isBusy) slots_.close(index);
  }
  return isIdle;
}

}  // namespace quorvane
