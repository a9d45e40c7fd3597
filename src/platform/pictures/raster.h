#pragma once

#include <cstddef>
#include <string>

#include "platform/picture_tools.h"

namespace quorvane::picture_tools {

/// A picture in memory: rows from top to bottom without padding, of a byte for each channel: grey,
/// or red, green, blue and, if there is a fourth, how opaque a pixel is.
struct Raster {
  Size size;
  int channels = 3;
  std::string pixels;

  std::size_t rowLength() const { return std::size_t{1} * size.width * channels; }
  bool hasAlpha() const { return channels == 4; }
};

inline Raster blank(Size size, int channels) {
  Raster raster{size, channels, {}};
  raster.pixels.resize(raster.rowLength() * size.height);
  return raster;
}

inline Raster rasterOf(const RgbPicture& picture) {
  return {{picture.width, picture.height}, 3, picture.pixels};
}

}  // namespace quorvane::picture_tools
