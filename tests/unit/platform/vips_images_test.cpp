#include <gtest/gtest.h>
#include <vips/vips.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "testing/pictures.h"

/// Files that only the library itself makes.
namespace quorvane {

namespace {

using VipsImages = ImageLibraryFixture;

struct Unref {
  void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Picture = std::unique_ptr<VipsImage, Unref>;

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
  int bands = 0;
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
  const Picture image(vips_image_new_from_buffer(bytes.data(), bytes.size(), "", nullptr));
  if (!image) {
    ADD_FAILURE() << vips_error_buffer();
    return {};
  }
  const int width = vips_image_get_width(image.get());
  const int height = vips_image_get_height(image.get());
  return {width, vips_image_get_bands(image.get()), pointOf(image.get(), 0, 0),
          pointOf(image.get(), width - 1, height - 1)};
}

TEST_F(VipsImages, TransparencyStays) {
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

TEST_F(VipsImages, FourInksAndSixteenBitsBecomeEverydayColours) {
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

TEST_F(VipsImages, PicturesThatUnpackToTooMuchAreRefused) {
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
  EXPECT_NE(render(saved(black, "jpg"), {.width = 10}), "");
  g_object_unref(black);
  EXPECT_EQ(render(interlaced, {.width = 10}), "");
  EXPECT_NE(render(hollowGif(8192, 4096), {.width = 10}), "");
  EXPECT_EQ(render(hollowGif(8193, 4096), {.width = 10}), "");
  EXPECT_EQ(render(progressive, {.width = 10}), "");
}

TEST_F(VipsImages, OtherTypesAreRefused) {
  EXPECT_EQ(render("", {.width = 10}), "");
  EXPECT_EQ(render("plain text", {.width = 10}), "");
  EXPECT_EQ(render("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", {.width = 9}),
            "");
  EXPECT_EQ(render(saved(imageOf(gradient(9, 9).pixels, 9, 9, 3).get(), "tif"), {.width = 9}), "");
}

}  // namespace

}  // namespace quorvane
