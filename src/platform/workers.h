#pragma once

#include <functional>
#include <memory>

namespace quorvane {

class EventLoop;

/// Threads beside the event loop, for what takes long and touches nothing that others work with.
/// They are begun when first needed. Destroying them waits for what is being done; what is not yet
/// begun is dropped.
class Workers {
 public:
  virtual ~Workers() = default;

  /// Has `work` done on one of the threads, then `done`, an event of the loop, unless the workers
  /// are gone by then. `work` throws nothing. What it works with and what it makes is its own until
  /// `done`.
  virtual void run(std::function<void()> work, std::function<void()> done) = 0;
};

/// `loop` outlives them.
std::unique_ptr<Workers> makeThreads(EventLoop& loop, int count);

}  // namespace quorvane
