#pragma once

#include <memory>
#include <string>

namespace quorvane {

class Files;

/// What is wanted of a picture.
struct ImageRendering {
  int width = 0;           ///< pixels; 0 follows from the height
  int height = 0;          ///< pixels; 0 follows from the width
  bool keepAspect = true;  ///< fit within the size given instead of filling it
  bool grey = false;
};

/// Resizes pictures. The file type (jpg, gif, png, bmp) of the target is that of the source, told
/// by its content. A target has at most the pixels of its source, or 4 million. Of an animation the
/// first picture is taken; a photo taken sideways comes out upright; colours come out as sRGB and
/// everything that is not picture is left behind.
class ImageLibrary {
 public:
  virtual ~ImageLibrary() = default;

  /// Renders the picture in file `source` to file `target`. A reader of `target` sees the old file
  /// or the whole new one; false (a broken picture, one too large, no size wanted, a full disk)
  /// leaves the target as it was. May be called on several threads at once.
  virtual bool render(const std::string& source, const std::string& target,
                      const ImageRendering& wanted) = 0;

  /// Why it can't render anything at all, once that has shown; may be called while it renders.
  virtual std::string complaint() const { return {}; }
};

/// The image library of the host system. `files` must outlive it.
std::unique_ptr<ImageLibrary> makeImageLibrary(const Files& files);

}  // namespace quorvane
