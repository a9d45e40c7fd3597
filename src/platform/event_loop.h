#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "platform/tcp.h"
#include "platform/udp.h"
#include "platform/workers.h"

namespace quorvane {

/// A timer that ticks until it is stopped. A tick that comes late is not made up for.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual void start() = 0;  ///< the first tick comes one interval from now; again: starts over
  virtual void stop() = 0;
  virtual bool enabled() const = 0;
};

/// The one thread on which everything happens. What the loop makes is used on that thread only
/// and destroyed before the loop.
class EventLoop {
 public:
  virtual ~EventLoop() = default;

  virtual void run() = 0;   ///< until stop()
  virtual void stop() = 0;  ///< run() returns after the current event

  /// Runs `task` after the current event. May be called from any thread.
  virtual void post(std::function<void()> task) = 0;

  /// From within an event: lets the other pending events run, for up to `atMost` or until `done`
  /// says so (asked after each event). With no time left it runs what is already pending, once.
  /// From within dataArrival or from within itself it does nothing, so that a request never
  /// begins inside another.
  virtual void runPending(std::chrono::milliseconds atMost, const std::function<bool()>& done) = 0;

  virtual std::unique_ptr<TcpListener> makeListener(TcpListenerEvents& events) = 0;
  virtual std::unique_ptr<TcpSocket> makeSocket(int index, TcpSocketEvents& events) = 0;
  virtual std::unique_ptr<UdpSocket> makeUdpSocket(UdpSocketEvents& events) = 0;
  virtual std::unique_ptr<Timer> makeTimer(std::chrono::milliseconds interval,
                                           std::function<void()> tick) = 0;

  virtual std::unique_ptr<Workers> makeWorkers(int count) = 0;

  /// `asked` runs, as an event, each time the system asks the program to end; it takes the place
  /// of what was given before.
  virtual void onTerminationRequest(std::function<void()> asked) = 0;

  /// What else the system tells a program.
  enum class Notice {
    HangUp,  ///< the terminal that the program was started from has gone
    NewLog,  ///< log files are about to be taken away
  };
  /// `told` runs, as an event, at each notice. A program that was started to outlive its terminal
  /// gets no HangUp.
  virtual void onNotice(std::function<void(Notice)> told) = 0;
};

}  // namespace quorvane
