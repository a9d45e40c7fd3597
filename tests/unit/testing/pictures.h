#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/bmp_picture.h"
#include "platform/fake/memory_files.h"
#include "platform/image_library.h"

namespace quorvane {

/// A picture whose red runs from left to right and whose green runs from top to bottom.
inline RgbPicture gradient(int width, int height) {
  RgbPicture picture{width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      picture.pixels += static_cast<char>(255 * x / width);
      picture.pixels += static_cast<char>(255 * y / height);
      picture.pixels += '\x20';
    }
  }
  return picture;
}

class ImageLibraryFixture : public testing::Test {
 protected:
  /// The first rendering sets the library up, in the way it has to be for the others.
  static void SetUpTestSuite() {
    const MemoryFiles none;
    EXPECT_FALSE(makeImageLibrary(none)->render("/none", "/target", {.width = 10}));
  }

  ImageLibraryFixture() { files.put("/cache/kept", ""); }

  /// Renders `bytes`; an empty result when that fails.
  std::string render(const std::string& bytes, const ImageRendering& wanted) {
    files.put("/site/source", bytes);
    files.remove("/cache/target");
    const bool done = images->render("/site/source", "/cache/target", wanted);
    const auto target = files.readAll("/cache/target");
    EXPECT_EQ(done, target.has_value());
    return target.value_or("");
  }

  MemoryFiles files;
  std::unique_ptr<ImageLibrary> images = makeImageLibrary(files);
};

}  // namespace quorvane
