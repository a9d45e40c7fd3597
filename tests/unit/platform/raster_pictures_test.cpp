#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>

#include "platform/picture_tools.h"
#include "platform/pictures/gif_writing.h"
#include "platform/pictures/picture_head.h"
#include "platform/pictures/raster_work.h"
#include "platform/pictures/scaling.h"
#include "testing/pictures.h"

namespace quorvane::picture_tools {

namespace {

const Library& library() {
  return *load().library;
}

int partAt(const Raster& picture, int x, int y, int part) {
  return static_cast<std::uint8_t>(picture.pixels[static_cast<std::size_t>(
      (y * picture.size.width + x) * picture.channels + part)]);
}

TEST(PictureHead, TellsWhatTheLibraryTells) {
  const RgbPicture picture = gradient(70, 40);
  const std::array<std::string, 4> files = {
      *library().encoded(picture, {}), *library().encoded(picture, {FileType::Png, 80, false}),
      *library().encoded(picture, {FileType::Png, 80, true}), encodeGif(rasterOf(picture))};
  const std::array<bool, 4> atOnce = {false, false, true, true};
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto head = readPictureHead(files[i]);
    ASSERT_TRUE(head) << i;
    EXPECT_EQ(head->shown(), *library().sizeOf(files[i]));
    EXPECT_EQ(head->atOnce, atOnce[i]) << i;
    EXPECT_FALSE(head->hasAlpha);
    for (std::size_t cut = 0; cut < files[i].size() - 2; cut += 3) {
      EXPECT_FALSE(readPictureHead(files[i].substr(0, cut))) << i << ' ' << cut;
    }
  }
}

TEST(PictureHead, OfAGifHasThePlaceOfItsFirstPicture) {
  const std::string file =
      std::string("GIF89a\x0A\0\x05\0\0\0\0,\x02\0\x01\0\x03\0\x09\0\0\x02\x02\x44\x01\0;", 29);
  const auto head = readPictureHead(file);
  ASSERT_TRUE(head);
  EXPECT_EQ(head->size, (Size{10, 10})) << "made larger for the picture to have room";
  EXPECT_EQ(head->first, (Size{3, 9}));
  EXPECT_EQ(head->left, 2);
  EXPECT_EQ(head->top, 1);
  EXPECT_TRUE(head->hasAlpha);
}

TEST(PictureHead, SurvivesDamage) {
  const RgbPicture picture = gradient(30, 30);
  std::mt19937 random(1);
  for (const std::string& whole :
       {*library().encoded(picture, {}), *library().encoded(picture, {FileType::Png, 80, false}),
        encodeGif(rasterOf(picture))}) {
    for (int round = 0; round < 2000; ++round) {
      std::string damaged = whole;
      for (int i = 0; i < 4; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
      const auto head = readPictureHead(damaged);
      if (!head) continue;
      EXPECT_GT(head->size.width, 0);
      EXPECT_LE(head->left + head->first.width, head->size.width);
      EXPECT_LE(head->top + head->first.height, head->size.height);
    }
  }
}

TEST(Scaling, KeepsAFlatColour) {
  for (const int channels : {1, 3, 4}) {
    Raster flat = blank({123, 77}, channels);
    std::ranges::fill(flat.pixels, '\x50');
    for (const Size size :
         {Size{123, 77}, Size{5, 7}, Size{1, 1}, Size{60, 77}, Size{500, 3}, Size{124, 76}}) {
      const auto result = scaled(flat, size, Scaling::Best);
      ASSERT_TRUE(result);
      EXPECT_EQ(result->size, size);
      EXPECT_EQ(result->pixels.size(), result->rowLength() * size.height);
      for (const char c : result->pixels) ASSERT_NEAR(c, 0x50, 1);
    }
  }
}

TEST(Scaling, KeepsPlaces) {
  const Raster source = rasterOf(gradient(1001, 703));
  for (const Scaling scaling : {Scaling::Nearest, Scaling::Linear, Scaling::Cubic, Scaling::Best}) {
    const auto result = scaled(source, {50, 40}, scaling);
    ASSERT_TRUE(result);
    for (const int x : {5, 25, 45}) {
      EXPECT_NEAR(partAt(*result, x, 20, 0), 255 * (x + 0.5) / 50, 3);
    }
    for (const int y : {4, 20, 36}) {
      EXPECT_NEAR(partAt(*result, 25, y, 1), 255 * (y + 0.5) / 40, 3);
    }
  }
}

TEST(Scaling, WhatIsClearHasNoColour) {
  Raster source = blank({64, 64}, 4);
  for (std::size_t i = 0; i < source.pixels.size(); i += 4) {
    source.pixels.replace(i, 4, i / 4 % 2 == 0 ? "\xFF\xFF\xFF\xFF" : std::string(4, '\0'));
  }
  const auto result = scaled(source, {3, 3}, Scaling::Best);
  EXPECT_GT(partAt(*result, 1, 1, 0), 250);
  EXPECT_NEAR(partAt(*result, 1, 1, 3), 128, 3);
}

TEST(Scaling, GoesToTheBounds) {
  const Raster tall = blank({20, kMostSide}, 1);
  EXPECT_TRUE(scaled(tall, {kMostSide, 1}, Scaling::Cubic));
  EXPECT_TRUE(scaled(blank({1, 1}, 3), {kMostSide, 2}, Scaling::Best));
  EXPECT_TRUE(Scaler::canScale({16384, 8192}, {4000, 2000}));
  EXPECT_FALSE(Scaler::canScale({16384, 8192}, {8000, 8000}));
}

TEST(RasterWork, GreyIsAsLightAsTheColour) {
  Raster colours{{3, 1}, 3, std::string("\xFF\0\0\0\xFF\0\x80\x80\x80", 9)};
  const Raster result = grey(colours);
  EXPECT_EQ(result.channels, 1);
  EXPECT_NEAR(partAt(result, 0, 0, 0), 127, 1);
  EXPECT_NEAR(partAt(result, 1, 0, 0), 220, 1);
  EXPECT_NEAR(partAt(result, 2, 0, 0), 128, 1);
}

TEST(RasterWork, DoesAsTheLibraryDoes) {
  const RgbPicture picture = gradient(40, 30);
  const Raster raster = rasterOf(picture);
  const auto isNear = [](const RgbPicture& one, const Raster& other, int most) {
    ASSERT_EQ((Size{one.width, one.height}), other.size);
    // At the rims libraries differ.
    for (int y = 1; y < one.height - 1; ++y) {
      for (int i = 3; i < 3 * one.width - 3; ++i) {
        ASSERT_NEAR(partAt(rasterOf(one), 0, y, i), partAt(other, 0, y, i), most) << i;
      }
    }
  };
  isNear(*library().sharpened(picture, 1.5, 300), sharpened(raster, 1.5, 300), 8);
  for (const double degrees : {0.0, 90.0, 180.0, -90.0, 450.0}) {
    isNear(*library().turned(picture, degrees, 0x102030), turned(raster, degrees, 0x102030), 12);
  }
  isNear(*library().resized(picture, {13, 9}, Scaling::Best),
         *scaled(raster, {13, 9}, Scaling::Best), 8);
}

TEST(RasterWork, AQuarterOfATurnMovesPixelsAlone) {
  const Raster raster = rasterOf(gradient(40, 30));
  EXPECT_EQ(turned(raster, 90, 0).pixels, upright(raster, 8).pixels);
  EXPECT_EQ(turned(raster, 180, 0).pixels, upright(raster, 3).pixels);
  EXPECT_EQ(turned(raster, -90, 0).pixels, upright(raster, 6).pixels);
  EXPECT_EQ(turned(raster, 0, 0).pixels, raster.pixels);
}

TEST(GifWriting, IsReadAsItWas) {
  Raster flags = blank({50, 20}, 3);
  for (std::size_t i = 0; i < flags.pixels.size(); i += 3) {
    flags.pixels.replace(i, 3, i / 3 % 50 < 25 ? std::string("\xFF\0\0", 3) : "\x12\x34\x56");
  }
  EXPECT_EQ(library().decoded(encodeGif(flags), std::nullopt)->pixels, flags.pixels);
  Raster one = blank({1, 1}, 1);
  one.pixels[0] = '\x77';
  EXPECT_EQ(library().decoded(encodeGif(one), std::nullopt)->pixels, "\x77\x77\x77");
}

/// Enough, and different enough, that the codes run out and begin again, at every length.
TEST(GifWriting, PacksWhatHardlyPacks) {
  std::mt19937 random(1);
  for (int side = 1; side < 400; side += side < 60 ? 1 : 33) {
    Raster noise = blank({side, side}, 1);
    for (char& c : noise.pixels) c = static_cast<char>(random() % 16 * 17);
    const auto read = library().decoded(encodeGif(noise), std::nullopt);
    ASSERT_TRUE(read) << side;
    ASSERT_EQ(read->pixels, onWhite(noise).pixels) << side;
  }
}

TEST(GifWriting, MixesColoursThatItLacks) {
  const Raster picture = rasterOf(gradient(200, 200));
  const auto read = library().decoded(encodeGif(picture), std::nullopt);
  ASSERT_TRUE(read);
  const auto small = scaled(rasterOf(*read), {10, 10}, Scaling::Best);
  const auto wanted = scaled(picture, {10, 10}, Scaling::Best);
  for (std::size_t i = 0; i < small->pixels.size(); ++i) {
    EXPECT_NEAR(static_cast<std::uint8_t>(small->pixels[i]),
                static_cast<std::uint8_t>(wanted->pixels[i]), 5);
  }
}

}  // namespace

}  // namespace quorvane::picture_tools
