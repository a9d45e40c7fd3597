#include "console/slots.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace quorvane {

Slots::Slots(EventLoop& loop, TcpSocketEvents& events, std::uint64_t mostHeld)
    : loop_(loop), events_(events), mostHeld_(mostHeld) {
  grow();
}

void Slots::grow() {
  const int index = static_cast<int>(slots_.size());
  slots_.push_back({loop_.makeSocket(index, events_), {}});
  noteClosed(index);
}

void Slots::noteClosed(int index) {
  closed_.push_back(index);
  std::push_heap(closed_.begin(), closed_.end(), std::greater<>());
}

int Slots::lowestClosed() {
  for (;;) {
    if (closed_.empty()) grow();
    const int index = closed_.front();
    if (exists(index) && socket(index).state() == SocketState::Closed) return index;
    dropLowest();
  }
}

void Slots::dropLowest() {
  std::pop_heap(closed_.begin(), closed_.end(), std::greater<>());
  closed_.pop_back();
}

std::optional<int> Slots::accept(ConnectionRequest& request) {
  const int index = lowestClosed();
  record(index).reset();
  socket(index).tag.clear();
  if (!socket(index).accept(request)) return std::nullopt;
  dropLowest();
  noteRequest(index);
  Slot& slot = slots_[static_cast<std::size_t>(index)];
  slot.taken = slot.lastRequest;
  slot.isHeld = false;
  return index;
}

void Slots::hold(int index) {
  slots_[static_cast<std::size_t>(index)].isHeld = true;
  socket(index).pause();
}

void Slots::release(int index) {
  slots_[static_cast<std::size_t>(index)].isHeld = false;
  socket(index).resume();
}

std::optional<int> Slots::noteHeld(int index) {
  Slot& slot = slots_[static_cast<std::size_t>(index)];
  const std::uint64_t before = std::exchange(slot.held, slot.record.heldBytes());
  held_ += slot.held - before;
  if (held_ <= mostHeld_) return std::nullopt;
  const auto heaviest = std::max_element(
      slots_.begin(), slots_.end(), [](const Slot& a, const Slot& b) { return a.held < b.held; });
  return static_cast<int>(heaviest - slots_.begin());
}

void Slots::close(int index) {
  TcpSocket& closing = socket(index);
  closing.tag.clear();
  if (closing.state() == SocketState::Closed) return;
  closing.close();
  noteEmptied(index);
}

void Slots::abort(int index) {
  socket(index).abort();
  socket(index).tag.clear();
  noteEmptied(index);
}

void Slots::noteEmptied(int index) {
  record(index).reset();  // what a gone client sent takes no memory
  noteHeld(index);
  noteClosed(index);
}

void Slots::closeAll() {
  for (int index = highest(); index >= 0; --index) socket(index).close();
  slots_.resize(1);
  slots_.front().record.reset();
  slots_.front().held = held_ = 0;
  slots_.front().socket->tag.clear();
  closed_.assign(1, 0);
}

void Slots::reset() {
  closeAll();
  while (highest() + 1 < kCached) grow();
}

void Slots::tidyUp() {
  for (int index = highest(); index >= 0; --index) {
    if (socket(index).state() >= SocketState::PeerClosing) close(index);
  }
  const auto before = slots_.size();
  while (highest() >= kCached && socket(highest()).state() == SocketState::Closed) {
    slots_.pop_back();
  }
  if (slots_.size() == before) return;
  std::erase_if(closed_, [this](int index) { return !exists(index); });
  std::make_heap(closed_.begin(), closed_.end(), std::greater<>());
}

}  // namespace quorvane
