#include "console/status_lists.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_clock.h"
#include "platform/fake/memory_files.h"

namespace quorvane {

namespace {

class StatusListsTest : public testing::Test {
 protected:
  void openLog() {
    files.addFolder("/logs");
    state.ServerLog = std::make_unique<clsLog>(files, [this] { return clock.local(clock.now()); });
    state.ServerLog->setOutputFolder("/logs");
  }
  std::string logged() {
    std::string all;
    for (const auto& name : files.list("/logs")) all += files.readAll("/logs/" + name).value();
    return all;
  }
  const std::deque<std::string>& list() { return form.llist[0].lines(); }

  MemoryFiles files;
  ServerState state;
  FakeClock clock;
  FormModel form;
  StatusLists status{state, clock, form};
};

TEST_F(StatusListsTest, InDebugModeALineIsStampedListedAndSelected) {
  state.DebugMode = true;
  std::string echoed;
  int changes = 0;
  status.echo = [&](std::string_view line) { echoed += line; };
  form.onChange = [&] { ++changes; };
  status.LogLine("one");
  clock.advance(std::chrono::seconds(61));
  status.LogLine("two");
  EXPECT_EQ(list(), (std::deque<std::string>{"10:00:00 one", "10:01:01 two"}));
  EXPECT_EQ(form.llist[0].selected(), 1);
  EXPECT_EQ(echoed, "10:00:00 one10:01:01 two");
  EXPECT_EQ(changes, 2);
}

TEST_F(StatusListsTest, WithoutDebugModeOnlyTheLogGetsLines) {
  status.echo = [](std::string_view) { FAIL(); };
  openLog();
  status.LogLine("hello");
  EXPECT_TRUE(list().empty());
  EXPECT_EQ(logged(), "");
  status.commitLog();
  EXPECT_EQ(logged(), "[10:00:00] hello\r\n");
}

TEST_F(StatusListsTest, BeforeTheLogExistsALineGoesToTheWindowOnly) {
  state.DebugMode = true;
  status.LogLine("early");
  openLog();
  status.commitLog();
  EXPECT_EQ(list().size(), 1U);
  EXPECT_EQ(logged(), "");
}

TEST_F(StatusListsTest, WithLoggingOffNothingIsLogged) {
  openLog();
  state.LogServer = false;
  status.LogLine("quiet");
  status.commitLog();
  EXPECT_EQ(logged(), "");
}

TEST_F(StatusListsTest, AfterTheLogHasGoneALineGoesNowhere) {
  openLog();
  status.LogLine("last words");
  status.commitLog();
  state.ServerLog.reset();
  status.LogLine("after");
  status.commitLog();
  EXPECT_EQ(logged(), "[10:00:00] last words\r\n");
}

TEST_F(StatusListsTest, ABusyServersLogIsWrittenBeforeItFillsTheMemory) {
  openLog();
  for (int i = 0; i < 40; ++i) status.LogLine(std::string(10'000, 'x'));
  EXPECT_GT(logged().size(), 200'000U);
}

}  // namespace

}  // namespace quorvane
