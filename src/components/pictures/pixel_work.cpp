#include "components/pictures/pixel_work.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "vbscript/values/time_check.h"

namespace quorvane::pictures {

namespace {

constexpr std::size_t kBytes = 3;

std::size_t offsetOf(const RgbPicture& picture, int x, int y) {
  return (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
          static_cast<std::size_t>(x)) *
         kBytes;
}

RgbPicture blank(int width, int height) {
  const std::size_t bytes =
      static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBytes;
  vbs::countWork(bytes);
  return {width, height, std::string(bytes, '\0')};
}

std::array<int, kBytes> partsOf(std::uint32_t colour) {
  return {static_cast<int>(colour >> 16 & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
          static_cast<int>(colour & 0xFF)};
}

int byteAt(const char* at) {
  return static_cast<std::uint8_t>(*at);
}

/// `share` of 256 of the colour, the rest of what was there.
void blend(char* at, const std::array<int, kBytes>& colour, int share) {
  for (std::size_t i = 0; i < kBytes; ++i) {
    at[i] = static_cast<char>((byteAt(at + i) * (256 - share) + colour[i] * share + 128) / 256);
  }
}

int shareOf(double opacity) {
  return static_cast<int>(std::lround(std::clamp(opacity, 0.0, 1.0) * 256));
}

Box within(const RgbPicture& picture, Box box) {
  return {std::clamp(box.left, 0, picture.width), std::clamp(box.top, 0, picture.height),
          std::clamp(box.right, 0, picture.width), std::clamp(box.bottom, 0, picture.height)};
}

/// Numbers of scripts that lie further out are as good there.
int bounded(double number) {
  constexpr double kFar = 1e6;
  return static_cast<int>(std::lround(std::clamp(number, -kFar, kFar)));
}

/// An ellipse's row: half of its width there, below zero where it has none.
double halfWidth(double across, double down, double y) {
  if (across <= 0 || down <= 0 || std::abs(y) > down) return -1;
  return across * std::sqrt(1 - (y / down) * (y / down));
}

struct Middle {
  double x;
  double y;
  double across;  ///< half of the width
  double down;

  explicit Middle(const Box& box)
      : x((box.left + box.right - 1) / 2.0),
        y((box.top + box.bottom - 1) / 2.0),
        across((box.right - box.left) / 2.0),
        down((box.bottom - box.top) / 2.0) {}
};

bool isWithin(const Angles& angles, double x, double y) {
  if (std::abs(angles.span) >= 360) return true;
  constexpr double kDegrees = 180 / 3.14159265358979323846;
  const double start = angles.span < 0 ? angles.start + angles.span : angles.start;
  double from = std::fmod(std::atan2(-y, x) * kDegrees - start, 360);
  if (from < 0) from += 360;
  return from <= std::abs(angles.span);
}

}  // namespace

RgbPicture plain(int width, int height, std::uint32_t colour) {
  RgbPicture picture = blank(width, height);
  fill(picture, {0, 0, width, height}, {colour});
  return picture;
}

RgbPicture cropped(const RgbPicture& picture, const Box& box) {
  RgbPicture result = blank(box.right - box.left, box.bottom - box.top);
  const std::size_t row = static_cast<std::size_t>(result.width) * kBytes;
  for (int y = 0; y < result.height; ++y) {
    std::copy_n(picture.pixels.data() + offsetOf(picture, box.left, box.top + y), row,
                result.pixels.data() + offsetOf(result, 0, y));
  }
  return result;
}

namespace {

/// Each pixel goes where `place` of its own says.
template <class Place>
RgbPicture quarterTurned(const RgbPicture& picture, Place place) {
  RgbPicture result = blank(picture.height, picture.width);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      std::copy_n(picture.pixels.data() + offsetOf(picture, x, y), kBytes,
                  result.pixels.data() + place(result, x, y));
    }
  }
  return result;
}

}  // namespace

