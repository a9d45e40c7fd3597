#pragma once

#include <cstdint>

#include "platform/pictures/raster.h"

/// What is done to the pixels of pictures themselves, for libraries that don't do it.
namespace quorvane::picture_tools {

/// As it is shown; `orientation` as PictureHead has it.
Raster upright(const Raster& picture, int orientation);

/// Of one channel, or of four with the same grey in three. As light as it was to the eye.
Raster grey(const Raster& picture);

/// Red, green and blue on white.
Raster onWhite(const Raster& picture);

/// See Library. Of three channels.
Raster sharpened(const Raster& picture, double radius, double amount);

/// See Library. Of three channels; the picture is empty when it would be too large.
Raster turned(const Raster& picture, double degrees, std::uint32_t fill);

}  // namespace quorvane::picture_tools
