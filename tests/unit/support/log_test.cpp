#include "support/clsLog.h"

#include <gtest/gtest.h>

#include "support/paths.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

class LogTest : public testing::Test {
 protected:
  LogTest() { log.setOutputFolder(folder.path()); }

  TemporaryFolder folder;
  CalendarTime now{2007, 3, 15, 14, 15, 2, 4};
  clsLog log{[this] { return now; }};
};

std::size_t fileCount(const std::string& folder) {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

}  // namespace

TEST_F(LogTest, WritesStampedLinesIntoAFileNamedByTheTime) {
  log.Add("first");
  log.Add("second");
  EXPECT_EQ(log.LogFile(), "");
  EXPECT_EQ(fileCount(folder.path()), 0u);
  now.second = 9;
  log.Commit();
  EXPECT_EQ(log.LogFile(), "20070315-141509.LOG");
  EXPECT_EQ(folder.read(log.LogFile()), "[14:15:02] first\r\n[14:15:02] second\r\n");
}

TEST_F(LogTest, CommitWithNothingAddedLeavesTheDiskUntouched) {
  log.Commit();
  EXPECT_EQ(log.LogFile(), "");
  EXPECT_EQ(fileCount(folder.path()), 0u);
}

TEST_F(LogTest, LineEndsInATextBecomeBars) {
  log.Add("a\r\nb\nc\r");
  log.Add("");
  log.Commit();
  EXPECT_EQ(folder.read(log.LogFile()), "[14:15:02] a||b\nc\r\r\n[14:15:02] \r\n");
}

TEST_F(LogTest, CommitsAppendToTheSameFileUntilItDisappears) {
  log.Add("a");
  log.Commit();
  now.minute = 16;
  log.Add("b");
  log.Commit();
  EXPECT_EQ(folder.read("20070315-141502.LOG"), "[14:15:02] a\r\n[14:16:02] b\r\n");

  std::filesystem::remove(folder / log.LogFile());
  log.Add("c");
  log.Commit();
  EXPECT_EQ(log.LogFile(), "20070315-141602.LOG");
  EXPECT_EQ(folder.read(log.LogFile()), "[14:16:02] c\r\n");
  EXPECT_EQ(fileCount(folder.path()), 1u);
}

TEST_F(LogTest, ResetStartsANewFile) {
  log.Add("kept");
  log.Reset(true);
  EXPECT_EQ(log.LogFile(), "");
  EXPECT_EQ(folder.read("20070315-141502.LOG"), "[14:15:02] kept\r\n");
  now.hour = 15;
  log.Add("dropped");
  log.Reset();
  log.Add("new");
  log.Commit();
  EXPECT_EQ(folder.read("20070315-151502.LOG"), "[15:15:02] new\r\n");
}

TEST_F(LogTest, TwoFilesOfOneSecondAreOne) {
  log.Add("a");
  log.Reset(true);
  log.Add("b");
  log.Commit();
  EXPECT_EQ(folder.read("20070315-141502.LOG"), "[14:15:02] a\r\n[14:15:02] b\r\n");
}

TEST_F(LogTest, ClearDiscardsLines) {
  log.Add("a");
  EXPECT_GT(log.pendingBytes(), 0u);
  log.Clear();
  EXPECT_EQ(log.pendingBytes(), 0u);
  log.Commit();
  EXPECT_EQ(fileCount(folder.path()), 0u);
}

TEST_F(LogTest, LinesThatCannotBeWrittenAreLost) {
  log.setOutputFolder(folder / "missing");
  log.Add("a");
  log.Commit();
  EXPECT_EQ(log.pendingBytes(), 0u);
  log.setOutputFolder(folder.path());
  log.Add("b");
  log.Commit();
  EXPECT_EQ(folder.read(log.LogFile()), "[14:15:02] b\r\n");
}

TEST_F(LogTest, TheFolderIsKeptWithASeparator) {
  const std::string separator(1, paths::kSeparator);
  log.setOutputFolder("logs");
  EXPECT_EQ(log.OutputFolder(), "logs" + separator);
  log.setOutputFolder("logs" + separator);
  EXPECT_EQ(log.OutputFolder(), "logs" + separator);
  log.setOutputFolder("");
  EXPECT_EQ(log.OutputFolder(), separator);
}

}  // namespace quorvane