RgbPicture turnedLeft(const RgbPicture& picture) {
  return quarterTurned(picture, [](const RgbPicture& result, int x, int y) {
    return offsetOf(result, y, result.height - 1 - x);
  });
}

RgbPicture turnedRight(const RgbPicture& picture) {
  return quarterTurned(picture, [](const RgbPicture& result, int x, int y) {
    return offsetOf(result, result.width - 1 - y, x);
  });
}

void flipAcross(RgbPicture& picture) {
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width / 2; ++x) {
      char* const a = picture.pixels.data() + offsetOf(picture, x, y);
      std::swap_ranges(a, a + kBytes,
                       picture.pixels.data() + offsetOf(picture, picture.width - 1 - x, y));
    }
  }
}

void flipDown(RgbPicture& picture) {
  const std::size_t row = static_cast<std::size_t>(picture.width) * kBytes;
  for (int y = 0; y < picture.height / 2; ++y) {
    char* const a = picture.pixels.data() + offsetOf(picture, 0, y);
    std::swap_ranges(a, a + row,
                     picture.pixels.data() + offsetOf(picture, 0, picture.height - 1 - y));
  }
}

void makeGrey(RgbPicture& picture) {
  for (std::size_t at = 0; at + kBytes <= picture.pixels.size(); at += kBytes) {
    char* const pixel = picture.pixels.data() + at;
    const int grey =
        (byteAt(pixel) * 299 + byteAt(pixel + 1) * 587 + byteAt(pixel + 2) * 114 + 500) / 1000;
    std::fill_n(pixel, kBytes, static_cast<char>(grey));
  }
}

void fill(RgbPicture& picture, Box box, const Ink& ink) {
  box = within(picture, box);
  if (box.isEmpty()) return;
  const auto colour = partsOf(ink.colour);
  const int share = shareOf(ink.opacity);
  vbs::countWork(static_cast<std::size_t>(box.right - box.left) *
                 static_cast<std::size_t>(box.bottom - box.top) * kBytes);
  for (int y = box.top; y < box.bottom; ++y) {
    char* at = picture.pixels.data() + offsetOf(picture, box.left, y);
    for (int x = box.left; x < box.right; ++x, at += kBytes) blend(at, colour, share);
  }
}

void frame(RgbPicture& picture, const Box& box, int width, const Ink& ink) {
  if (box.isEmpty()) return;
  const int out = width / 2;
  const int in = width - out;
  const Box outer{box.left - out, box.top - out, box.right - 1 + in, box.bottom - 1 + in};
  fill(picture, {outer.left, outer.top, outer.right, outer.top + width}, ink);
  fill(picture, {outer.left, outer.bottom - width, outer.right, outer.bottom}, ink);
  fill(picture, {outer.left, outer.top + width, outer.left + width, outer.bottom - width}, ink);
  fill(picture, {outer.right - width, outer.top + width, outer.right, outer.bottom - width}, ink);
}

void line(RgbPicture& picture, double x, double y, double toX, double toY, int width,
          const Ink& ink) {
  const bool isSteep = std::abs(toY - y) > std::abs(toX - x);
  const double along = isSteep ? toY - y : toX - x;
  const double aside = isSteep ? toX - x : toY - y;
  const double steps = std::abs(along);
  const double slant = steps > 0 ? std::hypot(along, aside) / steps : 1;
  const int thick = std::max(1, bounded(width * slant));
  const int end = isSteep ? picture.height : picture.width;
  const double begin = isSteep ? y : x;
  const double first = std::max(std::min(begin, begin + along), 0.0);
  const double last = std::min(std::max(begin, begin + along), end - 1.0);
  for (double at = std::round(first); at <= last; ++at) {
    const double middle = (isSteep ? x : y) + (steps > 0 ? (at - begin) / along * aside : 0);
    const int low = bounded(middle - (thick - 1) / 2.0);
    const int place = bounded(at);
    if (isSteep) {
      fill(picture, {low, place, low + thick, place + 1}, ink);
    } else {
      fill(picture, {place, low, place + 1, low + thick}, ink);
    }
  }
}

