#include "http/picture_copies.h"

#include <gtest/gtest.h>

#include <optional>

#include "platform/fake/memory_files.h"
#include "platform/image_library.h"

namespace quorvane {

namespace {

class PictureCopiesTest : public testing::Test {
 protected:
  /// Makes a copy, a second after the one before.
  void make(const std::string& name, std::uint64_t size = 1) {
    files.stamp += std::chrono::seconds(1);
    files.put("/cache/" + name, "x");
    use(name, size);
  }
  void use(const std::string& name, std::uint64_t size = 1) {
    copies->used("/cache/" + name, size);
  }
  bool isThere(const std::string& name) { return files.stat("/cache/" + name).has_value(); }
  std::size_t count() { return files.list("/cache").size(); }
  void restart() { copies.emplace(files); }

  static std::string name(std::size_t number) { return "^R" + std::to_string(number) + "x0a.jpg"; }
  void makeMost() {
    for (std::size_t i = 1; i <= PictureCopies::kMostCopies; ++i) make(name(i));
  }

  MemoryFiles files;
  std::optional<PictureCopies> copies{files};
};

}  // namespace

TEST_F(PictureCopiesTest, NamesAreKnownAgain) {
  EXPECT_EQ(PictureCopies::nameOf({100, 80}, "photo.jpg"), "^R100x80photo.jpg");
  for (const char* name : {"^R100x80photo.jpg", "^R5x01.png", "^IMG^^R100X80PHOTO.JPG",
                           "^^R1X1A.GIF", "^R1x0a.jpg.Xy12zZ"}) {
    EXPECT_TRUE(PictureCopies::isCopy(name)) << name;
  }
  for (const char* name :
       {"^CSS^SITE.CSS", "^R1X1.CSS", "^R100X80^PHOTO.JPG", "^Rx1a.jpg", "^R1xa.jpg", "^R1", "^R",
        "^N0123photo.jpg", "^A^^RED.CSS", "R1x1.jpg", "notes.txt", ""}) {
    EXPECT_FALSE(PictureCopies::isCopy(name)) << name;
  }
}

TEST_F(PictureCopiesTest, TheOneNotUsedForLongestGoesFirst) {
  makeMost();
  use(name(1));
  EXPECT_EQ(count(), PictureCopies::kMostCopies);
  make("^R9999x0a.jpg");
  EXPECT_EQ(count(), PictureCopies::kMostCopies);
  EXPECT_TRUE(isThere(name(1)));
  EXPECT_FALSE(isThere(name(2)));
  EXPECT_TRUE(isThere(name(3)));
}

TEST_F(PictureCopiesTest, TheirSizeIsBoundedToo) {
  const std::uint64_t third = PictureCopies::kMostBytes / 3;
  for (std::size_t i = 1; i <= 3; ++i) make(name(i), third);
  EXPECT_EQ(count(), 3u);
  make(name(4), third + 2);
  EXPECT_EQ(count(), 2u) << "two had to go";
  EXPECT_TRUE(isThere(name(3)));
  use(name(3), 10);  // rendered again and smaller
  make(name(5), third);
  EXPECT_EQ(count(), 3u);
}

TEST_F(PictureCopiesTest, ACopyThatIsTooLargeAloneStaysAlone) {
  make(name(1));
  make(name(2), PictureCopies::kMostBytes + 1);
  EXPECT_FALSE(isThere(name(1)));
  EXPECT_TRUE(isThere(name(2)));
}

TEST_F(PictureCopiesTest, WhatAnEarlierRunLeftCountsByItsAge) {
  makeMost();
  files.put("/cache/" + name(2), "newer");
  restart();
  use(name(5));
  EXPECT_EQ(count(), PictureCopies::kMostCopies);
  make("^R9999x0a.jpg");
  make("^R9999x1a.jpg");
  EXPECT_EQ(count(), PictureCopies::kMostCopies);
  EXPECT_FALSE(isThere(name(1)));
  EXPECT_TRUE(isThere(name(2)));
  EXPECT_FALSE(isThere(name(3)));
}

TEST_F(PictureCopiesTest, ALeftOverCrowdIsThinnedAtOnce) {
  for (std::size_t i = 1; i <= PictureCopies::kMostCopies + 100; ++i) {
    files.put("/cache/" + name(i), "x");
  }
  use(name(7));
  EXPECT_EQ(count(), PictureCopies::kMostCopies);
  EXPECT_TRUE(isThere(name(7)));
}

TEST_F(PictureCopiesTest, OtherFilesStay) {
  files.put("/cache/^CSS^SITE.CSS", "packed");
  files.put("/cache/^N00photo.jpg", "temporary");
  files.put("/cache/notes.txt", "mine");
  files.addFolder("/cache/^R1x1folder");
  make(name(1), PictureCopies::kMostBytes);
  make(name(2), PictureCopies::kMostBytes);
  EXPECT_FALSE(isThere(name(1)));
  EXPECT_EQ(count(), 5u);
}

TEST_F(PictureCopiesTest, AnEmptiedFolderIsNoMatter) {
  make(name(1), PictureCopies::kMostBytes - 1);
  files.remove("/cache/" + name(1));
  make(name(2), 2);
  make(name(3), PictureCopies::kMostBytes - 2);
  EXPECT_EQ(count(), 2u) << "the vanished one counts no more";
}

TEST_F(PictureCopiesTest, ACopyThatCannotBeRemovedIsTriedAgain) {
  makeMost();
  files.inUse = {"/cache/" + name(1), "/cache/" + name(2)};
  make("^R9999x0a.jpg");
  EXPECT_EQ(count(), PictureCopies::kMostCopies);
  EXPECT_FALSE(isThere(name(3)));

  files.inUse.clear();
  for (std::size_t i = 0; i < PictureCopies::kMostCopies; ++i) make("^R1x" + name(i).substr(2));
  EXPECT_EQ(count(), PictureCopies::kMostCopies);
  EXPECT_FALSE(isThere(name(1)));
}

TEST_F(PictureCopiesTest, WhenNothingCanBeRemovedItGivesUp) {
  makeMost();
  for (std::size_t i = 1; i <= PictureCopies::kMostCopies; ++i) {
    files.inUse.insert("/cache/" + name(i));
  }
  make("^R9999x0a.jpg");
  EXPECT_EQ(count(), PictureCopies::kMostCopies + 1);
}

}  // namespace quorvane
