#include "platform/workers.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "platform/event_loop.h"

namespace quorvane {

namespace {

class Threads final : public Workers {
 public:
  Threads(EventLoop& loop, int count) : loop_(loop), most_(static_cast<std::size_t>(count)) {}
  Threads(const Threads&) = delete;
  Threads& operator=(const Threads&) = delete;

  ~Threads() override {
    *alive_ = false;
    {
      const std::lock_guard lock(mutex_);
      ending_ = true;
      waiting_.clear();
    }
    changed_.notify_all();
    for (std::thread& thread : threads_) thread.join();
  }

  void run(std::function<void()> work, std::function<void()> done) override {
    {
      const std::lock_guard lock(mutex_);
      waiting_.push_back({std::move(work), std::move(done)});
    }
    changed_.notify_one();
    if (threads_.size() < most_) threads_.emplace_back([this] { serve(); });
  }

 private:
  struct Task {
    std::function<void()> work;
    std::function<void()> done;
  };

  void serve() {
    while (auto task = next()) {
      task->work();
      loop_.post([alive = alive_, done = std::move(task->done)] {
        if (*alive) done();
      });
    }
  }

  std::unique_ptr<Task> next() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
    if (ending_) return nullptr;
    auto task = std::make_unique<Task>(std::move(waiting_.front()));
    waiting_.pop_front();
    return task;
  }

  EventLoop& loop_;
  const std::size_t most_;
  /// Read and written on the loop's thread alone.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  std::vector<std::thread> threads_;

  std::mutex mutex_;  ///< of what follows
  std::condition_variable changed_;
  std::deque<Task> waiting_;
  bool ending_ = false;
};

}  // namespace

std::unique_ptr<Workers> makeThreads(EventLoop& loop, int count) {
  return std::make_unique<Threads>(loop, count);
}

}  // namespace quorvane
