#pragma once

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/workers.h"
#include "support/turns.h"

namespace quorvane {

class EventLoop;

/// Something that is to be made beside the loop.
struct Making {
  std::string target;          ///< names what comes of it: a path, not empty
  std::function<void()> make;  ///< on a thread beside the loop; what it throws is dropped

  explicit operator bool() const { return make != nullptr; }
};

/// Has things made beside the loop, a few at a time. Those that wait take turns by whom they are
/// for, so that one client's many hold nobody else up, and what is being made is not made a second
/// time. With this object they are all dropped.
class SideWork {
 public:
  static constexpr int kAtOnce = 2;

  struct Job {
    Making making;
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
  void finish(const std::string& target);

  /// Those that wait for one target.
  using Awaited = std::vector<std::function<void()>>;

  EventLoop& loop_;
  Turns<Job> waiting_;
  std::unordered_map<std::string, Awaited> running_;  ///< by target; under none who needs nothing
  std::unique_ptr<Workers> workers_;                  ///< made when first needed, destroyed first
};

}  // namespace quorvane
