#include "platform/image_library.h"

#include <vips/vips.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/bmp_picture.h"
#include "platform/gif_picture.h"
#include "support/files.h"

namespace quorvane {

namespace {

/// Browsers and formats alike go little further on one side.
constexpr int kMostSide = 16384;
/// Pixels of a source that is decoded row by row: the largest cameras stay below.
constexpr std::int64_t kMostPixels = std::int64_t{128} << 20;
/// Pixels of a source that has to be in memory as a whole.
constexpr std::int64_t kMostPixelsAtOnce = std::int64_t{32} << 20;
/// Pixels of a result: those of its source, or these. Small files are not to become much work.
constexpr std::int64_t kMostEnlarged = 4'000'000;
/// The search for a GIF's colours takes some half a second for each million of pixels.
constexpr std::int64_t kMostGifTargetPixels = std::int64_t{4} << 20;
/// Bytes of a source; it is held in memory while it is rendered.
constexpr std::uint64_t kMostSourceBytes = std::uint64_t{128} << 20;
/// High enough that a thumbnail shows no blocks, at about half the size of the next step up.
constexpr int kJpegQuality = 85;
/// Of the search for a GIF's 256 colours, 1 to 10: a fifth of the time of the library's own choice
/// for files a few hundredths larger.
constexpr int kGifEffort = 3;

struct Unref {
  void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Picture = std::unique_ptr<VipsImage, Unref>;

struct Size {
  int width = 0;
  int height = 0;

