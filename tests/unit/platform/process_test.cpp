#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "platform/system.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

TEST(ProcessTest, TheCommandLineIsTheArgumentsJoined) {
  char program[] = "server";
  char one[] = "/Debug";
  char two[] = "  ";
  char* all[] = {program, one, two};
  EXPECT_EQ(makeProcess(3, all)->commandLine(), "/Debug   ");
  EXPECT_EQ(makeProcess(1, all)->commandLine(), "");
}

TEST(ProcessTest, FoldersAreThoseOfTheProcess) {
  const auto process = makeProcess(0, nullptr);
  const fs::directory_iterator programs(process->programFolder());
  EXPECT_TRUE(std::any_of(begin(programs), end(programs), [](const fs::directory_entry& program) {
    return program.path().stem() == "platform_test";
  }));
  const std::string before = process->currentFolder();
  const TemporaryFolder folder;
  EXPECT_TRUE(process->setCurrentFolder(folder.path()));
  EXPECT_EQ(process->currentFolder(), fs::canonical(folder.path()).string());
  EXPECT_FALSE(process->setCurrentFolder(folder / "none"));
  EXPECT_TRUE(process->setCurrentFolder(before));
}

TEST(ProcessTest, TheHostCountsAsTheNtLine) {
  const auto version = makeProcess(0, nullptr)->hostVersion();
  EXPECT_EQ(version.platform, 2U);
  EXPECT_GT(version.major, 0U);
}

TEST(RandomTest, FractionsAndIdentifiersVary) {
  const auto random = makeRandom();
  std::set<double> fractions;
  std::set<std::array<std::uint8_t, 16>> identifiers;
  for (int i = 0; i < 100; ++i) {
    const double fraction = random->fraction();
    EXPECT_GE(fraction, 0);
    EXPECT_LT(fraction, 1);
    fractions.insert(fraction);
    identifiers.insert(random->guid());
  }
  EXPECT_GT(fractions.size(), 90U);
  EXPECT_EQ(identifiers.size(), 100U);
  EXPECT_EQ((*identifiers.begin())[7] >> 4, 4);
}

TEST(InstanceLockTest, OneHolderPerFolder) {
  const TemporaryFolder folder;
  const TemporaryFolder other;
  auto first = makeInstanceLock(folder / "made/when/needed");
  const auto second = makeInstanceLock(folder / "made/when/needed");
  EXPECT_TRUE(first->acquire());
  EXPECT_TRUE(first->acquire());
  EXPECT_FALSE(second->acquire());
  EXPECT_TRUE(makeInstanceLock(other.path())->acquire());
  const auto numbered = makeInstanceLock(folder / "made/when/needed", 1);
  EXPECT_TRUE(numbered->acquire());
  EXPECT_TRUE(makeInstanceLock(folder / "made/when/needed", 2)->acquire());
  EXPECT_FALSE(makeInstanceLock(folder / "made/when/needed", 1)->acquire());
  first.reset();
  EXPECT_TRUE(second->acquire());
}

}  // namespace

}  // namespace quorvane
