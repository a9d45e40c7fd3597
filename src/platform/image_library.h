#pragma once

#include <string>

/// What is wanted of a picture.
struct ImageRendering {
  int width = 0;   ///< pixels; 0 follows from the height
  int height = 0;  ///< pixels; 0 follows from the width
  bool keepAspect = true;
  bool grey = false;
};

/// Resizes pictures. The file type (jpg, gif, png, bmp) of the target is that of the source.
class ImageLibrary {
 public:
  virtual ~ImageLibrary() = default;

  /// Renders the picture in file `source` to file `target`. A reader of `target` sees the old file
  /// or the whole new one; false (a broken picture, one too large, a full disk) leaves the target
  /// as it was.
  virtual bool render(const std::string& source, const std::string& target,
                      const ImageRendering& wanted) = 0;
};
