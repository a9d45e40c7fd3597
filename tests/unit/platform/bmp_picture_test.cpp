#include "platform/bmp_picture.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

namespace quorvane {

namespace {

using namespace std::string_literals;

constexpr int kMostSide = 100;
constexpr std::int64_t kMostPixels = 5000;

std::string number(std::uint64_t value, int width) {
  std::string out;
  for (int i = 0; i < width; ++i) out += static_cast<char>(value >> (8 * i) & 0xFF);
  return out;
}

/// A file with an info header; `extra` are the masks and the palette.
std::string file(int width, int height, unsigned bits, std::uint32_t packing,
                 const std::string& extra, const std::string& data) {
  const std::uint32_t offset = 54 + static_cast<std::uint32_t>(extra.size());
  return "BM" + number(offset + static_cast<std::uint32_t>(data.size()), 4) + number(0, 4) +
         number(offset, 4) + number(40, 4) + number(static_cast<std::uint32_t>(width), 4) +
         number(static_cast<std::uint32_t>(height), 4) + number(1, 2) + number(bits, 2) +
         number(packing, 4) + std::string(20, '\0') + extra + data;
}

std::optional<RgbPicture> decode(const std::string& bytes) {
  return decodeBmp(bytes, kMostSide, kMostPixels);
}

std::string pixelsOf(const std::string& bytes) {
  const auto picture = decode(bytes);
  return picture ? picture->pixels : "broken";
}

const std::string kBlackWhiteRed = "\0\0\0\0\xFF\xFF\xFF\0\0\0\xFF\0"s;
const std::string kBlack = "\0\0\0"s;
const std::string kWhite = "\xFF\xFF\xFF";
const std::string kRed = "\xFF\0\0"s;

TEST(BmpPicture, WhatIsEncodedComesBack) {
  for (int width = 1; width <= 5; ++width) {
    RgbPicture picture{width, 3, {}};
    for (int i = 0; i < width * 9; ++i) picture.pixels += static_cast<char>(i * 7);
    const std::string bytes = encodeBmp(picture);
    EXPECT_EQ(bytes.size() % 4, 54 % 4) << "rows are padded";
    const auto back = decode(bytes);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->width, width);
    EXPECT_EQ(back->height, 3);
    EXPECT_EQ(back->pixels, picture.pixels);
  }
}

TEST(BmpPicture, RowsStandBottomUpUnlessTheHeightIsNegative) {
  const std::string rows = "\0\0\xFF\0\0\0\0\0"s;  // a red row, then a black one
  EXPECT_EQ(pixelsOf(file(1, 2, 24, 0, "", rows)), kBlack + kRed);
  EXPECT_EQ(pixelsOf(file(1, -2, 24, 0, "", rows)), kRed + kBlack);
}

TEST(BmpPicture, ReadsPalettesOfOneFourAndEightBits) {
  EXPECT_EQ(pixelsOf(file(3, 1, 1, 0, kBlackWhiteRed.substr(0, 8), "\xA0\0\0\0"s)),
            kWhite + kBlack + kWhite);
  const std::string sixteen = kBlackWhiteRed + std::string(13 * 4, '\0');
  EXPECT_EQ(pixelsOf(file(3, 1, 4, 0, sixteen, "\x12\x00\0\0"s)), kWhite + kRed + kBlack);
  EXPECT_EQ(pixelsOf(file(2, 1, 8, 0, kBlackWhiteRed, "\x02\x01\0\0"s)), kRed + kWhite);
}

TEST(BmpPicture, ColoursBeyondThePaletteAreBlack) {
  EXPECT_EQ(pixelsOf(file(2, 1, 8, 0, kBlackWhiteRed, "\x02\x63\0\0"s)), kRed + kBlack);
}

TEST(BmpPicture, ReadsTheOldShortHeader) {
  const std::string bytes = "BM" + number(0, 8) + number(32, 4) + number(12, 4) + number(2, 2) +
                            number(1, 2) + number(1, 2) + number(1, 2) + "\0\0\0\0\0\xFF"s +
                            "\x40\0\0\0"s;
  EXPECT_EQ(pixelsOf(bytes), kBlack + kRed);
}

TEST(BmpPicture, ReadsColourMasks) {
  EXPECT_EQ(pixelsOf(file(1, 1, 16, 0, "", number(0x7C00, 4))), kRed);
  EXPECT_EQ(pixelsOf(file(1, 1, 16, 3, number(0xF800, 4) + number(0x7E0, 4) + number(0x1F, 4),
                          number(0xF800, 4))),
            kRed);
  EXPECT_EQ(pixelsOf(file(1, 1, 32, 0, "", number(0x80FF0000, 4))), kRed);
  EXPECT_EQ(pixelsOf(file(1, 1, 32, 3, number(0xFF, 4) + number(0xFF00, 4) + number(0, 4),
                          number(0xFF, 4))),
            kRed);
}

TEST(BmpPicture, FollowsRunLengths) {
  // Two red, end of row, a move, one literal white, end of picture.
  const std::string data = "\x02\x02\0\0\0\x02\x01\0\x01\x01\0\x01"s;
  EXPECT_EQ(pixelsOf(file(2, -2, 8, 1, kBlackWhiteRed, data)), kRed + kRed + kBlack + kWhite);
  const std::string literal = "\0\x03\x01\x02\x01\0\0\x01"s;
  EXPECT_EQ(pixelsOf(file(3, 1, 8, 1, kBlackWhiteRed, literal)), kWhite + kRed + kWhite);
  const std::string sixteen = kBlackWhiteRed + std::string(13 * 4, '\0');
  EXPECT_EQ(pixelsOf(file(3, 1, 4, 2, sixteen, "\x03\x12\0\x01"s)), kWhite + kRed + kWhite);
}

TEST(BmpPicture, RunsBeyondThePictureAreCutOff) {
  const std::string data = "\xFF\x02\0\x02\xFF\xFF\xFF\x01\0\x01"s;
  EXPECT_EQ(pixelsOf(file(2, -2, 8, 1, kBlackWhiteRed, data)), kRed + kRed + kBlack + kBlack);
}

TEST(BmpPicture, RefusesWhatIsTooLarge) {
  EXPECT_TRUE(decode(file(100, 1, 1, 0, "", std::string(16, '\0'))));
  EXPECT_FALSE(decode(file(101, 1, 1, 0, "", std::string(16, '\0'))));
  EXPECT_FALSE(decode(file(1, 101, 1, 0, "", std::string(404, '\0'))));
  EXPECT_FALSE(decode(file(80, 80, 8, 1, kBlackWhiteRed, "\0\x01"s))) << "more than 5000 pixels";
  EXPECT_FALSE(decode(file(0x7FFFFFFF, 0x7FFFFFFF, 8, 1, kBlackWhiteRed, "\0\x01"s)));
  EXPECT_FALSE(decode(file(1, static_cast<int>(0x80000000U), 24, 0, "", "1234")));
  EXPECT_FALSE(decode(file(0, 1, 24, 0, "", "1234")));
  EXPECT_FALSE(decode(file(-1, 1, 24, 0, "", "1234")));
}

TEST(BmpPicture, RefusesUnknownPackings) {
  EXPECT_FALSE(decode(file(1, 1, 24, 4, "", "1234")));
  EXPECT_FALSE(decode(file(1, 1, 24, 1, "", "1234")));
  EXPECT_FALSE(decode(file(1, 1, 7, 0, "", "1234")));
  EXPECT_FALSE(decode("GIF89a"));
}

TEST(BmpPicture, RefusesEveryFileThatEndsEarly) {
  const std::string plain = file(3, 3, 24, 0, "", std::string(36, 'x'));
  for (std::size_t cut = 0; cut < plain.size(); ++cut) EXPECT_FALSE(decode(plain.substr(0, cut)));
  EXPECT_TRUE(decode(plain));
  const std::string runs = file(2, 2, 8, 1, kBlackWhiteRed, "\x02\x02\0\0\x02\x01\0\x01"s);
  for (std::size_t cut = 0; cut < runs.size(); ++cut) EXPECT_FALSE(decode(runs.substr(0, cut)));
  EXPECT_TRUE(decode(runs));
}

TEST(BmpPicture, SurvivesDamage) {
  std::mt19937 random(1);
  const std::string whole =
      file(9, 7, 8, 1, kBlackWhiteRed, "\x09\x02\0\0\0\x05\1\2\1\2\1\0\x03\x01\0\x02\1\1\0\1"s);
  int readable = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string damaged = whole;
    for (int i = 0; i < 3; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
    if (const auto picture = decode(damaged)) {
      ++readable;
      ASSERT_EQ(picture->pixels.size(), std::size_t{3} * picture->width * picture->height);
    }
  }
  EXPECT_GT(readable, 0);
}

}  // namespace

}  // namespace quorvane
