#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/bmp_picture.h"
#include "platform/image_library.h"

/// Pictures that are worked on in memory: what of that wants a library.
namespace quorvane::picture_tools {

inline constexpr int kMostSide = 16384;
inline constexpr std::int64_t kMostPixels = std::int64_t{32} << 20;

struct Size {
  int width = 0;
  int height = 0;

  friend bool operator==(const Size&, const Size&) = default;
};

/// Whether a picture may be that large.
constexpr bool isAllowed(Size size) {
  return size.width > 0 && size.height > 0 && size.width <= kMostSide && size.height <= kMostSide &&
         std::int64_t{size.width} * size.height <= kMostPixels;
}

enum class Scaling : std::uint8_t { Nearest, Linear, Cubic, Best };

enum class FileType : std::uint8_t { Jpeg, Png };
struct FileForm {
  FileType type = FileType::Jpeg;
  int quality = 80;          ///< 1 to 100
  bool progressive = false;  ///< shown in steps that get finer
};

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

/// Each function answers with nothing when a picture is broken, too large, or the library fails.
/// Sides go up to kMostSide, pixels up to kMostPixels. rendered() may be called on several threads
/// at once, each of the others on one at a time.
class Library {
 public:
  /// The file of a picture as it is wanted, for ImageLibrary.
  virtual std::optional<std::string> rendered(std::string_view file,
                                              const ImageRendering& wanted) const = 0;

  /// Of the picture in a file (jpg, png, gif, bmp), upright.
  virtual std::optional<Size> sizeOf(std::string_view file) const = 0;

  /// The picture in a file, upright and in sRGB on white, at another size if one is given: a large
  /// jpg takes little memory then. Of an animation the first picture.
  virtual std::optional<RgbPicture> decoded(std::string_view file,
                                            std::optional<Size> size) const = 0;

  virtual std::optional<RgbPicture> resized(const RgbPicture& picture, Size size,
                                            Scaling scaling) const = 0;

  /// By so much more than it was, in hundredths, of what differs from `radius` pixels around.
  virtual std::optional<RgbPicture> sharpened(const RgbPicture& picture, double radius,
                                              double amount) const = 0;

  /// Counterclockwise, in a picture that is as large as it takes; corners are `fill` (0xRRGGBB).
  virtual std::optional<RgbPicture> turned(const RgbPicture& picture, double degrees,
                                           std::uint32_t fill) const = 0;

  virtual std::optional<std::string> encoded(const RgbPicture& picture,
                                             const FileForm& form) const = 0;

  /// Long texts are cut where no picture goes on. UTF-8. Any fonts are those of the system; a
  /// family that it does not have is replaced by its usual one.
  virtual std::optional<TextMask> textMask(std::string_view text, const TextStyle& style) const = 0;

 protected:
  ~Library() = default;
};

struct Loaded {
  const Library* library = nullptr;  ///< null: it can't be had
  std::string complaint;             ///< why
};

/// The system's picture library. The first call loads it; they may come from any thread.
const Loaded& load();

/// Where it is a module of its own: its file, beside the program's, and the function in it. A
/// change of Library changes the function's name, so that a file of another version is none.
inline constexpr const char* kModule = "quorvane-pictures.so";
inline constexpr const char* kModuleEntry = "quorvanePictures1";
using ModuleEntry = const Library*();

}  // namespace quorvane::picture_tools
