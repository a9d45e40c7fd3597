#include <array>
#include <csignal>
#include <vector>

#include "platform/loop_fixture.h"
#include "platform/process.h"
#include "platform/system.h"

namespace quorvane {

namespace {

class Signals : public LoopTest {};

TEST_F(Signals, EachOfThreeAsksForTheEnd) {
  int asked = 0;
  loop->onTerminationRequest([&] { ++asked; });
  int expected = 0;
  for (const int number : {SIGTERM, SIGINT, SIGQUIT}) {
    std::raise(number);
    ++expected;
    EXPECT_TRUE(until([&] { return asked == expected; })) << number;
  }
}

TEST_F(Signals, TheWishToEndIsKnownBeforeItsEvent) {
  int asked = 0;
  loop->onTerminationRequest([&] { ++asked; });
  std::array<char*, 1> arguments{};
  const auto process = makeProcess(1, arguments.data());
  EXPECT_FALSE(process->isAskedToEnd());
  std::raise(SIGTERM);
  EXPECT_TRUE(process->isAskedToEnd());
  EXPECT_EQ(asked, 0);
  EXPECT_TRUE(until([&] { return asked == 1; }));
}

TEST_F(Signals, NoticesAreToldAsEvents) {
  using Notice = EventLoop::Notice;
  std::vector<Notice> told;
  loop->onNotice([&](Notice notice) { told.push_back(notice); });
  std::raise(SIGUSR1);
  EXPECT_TRUE(told.empty());
  EXPECT_TRUE(until([&] { return told.size() == 1; }));
  std::raise(SIGHUP);
  EXPECT_TRUE(until([&] { return told.size() == 2; }));
  EXPECT_EQ(told, (std::vector{Notice::NewLog, Notice::HangUp}));
}

TEST_F(Signals, AHangUpThatWasIgnoredStaysIgnored) {
  std::signal(SIGHUP, SIG_IGN);
  int told = 0;
  loop->onNotice([&](EventLoop::Notice) { ++told; });
  std::raise(SIGHUP);
  std::raise(SIGUSR1);
  EXPECT_TRUE(until([&] { return told == 1; }));
  loop->runPending(std::chrono::milliseconds(5), nullptr);
  EXPECT_EQ(told, 1);
  std::signal(SIGHUP, SIG_DFL);
}

}  // namespace

}  // namespace quorvane
