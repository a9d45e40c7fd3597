#include "platform/server_window.h"

#include <windows.h>

#include <chrono>
#include <future>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "platform/windows/form_window.h"

namespace quorvane {

namespace {

/// How long the system lets a program take when its session ends is five seconds.
constexpr std::chrono::seconds kSessionPatience{4};

/// The console window of a program that was started by itself, from the desktop, is its own, and
/// nobody looks at it.
void leaveOwnConsole() {
  DWORD process = 0;
  DWORD mode = 0;
  const bool isOwn = ::GetConsoleProcessList(&process, 1) == 1;
  if (!isOwn || !::GetConsoleMode(::GetStdHandle(STD_OUTPUT_HANDLE), &mode)) return;
  ::FreeConsole();
  for (const DWORD stream : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    ::SetStdHandle(stream, nullptr);
  }
}

/// The window on a thread of its own, so that it answers whatever the server is at.
class ThreadedWindow final : public ServerWindow {
 public:
  explicit ThreadedWindow(EventLoop& loop) : loop_(loop) {}
  ThreadedWindow(const ThreadedWindow&) = delete;
  ThreadedWindow& operator=(const ThreadedWindow&) = delete;
  ~ThreadedWindow() override { ThreadedWindow::close(); }

  bool open(ServerWindowEvents& events, std::array<bool, 3> follows) override;
  void close() override;
  bool isReady() const override;
  void show(ServerWindowPicture picture) override;

 private:
  FormWindowEvents formEvents();
  void run(std::array<bool, 3> follows, std::promise<bool> isThere);
  void takeIn();
  void waitUntilClosed();
  void tell(std::function<void(ServerWindowEvents&)> what);

  EventLoop& loop_;
  ServerWindowEvents* events_ = nullptr;  ///< used on the loop's thread
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  std::thread thread_;
  FormWindow* form_ = nullptr;  ///< lives on the thread

  mutable std::mutex mutex_;  ///< of what follows
  std::optional<ServerWindowPicture> picture_;

  std::promise<void> closed_;
  std::shared_future<void> isClosed_ = closed_.get_future().share();
};

bool ThreadedWindow::open(ServerWindowEvents& events, std::array<bool, 3> follows) {
  events_ = &events;
  std::promise<bool> made;
  auto isThere = made.get_future();
  thread_ = std::thread(
      [this, follows, made = std::move(made)]() mutable { run(follows, std::move(made)); });
  if (isThere.get()) {
    leaveOwnConsole();
    return true;
  }
  thread_.join();
  return false;
}

void ThreadedWindow::close() {
  if (!thread_.joinable()) return;
  *alive_ = false;
  closed_.set_value();
  form_->end();
  thread_.join();
}

bool ThreadedWindow::isReady() const {
  const std::lock_guard lock(mutex_);
  return !picture_;
}

void ThreadedWindow::show(ServerWindowPicture picture) {
  const std::lock_guard lock(mutex_);
  picture_ = std::move(picture);
  form_->wake();
}

void ThreadedWindow::run(std::array<bool, 3> follows, std::promise<bool> isThere) {
  FormWindow form(formEvents(), follows);
  form_ = &form;
  const bool isMade = form.create();
  isThere.set_value(isMade);
  if (isMade) form.run();
}

FormWindowEvents ThreadedWindow::formEvents() {
  FormWindowEvents events;
  events.buttonClicked = [this](int button) {
    tell([button](ServerWindowEvents& to) { to.buttonClicked(button); });
  };
  events.lineClicked = [this](int list, std::size_t number) {
    tell([list, number](ServerWindowEvents& to) { to.lineClicked(list, number); });
  };
  events.closeAsked = [this] { tell([](ServerWindowEvents& to) { to.closeAsked(); }); };
  events.sessionEnds = [this] { waitUntilClosed(); };
  events.woken = [this] { takeIn(); };
  return events;
}

/// The picture stays until it is shown, so that the next one isn't sent before.
void ThreadedWindow::takeIn() {
  std::unique_lock lock(mutex_);
  if (!picture_) return;
  ServerWindowPicture picture = std::move(*picture_);
  lock.unlock();
  form_->show(std::move(picture));
  lock.lock();
  picture_.reset();
}

/// The process is gone as soon as the window has answered.
void ThreadedWindow::waitUntilClosed() {
  tell([](ServerWindowEvents& to) { to.closeAsked(); });
  isClosed_.wait_for(kSessionPatience);
}

void ThreadedWindow::tell(std::function<void(ServerWindowEvents&)> what) {
  loop_.post([alive = alive_, events = events_, what = std::move(what)] {
    if (*alive) what(*events);
  });
}

}  // namespace

std::unique_ptr<ServerWindow> makeServerWindow(EventLoop& loop) {
  return std::make_unique<ThreadedWindow>(loop);
}

}  // namespace quorvane
