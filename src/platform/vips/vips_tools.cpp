#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <set>
#include <utility>

#include "platform/gif_picture.h"
#include "platform/picture_rules.h"
#include "platform/picture_tools.h"
#include "platform/vips/vips_library.h"

namespace quorvane::picture_tools {

namespace {

using vips::Picture;

/// The library's messages would pile up.
class ClearsErrors {
 public:
  ClearsErrors() = default;
  ~ClearsErrors() { vips_error_clear(); }
  ClearsErrors(const ClearsErrors&) = delete;
  ClearsErrors& operator=(const ClearsErrors&) = delete;
};

std::optional<RgbPicture> read(const Picture& picture) {
  if (!picture) return std::nullopt;
  const Size size{vips_image_get_width(picture.get()), vips_image_get_height(picture.get())};
  if (!isAllowed(size)) return std::nullopt;
  auto pixels = vips::pixelsOf(picture);
  if (!pixels) return std::nullopt;
  return RgbPicture{size.width, size.height, std::move(*pixels)};
}

/// sRGB without transparency, a byte each.
Picture flattened(const Picture& picture) {
  Picture coloured = vips::inSpace(picture, VIPS_INTERPRETATION_sRGB);
  if (!coloured || !vips_image_hasalpha(coloured.get())) return coloured;
  const std::unique_ptr<VipsArrayDouble, void (*)(VipsArrayDouble*)> white(
      vips_array_double_newv(1, 255.0),
      [](VipsArrayDouble* array) { vips_area_unref(VIPS_AREA(array)); });
  VipsImage* out = nullptr;
  vips_flatten(coloured.get(), &out, "background", white.get(), nullptr);
  return Picture(out);
}

Picture upright(const Picture& picture) {
  VipsImage* out = nullptr;
  if (picture) vips_autorot(picture.get(), &out, nullptr);
  return Picture(out);
}

/// The file's picture before any of its pixels are read.
Picture opened(std::string_view file, int shrink) {
  const auto format = formatOf(file);
  if (!vips::isReady() || !format || *format == Format::Bmp) return nullptr;
  if (*format == Format::Gif && !firstGifPicture(file)) return nullptr;
  Picture picture = vips::openPicture(*format, file, shrink);
  return picture && vips::isReadable(picture.get(), *format) ? std::move(picture) : nullptr;
}

std::optional<RgbPicture> bitmap(std::string_view file) {
  if (formatOf(file) != Format::Bmp) return std::nullopt;
  return decodeBmp(file, kMostSide, kMostPixels);
}

VipsKernel kernelOf(Scaling scaling) {
  switch (scaling) {
    case Scaling::Nearest:
      return VIPS_KERNEL_NEAREST;
    case Scaling::Linear:
      return VIPS_KERNEL_LINEAR;
    case Scaling::Cubic:
      return VIPS_KERNEL_CUBIC;
    case Scaling::Best:
      return VIPS_KERNEL_LANCZOS3;
  }
  return VIPS_KERNEL_LINEAR;
}

double part(std::uint32_t colour, int shift) {
  return static_cast<double>(colour >> shift & 0xFF);
}

/// A font's name can't say anything but its family.
std::string fontText(const TextStyle& style) {
  constexpr std::size_t kLongest = 100;
  std::string text;
  for (const char c : style.family.substr(0, kLongest)) {
    const bool isPlain = static_cast<unsigned char>(c) >= 0x80 || std::isalnum(c) != 0;
    text += isPlain || c == '-' ? c : ' ';
  }
  text += ',';
  if (style.bold) text += " Bold";
  if (style.italic) text += " Italic";
  return text + " " + std::to_string(style.pixels) + "px";
}

std::string escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c == '&') {
      out += "&amp;";
    } else if (c == '<') {
      out += "&lt;";
    } else if (c == '>') {
      out += "&gt;";
    } else {
      out += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
  }
  return out;
}

std::string_view cut(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  std::size_t end = most;
  while (end > 0 && (text[end] & 0xC0) == 0x80) --end;
  return text.substr(0, end);
}

