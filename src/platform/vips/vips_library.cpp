#include "platform/vips/vips_library.h"

#include <algorithm>
#include <utility>

namespace quorvane::vips {

namespace {

void ignoreMessage(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

/// Process-wide. One thread and no cache: a picture is rendered once and the result kept as a
/// file, and the memory is worth more to what else the server holds.
bool prepare() {
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

}  // namespace

bool isReady() {
  static const bool ready = prepare();
  return ready;
}

namespace {

/// The library's functions take a buffer that they only read as one to be written.
void* start(std::string_view bytes) {
  return const_cast<char*>(bytes.data());
}

}  // namespace

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

/// That is crude but fast; the last halving at least is left to the better way.
int shrinkOnLoad(Size source, Size target) {
  const int factor = std::min(source.width / target.width, source.height / target.height);
  if (factor >= 16) return 8;
  if (factor >= 8) return 4;
  return factor >= 4 ? 2 : 1;
}

Size shownSize(VipsImage* image) {
  const Size stored{vips_image_get_width(image), vips_image_get_height(image)};
  return vips_image_get_orientation_swap(image) ? Size{stored.height, stored.width} : stored;
}

/// Progressive files and animations are decoded as a whole, whatever is then done with them.
bool isReadable(VipsImage* image, Format format) {
  int hasPasses = 0;  // every jpg tells whether it has
  if (vips_image_get_typeof(image, "jpeg-multiscan") != 0) {
    vips_image_get_int(image, "jpeg-multiscan", &hasPasses);
  }
  const bool atOnce =
      format == Format::Gif || hasPasses != 0 || vips_image_get_typeof(image, "interlaced") != 0;
  return picture_tools::isReadable(shownSize(image), atOnce);
}

Picture resized(VipsImage* source, Size target) {
  VipsImage* out = nullptr;
  // Only a source with a profile of its own needs its colours moved.
  const bool hasProfile = vips_image_get_typeof(source, VIPS_META_ICC_NAME) != 0;
  vips_thumbnail_image(source, &out, target.width, "height", target.height, "size", VIPS_SIZE_FORCE,
                       "export_profile", hasProfile ? "srgb" : nullptr, nullptr);
  return Picture(out);
}

Picture pictureOf(const RgbPicture& source) {
  const Picture raw(vips_image_new_from_memory(source.pixels.data(), source.pixels.size(),
                                               source.width, source.height, 3, VIPS_FORMAT_UCHAR));
  if (!raw) return nullptr;
  VipsImage* image = nullptr;
  vips_copy(raw.get(), &image, "interpretation", VIPS_INTERPRETATION_sRGB, nullptr);
  Picture coloured(image);
  if (!coloured) return nullptr;
  // Said to come in order like a file's rows, it is worked on in rows with what they share kept;
  // else by tiles, whose shared parts are worked out again and again: eight times the time.
  vips_image_set_int(coloured.get(), VIPS_META_SEQUENTIAL, 1);
  return coloured;
}

Picture inSpace(const Picture& picture, VipsInterpretation space) {
  VipsImage* out = nullptr;
  if (picture) vips_colourspace(picture.get(), &out, space, nullptr);
  return Picture(out);
}

std::optional<std::string> pixelsOf(const Picture& picture) {
  if (!picture || vips_image_get_bands(picture.get()) != 3) return std::nullopt;
  std::size_t length = 0;
  const std::unique_ptr<void, void (*)(void*)> pixels(
      vips_image_write_to_memory(picture.get(), &length), g_free);
  const Size size{vips_image_get_width(picture.get()), vips_image_get_height(picture.get())};
  if (!pixels || length != static_cast<std::size_t>(picture_tools::pixelsOf(size) * 3))
    return std::nullopt;
  return std::string(static_cast<const char*>(pixels.get()), length);
}

}  // namespace quorvane::vips
