#pragma once

#include <optional>
#include <string>

#include "http/side_work.h"
#include "http/targets.h"
#include "platform/image_library.h"
#include "platform/services.h"

namespace quorvane {

class clsHTTPParser;
class PictureCopies;

/// Resized pictures, asked for by query variables: "rx" and "ry" the size, "ar" 0 to give up the
/// aspect ratio, "gr" 1 for grey, "nc" 1 to render afresh and keep nothing. Copies stay in the
/// cache folder and are renewed when their source is newer.
class ResizedImages {
 public:
  static constexpr int kMostPixels = 16384;  ///< on a side; more is served unresized

  ResizedImages(const Services& services, PictureCopies& copies)
      : services_(services), copies_(copies) {}

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
  std::optional<Wish> wishFor(const FoundFile& source, bool isPublic, const clsHTTPParser& parser);

  /// Makes the copy when there is none, of a server that has an image library; else empty. It may
  /// be called beside the loop.
  Making lacking(const Wish& wish);

  /// The copy when there is one that is not older than its source.
  std::optional<Copy> present(const Wish& wish);

 private:
  void complain();
  std::string temporaryName(const std::string& fileName);

  const Services& services_;
  PictureCopies& copies_;
  bool hasComplained_ = false;
};

}  // namespace quorvane
