#pragma once

#include <optional>
#include <string>

#include "http/targets.h"
#include "platform/image_library.h"

namespace quorvane {

class clsHTTPParser;
class Files;
class PictureCopies;
class Random;

/// Resized pictures, asked for by query variables: "rx" and "ry" the size, "ar" 0 to give up the
/// aspect ratio, "gr" 1 for grey, "nc" 1 to render afresh and keep nothing. Copies stay in the
/// cache folder and are renewed when their source is newer.
class ResizedImages {
 public:
  static constexpr int kMostPixels = 16384;  ///< on a side; more is served unresized

  ResizedImages(const Files& files, Random& random, ImageLibrary* library, PictureCopies& copies)
      : files_(files), random_(random), library_(library), copies_(copies) {}

  struct Copy {
    FoundFile file;
    bool temporary = false;  ///< to be removed once it is open for sending
  };

  /// The copy to serve in place of `source`; nothing when none is asked for or it can't be made.
  /// Only a public file's copy is kept: under its name anybody gets it.
  std::optional<Copy> copyFor(const FoundFile& source, bool isPublic, const clsHTTPParser& parser,
                              const std::string& cacheFolder);

 private:
  bool render(const FoundFile& source, const std::string& target, const ImageRendering& wanted);
  std::string temporaryName(const std::string& fileName);

  const Files& files_;
  Random& random_;
  ImageLibrary* library_;
  PictureCopies& copies_;
};

}  // namespace quorvane
