#include "platform/picture_tools.h"

#include <algorithm>
#include <cmath>

#include "platform/pictures/gif_writing.h"
#include "platform/pictures/picture_head.h"
#include "platform/pictures/raster_work.h"
#include "platform/pictures/scaling.h"
#include "platform/windows/pictures.h"

namespace quorvane::picture_tools {

namespace {

std::optional<RgbPicture> pictureOf(std::optional<Raster> raster) {
  if (!raster || !isAllowed(raster->size)) return std::nullopt;
  return RgbPicture{raster->size.width, raster->size.height, std::move(raster->pixels)};
}

std::optional<PictureHead> readableHead(std::string_view file) {
  auto head = readPictureHead(file);
  return head && isReadable(head->size, head->atOnce) ? head : std::nullopt;
}

/// The picture in a jpg, png or gif at a size that counts as it is shown, upright.
std::optional<Raster> readAt(std::string_view file, const PictureHead& head, Size shown) {
  const Size stored = head.isTurned() ? Size{shown.height, shown.width} : shown;
  if (!Scaler::canScale(head.size, stored)) return std::nullopt;
  Scaler scaler(head.size, head.hasAlpha ? 4 : 3, stored, Scaling::Best);
  if (!readRows(file, head, [&](const char* row) { scaler.take(row); })) return std::nullopt;
  const auto result = scaler.result();
  return result ? std::optional(upright(*result, head.orientation)) : std::nullopt;
}

std::optional<std::string> written(const Raster& picture, Format format) {
  switch (format) {
    case Format::Jpeg:
      return writeJpeg(picture, kThumbnailQuality);
    case Format::Gif:
      return encodeGif(picture);
    case Format::Png:
      return writePng(picture, false);
    case Format::Bmp:
      break;
  }
  const Raster whole = onWhite(picture);
  return encodeBmp({whole.size.width, whole.size.height, whole.pixels});
}

std::optional<Raster> renderedRaster(std::string_view file, Format format,
                                     const ImageRendering& wanted) {
  if (format == Format::Bmp) {
    const auto source = decodeBmp(file, kMostSide, kMostPixels);
    const auto target =
        source ? targetSize({source->width, source->height}, format, wanted) : std::nullopt;
    return target ? scaled(rasterOf(*source), *target, Scaling::Best) : std::nullopt;
  }
  const auto head = readableHead(file);
  const auto target = head ? targetSize(head->shown(), format, wanted) : std::nullopt;
  return target ? readAt(file, *head, *target) : std::nullopt;
}

class WindowsTools final : public Library {
 public:
  std::optional<std::string> rendered(std::string_view file,
                                      const ImageRendering& wanted) const override {
    const auto format = formatOf(file);
    const auto picture = format ? renderedRaster(file, *format, wanted) : std::nullopt;
    if (!picture) return std::nullopt;
    return written(wanted.grey ? grey(*picture) : *picture, *format);
  }

  std::optional<Size> sizeOf(std::string_view file) const override {
    if (const auto bitmap = decodeBmp(file, kMostSide, kMostPixels)) {
      return Size{bitmap->width, bitmap->height};
    }
    const auto head = readableHead(file);
    return head ? std::optional(head->shown()) : std::nullopt;
  }

  std::optional<RgbPicture> decoded(std::string_view file,
                                    std::optional<Size> size) const override {
    if (size && !isAllowed(*size)) return std::nullopt;
    if (auto bitmap = decodeBmp(file, kMostSide, kMostPixels)) {
      return size ? resized(*bitmap, *size, Scaling::Best) : std::move(bitmap);
    }
    const auto head = readableHead(file);
    const auto picture = head ? readAt(file, *head, size.value_or(head->shown())) : std::nullopt;
    return picture ? pictureOf(onWhite(*picture)) : std::nullopt;
  }

  std::optional<RgbPicture> resized(const RgbPicture& picture, Size size,
                                    Scaling scaling) const override {
    if (!isAllowed(size)) return std::nullopt;
    return pictureOf(scaled(rasterOf(picture), size, scaling));
  }

  std::optional<RgbPicture> sharpened(const RgbPicture& picture, double radius,
                                      double amount) const override {
    return pictureOf(picture_tools::sharpened(rasterOf(picture), radius, amount));
  }

  std::optional<RgbPicture> turned(const RgbPicture& picture, double degrees,
                                   std::uint32_t fill) const override {
    if (!std::isfinite(degrees)) return std::nullopt;
    return pictureOf(picture_tools::turned(rasterOf(picture), degrees, fill));
  }

  /// The system's codec for jpg has one way only: such a file is never progressive.
  std::optional<std::string> encoded(const RgbPicture& picture,
                                     const FileForm& form) const override {
    if (form.type == FileType::Png) return writePng(rasterOf(picture), form.progressive);
    return writeJpeg(rasterOf(picture), std::clamp(form.quality, 1, 100));
  }

  std::optional<TextMask> textMask(std::string_view text, const TextStyle& style) const override {
    return drawnMask(text, style);
  }
};

const WindowsTools kTools;

}  // namespace

const Loaded& load() {
  static const Loaded loaded{&kTools, {}};
  return loaded;
}

}  // namespace quorvane::picture_tools
