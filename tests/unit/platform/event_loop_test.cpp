#include <csignal>

#include "platform/loop_fixture.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;

class Loop : public LoopTest {};

TEST_F(Loop, RunsPostedTasksInOrderUntilStopped) {
  std::string order;
  loop->post([&] { order += 'a'; });
  loop->post([&] {
    order += 'b';
    loop->post([&] {
      order += 'c';
      loop->stop();
    });
  });
  loop->run();
  EXPECT_EQ(order, "abc");
  loop->post([&] { loop->stop(); });
  loop->run();  // can be run again
}

TEST_F(Loop, RunningPendingDoesNothingWithinItself) {
  int ran = 0;
  loop->post([&] {
    loop->post([&] { ++ran; });
    loop->runPending(milliseconds(0), nullptr);
    EXPECT_EQ(ran, 0);
  });
  loop->runPending(milliseconds(0), nullptr);
  loop->runPending(milliseconds(0), nullptr);
  EXPECT_EQ(ran, 1);
}

TEST_F(Loop, AnEventThatThrowsLeavesRunningPendingAsItWas) {
  int ran = 0;
  loop->post([] { throw std::runtime_error("broken"); });
  loop->post([&] { ++ran; });
  EXPECT_THROW(loop->runPending(milliseconds(0), nullptr), std::runtime_error);
  loop->runPending(milliseconds(0), nullptr);
  EXPECT_EQ(ran, 1);
}

TEST_F(Loop, RunningPendingFromAnEventLetsTheOthersRun) {
  int ran = 0;
  loop->post([&] {
    loop->post([&] { ++ran; });
    loop->runPending(milliseconds(0), nullptr);
    EXPECT_EQ(ran, 1);
    loop->stop();
  });
  loop->run();
}

TEST_F(Loop, RunningPendingEndsAsSoonAsItsConditionHolds) {
  bool reached = false;
  int later = 0;
  loop->post([&] { reached = true; });
  loop->post([&] { ++later; });
  loop->runPending(std::chrono::hours(1), [&] { return reached; });
  EXPECT_TRUE(reached);
  EXPECT_EQ(later, 0);
}

TEST_F(Loop, ATimerTicksUntilStopped) {
  int ticks = 0;
  const auto timer = loop->makeTimer(milliseconds(1), [&] { ++ticks; });
  EXPECT_FALSE(timer->enabled());
  loop->runPending(milliseconds(5), nullptr);
  EXPECT_EQ(ticks, 0);
  timer->start();
  EXPECT_TRUE(timer->enabled());
  EXPECT_TRUE(until([&] { return ticks >= 3; }));
  timer->stop();
  EXPECT_FALSE(timer->enabled());
  const int before = ticks;
  loop->runPending(milliseconds(5), nullptr);
  EXPECT_EQ(ticks, before);
}

TEST_F(Loop, ATimerMayBeStoppedOrDestroyedInItsTick) {
  int ticks = 0;
  std::unique_ptr<Timer> timer;
  timer = loop->makeTimer(milliseconds(1), [&] {
    ++ticks;
    timer->stop();
  });
  timer->start();
  EXPECT_TRUE(until([&] { return ticks == 1; }));
  loop->runPending(milliseconds(5), nullptr);
  EXPECT_EQ(ticks, 1);

  timer = loop->makeTimer(milliseconds(1), [&] {
    ++ticks;
    timer.reset();
  });
  timer->start();
  EXPECT_TRUE(until([&] { return ticks == 2; }));
  loop->runPending(milliseconds(5), nullptr);
  EXPECT_EQ(ticks, 2);
}

TEST_F(Loop, ASignalIsToldAsAnEventEachTime) {
  int asked = 0;
  loop->onTerminationRequest([&] { ++asked; });
  std::raise(SIGTERM);
  EXPECT_EQ(asked, 0);
  EXPECT_TRUE(until([&] { return asked == 1; }));
  std::raise(SIGINT);
  EXPECT_TRUE(until([&] { return asked == 2; }));
}

}  // namespace

}  // namespace quorvane
