#include "console/listeners.h"

#include <algorithm>

namespace quorvane {

Listeners::Listeners(const ServerState& state, EventLoop& loop, TcpListenerEvents& events)
    : state_(state), loop_(loop), events_(events) {
  all_.push_back({ListenAddress(), loop_.makeListener(events_)});
}

void Listeners::takePlaces() {
  const std::size_t count = std::max<std::size_t>(state_.Listen.size(), 1);
  while (all_.size() > count) all_.pop_back();
  while (all_.size() < count) all_.push_back({ListenAddress(), loop_.makeListener(events_)});
  all_.front().where = state_.ServerPort;
  for (std::size_t i = 0; i < state_.Listen.size(); ++i) all_[i].where = state_.Listen[i];
  for (Listener& one : all_) one.where.isShared = state_.SharePort;
}

bool Listeners::listen() {
  close();
  takePlaces();
  for (const Listener& one : all_) one.listener->listen(one.where);
  return state() == SocketState::Listening;
}

void Listeners::revive() {
  for (const Listener& one : all_) {
    if (one.listener->state() != SocketState::Error) continue;
    ListenAddress where = one.where;
    if (where.port == 0) where.port = one.listener->localPort();
    one.listener->listen(where);
  }
}

void Listeners::retry(const std::function<void(const std::string& place)>& regained) {
  for (const Listener& one : all_) {
    if (!one.listens() && one.listener->listen(one.where)) regained(textOf(one));
  }
}

void Listeners::close() {
  for (const Listener& one : all_) one.listener->close();
}

SocketState Listeners::state() const {
  const auto listening =
      std::find_if(all_.begin(), all_.end(), [](const Listener& one) { return one.listens(); });
  return listening == all_.end() ? all_.front().listener->state() : SocketState::Listening;
}

bool Listeners::isWhole() const {
  return std::all_of(all_.begin(), all_.end(), [](const Listener& one) { return one.listens(); });
}

bool Listeners::hasWaiting() const {
  return std::any_of(all_.begin(), all_.end(),
                     [](const Listener& one) { return one.listener->hasWaiting(); });
}

std::string Listeners::textOf(const Listener& one) const {
  return state_.Listen.empty() ? "port " + std::to_string(state_.ServerPort) : one.where.text();
}

std::string Listeners::served() const {
  std::string text;
  for (const Listener& one : all_) {
    if (one.listens()) text += (text.empty() ? "" : ", ") + textOf(one);
  }
  return text;
}

std::vector<std::string> Listeners::faults() const {
  std::vector<std::string> all;
  for (const Listener& one : all_) {
    if (!one.listens()) all.push_back(textOf(one) + ": " + one.listener->fault());
  }
  return all;
}

std::vector<std::string> Listeners::lines() const {
  std::vector<std::string> all;
  for (const Listener& one : all_) {
    const std::string place = state_.Listen.empty()
                                  ? "Localhost:" + std::to_string(one.listener->localPort())
                                  : one.where.text();
    all.push_back(place + " = " + std::to_string(static_cast<int>(one.listener->state())));
  }
  return all;
}

}  // namespace quorvane
