#pragma once

#include <memory>

#include "console/control_channel.h"
#include "console/form_model.h"
#include "console/listeners.h"
#include "console/running_server.h"
#include "console/slots.h"
#include "console/status_lists.h"
#include "console/visitors.h"
#include "platform/event_loop.h"
#include "platform/services.h"

namespace quorvane {

/// What a running server does by the clock: it forgets what has expired, brings back a listener
/// that died, commits the log and trims the slots; in debug mode it refreshes the lists of sockets
/// and sessions.
class Housekeeping {
 public:
  struct Parts {
    const Services& services;
    EventLoop& loop;
    ServerControl& server;
    const Listeners& listeners;
    Slots& slots;
    const Visitors& visitors;
    StatusLists& status;
    FormModel& form;
    const std::unique_ptr<RunningServer>& objects;  ///< null while the server is stopped
  };

  explicit Housekeeping(const Parts& parts);

  void start();
  void stop();

  void tick();     ///< of `ctlTimer`
  void refresh();  ///< of `dbgTimer`

 private:
  void expire();
  void watchListener();
  void listSockets();
  void listSessions();

  Parts parts_;
  std::unique_ptr<Timer> ctlTimer;
  std::unique_ptr<Timer> dbgTimer;
};

}  // namespace quorvane
