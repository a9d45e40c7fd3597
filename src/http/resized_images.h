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

  ResizedImages(const Files& files, Random& random, PictureCopies& copies)
      : files_(files), random_(random), copies_(copies) {}

  struct Copy {
    FoundFile file;
    bool temporary = false;  ///< to be removed once it is open for sending
  };

  /// A copy that is wanted in place of its source.
  struct Wish {
    FoundFile source;
    ImageRendering rendering;
    std::string target;  ///< path of the copy
    bool temporary = false;
  };

  /// What a request asks for; nothing when it wants the source as it is. Only a public file's copy
  /// is kept: under its name anybody gets it.
  std::optional<Wish> wishFor(const FoundFile& source, bool isPublic, const clsHTTPParser& parser,
                              const std::string& cacheFolder);

  /// The copy when there is one that is not older than its source.
  std::optional<Copy> present(const Wish& wish);

 private:
  std::string temporaryName(const std::string& fileName);

  const Files& files_;
  Random& random_;
  PictureCopies& copies_;
};

}  // namespace quorvane