void fillEllipse(RgbPicture& picture, const Box& box, const Ink& ink) {
  const Middle middle(box);
  for (int y = std::max(box.top, 0); y < std::min(box.bottom, picture.height); ++y) {
    const double half = halfWidth(middle.across, middle.down, y - middle.y);
    if (half < 0) continue;
    fill(picture,
         {bounded(std::ceil(middle.x - half)), y, bounded(std::floor(middle.x + half)) + 1, y + 1},
         ink);
  }
}

void rim(RgbPicture& picture, const Box& box, int width, const Ink& ink, const Angles& angles) {
  const Middle middle(box);
  const double half = width / 2.0;
  const auto draw = [&](int from, int to, int y) {  // both drawn
    const int end = std::min(to + 1, picture.width);
    for (int x = std::max(from, 0); x < end; ++x) {
      if (isWithin(angles, x - middle.x, y - middle.y)) fill(picture, {x, y, x + 1, y + 1}, ink);
    }
    vbs::countWork(end > 0 ? static_cast<std::size_t>(end) : 0);
  };
  const int top = bounded(box.top - half);
  const int bottom = bounded(box.bottom + half);
  for (int y = std::max(top, 0); y < std::min(bottom, picture.height); ++y) {
    const double down = y - middle.y;
    const double outer = halfWidth(middle.across - 0.5 + half, middle.down - 0.5 + half, down);
    if (outer < 0) continue;
    const double inner = halfWidth(middle.across - 0.5 - half, middle.down - 0.5 - half, down);
    const int left = bounded(std::ceil(middle.x - outer));
    const int right = bounded(std::floor(middle.x + outer));
    if (inner < 0) {
      draw(left, right, y);
      continue;
    }
    draw(left, std::max(left, bounded(std::ceil(middle.x - inner)) - 1), y);
    draw(std::min(right, bounded(std::floor(middle.x + inner)) + 1), right, y);
  }
}

void cover(RgbPicture& picture, const Box& box, std::string_view covers, const Ink& ink) {
  const Box seen = within(picture, box);
  if (seen.isEmpty()) return;
  const auto colour = partsOf(ink.colour);
  const int share = shareOf(ink.opacity);
  const auto width = static_cast<std::size_t>(box.right - box.left);
  vbs::countWork(covers.size());
  for (int y = seen.top; y < seen.bottom; ++y) {
    const char* mask = covers.data() + static_cast<std::size_t>(y - box.top) * width +
                       static_cast<std::size_t>(seen.left - box.left);
    char* at = picture.pixels.data() + offsetOf(picture, seen.left, y);
    for (int x = seen.left; x < seen.right; ++x, at += kBytes, ++mask) {
      blend(at, colour, (byteAt(mask) * share + 127) / 255);
    }
  }
}

void lay(RgbPicture& picture, int x, int y, const RgbPicture& over, const Layer& layer) {
  const Box seen = within(picture, {x, y, x + over.width, y + over.height});
  if (seen.isEmpty()) return;
  const auto clear = partsOf(layer.clear);
  const int share = shareOf(layer.opacity);
  vbs::countWork(over.pixels.size());
  for (int row = seen.top; row < seen.bottom; ++row) {
    const char* from = over.pixels.data() + offsetOf(over, seen.left - x, row - y);
    char* at = picture.pixels.data() + offsetOf(picture, seen.left, row);
    for (int column = seen.left; column < seen.right; ++column, at += kBytes, from += kBytes) {
      const std::array<int, kBytes> colour{byteAt(from), byteAt(from + 1), byteAt(from + 2)};
      const bool isClear = layer.hasClear && std::abs(colour[0] - clear[0]) <= layer.deviation &&
                           std::abs(colour[1] - clear[1]) <= layer.deviation &&
                           std::abs(colour[2] - clear[2]) <= layer.deviation;
      if (!isClear) blend(at, colour, share);
    }
  }
}

}  // namespace quorvane::pictures
