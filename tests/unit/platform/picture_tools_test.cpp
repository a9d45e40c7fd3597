#include "platform/picture_tools.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

namespace quorvane::picture_tools {

namespace {

const Library& tools() {
  if (!load().library) throw std::runtime_error(load().complaint);
  return *load().library;
}

/// Black at the left and white at the right.
RgbPicture halves(int width, int height) {
  RgbPicture picture{width, height, {}};
  for (int i = 0; i < width * height; ++i) {
    picture.pixels += std::string(3, i % width < width / 2 ? '\0' : '\xFF');
  }
  return picture;
}

int redAt(const RgbPicture& picture, int x, int y) {
  return static_cast<std::uint8_t>(
      picture.pixels[static_cast<std::size_t>(y * picture.width + x) * 3]);
}

Size sizeOfPicture(const RgbPicture& picture) {
  return {picture.width, picture.height};
}

TEST(PictureTools, FilesAreWrittenAndRead) {
  const RgbPicture picture = halves(40, 30);
  const std::array<std::string, 3> files = {*tools().encoded(picture, {}),
                                            *tools().encoded(picture, {FileType::Png, 80, true}),
                                            encodeBmp(picture)};
  for (const std::string& file : files) {
    EXPECT_EQ(tools().sizeOf(file), (Size{40, 30}));
    const auto whole = tools().decoded(file, std::nullopt);
    ASSERT_TRUE(whole);
    EXPECT_EQ(sizeOfPicture(*whole), (Size{40, 30}));
    EXPECT_LT(redAt(*whole, 2, 15), 10);
    EXPECT_GT(redAt(*whole, 37, 15), 245);
    const auto small = tools().decoded(file, Size{10, 20});
    ASSERT_TRUE(small);
    EXPECT_EQ(sizeOfPicture(*small), (Size{10, 20}));
    EXPECT_LT(redAt(*small, 1, 10), 20);
    EXPECT_GT(redAt(*small, 8, 10), 235);
  }
  EXPECT_EQ(tools().decoded(files[1], std::nullopt)->pixels, picture.pixels);
  const auto rough = tools().encoded(picture, {FileType::Jpeg, 1, false});
  const auto fine = tools().encoded(picture, {FileType::Jpeg, 100, false});
  if (std::getenv("WINEPREFIX")) {
    EXPECT_EQ(rough->size(), fine->size()) << "Wine's codec knows one quality";
  } else {
    EXPECT_LT(rough->size(), fine->size());
  }
}

TEST(PictureTools, BrokenFilesAreNothing) {
  const std::string whole = *tools().encoded(halves(200, 200), {});
  EXPECT_FALSE(tools().sizeOf(""));
  EXPECT_FALSE(tools().sizeOf("no picture"));
  EXPECT_FALSE(tools().decoded("\xFF\xD8\xFF", std::nullopt));
  EXPECT_FALSE(tools().decoded(whole.substr(0, whole.size() / 2), std::nullopt));
  EXPECT_FALSE(tools().decoded(whole, Size{0, 5}));
  EXPECT_FALSE(tools().decoded(whole, Size{kMostSide + 1, 5}));
}

TEST(PictureTools, SizesHaveBounds) {
  EXPECT_TRUE(isAllowed({1, 1}));
  EXPECT_TRUE(isAllowed({kMostSide, 2048}));
  EXPECT_FALSE(isAllowed({kMostSide, 2049}));
  EXPECT_FALSE(isAllowed({kMostSide + 1, 1}));
  EXPECT_FALSE(isAllowed({0, 1}));
  EXPECT_FALSE(isAllowed({-5, -5}));
  EXPECT_FALSE(tools().resized(halves(10, 10), {kMostSide, kMostSide}, Scaling::Nearest));
}

TEST(PictureTools, PicturesAreResized) {
  for (const Scaling scaling : {Scaling::Nearest, Scaling::Linear, Scaling::Cubic, Scaling::Best}) {
    for (const Size size : {Size{7, 31}, Size{33, 3}, Size{1, 1}, Size{20, 10}}) {
      const auto result = tools().resized(halves(20, 10), size, scaling);
      ASSERT_TRUE(result);
      EXPECT_EQ(sizeOfPicture(*result), size);
    }
  }
  const auto larger = tools().resized(halves(4, 4), {40, 40}, Scaling::Nearest);
  EXPECT_EQ(larger->pixels, halves(40, 40).pixels);
}

TEST(PictureTools, SharpeningWidensSteps) {
  RgbPicture soft = *tools().resized(*tools().resized(halves(40, 4), {10, 4}, Scaling::Linear),
                                     {40, 4}, Scaling::Cubic);
  const auto sharp = tools().sharpened(soft, 1, 300);
  ASSERT_TRUE(sharp);
  const auto contrast = [](const RgbPicture& picture) {
    return redAt(picture, 21, 2) - redAt(picture, 18, 2);
  };
  EXPECT_GT(contrast(*sharp), contrast(soft));
  EXPECT_EQ(tools().sharpened(soft, 1, 100)->pixels, soft.pixels);
}

TEST(PictureTools, TurnsCounterclockwise) {
  const auto quarter = tools().turned(halves(20, 10), 90, 0);
  ASSERT_TRUE(quarter);
  EXPECT_EQ(sizeOfPicture(*quarter), (Size{10, 20}));
  EXPECT_EQ(redAt(*quarter, 5, 2), 255);  // what was at the right is at the top
  EXPECT_EQ(redAt(*quarter, 5, 18), 0);
  const auto eighth = tools().turned(halves(20, 20), 45, 0x800000);
  ASSERT_TRUE(eighth);
  EXPECT_GT(eighth->width, 25);
  EXPECT_EQ(redAt(*eighth, 0, 0), 0x80);
}

TEST(PictureTools, TextsBecomeMasks) {
  TextStyle style;
  const auto mask = tools().textMask("A<b>&", style);
  ASSERT_TRUE(mask);
  EXPECT_EQ(mask->covers.size(), static_cast<std::size_t>(mask->size.width) *
                                     static_cast<std::size_t>(mask->size.height));
  EXPECT_NE(mask->covers.find('\xFF'), std::string::npos);
  style.pixels = 48;
  EXPECT_GT(tools().textMask("A<b>&", style)->advance, mask->advance);
  EXPECT_EQ(tools().textMask(" ", style)->advance, 0);
  EXPECT_EQ(tools().textMask("", style)->covers, "");
  style.family = "no, such Bold 100px <font>";
  EXPECT_TRUE(tools().textMask("text", style));
  style.pixels = 2000;
  EXPECT_LT(tools().textMask(std::string(100'000, 'W'), style)->size.width, 8 * kMostSide);
  style.pixels = 0;
  EXPECT_FALSE(tools().textMask("text", style));
}

}  // namespace

}  // namespace quorvane::picture_tools
