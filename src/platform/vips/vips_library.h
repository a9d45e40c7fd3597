#pragma once

#include <vips/vips.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/bmp_picture.h"
#include "platform/image_library.h"
#include "platform/picture_rules.h"

/// What those parts of the platform share that work with libvips.
namespace quorvane::vips {

struct Unref {
  void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Picture = std::unique_ptr<VipsImage, Unref>;

using picture_tools::Format;
using picture_tools::Size;

/// Prepares the library, once. Whether it can be used.
bool isReady();

/// Reads the header; the pixels follow once, in order, when they are asked for. A jpg is decoded
/// at a `shrink`th (1, 2, 4 or 8) of its size. `bytes` must outlive the picture.
Picture openPicture(Format format, std::string_view bytes, int shrink);

/// How far a jpg is shrunk while it is decoded to become a picture of another size.
int shrinkOnLoad(Size source, Size target);

/// The size as it is shown, that is after turning a sideways photo.
Size shownSize(VipsImage* image);

/// Whether its sides and the pixels that come to be in memory stay within bounds.
bool isReadable(VipsImage* image, Format format);

/// Made upright, and of exactly that size.
Picture resized(VipsImage* source, Size target);

/// `source` must outlive the result.
Picture pictureOf(const RgbPicture& source);

/// Nothing when `picture` is null.
Picture inSpace(const Picture& picture, VipsInterpretation space);

/// The picture in a file as it is wanted, as a file of the same kind. Messages of the library are
/// left behind.
std::optional<std::string> rendered(std::string_view file, const ImageRendering& wanted);

/// The pixels of a picture of three bytes each.
std::optional<std::string> pixelsOf(const Picture& picture);

}  // namespace quorvane::vips
