#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "platform/event_loop.h"

namespace quorvane {

/// When a view paints that is told of every change: the first change right after the event that
/// brought it, those that follow with the next tick.
class Frames {
 public:
  /// `paint` says whether the view shows everything now; if not, it is called again with the next
  /// tick. The loop outlives the frames.
  Frames(EventLoop& loop, std::chrono::milliseconds interval, std::function<bool()> paint);
  Frames(const Frames&) = delete;
  Frames& operator=(const Frames&) = delete;
  ~Frames() { *alive_ = false; }

  void request();

 private:
  void tick();

  EventLoop& loop_;
  std::function<bool()> paint_;
  std::unique_ptr<Timer> timer_;  ///< runs while there is something to paint
  bool stale_ = false;            ///< what is painted differs from what is to be seen
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace quorvane
