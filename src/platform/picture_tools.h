#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/bmp_picture.h"

/// Pictures that are worked on in memory, for components: what of that wants a library, on one
/// thread at a time. Each answers with nothing when a picture is broken, too large, or the library
/// fails. Sides go up to kMostSide, pixels up to kMostPixels.
namespace quorvane::picture_tools {

inline constexpr int kMostSide = 16384;
inline constexpr std::int64_t kMostPixels = std::int64_t{32} << 20;

struct Size {
  int width = 0;
  int height = 0;

  friend bool operator==(const Size&, const Size&) = default;
};

/// Whether a picture may be that large.
bool isAllowed(Size size);

/// Of the picture in a file (jpg, png, gif, bmp), upright.
std::optional<Size> sizeOf(std::string_view file);

/// The picture in a file, upright and in sRGB on white, at another size if one is given: a large
/// jpg takes little memory then. Of an animation the first picture.
std::optional<RgbPicture> decoded(std::string_view file, std::optional<Size> size);

enum class Scaling : std::uint8_t { Nearest, Linear, Cubic, Best };
std::optional<RgbPicture> resized(const RgbPicture& picture, Size size, Scaling scaling);

/// By so much more than it was, in hundredths, of what differs from `radius` pixels around.
std::optional<RgbPicture> sharpened(const RgbPicture& picture, double radius, double amount);

/// Counterclockwise, in a picture that is as large as it takes; corners are `fill` (0xRRGGBB).
std::optional<RgbPicture> turned(const RgbPicture& picture, double degrees, std::uint32_t fill);

enum class FileType : std::uint8_t { Jpeg, Png };
struct FileForm {
  FileType type = FileType::Jpeg;
  int quality = 80;          ///< 1 to 100
  bool progressive = false;  ///< shown in steps that get finer
};
std::optional<std::string> encoded(const RgbPicture& picture, const FileForm& form);

struct TextStyle {
  std::string family;
  int pixels = 24;  ///< of the height
  bool bold = false;
  bool italic = false;
  bool underlined = false;
};

/// A text in one line: how much of each pixel it covers, 0 to 255.
struct TextMask {
  Size size;
  int left = 0;  ///< from where the text begins to where its first covered column is
  int top = 0;
  int advance = 0;  ///< how wide it is with the room around its letters
  std::string covers;
};

/// Long texts are cut where no picture goes on. UTF-8. Any fonts are those of the system; a family
/// that it does not have is replaced by its usual one.
std::optional<TextMask> textMask(std::string_view text, const TextStyle& style);

}  // namespace quorvane::picture_tools
