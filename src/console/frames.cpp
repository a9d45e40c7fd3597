#include "console/frames.h"

#include <utility>

namespace quorvane {

Frames::Frames(EventLoop& loop, std::chrono::milliseconds interval, std::function<bool()> paint)
    : loop_(loop), paint_(std::move(paint)), timer_(loop.makeTimer(interval, [this] { tick(); })) {}

void Frames::request() {
  stale_ = true;
  if (timer_->enabled()) return;
  timer_->start();
  loop_.post([this, alive = alive_] {
    if (*alive && stale_) stale_ = !paint_();
  });
}

void Frames::tick() {
  if (stale_) {
    stale_ = !paint_();
  } else {
    timer_->stop();
  }
}

}  // namespace quorvane
