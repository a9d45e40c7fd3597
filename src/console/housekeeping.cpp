#include "console/housekeeping.h"

#include "platform/clock.h"
#include "support/server_state.h"

namespace quorvane {

namespace {

constexpr std::chrono::milliseconds kSlow{30'000};
constexpr std::chrono::milliseconds kFast{1'000};

/// How long a listener may be seen down before the server is started over.
constexpr std::chrono::milliseconds kListenerGrace{250};

std::string stateText(SocketState state) {
  return std::to_string(static_cast<int>(state));
}

}  // namespace

Housekeeping::Housekeeping(const Parts& parts)
    : parts_(parts),
      ctlTimer(parts.loop.makeTimer(kSlow, [this] { tick(); })),
      dbgTimer(parts.loop.makeTimer(kFast, [this] { refresh(); })) {}

void Housekeeping::start() {
  ctlTimer->start();
  if (parts_.services.state.DebugMode) dbgTimer->start();
}

void Housekeeping::stop() {
  ctlTimer->stop();
  dbgTimer->stop();
}

void Housekeeping::tick() {
  expire();
  watchListener();
  if (parts_.services.state.LogServer) parts_.status.commitLog();
  parts_.slots.tidyUp();
}

void Housekeeping::expire() {
  if (!parts_.objects) return;
  parts_.objects->scripts().expireSessions();
  parts_.objects->scripts().authKeys().expire();
  parts_.objects->scripts().databases().expire();
  parts_.objects->aliases().removeExpired(parts_.services.clock.now());
}

void Housekeeping::watchListener() {
  const auto listens = [this] { return parts_.listeners.state() == SocketState::Listening; };
  if (!parts_.server.running() || listens()) return;
  parts_.loop.runPending(kListenerGrace, listens);
  // The events that ran may have stopped the server for good.
  if (parts_.server.running() && !listens()) parts_.server.StartServer(true);
}

void Housekeeping::refresh() {
  listSockets();
  listSessions();
  parts_.form.changed();
}

void Housekeeping::listSockets() {
  ListModel& list = parts_.form.llist[FormModel::kSockets];
  list.clear();
  for (const std::string& line : parts_.listeners.lines()) list.add(line);
  for (int index = 0; index <= parts_.slots.highest(); ++index) {
    const TcpSocket& socket = parts_.slots.socket(index);
    list.add(std::to_string(index) + " [" + parts_.visitors.addressOf(index) +
             "] = " + stateText(socket.state()));
  }
  parts_.form.Label1[0].caption = std::to_string(parts_.slots.highest() + 1) + " Talkers, " +
                                  std::to_string(Slots::kCached) + " cached.";
}

void Housekeeping::listSessions() {
  ListModel& list = parts_.form.llist[FormModel::kSessions];
  list.clear();
  if (!parts_.objects) return;
  parts_.objects->scripts().sessions().forEach([&](const aspSessionObj& session) {
    list.add(std::to_string(session.SessionID()) + (session.OutOfDate() ? " X" : ""));
  });
}

}  // namespace quorvane
