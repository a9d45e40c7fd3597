#include "console/answer_turns.h"

#include <utility>

#include "platform/clock.h"

namespace quorvane {

AnswerTurns::AnswerTurns(const Clock& clock, EventLoop& loop, Slots& slots, Visitors& visitors,
                         Events events)
    : clock_(clock), loop_(loop), slots_(slots), visitors_(visitors), events_(std::move(events)) {}

bool AnswerTurns::isThere(const Client& client) const {
  if (!slots_.exists(client.slot) || slots_.client(client.slot) != client) return false;
  const TcpSocket& socket = slots_.socket(client.slot);
  return socket.state() == SocketState::Connected && !socket.isReset();
}

Clients::Turn AnswerTurns::turnOf(int index) {
  if (!isThere(inSlot(index))) return Turn::Never;
  if (inRound_ && index != called_) {
    waiting_.add(visitors_.lastAddressOf(index), inSlot(index));
    slots_.hold(index);
    return Turn::Later;
  }
  running_ = true;
  begun_ = clock_.steadyNow();
  return Turn::Now;
}

void AnswerTurns::over() {
  if (!std::exchange(running_, false)) return;
  spent_ += clock_.steadyNow() - begun_;
  if (spent_ > kRound && !inRound_) startRound();
}

void AnswerTurns::startRound() {
  inRound_ = true;
  loop_.post([this, alive = alive_] {
    if (*alive) round();
  });
}

void AnswerTurns::round() {
  const auto alive = alive_;
  loop_.runPending(std::chrono::milliseconds(0), nullptr);  // in which more come to wait
  if (!*alive) return;
  spent_ = {};
  while (!waiting_.empty() && spent_ <= kRound) {
    const Client next = waiting_.take();
    if (!slots_.exists(next.slot) || slots_.client(next.slot) != next) continue;
    slots_.release(next.slot);
    called_ = next.slot;
    events_.begin(next.slot);
    called_ = -1;
  }
  inRound_ = false;
  if (!waiting_.empty() || spent_ > kRound) startRound();
}

void AnswerTurns::answer(const Client& client, Response response) {
  if (!slots_.exists(client.slot) || slots_.client(client.slot) != client) return;
  slots_.release(client.slot);
  events_.answer(client.slot, std::move(response));
}

}  // namespace quorvane
