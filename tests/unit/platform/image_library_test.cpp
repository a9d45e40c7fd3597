#include "platform/image_library.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include "platform/picture_rules.h"
#include "platform/picture_tools.h"
#include "platform/pictures/gif_writing.h"
#include "platform/pictures/picture_head.h"
#include "testing/pictures.h"

namespace quorvane {

namespace {

using namespace picture_tools;
using ImageLibraryTest = ImageLibraryFixture;

const std::array<std::string, 4> kTypes = {"jpg", "gif", "png", "bmp"};

std::string sample(const std::string& type, int width, int height) {
  const RgbPicture picture = gradient(width, height);
  if (type == "bmp") return encodeBmp(picture);
  if (type == "gif") return encodeGif(rasterOf(picture));
  return load()
      .library->encoded(picture, {type == "png" ? FileType::Png : FileType::Jpeg, 90, false})
      .value_or("");
}

struct Inspected {
  int width = 0;
  int height = 0;
  std::array<int, 3> topLeft{};
  std::array<int, 3> bottomRight{};
};

std::array<int, 3> pointOf(const RgbPicture& picture, int x, int y) {
  const std::size_t at = 3 * (static_cast<std::size_t>(y) * picture.width + x);
  const auto part = [&](std::size_t i) {
    return static_cast<int>(static_cast<std::uint8_t>(picture.pixels[at + i]));
  };
  return {part(0), part(1), part(2)};
}

Inspected inspected(const std::string& bytes) {
  const auto picture = load().library->decoded(bytes, std::nullopt);
  if (!picture) {
    ADD_FAILURE() << "no picture";
    return {};
  }
  return {picture->width, picture->height, pointOf(*picture, 0, 0),
          pointOf(*picture, picture->width - 1, picture->height - 1)};
}

TEST_F(ImageLibraryTest, TheTargetIsOfTheSourcesType) {
  constexpr std::array<Format, 4> kFormats = {Format::Jpeg, Format::Gif, Format::Png, Format::Bmp};
  for (std::size_t i = 0; i < kTypes.size(); ++i) {
    SCOPED_TRACE(kTypes[i]);
    const std::string file = render(sample(kTypes[i], 200, 100), {.width = 50, .height = 50});
    EXPECT_EQ(formatOf(file), kFormats[i]);
    const Inspected result = inspected(file);
    EXPECT_EQ(result.width, 50);
    EXPECT_EQ(result.height, 25);
    EXPECT_LT(result.topLeft[0], 20);
    EXPECT_LT(result.topLeft[1], 20);
    EXPECT_GT(result.bottomRight[0], 235);
    EXPECT_GT(result.bottomRight[1], 235);
  }
}

TEST_F(ImageLibraryTest, FillsTheSizeWhenTheAspectIsFree) {
  for (const std::string& type : kTypes) {
    const Inspected result =
        inspected(render(sample(type, 200, 100), {.width = 30, .height = 60, .keepAspect = false}));
    EXPECT_EQ(result.width, 30);
    EXPECT_EQ(result.height, 60);
  }
}

TEST_F(ImageLibraryTest, OneSideFollowsFromTheOther) {
  const std::string source = sample("png", 200, 100);
  for (const bool keepAspect : {true, false}) {
    Inspected result = inspected(render(source, {.width = 40, .keepAspect = keepAspect}));
    EXPECT_EQ(result.height, 20);
    result = inspected(render(source, {.height = 40, .keepAspect = keepAspect}));
    EXPECT_EQ(result.width, 80);
  }
}

TEST_F(ImageLibraryTest, GrowsToo) {
  const Inspected result = inspected(render(sample("png", 20, 10), {.width = 400, .height = 400}));
  EXPECT_EQ(result.width, 400);
  EXPECT_EQ(result.height, 200);
}

TEST_F(ImageLibraryTest, ASideNeverVanishes) {
  const Inspected result = inspected(render(sample("png", 1000, 2), {.width = 10, .height = 10}));
  EXPECT_EQ(result.width, 10);
  EXPECT_EQ(result.height, 1);
}

TEST_F(ImageLibraryTest, GreyHasNoColour) {
  for (const std::string& type : kTypes) {
    SCOPED_TRACE(type);
    const Inspected result =
        inspected(render(sample(type, 200, 100), {.width = 50, .height = 50, .grey = true}));
    EXPECT_EQ(result.width, 50);
    for (const auto& point : {result.topLeft, result.bottomRight}) {
      EXPECT_NEAR(point[0], point[1], 1);
      EXPECT_NEAR(point[1], point[2], 1);
    }
    EXPECT_GT(result.bottomRight[0], 150);
  }
}

TEST_F(ImageLibraryTest, WhatIsSeenThroughStaysSo) {
  Raster half{{40, 40}, 4, {}};
  for (int i = 0; i < 40 * 40; ++i) {
    half.pixels += i % 40 < 20 ? "\xFF\x10\x10\xFF" : std::string(4, 0);
  }
  for (const bool grey : {false, true}) {
    const std::string file = render(encodeGif(half), {.width = 10, .height = 10, .grey = grey});
    EXPECT_TRUE(readPictureHead(file)->hasAlpha);
    const Inspected result = inspected(file);
    EXPECT_LT(result.topLeft[1], 140);
    EXPECT_EQ(result.bottomRight[1], 255) << "on white";
  }
}

/// A jpg that says how its camera was held.
std::string photo(int orientation) {
  std::string file = sample("jpg", 200, 100);
  const std::string notes("Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0", 24);
  const std::string segment =
      std::string("\xFF\xE1\0\x22", 4) + notes + static_cast<char>(orientation) + std::string(7, 0);
  return file.insert(2, segment);
}

TEST_F(ImageLibraryTest, APhotoTakenSidewaysComesOutUpright) {
  struct Corner {
    bool red = false;  // what is stored at the right
    bool green = false;
  };
  // What is shown at the top left, of a picture whose red is stored at the right, green at the
  // bottom.
  const std::array<Corner, 8> corners = {{{false, false},
                                          {true, false},
                                          {true, true},
                                          {false, true},
                                          {false, false},
                                          {false, true},
                                          {true, true},
                                          {true, false}}};
  for (int orientation = 1; orientation <= 8; ++orientation) {
    SCOPED_TRACE(orientation);
    const std::string source = photo(orientation);
    const bool isTurned = orientation > 4;
    EXPECT_EQ(load().library->sizeOf(source), (isTurned ? Size{100, 200} : Size{200, 100}));
    const Inspected result = inspected(render(source, {.width = 80, .height = 80}));
    EXPECT_EQ(result.width, isTurned ? 40 : 80);
    EXPECT_EQ(result.height, isTurned ? 80 : 40);
    const Corner corner = corners[static_cast<std::size_t>(orientation - 1)];
    EXPECT_NEAR(result.topLeft[0], corner.red ? 255 : 0, 20);
    EXPECT_NEAR(result.topLeft[1], corner.green ? 255 : 0, 20);
    EXPECT_NEAR(result.bottomRight[0], corner.red ? 0 : 255, 20);
    EXPECT_NEAR(result.bottomRight[1], corner.green ? 0 : 255, 20);
  }
}

TEST_F(ImageLibraryTest, WithoutASizeNothingIsDone) {
  EXPECT_EQ(render(sample("png", 20, 10), {}), "");
  EXPECT_EQ(render(sample("png", 20, 10), {.width = -5, .height = -1}), "");
}

TEST_F(ImageLibraryTest, ResultsAreBounded) {
  const std::string source = sample("png", 20, 10);
  EXPECT_EQ(render(source, {.width = 16385}), "");
  EXPECT_EQ(render(source, {.width = 16384, .height = 16384, .keepAspect = false}), "");
  EXPECT_EQ(render(source, {.width = 2147483647, .height = 2147483647}), "");
  EXPECT_NE(render(source, {.width = 16384, .height = 1, .keepAspect = false}), "");
  EXPECT_EQ(render(sample("gif", 20, 10), {.width = 2049, .height = 2048, .keepAspect = false}),
            "");
  const Inspected narrow = inspected(render(sample("png", 1, 100), {.width = 1000}));
  EXPECT_EQ(narrow.height, 16384) << "the side that follows stays within the bound";
  EXPECT_EQ(narrow.width, 164);
  EXPECT_NE(render(source, {.width = 2000, .height = 2000, .keepAspect = false}), "");
  EXPECT_EQ(render(source, {.width = 2000, .height = 2001, .keepAspect = false}), "");
  EXPECT_NE(render(sample("bmp", 2100, 2000), {.width = 2000, .height = 2100, .keepAspect = false}),
            "")
      << "as many as its source has";
}

TEST_F(ImageLibraryTest, AMissingSourceOrAFailedWriteIsFalse) {
  EXPECT_FALSE(images->render("/site/none", "/cache/target", {.width = 10}));
  EXPECT_FALSE(images->render("/site", "/cache/target", {.width = 10}));
  files.put("/site/a.png", sample("png", 20, 10));
  EXPECT_FALSE(images->render("/site/a.png", "/no/folder/target", {.width = 10}));
}

TEST_F(ImageLibraryTest, ABrokenSourceLeavesTheTargetAlone) {
  files.put("/site/source", sample("jpg", 200, 100).substr(0, 600));
  files.put("/cache/target", "before");
  EXPECT_FALSE(images->render("/site/source", "/cache/target", {.width = 10}));
  EXPECT_EQ(files.readAll("/cache/target"), "before");
}

TEST_F(ImageLibraryTest, ASourceThatEndsEarlyIsBroken) {
  for (const std::string& type : kTypes) {
    SCOPED_TRACE(type);
    const std::string whole = sample(type, 64, 64);
    ASSERT_NE(render(whole, {.width = 10}), "");
    for (std::size_t cut = 1; cut < whole.size() * 3 / 4; cut += 7) {
      ASSERT_EQ(render(whole.substr(0, cut), {.width = 10}), "") << cut;
    }
  }
}

TEST_F(ImageLibraryTest, SurvivesDamage) {
  std::mt19937 random(1);
  for (const std::string& type : kTypes) {
    const std::string whole = sample(type, 40, 30);
    for (int round = 0; round < 50; ++round) {
      std::string damaged = whole;
      for (int i = 0; i < 4; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
      const std::string result = render(damaged, {.width = 20, .height = 20});
      if (!result.empty()) {
        EXPECT_LE(inspected(result).width, 20);
      }
    }
  }
}

}  // namespace

}  // namespace quorvane
