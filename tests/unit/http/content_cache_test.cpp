#include "http/content_cache.h"

#include <gtest/gtest.h>

#include "handling_fixture.h"

namespace quorvane {

namespace {

class ContentCacheTest : public testing::Test {
 protected:
  ContentCacheTest() { files.stamp = clock.time - std::chrono::hours(1); }

  Body bodyOf(const std::string& path) { return cache.bodyOf(path, *files.stat(path)); }
  /// The shared content, whose address tells whether it was kept.
  const std::string* contentOf(const std::string& path) {
    const Body body = bodyOf(path);
    return std::get<std::shared_ptr<const std::string>>(body.first).get();
  }

  FakeClock clock;
  MemoryFiles files;
  ContentCache cache{files, clock};
};

}  // namespace

TEST_F(ContentCacheTest, SmallFilesAreKeptAndShared) {
  files.put("/a", "content");
  EXPECT_EQ(bytesOf(bodyOf("/a")), "content");
  EXPECT_EQ(contentOf("/a"), contentOf("/a"));
}

TEST_F(ContentCacheTest, AChangedFileIsReadAgain) {
  files.put("/a", "old");
  EXPECT_EQ(bytesOf(bodyOf("/a")), "old");
  files.put("/a", "new");
  EXPECT_EQ(bytesOf(bodyOf("/a")), "new");
}

TEST_F(ContentCacheTest, AFileChangedAMomentAgoIsNotKept) {
  files.stamp = clock.time - std::chrono::seconds(1);
  files.put("/a", "fresh");
  EXPECT_EQ(bytesOf(bodyOf("/a")), "fresh");
  EXPECT_EQ(cache.keptBytes(), 0u);
  clock.advance(std::chrono::seconds(2));
  EXPECT_EQ(bytesOf(bodyOf("/a")), "fresh");
  EXPECT_GT(cache.keptBytes(), 0u);
}

TEST_F(ContentCacheTest, LargeFilesAreSentFromTheFile) {
  const std::string large(ContentCache::kMostFileBytes + 1, 'x');
  files.put("/large", large);
  const Body body = bodyOf("/large");
  ASSERT_TRUE(std::holds_alternative<FileSlice>(body.first));
  EXPECT_EQ(bytesOf(body), large);
  EXPECT_EQ(cache.keptBytes(), 0u);
}

TEST_F(ContentCacheTest, WhatCannotBeReadIsEmpty) {
  files.addFolder("/folder.htm");
  EXPECT_EQ(bytesOf(bodyOf("/folder.htm")), "");
  EXPECT_EQ(bytesOf(cache.bodyOf("/missing", FileInfo{5, {}, 1, false})), "");
}

TEST_F(ContentCacheTest, TheLeastUsedMakesRoom) {
  const std::string bytes(ContentCache::kMostFileBytes, 'x');
  const std::size_t count = ContentCache::kMostBytes / bytes.size() + 10;
  files.put("/used", bytes);
  for (std::size_t i = 0; i < count; ++i) {
    files.put("/" + std::to_string(i), bytes);
    bodyOf("/" + std::to_string(i));
    bodyOf("/used");
    EXPECT_LE(cache.keptBytes(), ContentCache::kMostBytes);
  }
  EXPECT_EQ(contentOf("/used"), contentOf("/used"));
  const std::string* held = contentOf("/" + std::to_string(count - 1));
  EXPECT_EQ(held, contentOf("/" + std::to_string(count - 1)));
}

}  // namespace quorvane