/// The library keeps some ten kilobytes for each font that it was ever asked for, which scripts may
/// take from their visitors. What it keeps is given back when there are many.
void noteFont(const std::string& font) {
  constexpr std::size_t kMostKept = 64;
  static std::set<std::string> kept;
  if (kept.size() == kMostKept && !kept.contains(font)) {
    pango_fc_font_map_cache_clear(PANGO_FC_FONT_MAP(pango_cairo_font_map_get_default()));
    kept.clear();
  }
  kept.insert(font);
}

Picture drawn(std::string_view text, const TextStyle& style) {
  std::string marked = escaped(text);
  if (style.underlined) marked = "<u>" + marked + "</u>";
  const std::string font = fontText(style);
  noteFont(font);
  VipsImage* out = nullptr;
  vips_text(&out, marked.c_str(), "font", font.c_str(), nullptr);
  return Picture(out);
}

/// Letters beyond so many are outside of every picture; wide ones may be too much for the library
/// even so.
Picture drawnAsFarAsItGoes(std::string_view text, const TextStyle& style) {
  constexpr int kTries = 4;
  std::size_t most = std::size_t{2} * kMostSide / static_cast<std::size_t>(style.pixels) + 1;
  Picture picture;
  for (int i = 0; i < kTries && !picture; ++i, most /= 2) picture = drawn(cut(text, most), style);
  return picture;
}

class VipsTools final : public Library {
 public:
  std::optional<std::string> rendered(std::string_view file,
                                      const ImageRendering& wanted) const override {
    const ClearsErrors clears;
    return vips::rendered(file, wanted);
  }
  std::optional<Size> sizeOf(std::string_view file) const override;
  std::optional<RgbPicture> decoded(std::string_view file, std::optional<Size> size) const override;
  std::optional<RgbPicture> resized(const RgbPicture& picture, Size size,
                                    Scaling scaling) const override;
  std::optional<RgbPicture> sharpened(const RgbPicture& picture, double radius,
                                      double amount) const override;
  std::optional<RgbPicture> turned(const RgbPicture& picture, double degrees,
                                   std::uint32_t fill) const override;
  std::optional<std::string> encoded(const RgbPicture& picture,
                                     const FileForm& form) const override;
  std::optional<TextMask> textMask(std::string_view text, const TextStyle& style) const override;
};

std::optional<Size> VipsTools::sizeOf(std::string_view file) const {
  const ClearsErrors clears;
  if (const auto whole = bitmap(file)) return Size{whole->width, whole->height};
  const Picture picture = opened(file, 1);
  if (!picture) return std::nullopt;
  return vips::shownSize(picture.get());
}

std::optional<RgbPicture> VipsTools::decoded(std::string_view file,
                                             std::optional<Size> size) const {
  const ClearsErrors clears;
  if (auto whole = bitmap(file)) {
    return size ? resized(*whole, *size, Scaling::Best) : std::move(whole);
  }
  Picture picture = opened(file, 1);
  if (!picture || (size && !isAllowed(*size))) return std::nullopt;
  const Size shown = vips::shownSize(picture.get());
  if (!size || *size == shown) {
    if (!isAllowed(shown)) return std::nullopt;
    return read(flattened(upright(picture)));
  }
  const int shrink = vips::shrinkOnLoad(shown, *size);
  if (shrink > 1 && formatOf(file) == Format::Jpeg) picture = opened(file, shrink);
  return picture ? read(flattened(vips::resized(picture.get(), *size))) : std::nullopt;
}

std::optional<RgbPicture> VipsTools::resized(const RgbPicture& picture, Size size,
                                             Scaling scaling) const {
  const ClearsErrors clears;
  if (!vips::isReady() || !isAllowed(size)) return std::nullopt;
  const Picture source = vips::pictureOf(picture);
  if (!source) return std::nullopt;
  VipsImage* out = nullptr;
  vips_resize(source.get(), &out, static_cast<double>(size.width) / picture.width, "vscale",
              static_cast<double>(size.height) / picture.height, "kernel", kernelOf(scaling),
              nullptr);
  auto result = read(Picture(out));
  if (!result || Size{result->width, result->height} != size) return std::nullopt;
  return result;
}

