#include "components/pictures/pixel_work.h"

#include <gtest/gtest.h>

namespace quorvane::pictures {

namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr Ink kBlack{0};

/// A letter a pixel, a blank between two rows: '.' for white, '#' for black, '?' for what is
/// neither.
std::string shown(const RgbPicture& picture) {
  std::string text;
  for (int y = 0; y < picture.height; ++y) {
    if (y > 0) text += ' ';
    for (int x = 0; x < picture.width; ++x) {
      const std::string pixel =
          picture.pixels.substr(static_cast<std::size_t>(y * picture.width + x) * 3, 3);
      text += pixel == "\xFF\xFF\xFF" ? '.' : pixel == std::string(3, '\0') ? '#' : '?';
    }
  }
  return text;
}

/// A corner's shape, which every turn shows.
RgbPicture corner() {
  RgbPicture picture = plain(4, 3, kWhite);
  fill(picture, {0, 0, 3, 1}, kBlack);
  fill(picture, {0, 0, 1, 2}, kBlack);
  return picture;
}

TEST(PixelWork, TurnsAndFlips) {
  EXPECT_EQ(shown(corner()), "###. #... ....");
  EXPECT_EQ(shown(turnedLeft(corner())), "... #.. #.. ##.");
  EXPECT_EQ(shown(turnedRight(corner())), ".## ..# ..# ...");
  RgbPicture picture = corner();
  flipAcross(picture);
  EXPECT_EQ(shown(picture), ".### ...# ....");
  flipDown(picture);
  EXPECT_EQ(shown(picture), ".... ...# .###");
}

TEST(PixelWork, Crops) {
  EXPECT_EQ(shown(cropped(corner(), {0, 0, 4, 3})), shown(corner()));
  EXPECT_EQ(shown(cropped(corner(), {2, 0, 4, 2})), "#. ..");
}

TEST(PixelWork, FillsWhatLiesWithin) {
  RgbPicture picture = plain(4, 2, kWhite);
  fill(picture, {-5, -5, 2, 1}, kBlack);
  fill(picture, {3, 1, 100, 100}, kBlack);
  fill(picture, {2, 1, 2, 2}, kBlack);
  fill(picture, {10, 10, 20, 20}, kBlack);
  EXPECT_EQ(shown(picture), "##.. ...#");
}

TEST(PixelWork, Frames) {
  RgbPicture picture = plain(6, 5, kWhite);
  frame(picture, {0, 0, 6, 5}, 1, kBlack);
  EXPECT_EQ(shown(picture), "###### #....# #....# #....# ######");
  picture = plain(6, 5, kWhite);
  frame(picture, {1, 1, 6, 5}, 2, kBlack);
  EXPECT_EQ(shown(picture), "###### ###### ##..## ###### ######");
}

TEST(PixelWork, DrawsLines) {
  RgbPicture picture = plain(5, 3, kWhite);
  line(picture, 0, 1, 4, 1, 1, kBlack);
  EXPECT_EQ(shown(picture), "..... ##### .....");
  picture = plain(5, 3, kWhite);
  line(picture, 4, 2, 0, 0, 1, kBlack);
  EXPECT_EQ(shown(picture), "#.... .##.. ...##");
  picture = plain(5, 3, kWhite);
  line(picture, 2, -100, 2, 100, 3, kBlack);
  EXPECT_EQ(shown(picture), ".###. .###. .###.");
  picture = plain(5, 3, kWhite);
  line(picture, 1, 1, 1, 1, 1, kBlack);
  EXPECT_EQ(shown(picture), "..... .#... .....");
}

TEST(PixelWork, DrawsEllipses) {
  RgbPicture picture = plain(7, 5, kWhite);
  fillEllipse(picture, {0, 0, 7, 5}, kBlack);
  EXPECT_EQ(shown(picture), ".#####. ####### ####### ####### .#####.");
  picture = plain(7, 5, kWhite);
  rim(picture, {0, 0, 7, 5}, 1, kBlack);
  EXPECT_EQ(shown(picture), ".#####. ##...## #.....# ##...## .#####.");
  picture = plain(7, 7, kWhite);
  rim(picture, {0, 0, 7, 7}, 1, kBlack, {0, 90});
  EXPECT_EQ(shown(picture), "...##.. .....#. ......# ......# ....... ....... .......");
}

TEST(PixelWork, CoversAndBlends) {
  RgbPicture picture = plain(3, 1, kWhite);
  cover(picture, {0, 0, 3, 1}, std::string("\0\xFF\x80", 3), kBlack);
  EXPECT_EQ(shown(picture), ".#?");
  cover(picture, {-1, 0, 2, 1}, "\xFF\xFF\xFF", {kWhite, 0.5});
  EXPECT_EQ(static_cast<std::uint8_t>(picture.pixels[3]), 128);
  cover(picture, {5, 5, 6, 6}, "\xFF", kBlack);
}

TEST(PixelWork, LaysOver) {
  RgbPicture picture = plain(4, 2, kWhite);
  RgbPicture over = plain(2, 1, 0);
  fill(over, {1, 0, 2, 1}, {0x0A0A0A});
  lay(picture, 3, 1, over, {});
  lay(picture, -1, 0, over, {});
  EXPECT_EQ(shown(picture), "?... ...#");
  lay(picture, 1, 0, over, {1, true, 0x000000, 9});
  EXPECT_EQ(shown(picture), "?.?. ...#");
  lay(picture, 1, 1, over, {1, true, 0x000000, 10});
  EXPECT_EQ(shown(picture), "?.?. ...#");
}

TEST(PixelWork, MakesGrey) {
  RgbPicture picture = plain(1, 1, 0xFF0000);
  makeGrey(picture);
  EXPECT_EQ(picture.pixels, std::string(3, '\x4C'));
}

}  // namespace

}  // namespace quorvane::pictures
