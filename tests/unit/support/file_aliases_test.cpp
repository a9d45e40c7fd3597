#include "support/file_aliases.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {
const TimePoint kNow = TimePoint(std::chrono::hours(500000));
}

TEST(FileAliases, FindsKeysWithoutRegardToCase) {
  FileAliases aliases;
  aliases.offer("Key", "/files/a.zip");
  EXPECT_EQ(aliases.pathOf("kEY", kNow), "/files/a.zip");
  EXPECT_EQ(aliases.pathOf("other", kNow), std::nullopt);
  aliases.offer("KEY", "/files/b.zip");
  EXPECT_EQ(aliases.pathOf("key", kNow), "/files/b.zip");
  aliases.withdraw("key");
  EXPECT_EQ(aliases.pathOf("key", kNow), std::nullopt);
}

TEST(FileAliases, ForgetsWhatHasRunOut) {
  FileAliases aliases;
  aliases.offer("short", "/a", kNow + std::chrono::seconds(1));
  aliases.offer("endless", "/b");
  EXPECT_EQ(aliases.pathOf("short", kNow), "/a");
  EXPECT_EQ(aliases.pathOf("short", kNow + std::chrono::seconds(2)), std::nullopt);
  aliases.removeExpired(kNow + std::chrono::seconds(2));
  EXPECT_EQ(aliases.size(), 1u);
}

TEST(FileAliases, TheOldestMakesRoom) {
  FileAliases aliases;
  aliases.offer("", "/ignored");
  EXPECT_EQ(aliases.size(), 0u);
  for (std::size_t i = 0; i <= FileAliases::kMostAliases; ++i)
    aliases.offer(std::to_string(i), "/f");
  EXPECT_EQ(aliases.size(), FileAliases::kMostAliases);
  EXPECT_EQ(aliases.pathOf("0", kNow), std::nullopt);
  EXPECT_EQ(aliases.pathOf("1", kNow), "/f");
}

}  // namespace quorvane
