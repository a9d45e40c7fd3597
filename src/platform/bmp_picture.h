#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// Windows bitmap files, read and written without a library: the image library reads them only
/// through a loader for hundreds of formats, which is more than a client's file should meet.

/// Red, green and blue, a byte each; rows from top to bottom without padding.
struct RgbPicture {
  int width = 0;
  int height = 0;
  std::string pixels;
};

/// Reads 1, 4, 8, 16, 24 and 32 bits a pixel, run-length encoding and colour masks included.
/// Transparency is dropped, as browsers do. Nothing when the file is broken, ends early, or has
/// a side above `mostSide` or more than `mostPixels` pixels.
std::optional<RgbPicture> decodeBmp(std::string_view file, int mostSide, std::int64_t mostPixels);

/// A file of 24 bits a pixel. The picture must have at least one pixel.
std::string encodeBmp(const RgbPicture& picture);

}  // namespace quorvane
