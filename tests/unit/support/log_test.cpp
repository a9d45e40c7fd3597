#include "support/clsLog.h"

#include <gtest/gtest.h>

#include "platform/fake/memory_files.h"
#include "support/paths.h"

namespace quorvane {

namespace {

class LogTest : public testing::Test {
 protected:
  LogTest() {
    files.addFolder("/logs");
    log.setOutputFolder("/logs");
  }

  std::string read(const std::string& name) {
    return files.readAll("/logs/" + name).value_or("no file");
  }
  std::size_t fileCount() { return files.list("/logs").size(); }

  MemoryFiles files;
  CalendarTime now{2007, 3, 15, 14, 15, 2, 4};
  clsLog log{files, [this] { return now; }};
};

}  // namespace

TEST_F(LogTest, WritesStampedLinesIntoAFileNamedByTheTime) {
  log.Add("first");
  log.Add("second");
  EXPECT_EQ(log.LogFile(), "");
  EXPECT_EQ(fileCount(), 0u);
  now.second = 9;
  log.Commit();
  EXPECT_EQ(log.LogFile(), "20070315-141509.LOG");
  EXPECT_EQ(read(log.LogFile()), "[14:15:02] first\r\n[14:15:02] second\r\n");
}

TEST_F(LogTest, CommitWithNothingAddedLeavesTheDiskUntouched) {
  log.Commit();
  EXPECT_EQ(log.LogFile(), "");
  EXPECT_EQ(fileCount(), 0u);
}

TEST_F(LogTest, LineEndsInATextBecomeBars) {
  log.Add("a\r\nb\nc\r");
  log.Add("");
  log.Commit();
  EXPECT_EQ(read(log.LogFile()), "[14:15:02] a||b\nc\r\r\n[14:15:02] \r\n");
}

TEST_F(LogTest, CommitsAppendToTheSameFileUntilItDisappears) {
  log.Add("a");
  log.Commit();
  now.minute = 16;
  log.Add("b");
  log.Commit();
  EXPECT_EQ(read("20070315-141502.LOG"), "[14:15:02] a\r\n[14:16:02] b\r\n");

  EXPECT_TRUE(files.remove("/logs/" + log.LogFile()));
  log.Add("c");
  log.Commit();
  EXPECT_EQ(log.LogFile(), "20070315-141602.LOG");
  EXPECT_EQ(read(log.LogFile()), "[14:16:02] c\r\n");
  EXPECT_EQ(fileCount(), 1u);
}

TEST_F(LogTest, ResetStartsANewFile) {
  log.Add("kept");
  log.Reset(true);
  EXPECT_EQ(log.LogFile(), "");
  EXPECT_EQ(read("20070315-141502.LOG"), "[14:15:02] kept\r\n");
  now.hour = 15;
  log.Add("dropped");
  log.Reset();
  log.Add("new");
  log.Commit();
  EXPECT_EQ(read("20070315-151502.LOG"), "[15:15:02] new\r\n");
}

TEST_F(LogTest, TwoFilesOfOneSecondAreOne) {
  log.Add("a");
  log.Reset(true);
  log.Add("b");
  log.Commit();
  EXPECT_EQ(read("20070315-141502.LOG"), "[14:15:02] a\r\n[14:15:02] b\r\n");
}

TEST_F(LogTest, ClearDiscardsLines) {
  log.Add("a");
  EXPECT_GT(log.pendingBytes(), 0u);
  log.Clear();
  EXPECT_EQ(log.pendingBytes(), 0u);
  log.Commit();
  EXPECT_EQ(fileCount(), 0u);
}

TEST_F(LogTest, LinesThatCannotBeWrittenAreLost) {
  log.setOutputFolder("/missing");
  log.Add("a");
  log.Commit();
  EXPECT_EQ(log.pendingBytes(), 0u);
  log.setOutputFolder("/logs");
  log.Add("b");
  log.Commit();
  EXPECT_EQ(read(log.LogFile()), "[14:15:02] b\r\n");
}

TEST_F(LogTest, BeyondItsBoundANewFileBegins) {
  log.fileLimit = 40;
  const auto commit = [&] {
    ++now.second;
    log.Add("twelve bytes");  // 26 with time and line end
    log.Commit();
  };
  commit();
  const std::string first = log.LogFile();
  commit();
  EXPECT_EQ(log.LogFile(), "20070315-141504.LOG");
  EXPECT_EQ(fileCount(), 2u);
  EXPECT_EQ(read(first), "[14:15:03] twelve bytes\r\n");
  log.fileLimit = 0;
  commit();
  commit();
  EXPECT_EQ(fileCount(), 2u);
}

TEST_F(LogTest, ABatchBeyondTheBoundGoesIntoOneFile) {
  log.fileLimit = 10;
  for (int i = 0; i < 3; ++i) log.Add("a");
  log.Commit();
  EXPECT_EQ(fileCount(), 1u);
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
