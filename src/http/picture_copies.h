#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "http/bounded_copies.h"

namespace quorvane {

struct ImageRendering;

/// The resized pictures in the cache folder, kept within bounds: clients choose the sizes, and
/// could fill the disk with them.
class PictureCopies final : public BoundedCopies {
 public:
  static constexpr std::size_t kMostCopies = 1024;
  static constexpr std::uint64_t kMostBytes = std::uint64_t{256} << 20;

  explicit PictureCopies(const Files& files)
      : BoundedCopies(files, isCopy, {kMostCopies, kMostBytes}) {}

  /// A copy's name in the cache folder. Neither the aspect ratio nor grey is part of it: who asks
  /// first settles the look of the copy.
  static std::string nameOf(const ImageRendering& wanted, std::string_view fileName);

  /// Whether a file of the cache folder is a copy, or the compressed copy of one.
  static bool isCopy(std::string_view name);
};

}  // namespace quorvane
