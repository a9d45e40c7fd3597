#pragma once

#include <functional>
#include <memory>

#include "console/listeners.h"
#include "console/slots.h"
#include "platform/event_loop.h"

namespace quorvane {

/// Lets what is being received and sent come to its end before the server goes. Meanwhile nobody
/// new is taken in, and a connection is closed as soon as nothing is under way on it.
class Draining {
 public:
  /// All outlive this object.
  Draining(EventLoop& loop, Listeners& listeners, Slots& slots);

  /// `done` runs once, as an event, when nothing is under way any more or after `atMost`.
  void start(std::chrono::seconds atMost, std::function<void()> done);
  bool active() const { return timer_->enabled(); }

 private:
  void look();
  bool closeIdle();

  Listeners& listeners_;
  Slots& slots_;
  std::function<void()> done_;
  int looksLeft_ = 0;
  std::unique_ptr<Timer> timer_;
};

}  // namespace quorvane
