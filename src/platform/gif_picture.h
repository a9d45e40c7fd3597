#pragma once

#include <string_view>

namespace quorvane {

/// True when the first picture of a GIF file is there to its end. Loaders take a file that ends
/// within a picture for one whose pixels are transparent.
bool firstGifPictureIsComplete(std::string_view file);

}  // namespace quorvane