std::optional<RgbPicture> VipsTools::sharpened(const RgbPicture& picture, double radius,
                                               double amount) const {
  constexpr double kMostRadius = 16;
  const ClearsErrors clears;
  const Picture source = vips::isReady() ? vips::pictureOf(picture) : nullptr;
  if (!source) return std::nullopt;
  const double more = std::clamp(amount - 100, 0.0, 1000.0) / 100;
  VipsImage* out = nullptr;
  vips_gaussblur(source.get(), &out, std::clamp(radius, 0.1, kMostRadius), nullptr);
  const Picture around(std::exchange(out, nullptr));
  if (!around) return std::nullopt;
  vips_linear1(source.get(), &out, 1 + more, 0, nullptr);
  const Picture strong(std::exchange(out, nullptr));
  vips_linear1(around.get(), &out, more, 0, nullptr);
  const Picture taken(std::exchange(out, nullptr));
  if (!strong || !taken) return std::nullopt;
  vips_subtract(strong.get(), taken.get(), &out, nullptr);
  const Picture difference(std::exchange(out, nullptr));
  if (!difference) return std::nullopt;
  vips_cast_uchar(difference.get(), &out, nullptr);
  return read(Picture(out));
}

std::optional<RgbPicture> VipsTools::turned(const RgbPicture& picture, double degrees,
                                            std::uint32_t fill) const {
  const ClearsErrors clears;
  const Picture source = vips::isReady() ? vips::pictureOf(picture) : nullptr;
  if (!source || !std::isfinite(degrees)) return std::nullopt;
  const std::unique_ptr<VipsArrayDouble, void (*)(VipsArrayDouble*)> background(
      vips_array_double_newv(3, part(fill, 16), part(fill, 8), part(fill, 0)),
      [](VipsArrayDouble* array) { vips_area_unref(VIPS_AREA(array)); });
  // Rows in order would not do here: each result takes from all over its source.
  vips_image_remove(source.get(), VIPS_META_SEQUENTIAL);
  VipsImage* out = nullptr;
  vips_rotate(source.get(), &out, -std::fmod(degrees, 360), "background", background.get(),
              nullptr);
  return read(Picture(out));
}

std::optional<std::string> VipsTools::encoded(const RgbPicture& picture,
                                              const FileForm& form) const {
  const ClearsErrors clears;
  const Picture source = vips::isReady() ? vips::pictureOf(picture) : nullptr;
  if (!source) return std::nullopt;
  void* bytes = nullptr;
  std::size_t length = 0;
  const int status =
      form.type == FileType::Png
          ? vips_pngsave_buffer(source.get(), &bytes, &length, "strip", TRUE, "interlace",
                                form.progressive ? TRUE : FALSE, nullptr)
          : vips_jpegsave_buffer(source.get(), &bytes, &length, "Q",
                                 std::clamp(form.quality, 1, 100), "strip", TRUE, "interlace",
                                 form.progressive ? TRUE : FALSE, nullptr);
  const std::unique_ptr<void, void (*)(void*)> held(bytes, g_free);
  if (status != 0) return std::nullopt;
  return std::string(static_cast<const char*>(bytes), length);
}

std::optional<TextMask> VipsTools::textMask(std::string_view text, const TextStyle& style) const {
  const ClearsErrors clears;
  if (!vips::isReady() || style.pixels < 1 || style.pixels > kMostSide) return std::nullopt;
  if (text.find_first_not_of(" \t\r\n") == text.npos) return TextMask{};
  const Picture picture = drawnAsFarAsItGoes(text, style);
  if (!picture || vips_image_get_bands(picture.get()) != 1) return std::nullopt;
  TextMask mask;
  mask.size = {vips_image_get_width(picture.get()), vips_image_get_height(picture.get())};
  mask.left = vips_image_get_xoffset(picture.get());
  mask.top = vips_image_get_yoffset(picture.get());
  mask.advance = mask.left + mask.size.width;
  std::size_t length = 0;
  const std::unique_ptr<void, void (*)(void*)> covers(
      vips_image_write_to_memory(picture.get(), &length), g_free);
  if (!covers) return std::nullopt;
  mask.covers.assign(static_cast<const char*>(covers.get()), length);
  return mask;
}

const VipsTools kTools;

}  // namespace

}  // namespace quorvane::picture_tools

extern "C" __attribute__((visibility("default"))) const quorvane::picture_tools::Library*
quorvanePictures1();
extern "C" const quorvane::picture_tools::Library* quorvanePictures1() {
  return &quorvane::picture_tools::kTools;
}
