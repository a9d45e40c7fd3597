#include <optional>
#include <string_view>

#include "platform/gif_picture.h"
#include "platform/image_library.h"
#include "platform/picture_rules.h"
#include "platform/vips/vips_library.h"

namespace quorvane::vips {

namespace {

using picture_tools::formatOf;
using picture_tools::kMostPixels;
using picture_tools::kMostSide;
using picture_tools::kThumbnailQuality;
using picture_tools::targetSize;

/// Of the search for a GIF's 256 colours, 1 to 10: a fifth of the time of the library's own choice
/// for files a few hundredths larger.
constexpr int kGifEffort = 3;

std::optional<std::string> encoded(VipsImage* image, Format format) {
  void* bytes = nullptr;
  std::size_t length = 0;
  int status = -1;
  switch (format) {
    case Format::Jpeg:
      status = vips_jpegsave_buffer(image, &bytes, &length, "Q", kThumbnailQuality, "strip", TRUE,
                                    nullptr);
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
  const auto source = decodeBmp(bytes, kMostSide, kMostPixels);
  if (!source) return std::nullopt;
  const auto target = targetSize({source->width, source->height}, Format::Bmp, wanted);
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
  if (format == Format::Gif && !firstGifPicture(bytes)) return std::nullopt;
  Picture source = openPicture(format, bytes, 1);
  if (!source || !isReadable(source.get(), format)) return std::nullopt;
  const Size size = shownSize(source.get());
  const auto target = targetSize(size, format, wanted);
  if (!target) return std::nullopt;
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
