#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/picture_tools.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane::pictures {

/// Throws the script error of a text. Numbers tell nothing: pages go by there being an error.
[[noreturn]] void fail(std::string_view text);

/// What works on pictures. Throws the script error when this machine has none.
const picture_tools::Library& library();

/// The picture that an object and its canvas work on. A picture just opened stays packed until its
/// pixels are asked for, so that one that is only made smaller never is in memory at its full size.
class Sheet {
 public:
  bool isOpen() const { return isOpen_; }
  void open(std::string file);
  void make(int width, int height, std::uint32_t colour);
  void close();

  picture_tools::Size original() const;
  picture_tools::Size size() const;  ///< as it is to be
  /// The other side follows where the aspect is kept.
  void setWidth(int width);
  void setHeight(int height);

  /// At the size it is to be. Throws when no picture is open, or the size is too much.
  RgbPicture& pixels();
  /// Puts another picture in the place of the one that was there.
  void replace(std::optional<RgbPicture> picture);

  bool keepsAspect = false;
  int interpolation = 1;  ///< 0: nearest, 1: linear, 2: cubic, above: the best there is

 private:
  void requireOpen() const;
  void take(RgbPicture picture);
  picture_tools::Size present() const;

  bool isOpen_ = false;
  std::string file_;  ///< empty once the pixels are there
  picture_tools::Size original_;
  picture_tools::Size size_;
  std::optional<RgbPicture> picture_;
  vbs::MemoryCharge charge_;
};

}  // namespace quorvane::pictures