  std::int64_t pixels() const { return std::int64_t{width} * height; }
};

enum class Format { Jpeg, Gif, Png, Bmp };

std::optional<Format> formatOf(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xD8\xFF")) return Format::Jpeg;
  if (bytes.starts_with("GIF8")) return Format::Gif;
  if (bytes.starts_with("\x89PNG\r\n\x1A\n")) return Format::Png;
  if (bytes.starts_with("BM")) return Format::Bmp;
  return std::nullopt;
}

/// The library's functions take a buffer that they only read as one to be written.
void* start(std::string_view bytes) {
  return const_cast<char*>(bytes.data());
}

/// Reads the header; the pixels follow once, in order, when they are asked for. A jpg is decoded
/// at a `shrink`th (1, 2, 4 or 8) of its size. `bytes` must outlive the picture.
Picture openPicture(Format format, std::string_view bytes, int shrink) {
  VipsImage* image = nullptr;
  switch (format) {
    case Format::Jpeg:
      vips_jpegload_buffer(start(bytes), bytes.size(), &image, "shrink", shrink, "fail_on",
                           VIPS_FAIL_ON_ERROR, "access", VIPS_ACCESS_SEQUENTIAL, nullptr);
      break;
    case Format::Gif:
      vips_gifload_buffer(start(bytes), bytes.size(), &image, "fail_on", VIPS_FAIL_ON_ERROR,
                          "access", VIPS_ACCESS_SEQUENTIAL, nullptr);
      break;
    case Format::Png:
      vips_pngload_buffer(start(bytes), bytes.size(), &image, "fail_on", VIPS_FAIL_ON_ERROR,
                          "access", VIPS_ACCESS_SEQUENTIAL, nullptr);
      break;
    case Format::Bmp:
      break;
  }
  return Picture(image);
}

/// How far a jpg is shrunk while it is decoded. That is crude but fast; the last halving at least
/// is left to the better way.
int shrinkOnLoad(Size source, Size target) {
  const int factor = std::min(source.width / target.width, source.height / target.height);
  if (factor >= 16) return 8;
  if (factor >= 8) return 4;
  return factor >= 4 ? 2 : 1;
}

/// The size as it is shown, that is after turning a sideways photo.
Size shownSize(VipsImage* image) {
  const Size stored{vips_image_get_width(image), vips_image_get_height(image)};
  return vips_image_get_orientation_swap(image) ? Size{stored.height, stored.width} : stored;
}

/// Progressive files and animations are decoded as a whole, whatever is then done with them.
bool isReadable(VipsImage* image, Format format) {
  const Size size = shownSize(image);
  if (std::max(size.width, size.height) > kMostSide) return false;
  const bool atOnce = format == Format::Gif || vips_image_get_typeof(image, "interlaced") != 0 ||
                      vips_image_get_typeof(image, "jpeg-multiscan") != 0;
  return size.pixels() <= (atOnce ? kMostPixelsAtOnce : kMostPixels);
}

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

Picture resized(VipsImage* source, Size target) {
  VipsImage* out = nullptr;
  // Only a source with a profile of its own needs its colours moved.
  const bool hasProfile = vips_image_get_typeof(source, VIPS_META_ICC_NAME) != 0;
  vips_thumbnail_image(source, &out, target.width, "height", target.height, "size", VIPS_SIZE_FORCE,
                       "export_profile", hasProfile ? "srgb" : nullptr, nullptr);
  return Picture(out);
}

/// `source` must outlive the result.
Picture resized(const RgbPicture& source, Size target) {
  const Picture raw(vips_image_new_from_memory(source.pixels.data(), source.pixels.size(),
                                               source.width, source.height, 3, VIPS_FORMAT_UCHAR));
  if (!raw) return nullptr;
  VipsImage* image = nullptr;
  vips_copy(raw.get(), &image, "interpretation", VIPS_INTERPRETATION_sRGB, nullptr);
  const Picture coloured(image);
  if (!coloured) return nullptr;
  // Said to come in order like a file's rows, it is worked on in rows with what they share kept;
  // else by tiles, whose shared parts are worked out again and again: eight times the time.
  vips_image_set_int(coloured.get(), VIPS_META_SEQUENTIAL, 1);
  return resized(coloured.get(), target);
}

Picture inSpace(const Picture& picture, VipsInterpretation space) {
  VipsImage* out = nullptr;
  if (picture) vips_colourspace(picture.get(), &out, space, nullptr);
  return Picture(out);
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
  Picture picture = resized(*source, *target);
  if (wanted.grey) picture = inSpace(picture, VIPS_INTERPRETATION_B_W);
  picture = inSpace(picture, VIPS_INTERPRETATION_sRGB);
  if (!picture) return std::nullopt;
  std::size_t length = 0;
  const std::unique_ptr<void, void (*)(void*)> pixels(
      vips_image_write_to_memory(picture.get(), &length), g_free);
  if (!pixels || length != static_cast<std::size_t>(target->pixels() * 3)) return std::nullopt;
  return encodeBmp(
      {target->width, target->height, std::string(static_cast<const char*>(pixels.get()), length)});
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

void ignoreMessage(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

/// Process-wide. One thread and no cache: a picture is rendered once and the result kept as a
/// file, and the memory is worth more to what else the server holds.
bool prepareLibrary() {
  // Format modules beyond the four wanted would be loaded from below this folder: a third of the
  // library's memory, most of its start-up time, and parsers that no client's file should reach.
  g_setenv("VIPSHOME", "/nonexistent", FALSE);
  if (vips_init("quorvane-server") != 0) return false;
  vips_block_untrusted_set(TRUE);
  vips_concurrency_set(1);
  vips_cache_set_max(0);
  vips_cache_set_max_mem(0);
  vips_cache_set_max_files(0);
  // Broken pictures are everyday matter; the answer is the result, not a line on standard error.
  g_log_set_handler("VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK), ignoreMessage, nullptr);
  return true;
}

class VipsImages final : public ImageLibrary {
 public:
  explicit VipsImages(const Files& files) : files_(files) {}

  bool render(const std::string& source, const std::string& target,
              const ImageRendering& wanted) override {
    static const bool ready = prepareLibrary();
    const auto info = files_.stat(source);
    if (!ready || !info || info->isFolder || info->size > kMostSourceBytes) return false;
    const auto bytes = files_.readAll(source);
    if (!bytes) return false;
    const auto result = rendered(*bytes, wanted);
    vips_error_clear();  // else the library's messages pile up
    return result && files_.writeAll(target, *result);
  }

 private:
  static std::optional<std::string> rendered(std::string_view bytes, const ImageRendering& wanted) {
    const auto format = formatOf(bytes);
    if (!format) return std::nullopt;
    if (*format == Format::Bmp) return renderBmp(bytes, wanted);
    return renderCompressed(*format, bytes, wanted);
  }

  const Files& files_;
};

}  // namespace

std::unique_ptr<ImageLibrary> makeImageLibrary(const Files& files) {
  return std::make_unique<VipsImages>(files);
}

}  // namespace quorvane
