#include "support/paths.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

const std::string s(1, paths::kSeparator);

}  // namespace

TEST(Paths, ReadsBothSeparators) {
  EXPECT_EQ(paths::fileNameOf("/a/b.htm"), "b.htm");
  EXPECT_EQ(paths::fileNameOf("a\\b.htm"), "b.htm");
  EXPECT_EQ(paths::fileNameOf("b.htm"), "b.htm");
  EXPECT_EQ(paths::fileNameOf("/a/"), "");
  EXPECT_EQ(paths::folderOf("/a/b.htm"), "/a/");
  EXPECT_EQ(paths::folderOf("b.htm"), "");
}

TEST(Paths, MakesTheSystemsOwnSeparators) {
  EXPECT_EQ(paths::native("a/b\\c"), "a" + s + "b" + s + "c");
  EXPECT_EQ(paths::withSeparator("logs"), "logs" + s);
  EXPECT_EQ(paths::withSeparator("logs/"), "logs/");
  EXPECT_EQ(paths::withSeparator(""), s);
  EXPECT_EQ(paths::join("a", "b"), "a" + s + "b");
  EXPECT_EQ(paths::join("a/", "b"), "a/b");
  EXPECT_EQ(paths::join("a", "/b"), "a/b");
}

TEST(Paths, TakesTheExtensionFromTheLastDotOfTheWholePath) {
  EXPECT_EQ(paths::extensionOf("/a/b.tar.gz"), ".gz");
  EXPECT_EQ(paths::extensionOf("/a.b/c"), ".b/c");
  EXPECT_EQ(paths::extensionOf("abc"), "");
  EXPECT_EQ(paths::extensionOf("abc."), ".");
}

TEST(Paths, RelativePathsAreTakenBelowABase) {
  EXPECT_EQ(paths::absolute("/a", "/base"), "/a");
  EXPECT_EQ(paths::absolute("a", "/base"), "/base" + s + "a");
  EXPECT_EQ(paths::absolute("", "/base"), "/base" + s);
}

}  // namespace quorvane
