#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "platform/child_process.h"
#include "platform/system.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

using Output = ChildProcess::Output;

constexpr int kPatience = 10'000;

std::string everything(ChildProcess& program, Output from) {
  std::string text;
  std::array<char, 100> block{};
  for (;;) {
    const auto count = program.read(from, block.data(), block.size(), kPatience);
    if (!count.value_or(0)) return text;
    text.append(block.data(), *count);
  }
}

class ChildProcessTest : public testing::Test {
 protected:
  std::unique_ptr<ChildProcess> shell(const std::string& script, bool piped = true) {
    return process->start({{"sh", "-c", script}, piped});
  }

  std::unique_ptr<Process> process = makeProcess(0, nullptr);
};

bool isGone(std::int32_t id) {
  for (int i = 0; i < 1000; ++i) {
    if (::kill(id, 0) != 0 && errno == ESRCH) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

TEST_F(ChildProcessTest, StreamsLeadToItAndItsStatusIsTold) {
  const auto program = shell("read a; echo \"got $a\"; echo bad >&2; exit 3");
  ASSERT_TRUE(program);
  EXPECT_EQ(program->write("text\n", kPatience), 5U);
  EXPECT_EQ(everything(*program, Output::Standard), "got text\n");
  EXPECT_EQ(everything(*program, Output::Error), "bad\n");
  EXPECT_EQ(program->exitStatus(kPatience), 3);
  EXPECT_EQ(program->exitStatus(0), 3);
}

TEST_F(ChildProcessTest, MemoryIsBounded) {
  constexpr std::uint64_t kMost = std::uint64_t{256} << 20;
  const std::string takesMuch = "head -c 600000000 /dev/zero | tail -c 500000000 | wc -c";
  const auto bounded = process->start({{"sh", "-c", takesMuch}, true, kMost});
  ASSERT_TRUE(bounded);
  EXPECT_EQ(everything(*bounded, Output::Standard), "0\n");
  const auto rest = process->start({{"sh", "-c", "ulimit -v; ulimit -c"}, true, kMost});
  ASSERT_TRUE(rest);
  EXPECT_EQ(everything(*rest, Output::Standard), "262144\n0\n");
}

TEST_F(ChildProcessTest, TimeOfTheProcessorIsBounded) {
  const auto program = process->start({{"sh", "-c", "while :; do :; done"}, false, 0, 1});
  ASSERT_TRUE(program);
  const auto status = program->exitStatus(2 * kPatience);
  ASSERT_TRUE(status);
  EXPECT_GT(*status, 128);
}

TEST_F(ChildProcessTest, TheWordsReachItAsTheyAre) {
  const auto program = process->start({{"printf", "%s|", "a b", "$HOME;'", ""}, true});
  ASSERT_TRUE(program);
  EXPECT_EQ(everything(*program, Output::Standard), "a b|$HOME;'||");
}

TEST_F(ChildProcessTest, AnEndOfInputIsSeen) {
  const auto program = process->start({{"cat"}, true});
  ASSERT_TRUE(program);
  EXPECT_EQ(program->write("x", kPatience), 1U);
  std::array<char, 10> block{};
  EXPECT_EQ(program->read(Output::Standard, block.data(), 1, kPatience), 1U);
  EXPECT_FALSE(program->read(Output::Standard, block.data(), 1, 0));
  EXPECT_FALSE(program->exitStatus(0));
  program->closeInput();
  EXPECT_EQ(program->exitStatus(kPatience), 0);
}

TEST_F(ChildProcessTest, WritingToOneThatDoesNotReadFailsWithoutASignal) {
  const auto program = shell("exit 0");
  ASSERT_TRUE(program);
  EXPECT_EQ(program->exitStatus(kPatience), 0);
  EXPECT_FALSE(program->write("x", kPatience));
}

TEST_F(ChildProcessTest, ItEndsWithItsObjectAndTakesItsOwnChildrenAlong) {
  auto program = shell("sleep 1000 & echo $!; wait");
  ASSERT_TRUE(program);
  std::array<char, 20> block{};
  const auto count = program->read(Output::Standard, block.data(), block.size(), kPatience);
  ASSERT_GT(count.value_or(0), 1U);
  const int inner = std::stoi(std::string(block.data(), *count));
  const std::int32_t outer = program->id();
  program.reset();
  EXPECT_TRUE(isGone(outer));
  EXPECT_TRUE(isGone(inner));
}

TEST_F(ChildProcessTest, ASignalIsAStatusToo) {
  const auto program = shell("kill -TERM $$; sleep 1000", false);
  ASSERT_TRUE(program);
  EXPECT_EQ(program->exitStatus(kPatience), 128 + SIGTERM);
  const auto other = process->start({{"sleep", "1000"}});
  ASSERT_TRUE(other);
  other->terminate();
  EXPECT_EQ(other->exitStatus(kPatience), 128 + SIGTERM);
}

TEST_F(ChildProcessTest, WhatIsNoProgramIsNotStarted) {
  EXPECT_FALSE(process->start({{"/none/such"}}));
  EXPECT_FALSE(process->start({{}}));
  EXPECT_FALSE(process->startDetached({{"/none/such"}}));
}

TEST_F(ChildProcessTest, ADetachedOneGoesOn) {
  const TemporaryFolder folder;
  const std::string file = folder / "made";
  ASSERT_TRUE(process->startDetached({{"sh", "-c", "sleep 0.1; touch '" + file + "'"}}));
  for (int i = 0; i < 1000 && !std::filesystem::exists(file); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(ChildProcessTest, NamesAndVariablesAreThoseOfTheProcess) {
  EXPECT_FALSE(process->computerName().empty());
  EXPECT_FALSE(process->userName().empty());
  ::setenv("QUORVANE_TEST", "a=b", 1);
  const auto all = process->environment();
  EXPECT_EQ(std::count(all.begin(), all.end(), "QUORVANE_TEST=a=b"), 1);
}

}  // namespace

}  // namespace quorvane
