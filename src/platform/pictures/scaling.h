#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/pictures/raster.h"

namespace quorvane::picture_tools {

/// Makes a picture of another size from its rows as they come. What is to be made much smaller is
/// averaged at once to some more than that, so that it never is in memory as a whole.
class Scaler {
 public:
  Scaler(Size source, int channels, Size target, Scaling scaling);

  /// Whether what it holds meanwhile stays within the bounds of a picture.
  static bool canScale(Size source, Size target);

  /// The next row of the source, of as many bytes as that has.
  void take(const char* row);

  /// Asked for once, when all rows are there. Nothing when memory is short.
  std::optional<Raster> result();

 private:
  void finishRow();

  Size source_;
  Size target_;
  Scaling scaling_;
  int across_;   ///< as many columns of the source are averaged
  int down_;     ///< and rows
  Raster held_;  ///< the averages
  std::vector<std::uint64_t> sums_;
  int rows_ = 0;  ///< that were taken
};

/// Nothing when memory is short.
std::optional<Raster> scaled(const Raster& source, Size target, Scaling scaling);

}  // namespace quorvane::picture_tools
