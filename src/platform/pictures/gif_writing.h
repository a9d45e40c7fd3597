#pragma once

#include <string>

#include "platform/pictures/raster.h"

namespace quorvane::picture_tools {

/// A GIF file of a picture of any number of channels, in the 256 colours that serve it best; what
/// lies between them is mixed of pixels side by side. A pixel is opaque or not seen at all.
std::string encodeGif(const Raster& picture);

}  // namespace quorvane::picture_tools
