#include "platform/picture_rules.h"

#include <algorithm>
#include <cmath>

namespace quorvane::picture_tools {

namespace {

/// Pixels of a result: those of its source, or these. Small files are not to become much work.
constexpr std::int64_t kMostEnlarged = 4'000'000;
/// The search for a GIF's colours takes some half a second for each million of pixels.
constexpr std::int64_t kMostGifTargetPixels = std::int64_t{4} << 20;

int scaled(int side, double factor) {
  return static_cast<int>(std::clamp(std::round(side * factor), 1.0, double{kMostSide}));
}

}  // namespace

std::optional<Format> formatOf(std::string_view file) {
  if (file.starts_with("\xFF\xD8\xFF")) return Format::Jpeg;
  if (file.starts_with("GIF8")) return Format::Gif;
  if (file.starts_with("\x89PNG\r\n\x1A\n")) return Format::Png;
  if (file.starts_with("BM")) return Format::Bmp;
  return std::nullopt;
}

bool isReadable(Size size, bool atOnce) {
  return std::min(size.width, size.height) > 0 && std::max(size.width, size.height) <= kMostSide &&
         pixelsOf(size) <= (atOnce ? kMostPixels : kMostPixelsByRows);
}

std::optional<Size> targetSize(Size source, Format format, const ImageRendering& wanted) {
  const int width = std::max(wanted.width, 0);
  const int height = std::max(wanted.height, 0);
  if ((width == 0 && height == 0) || std::max(width, height) > kMostSide) return std::nullopt;
  Size target{width, height};
  if (wanted.keepAspect || width == 0 || height == 0) {
    const double across = static_cast<double>(width == 0 ? kMostSide : width) / source.width;
    const double down = static_cast<double>(height == 0 ? kMostSide : height) / source.height;
    const double factor = std::min(across, down);
    target = {scaled(source.width, factor), scaled(source.height, factor)};
  }
  if (pixelsOf(target) > std::max(pixelsOf(source), kMostEnlarged)) return std::nullopt;
  if (format == Format::Gif && pixelsOf(target) > kMostGifTargetPixels) return std::nullopt;
  return target;
}

}  // namespace quorvane::picture_tools
