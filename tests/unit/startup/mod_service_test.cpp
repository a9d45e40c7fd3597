#include "startup/modService.h"

#include <gtest/gtest.h>

#include "fakes.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_event_loop.h"

namespace quorvane {

namespace {

class ModServiceTest : public testing::Test {
 protected:
  /// Every look at the services takes a fifth of a second.
  ModServiceTest() {
    manager.onAsk = [this] { clock.advance(std::chrono::milliseconds(200)); };
  }
  void install() { manager.all = {"Spooler", "Quorvane Server"}; }

  FakeProcess process;
  SysInfo system{process};
  FakeServiceManager manager;
  FakeEventLoop loop;
  FakeClock clock;
  modService service{manager, loop, clock, system};
};

TEST_F(ModServiceTest, StatusTellsInstalledAndRunning) {
  EXPECT_FALSE(service.status().installed);
  install();
  EXPECT_TRUE(service.status().installed);
  EXPECT_FALSE(service.status().running);
  manager.active = {"Quorvane Server"};
  EXPECT_TRUE(service.status().installed);
  EXPECT_TRUE(service.status().running);
}

TEST_F(ModServiceTest, ARunningServiceNeedsNoSecondLook) {
  manager.active = {"Quorvane Server"};
  service.status();
  EXPECT_EQ(manager.asked, 1);
}

TEST_F(ModServiceTest, NamesCompareWithoutCase) {
  manager.all = {"QUORVANE SERVER"};
  EXPECT_TRUE(service.status().installed);
  manager.all = {"Quorvane Server 2", "Quorvane"};
  EXPECT_FALSE(service.status().installed);
}

TEST_F(ModServiceTest, AnInstalledServiceStarts) {
  install();
  EXPECT_TRUE(service.start());
  EXPECT_EQ(manager.requests, std::vector<std::string>{"start Quorvane Server"});
}

TEST_F(ModServiceTest, StartIsAskedForOnlyWhenItIsDown) {
  EXPECT_FALSE(service.start());
  install();
  manager.active = {"Quorvane Server"};
  EXPECT_TRUE(service.start());
  EXPECT_TRUE(manager.requests.empty());
}

TEST_F(ModServiceTest, AStartThatDoesNotComeIsWaitedForAFewSeconds) {
  install();
  manager.obeys = false;
  const TimePoint before = clock.time;
  EXPECT_FALSE(service.start());
  EXPECT_GE(clock.time - before, std::chrono::seconds(5));
  EXPECT_LT(clock.time - before, std::chrono::seconds(7));
  EXPECT_GT(loop.pendingRuns, 2) << "events run meanwhile";
}

TEST_F(ModServiceTest, ALateStartIsSeen) {
  install();
  manager.obeys = false;
  loop.duringPending = [this] { manager.active = {"Quorvane Server"}; };
  EXPECT_TRUE(service.start());
}

TEST_F(ModServiceTest, ARefusedStartIsNotWaitedFor) {
  install();
  manager.accepts = manager.obeys = false;
  EXPECT_FALSE(service.start());
  EXPECT_EQ(loop.pendingRuns, 0);
}

TEST_F(ModServiceTest, StopWithoutAServiceIsTrueAtOnce) {
  EXPECT_TRUE(service.stop());
  EXPECT_TRUE(manager.requests.empty());
  EXPECT_EQ(loop.pendingRuns, 0);
}

TEST_F(ModServiceTest, ARunningServiceStops) {
  install();
  manager.active = {"Quorvane Server"};
  EXPECT_TRUE(service.stop());
  EXPECT_EQ(manager.requests, std::vector<std::string>{"stop Quorvane Server"});
}

TEST_F(ModServiceTest, AStopThatDoesNotComeIsFalse) {
  install();
  manager.active = {"Quorvane Server"};
  manager.obeys = false;
  EXPECT_FALSE(service.stop());
}

TEST_F(ModServiceTest, WithoutServicesNothingHappens) {
  process.version.platform = 1;
  install();
  manager.active = {"Quorvane Server"};
  EXPECT_FALSE(service.status().installed);
  EXPECT_FALSE(service.start());
  EXPECT_TRUE(service.stop());
  EXPECT_EQ(manager.asked, 0);
  EXPECT_TRUE(manager.requests.empty());
}

}  // namespace

}  // namespace quorvane
