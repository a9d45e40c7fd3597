#pragma once

#include <optional>
#include <string_view>

#include "platform/image_library.h"
#include "platform/picture_tools.h"

/// What holds for pictures with every library.
namespace quorvane::picture_tools {

enum class Format : std::uint8_t { Jpeg, Gif, Png, Bmp };

/// Told by the content.
std::optional<Format> formatOf(std::string_view file);

/// Pixels of a source that is decoded row by row: the largest cameras stay below.
inline constexpr std::int64_t kMostPixelsByRows = std::int64_t{128} << 20;
/// High enough that a thumbnail shows no blocks, at about half the size of the next step up.
inline constexpr int kThumbnailQuality = 85;

constexpr std::int64_t pixelsOf(Size size) {
  return std::int64_t{size.width} * size.height;
}

/// Whether a file's picture may be read. `atOnce`: it has to be in memory as a whole.
bool isReadable(Size size, bool atOnce);

/// The size that is wanted of a picture, if it may have that.
std::optional<Size> targetSize(Size source, Format format, const ImageRendering& wanted);

}  // namespace quorvane::picture_tools
