#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/gif_picture.h"
#include "platform/image_library.h"
#include "platform/vips/vips_library.h"

namespace quorvane::vips {

namespace {

/// Pixels of a result: those of its source, or these. Small files are not to become much work.
constexpr std::int64_t kMostEnlarged = 4'000'000;
/// The search for a GIF's colours takes some half a second for each million of pixels.
constexpr std::int64_t kMostGifTargetPixels = std::int64_t{4} << 20;
/// High enough that a thumbnail shows no blocks, at about half the size of the next step up.
constexpr int kJpegQuality = 85;
/// Of the search for a GIF's 256 colours, 1 to 10: a fifth of the time of the library's own choice
/// for files a few hundredths larger.
constexpr int kGifEffort = 3;

int scaled(int side, double factor) {
  return static_cast<int>(std::clamp(std::round(side * factor), 1.0, double{kMostSide}));
}

std::optional<Size> targetSize(Size source, const ImageRendering& wanted) {
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
  if (target.pixels() > std::max(source.pixels(), kMostEnlarged)) return std::nullopt;
  return target;
}

std::optional<std::string> encoded(VipsImage* image, Format format) {
  void* bytes = nullptr;
  std::size_t length = 0;
  int status = -1;
  switch (format) {
    case Format::Jpeg:
      status =
          vips_jpegsave_buffer(image, &bytes, &length, "Q", kJpegQuality, "strip", TRUE, nullptr);
      break;
    case Format::Gif:
      status =
          vips_gifsave_buffer(image, &bytes, &length, "effort", kGifEffort, "strip", TRUE, nullptr);
      break;
    case Format::Png:
      status = vips_pngsave_buffer(image, &bytes, &length, "strip", TRUE, nullptr);
      break;
    case Format::Bmp:
      break;
  }
  const std::unique_ptr<void, void (*)(void*)> held(bytes, g_free);
  if (status != 0) return std::nullopt;
  return std::string(static_cast<const char*>(bytes), length);
}

std::optional<std::string> renderBmp(std::string_view bytes, const ImageRendering& wanted) {
  const auto source = decodeBmp(bytes, kMostSide, kMostPixelsAtOnce);
  if (!source) return std::nullopt;
  const auto target = targetSize({source->width, source->height}, wanted);
  if (!target) return std::nullopt;
  const Picture whole = pictureOf(*source);
  if (!whole) return std::nullopt;
  Picture picture = resized(whole.get(), *target);
  if (wanted.grey) picture = inSpace(picture, VIPS_INTERPRETATION_B_W);
  picture = inSpace(picture, VIPS_INTERPRETATION_sRGB);
  auto pixels = pixelsOf(picture);
  if (!pixels) return std::nullopt;
  return encodeBmp({target->width, target->height, std::move(*pixels)});
}

std::optional<std::string> renderCompressed(Format format, std::string_view bytes,
                                            const ImageRendering& wanted) {
  if (format == Format::Gif && !firstGifPictureIsComplete(bytes)) return std::nullopt;
  Picture source = openPicture(format, bytes, 1);
  if (!source || !isReadable(source.get(), format)) return std::nullopt;
  const Size size = shownSize(source.get());
  const auto target = targetSize(size, wanted);
  if (!target) return std::nullopt;
  if (format == Format::Gif && target->pixels() > kMostGifTargetPixels) return std::nullopt;
  const int shrink = shrinkOnLoad(size, *target);
  if (format == Format::Jpeg && shrink > 1) source = openPicture(format, bytes, shrink);
  if (!source) return std::nullopt;
  Picture picture = resized(source.get(), *target);
  if (wanted.grey) picture = inSpace(picture, VIPS_INTERPRETATION_B_W);
  if (!picture) return std::nullopt;
  return encoded(picture.get(), format);
}

}  // namespace

std::optional<std::string> rendered(std::string_view file, const ImageRendering& wanted) {
  const auto format = formatOf(file);
  if (!isReady() || !format) return std::nullopt;
  if (*format == Format::Bmp) return renderBmp(file, wanted);
  return renderCompressed(*format, file, wanted);
}

}  // namespace quorvane::vips
