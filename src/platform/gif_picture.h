#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quorvane {

/// The description of a file's first picture.
struct FirstGifPicture {
  std::size_t at = 0;  ///< where it stands in the file
  bool isTransparent = false;
};

/// Nothing when the picture isn't there to its end. Loaders take a file that ends within a picture
/// for one whose pixels are transparent.
std::optional<FirstGifPicture> firstGifPicture(std::string_view file);

}  // namespace quorvane
