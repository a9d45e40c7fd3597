#include "console/slot_watch.h"

#include <chrono>
#include <utility>

namespace quorvane {

SlotWatch::SlotWatch(const ServerState& state, EventLoop& loop, Slots& slots,
                     CloseSaying closeSaying)
    : state_(state),
      slots_(slots),
      closeSaying_(std::move(closeSaying)),
      timer_(loop.makeTimer(std::chrono::seconds(1), [this] { tick(); })) {}

void SlotWatch::begin() {
  if (!timer_->enabled()) timer_->start();
}

void SlotWatch::tick() {
  ++now_;
  seen_.resize(static_cast<std::size_t>(slots_.highest()) + 1);
  bool anybody = false;
  for (int index = 0; index <= slots_.highest(); ++index) {
    if (slots_.socket(index).state() == SocketState::Closed) continue;
    anybody = true;
    Seen& seen = seen_[static_cast<std::size_t>(index)];
    const std::uint64_t connection = slots_.client(index).connection;
    const Sight sight = look(index);
    if (connection != seen.connection || sight != seen.sight) seen = {connection, sight, now_};
    const std::uint32_t limit = patience(sight.phase);
    if (limit > 0 && now_ - seen.since >= limit) end(index, sight.phase);
  }
  if (!anybody) timer_->stop();
}

void SlotWatch::end(int index, Phase phase) {
  const bool hasBegun = !slots_.record(index).pendingText.empty();
  const bool isLate = hasBegun && (phase == Phase::Head || phase == Phase::Body);
  if (!isLate || !closeSaying_(index)) slots_.abort(index);
}

SlotWatch::Sight SlotWatch::look(int index) {
  const TcpSocket& socket = slots_.socket(index);
  if (socket.state() != SocketState::Connected || slots_.isHeld(index)) return {};
  if (socket.pendingBytes() > 0) return {Phase::Sending, socket.unconfirmedBytes()};
  const SlotRecord& record = slots_.record(index);
  if (record.pendingText.empty()) {
    return {slots_.hasAsked(index) ? Phase::Idle : Phase::Head, slots_.lastRequest(index)};
  }
  // Of a head each byte would count as progress for ever; it is the whole that counts.
  if (record.bodyStart == 0) return {Phase::Head, slots_.lastRequest(index)};
  return {Phase::Body, record.pendingText.size()};
}

std::uint32_t SlotWatch::patience(Phase phase) const {
  switch (phase) {
    case Phase::Away:
      break;
    case Phase::Head:
      return state_.HeadSeconds;
    case Phase::Body:
      return state_.BodySeconds;
    case Phase::Idle:
      return state_.IdleSeconds;
    case Phase::Sending:
      return state_.SendSeconds;
  }
  return 0;
}

bool SlotWatch::isIdle(int index) {
  const Phase phase = look(index).phase;
  return phase == Phase::Head || phase == Phase::Idle;
}

bool SlotWatch::makeRoom() {
  int longest = -1;
  for (int index = 0; index <= slots_.highest(); ++index) {
    const bool isLonger = longest < 0 || slots_.lastRequest(index) < slots_.lastRequest(longest);
    if (isLonger && isIdle(index)) longest = index;
  }
  if (longest >= 0) slots_.abort(longest);
  return longest >= 0;
}

}  // namespace quorvane
