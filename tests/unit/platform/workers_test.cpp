#include "platform/workers.h"

#include <atomic>
#include <thread>

#include "platform/fake/fake_event_loop.h"
#include "platform/loop_fixture.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;

template <class Loop>
std::unique_ptr<EventLoop> loopOf();
template <>
std::unique_ptr<EventLoop> loopOf<EventLoop>() {
  return makeEventLoop();
}
template <>
std::unique_ptr<EventLoop> loopOf<FakeEventLoop>() {
  return std::make_unique<FakeEventLoop>();
}

template <class Loop>
class WorkersContract : public testing::Test {
 protected:
  bool until(const std::function<bool()>& holds) {
    for (int i = 0; i < 2000 && !holds(); ++i) loop->runPending(milliseconds(10), holds);
    return holds();
  }

  std::unique_ptr<EventLoop> loop = loopOf<Loop>();
  std::unique_ptr<Workers> workers = loop->makeWorkers(2);
};

using Loops = testing::Types<EventLoop, FakeEventLoop>;
TYPED_TEST_SUITE(WorkersContract, Loops);

TYPED_TEST(WorkersContract, WhatIsDoneIsToldOnTheLoopsThread) {
  std::atomic<int> worked = 0;
  int told = 0;
  for (int i = 0; i < 10; ++i) {
    this->workers->run([&] { ++worked; },
                       [&, here = std::this_thread::get_id()] {
                         EXPECT_EQ(std::this_thread::get_id(), here);
                         ++told;
                       });
  }
  EXPECT_EQ(told, 0) << "never from within";
  EXPECT_TRUE(this->until([&] { return told == 10; }));
  EXPECT_EQ(worked, 10);
}

TYPED_TEST(WorkersContract, NothingIsToldOnceTheyAreGone) {
  bool told = false;
  this->workers->run([] {}, [&] { told = true; });
  this->workers.reset();
  this->loop->runPending(milliseconds(50), nullptr);
  EXPECT_FALSE(told);
}

}  // namespace

class Threads : public LoopTest {};

TEST_F(Threads, AsManyWorkAtOnceAsWereAskedForAndAnEndWaitsForThem) {
  auto workers = loop->makeWorkers(2);
  std::atomic<int> working = 0;
  std::atomic<int> most = 0;
  std::atomic<int> finished = 0;
  for (int i = 0; i < 8; ++i) {
    workers->run(
        [&] {
          const int now = ++working;
          for (int seen = most; seen < now && !most.compare_exchange_weak(seen, now);) continue;
          std::this_thread::sleep_for(milliseconds(30));
          --working;
          ++finished;
        },
        [] {});
  }
  EXPECT_TRUE(until([&] { return finished >= 2; }));
  workers.reset();
  EXPECT_EQ(working, 0);
  EXPECT_EQ(most, 2);
  EXPECT_LT(finished, 8) << "what was not begun is dropped";
}

}  // namespace quorvane
