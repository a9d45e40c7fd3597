#pragma once

#include <cstdint>
#include <string_view>

#include "platform/bmp_picture.h"

/// What is done to a picture's pixels themselves. Colours are 0xRRGGBB; what lies outside of a
/// picture is not drawn.
namespace quorvane::pictures {

/// From the first of each up to, and without, the second.
struct Box {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  bool isEmpty() const { return left >= right || top >= bottom; }
};

struct Ink {
  std::uint32_t colour = 0;
  double opacity = 1;  ///< 0 to 1
};

RgbPicture plain(int width, int height, std::uint32_t colour);
/// `box` lies within the picture.
RgbPicture cropped(const RgbPicture& picture, const Box& box);
RgbPicture turnedLeft(const RgbPicture& picture);
RgbPicture turnedRight(const RgbPicture& picture);
void flipAcross(RgbPicture& picture);  ///< left becomes right
void flipDown(RgbPicture& picture);
void makeGrey(RgbPicture& picture);

void fill(RgbPicture& picture, Box box, const Ink& ink);
void frame(RgbPicture& picture, const Box& box, int width, const Ink& ink);
void line(RgbPicture& picture, double x, double y, double toX, double toY, int width,
          const Ink& ink);

/// The inside of an ellipse, and its rim.
void fillEllipse(RgbPicture& picture, const Box& box, const Ink& ink);
struct Angles {
  double start = 0;   ///< degrees, from the right and counterclockwise
  double span = 360;  ///< the same way round
};
void rim(RgbPicture& picture, const Box& box, int width, const Ink& ink, const Angles& angles = {});

/// A part of a picture's place that `covers` tells of, a byte each, 0 to 255.
void cover(RgbPicture& picture, const Box& box, std::string_view covers, const Ink& ink);

/// What of a picture that is laid over another is seen through.
struct Layer {
  double opacity = 1;
  bool hasClear =
      false;  ///< a colour is not drawn, nor what differs from it by so much in each part
  std::uint32_t clear = 0;
  int deviation = 0;
};
void lay(RgbPicture& picture, int x, int y, const RgbPicture& over, const Layer& layer);

}  // namespace quorvane::pictures
