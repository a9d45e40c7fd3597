#include "platform/image_library.h"

#include <gtest/gtest.h>
#include <vips/vips.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "platform/bmp_picture.h"
#include "platform/fake/memory_files.h"

namespace quorvane {

namespace {

struct Unref {
  void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Picture = std::unique_ptr<VipsImage, Unref>;

const std::array<std::string, 4> kTypes = {"jpg", "gif", "png", "bmp"};

/// A picture whose red runs from left to right and whose green runs from top to bottom.
RgbPicture gradient(int width, int height) {
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

Picture imageOf(const std::string& pixels, int width, int height, int bands) {
  VipsImage* raw = vips_image_new_from_memory_copy(pixels.data(), pixels.size(), width, height,
                                                   bands, VIPS_FORMAT_UCHAR);
  VipsImage* image = nullptr;
  vips_copy(raw, &image, "interpretation",
            bands < 3 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB, nullptr);
  g_object_unref(raw);
  return Picture(image);
}

std::string saved(VipsImage* image, const std::string& suffix) {
  void* bytes = nullptr;
  std::size_t length = 0;
  if (vips_image_write_to_buffer(image, ("." + suffix).c_str(), &bytes, &length, nullptr) != 0) {
    ADD_FAILURE() << vips_error_buffer();
  }
  const std::string result(static_cast<const char*>(bytes), length);
  g_free(bytes);
  return result;
}

std::string sample(const std::string& type, int width, int height) {
  const RgbPicture picture = gradient(width, height);
  if (type == "bmp") return encodeBmp(picture);
  return saved(imageOf(picture.pixels, width, height, 3).get(), type);
}

/// A GIF that says nothing of most of its pixels.
std::string hollowGif(int width, int height) {
  const auto number = [](int value) {
    return std::string{static_cast<char>(value & 255), static_cast<char>(value >> 8)};
  };
  const std::string size = number(width) + number(height);
  return "GIF89a" + size + std::string("\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0", 14) + size +
         std::string("\0\x02\x02\x44\x01\0;", 7);
}

struct Inspected {
  int width = 0;
  int height = 0;
  int bands = 0;
  std::string loader;
  std::vector<double> topLeft;
  std::vector<double> bottomRight;
};

std::vector<double> pointOf(VipsImage* image, int x, int y) {
  double* values = nullptr;
  int count = 0;
  vips_getpoint(image, &values, &count, x, y, nullptr);
  std::vector<double> point(values, values + count);
  g_free(values);
  return point;
}

Inspected inspected(const std::string& bytes) {
  Picture image;
  std::string loader = "bmp";
  if (const auto bitmap = decodeBmp(bytes, 20000, 1 << 28)) {
    image = imageOf(bitmap->pixels, bitmap->width, bitmap->height, 3);
  } else {
    image.reset(vips_image_new_from_buffer(bytes.data(), bytes.size(), "", nullptr));
    if (!image) {
      ADD_FAILURE() << vips_error_buffer();
      return {};
    }
    const char* name = nullptr;
    vips_image_get_string(image.get(), VIPS_META_LOADER, &name);
    loader = name;
  }
  const int width = vips_image_get_width(image.get());
  const int height = vips_image_get_height(image.get());
  return {width,
          height,
          vips_image_get_bands(image.get()),
          loader,
          pointOf(image.get(), 0, 0),
          pointOf(image.get(), width - 1, height - 1)};
}

class ImageLibraryTest : public testing::Test {
 protected:
  /// The first rendering sets the library up, in the way it has to be for the others.
  static void SetUpTestSuite() {
    const MemoryFiles none;
    EXPECT_FALSE(makeImageLibrary(none)->render("/none", "/target", {.width = 10}));
  }

  ImageLibraryTest() { files.put("/cache/kept", ""); }

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

TEST_F(ImageLibraryTest, TheTargetIsOfTheSourcesType) {
  const std::array<std::string, 4> loaders = {"jpegload_buffer", "gifload_buffer", "pngload_buffer",
                                              "bmp"};
  for (std::size_t i = 0; i < kTypes.size(); ++i) {
    SCOPED_TRACE(kTypes[i]);
    const Inspected result =
        inspected(render(sample(kTypes[i], 200, 100), {.width = 50, .height = 50}));
    EXPECT_EQ(result.loader, loaders[i]);
    EXPECT_EQ(result.width, 50);
    EXPECT_EQ(result.height, 25);
    EXPECT_LT(result.topLeft[0], 20);
    EXPECT_LT(result.topLeft[1], 20);
    EXPECT_GT(result.bottomRight[0], 235);
    EXPECT_GT(result.bottomRight[1], 235);
  }
}

TEST_F(ImageLibraryTest, FillsTheSizeWhenTheAspectIsFree) {
  for (const std::string& type : kTypes) {
    const Inspected result =
        inspected(render(sample(type, 200, 100), {.width = 30, .height = 60, .keepAspect = false}));
    EXPECT_EQ(result.width, 30);
    EXPECT_EQ(result.height, 60);
  }
}

TEST_F(ImageLibraryTest, OneSideFollowsFromTheOther) {
  const std::string source = sample("png", 200, 100);
  for (const bool keepAspect : {true, false}) {
    Inspected result = inspected(render(source, {.width = 40, .keepAspect = keepAspect}));
    EXPECT_EQ(result.height, 20);
    result = inspected(render(source, {.height = 40, .keepAspect = keepAspect}));
    EXPECT_EQ(result.width, 80);
  }
}

TEST_F(ImageLibraryTest, GrowsToo) {
  const Inspected result = inspected(render(sample("png", 20, 10), {.width = 400, .height = 400}));
  EXPECT_EQ(result.width, 400);
  EXPECT_EQ(result.height, 200);
}

TEST_F(ImageLibraryTest, ASideNeverVanishes) {
  const Inspected result = inspected(render(sample("png", 1000, 2), {.width = 10, .height = 10}));
  EXPECT_EQ(result.width, 10);
  EXPECT_EQ(result.height, 1);
}

TEST_F(ImageLibraryTest, GreyHasNoColour) {
  for (const std::string& type : kTypes) {
    SCOPED_TRACE(type);
    const Inspected result =
        inspected(render(sample(type, 200, 100), {.width = 50, .height = 50, .grey = true}));
    EXPECT_EQ(result.width, 50);
    if (result.bands < 3) continue;
    for (const auto& point : {result.topLeft, result.bottomRight}) {
      EXPECT_NEAR(point[0], point[1], 1);
      EXPECT_NEAR(point[1], point[2], 1);
    }
    EXPECT_GT(result.bottomRight[0], 150);
  }
}

TEST_F(ImageLibraryTest, TransparencyStays) {
  std::string pixels;
  for (int i = 0; i < 40 * 40; ++i) pixels += i % 40 < 20 ? "\xFF\x10\x10\xFF" : std::string(4, 0);
  const Picture picture = imageOf(pixels, 40, 40, 4);
  for (const bool grey : {false, true}) {
    const Inspected result =
        inspected(render(saved(picture.get(), "png"), {.width = 10, .height = 10, .grey = grey}));
    EXPECT_EQ(result.bands, grey ? 2 : 4);
    EXPECT_EQ(result.topLeft.back(), 255);
    EXPECT_EQ(result.bottomRight.back(), 0);
  }
}

TEST_F(ImageLibraryTest, APhotoTakenSidewaysComesOutUpright) {
  const Picture picture = imageOf(gradient(200, 100).pixels, 200, 100, 3);
  vips_image_set_int(picture.get(), VIPS_META_ORIENTATION, 6);
  const std::string source = saved(picture.get(), "jpg");
  const Inspected result = inspected(render(source, {.width = 80, .height = 80}));
  EXPECT_EQ(result.width, 40);
  EXPECT_EQ(result.height, 80);
  EXPECT_LT(result.topLeft[0], 20) << "red ran from left to right, now from top to bottom";
  EXPECT_GT(result.topLeft[1], 235) << "the bottom is on the left";
}

TEST_F(ImageLibraryTest, FourInksAndSixteenBitsBecomeEverydayColours) {
  const Picture picture = imageOf(gradient(64, 64).pixels, 64, 64, 3);
  VipsImage* converted = nullptr;
  ASSERT_EQ(vips_icc_export(picture.get(), &converted, "output_profile", "cmyk", nullptr), 0);
  const std::string inks = saved(converted, "jpg");
  g_object_unref(converted);
  EXPECT_EQ(inspected(inks).bands, 4);
  EXPECT_EQ(inspected(render(inks, {.width = 16})).bands, 3);

  ASSERT_EQ(vips_colourspace(picture.get(), &converted, VIPS_INTERPRETATION_RGB16, nullptr), 0);
  const std::string deep = saved(converted, "png");
  g_object_unref(converted);
  for (const bool grey : {false, true}) {
    const Inspected result = inspected(render(deep, {.width = 16, .grey = grey}));
    EXPECT_EQ(result.width, 16);
    EXPECT_EQ(result.bands, grey ? 1 : 3);
  }
}

TEST_F(ImageLibraryTest, WithoutASizeNothingIsDone) {
  EXPECT_EQ(render(sample("png", 20, 10), {}), "");
  EXPECT_EQ(render(sample("png", 20, 10), {.width = -5, .height = -1}), "");
}

TEST_F(ImageLibraryTest, ResultsAreBounded) {
  const std::string source = sample("png", 20, 10);
  EXPECT_EQ(render(source, {.width = 16385}), "");
  EXPECT_EQ(render(source, {.width = 16384, .height = 16384, .keepAspect = false}), "");
  EXPECT_EQ(render(source, {.width = 2147483647, .height = 2147483647}), "");
  EXPECT_NE(render(source, {.width = 16384, .height = 1, .keepAspect = false}), "");
  EXPECT_EQ(render(sample("gif", 20, 10), {.width = 2049, .height = 2048, .keepAspect = false}),
            "");
  const Inspected narrow = inspected(render(sample("png", 1, 100), {.width = 1000}));
  EXPECT_EQ(narrow.height, 16384) << "the side that follows stays within the bound";
  EXPECT_EQ(narrow.width, 164);
  EXPECT_NE(render(source, {.width = 2000, .height = 2000, .keepAspect = false}), "");
  EXPECT_EQ(render(source, {.width = 2000, .height = 2001, .keepAspect = false}), "");
  EXPECT_NE(render(sample("bmp", 2100, 2000), {.width = 2000, .height = 2100, .keepAspect = false}),
            "")
      << "as many as its source has";
}

TEST_F(ImageLibraryTest, PicturesThatUnpackToTooMuchAreRefused) {
  VipsImage* black = nullptr;
  vips_black(&black, 16384, 8193, nullptr);
  const std::string many = saved(black, "png");
  g_object_unref(black);
  EXPECT_LT(many.size(), 1000000U);
  EXPECT_EQ(render(many, {.width = 10}), "");

  vips_black(&black, 16385, 1, nullptr);
  const std::string wide = saved(black, "png");
  g_object_unref(black);
  EXPECT_EQ(render(wide, {.width = 10}), "");

  vips_black(&black, 8192, 4097, nullptr);
  const std::string whole = saved(black, "png");
  EXPECT_NE(render(whole, {.width = 10}), "");
  const std::string interlaced = saved(black, "png[interlace]");
  const std::string progressive = saved(black, "jpg[interlace]");
  g_object_unref(black);
  EXPECT_EQ(render(interlaced, {.width = 10}), "");
  EXPECT_NE(render(hollowGif(8192, 4096), {.width = 10}), "");
  EXPECT_EQ(render(hollowGif(8193, 4096), {.width = 10}), "");
  EXPECT_EQ(render(progressive, {.width = 10}), "");
}

TEST_F(ImageLibraryTest, OtherTypesAreRefused) {
  EXPECT_EQ(render("", {.width = 10}), "");
  EXPECT_EQ(render("plain text", {.width = 10}), "");
  EXPECT_EQ(render("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", {.width = 9}),
            "");
  EXPECT_EQ(render(saved(imageOf(gradient(9, 9).pixels, 9, 9, 3).get(), "tif"), {.width = 9}), "");
}

TEST_F(ImageLibraryTest, AMissingSourceOrAFailedWriteIsFalse) {
  EXPECT_FALSE(images->render("/site/none", "/cache/target", {.width = 10}));
  EXPECT_FALSE(images->render("/site", "/cache/target", {.width = 10}));
  files.put("/site/a.png", sample("png", 20, 10));
  EXPECT_FALSE(images->render("/site/a.png", "/no/folder/target", {.width = 10}));
}

TEST_F(ImageLibraryTest, ABrokenSourceLeavesTheTargetAlone) {
  files.put("/site/source", sample("jpg", 200, 100).substr(0, 600));
  files.put("/cache/target", "before");
  EXPECT_FALSE(images->render("/site/source", "/cache/target", {.width = 10}));
  EXPECT_EQ(files.readAll("/cache/target"), "before");
}

TEST_F(ImageLibraryTest, ASourceThatEndsEarlyIsBroken) {
  for (const std::string& type : kTypes) {
    SCOPED_TRACE(type);
    const std::string whole = sample(type, 64, 64);
    ASSERT_NE(render(whole, {.width = 10}), "");
    for (std::size_t cut = 1; cut < whole.size() * 3 / 4; cut += 7) {
      ASSERT_EQ(render(whole.substr(0, cut), {.width = 10}), "") << cut;
    }
  }
}

TEST_F(ImageLibraryTest, SurvivesDamage) {
  std::mt19937 random(1);
  for (const std::string& type : kTypes) {
    const std::string whole = sample(type, 40, 30);
    for (int round = 0; round < 50; ++round) {
      std::string damaged = whole;
      for (int i = 0; i < 4; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
      const std::string result = render(damaged, {.width = 20, .height = 20});
      if (!result.empty()) {
        EXPECT_LE(inspected(result).width, 20);
      }
    }
  }
}

}  // namespace

}  // namespace quorvane
