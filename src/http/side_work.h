#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/workers.h"
#include "support/turns.h"

namespace quorvane {

class EventLoop;

/// Has things made beside the loop, a few at a time. Those that wait take turns by whom they are
/// for, so that one client's many hold nobody else up. With this object they are all dropped.
class SideWork {
 public:
  static constexpr int kAtOnce = 2;

  struct Job {
    std::function<void()> make;      ///< on a thread beside the loop; what it throws is dropped
    std::function<bool()> isNeeded;  ///< asked when its turn has come
    std::function<void()> done;      ///< called in every case, on the loop's thread
  };

  /// The loop outlives this object.
  explicit SideWork(EventLoop& loop) : loop_(loop) {}

  /// Its `done` is never called from within.
  void add(const std::string& owner, Job job);

 private:
  void startNext();
  void start(Job job);

  EventLoop& loop_;
  Turns<Job> waiting_;
  int running_ = 0;
  std::unique_ptr<Workers> workers_;  ///< made when first needed, destroyed first
};

}  // namespace quorvane
