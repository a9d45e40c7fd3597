#pragma once

#include <optional>
#include <string_view>

#include "platform/picture_rules.h"

/// What stands in a picture's file beside its pixels, for libraries that tell of it only when they
/// have unpacked them, or not at all.
namespace quorvane::picture_tools {

struct PictureHead {
  Size size;            ///< as it is stored
  int orientation = 1;  ///< 1 to 8, as cameras count: what is first in the file is shown where
  bool atOnce = false;  ///< it comes in several passes over all of it
  bool hasAlpha = false;
  /// Where the first picture of a GIF lies within its size; all of another file.
  int left = 0;
  int top = 0;
  Size first;

  bool isTurned() const { return orientation > 4; }
  Size shown() const { return isTurned() ? Size{size.height, size.width} : size; }
};

/// Of a jpg, png or gif. Nothing when it is broken, or ends before its (first) picture does.
std::optional<PictureHead> readPictureHead(std::string_view file);

}  // namespace quorvane::picture_tools
