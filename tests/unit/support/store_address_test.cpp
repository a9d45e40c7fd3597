#include "support/store_address.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(StoreAddress, HasHostPortAndDatabase) {
  const auto whole = StoreAddress::of("redis://cache.example:6380/3");
  ASSERT_TRUE(whole);
  EXPECT_EQ(whole->host, "cache.example");
  EXPECT_EQ(whole->port, 6380);
  EXPECT_EQ(whole->database, 3);
  const auto least = StoreAddress::of("redis://10.0.0.5");
  ASSERT_TRUE(least);
  EXPECT_EQ(least->port, 6379);
  EXPECT_EQ(least->database, 0);
}

TEST(StoreAddress, HasAUserAndAPassword) {
  const auto named = StoreAddress::of("redis://site:p@ss:w@[::1]:1/");
  ASSERT_TRUE(named);
  EXPECT_EQ(named->user, "site");
  EXPECT_EQ(named->password, "p@ss:w");
  EXPECT_EQ(named->host, "::1");
  EXPECT_EQ(named->port, 1);
  EXPECT_EQ(StoreAddress::of("redis://:secret@host")->password, "secret");
}

TEST(StoreAddress, MayBeAFile) {
  const auto file = StoreAddress::of("unix:/run/redis/redis.sock");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->path, "/run/redis/redis.sock");
  EXPECT_TRUE(file->host.empty());
}

TEST(StoreAddress, IsNothingElse) {
  for (const char* text :
       {"", "redis", "redis://", "redis://:7", "redis://host:", "redis://host:0",
        "redis://host:65536", "redis://host:7x", "redis://host/x", "redis://who@host",
        "redis://[::1", "redis://[::1]7", "redis://[]", "http://host", "unix:", "unix:here"}) {
    EXPECT_FALSE(StoreAddress::of(text)) << text;
  }
}

}  // namespace
}  // namespace quorvane
