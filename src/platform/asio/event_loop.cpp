#include "platform/event_loop.h"

#include <asio/executor_work_guard.hpp>
#include <asio/post.hpp>
#include <asio/signal_set.hpp>
#include <utility>
#include <vector>

#include "platform/asio/connection.h"
#include "platform/asio/loop_calls.h"
#include "platform/asio/loop_core.h"
#include "platform/asio/tcp_listener.h"
#include "platform/asio/udp_socket.h"
#include "platform/system.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Events that one look at the pending ones runs at most; a flood has no end of them.
constexpr int kPendingAtOnce = 1000;

class LoopTimer final : public Timer {
 public:
  LoopTimer(LoopCore& core, milliseconds interval, std::function<void()> tick)
      : state_(std::make_shared<State>(core, interval, std::move(tick))) {}
  LoopTimer(const LoopTimer&) = delete;
  LoopTimer& operator=(const LoopTimer&) = delete;
  ~LoopTimer() override { LoopTimer::stop(); }

  void start() override {
    stop();
    state_->enabled = true;
    State::wait(state_);
  }

  void stop() override {
    state_->enabled = false;
    ++state_->run;
    state_->timer.cancel();
  }

  bool enabled() const override { return state_->enabled; }

 private:
  /// Lives on through a tick that destroys its timer.
  struct State {
    State(LoopCore& core, milliseconds every, std::function<void()> what)
        : timer(core.io), interval(every), tick(std::move(what)) {}

    static void wait(const std::shared_ptr<State>& state) {
      state->timer.expires_after(state->interval);
      state->timer.async_wait([state, run = state->run](const asio::error_code& error) {
        if (error || run != state->run) return;
        wait(state);
        state->tick();
      });
    }

    SteadyTimer timer;
    milliseconds interval;
    std::function<void()> tick;
    unsigned run = 0;  ///< tells a tick that was under way when the timer was stopped
    bool enabled = false;
  };

  std::shared_ptr<State> state_;
};

/// Signals that arrive as events.
class Signals {
 public:
  explicit Signals(LoopCore& core) : set_(core.io) {}

  /// `arrived` takes the place of what was given before.
  void listen(const std::vector<int>& numbers, std::function<void(int number)> arrived) {
    const bool isWaiting = static_cast<bool>(std::exchange(arrived_, std::move(arrived)));
    if (isWaiting) return;
    asio::error_code ignored;
    for (const int number : numbers) set_.add(number, ignored);
    wait();
  }

 private:
  void wait() {
    set_.async_wait([this](const asio::error_code& error, int number) {
      if (error) return;
      wait();
      arrived_(number);
    });
  }

  asio::signal_set set_;
  std::function<void(int)> arrived_;
};

class AsioEventLoop final : public EventLoop {
 public:
  AsioEventLoop() : work_(core_.io.get_executor()), endings_(core_), notices_(core_) {}

  void run() override {
    core_.io.restart();
    runUntilStopped(core_.io);
  }

  void stop() override { core_.io.stop(); }

  void post(std::function<void()> task) override { asio::post(core_.io, std::move(task)); }

  void runPending(milliseconds atMost, const std::function<bool()>& done) override {
    if (core_.readBufferInUse || nested_) return;
    const Nested nested(nested_);
    const auto end = steady_clock::now() + atMost;
    const auto isDone = [&] { return done && done(); };
    bool over = isDone();
    for (int i = 0; i < kPendingAtOnce && !over && core_.io.poll_one() > 0; ++i) over = isDone();
    while (!over && !core_.io.stopped() && steady_clock::now() < end) {
      core_.io.run_one_until(end);
      over = isDone();
    }
  }

  std::unique_ptr<TcpListener> makeListener(TcpListenerEvents& events) override {
    return makeTcpListener(core_, events);
  }
  std::unique_ptr<TcpSocket> makeSocket(int index, TcpSocketEvents& events) override {
    return makeTcpSocket(core_, index, events);
  }
  std::unique_ptr<UdpSocket> makeUdpSocket(UdpSocketEvents& events) override {
    return quorvane::makeUdpSocket(core_, events);
  }
  std::unique_ptr<Timer> makeTimer(milliseconds interval, std::function<void()> tick) override {
    return std::make_unique<LoopTimer>(core_, interval, std::move(tick));
  }

  std::unique_ptr<Workers> makeWorkers(int count) override { return makeThreads(*this, count); }

  void onTerminationRequest(std::function<void()> asked) override {
    const auto numbers = terminationSignals();
    endings_.listen({numbers.begin(), numbers.end()}, [asked = std::move(asked)](int) { asked(); });
    noteTermination();
  }

  void onNotice(std::function<void(Notice)> told) override {
    const std::vector<NoticeSignal> signals = noticeSignals();
    std::vector<int> numbers;
    numbers.reserve(signals.size());
    for (const NoticeSignal& signal : signals) numbers.push_back(signal.number);
    notices_.listen(numbers, [signals, told = std::move(told)](int number) {
      for (const NoticeSignal& signal : signals) {
        if (signal.number == number) told(signal.notice);
      }
    });
  }

  LoopCore& core() { return core_; }

 private:
  /// Set for as long as it lives, also when an event ends by an exception.
  struct Nested {
    explicit Nested(bool& flag) : flag_(flag) { flag_ = true; }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;
    ~Nested() { flag_ = false; }
    bool& flag_;
  };

  LoopCore core_;
  asio::executor_work_guard<asio::io_context::executor_type> work_;
  Signals endings_;
  Signals notices_;
  bool nested_ = false;
};

}  // namespace

std::unique_ptr<EventLoop> makeEventLoop() {
  prepareProcessForLoop();
  return std::make_unique<AsioEventLoop>();
}

LoopCore* loopCoreOf(EventLoop& loop) {
  auto* own = dynamic_cast<AsioEventLoop*>(&loop);
  return own ? &own->core() : nullptr;
}

}  // namespace quorvane
