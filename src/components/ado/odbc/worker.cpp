#include "components/ado/odbc/worker.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "vbscript/values/time_check.h"

namespace quorvane::ado {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenChecks{20};
constexpr std::chrono::milliseconds kGrace{1500};  ///< for what was asked to be given up
constexpr int kMostLost = 16;

std::atomic<int> lostThreads{0};

}  // namespace

struct OdbcWorker::Shared {
  std::shared_ptr<OdbcSession> session;
  std::mutex mutex;  ///< of what follows
  std::condition_variable changed;
  std::deque<std::function<void(OdbcSession&)>> waiting;
  bool working = false;
  bool ending = false;
  bool ended = false;
  bool lost = false;
};

OdbcWorker::OdbcWorker(std::shared_ptr<OdbcSession> session) : shared_(std::make_shared<Shared>()) {
  if (lostThreads >= kMostLost) {
    throw OdbcFailure{{{u"HYT01", 0, u"Too many database servers do not answer"}}};
  }
  shared_->session = std::move(session);
  std::thread(&OdbcWorker::serve, shared_).detach();
}

OdbcWorker::~OdbcWorker() {
  std::unique_lock lock(shared_->mutex);
  shared_->ending = true;
  shared_->changed.notify_all();
  if (lost_) return;
  if (shared_->changed.wait_for(lock, kGrace, [this] { return shared_->ended; })) return;
  shared_->lost = true;
  ++lostThreads;
}

void OdbcWorker::serve(const std::shared_ptr<Shared>& shared) {
  std::unique_lock lock(shared->mutex);
  for (;;) {
    shared->changed.wait(lock, [&] { return shared->ending || !shared->waiting.empty(); });
    if (shared->waiting.empty()) break;
    auto work = std::move(shared->waiting.front());
    shared->waiting.pop_front();
    shared->working = true;
    lock.unlock();
    work(*shared->session);
    work = nullptr;  // what it owned ends on this thread
    lock.lock();
    shared->working = false;
    shared->changed.notify_all();
  }
  lock.unlock();
  shared->session.reset();
  lock.lock();
  shared->ended = true;
  if (shared->lost) --lostThreads;
  shared->changed.notify_all();
}

void OdbcWorker::post(std::function<void(OdbcSession&)> work) {
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->waiting.push_back(std::move(work));
  }
  shared_->changed.notify_all();
}

void OdbcWorker::perform(std::function<void(OdbcSession&)> work, std::chrono::milliseconds limit) {
  if (lost_) throw OdbcFailure{{{u"08S01", 0, u"Communication link failure"}}};
  post(std::move(work));
  const Clock::time_point end = Clock::now() + limit;
  std::unique_lock lock(shared_->mutex);
  const auto isDone = [this] { return !shared_->working && shared_->waiting.empty(); };
  while (!shared_->changed.wait_for(lock, kBetweenChecks, isDone)) {
    lock.unlock();
    try {
      vbs::checkTime();
      if (limit.count() > 0 && Clock::now() > end) {
        throw OdbcFailure{{{u"HYT00", 0, u"Query timeout expired"}}};
      }
    } catch (...) {
      giveUp();
      throw;
    }
    lock.lock();
  }
}

void OdbcWorker::giveUp() {
  // To ask may take as long as the rest, when the server is gone.
  std::thread([session = shared_->session] { session->cancel(); }).detach();
  std::unique_lock lock(shared_->mutex);
  const auto isDone = [this] { return !shared_->working && shared_->waiting.empty(); };
  if (shared_->changed.wait_for(lock, kGrace, isDone)) return;
  lost_ = true;
  shared_->lost = true;
  ++lostThreads;
}

}  // namespace quorvane::ado
