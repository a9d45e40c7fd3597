#pragma once

#include <objbase.h>
#include <wincodec.h>
#include <wrl/client.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/picture_rules.h"
#include "platform/pictures/picture_head.h"
#include "platform/pictures/raster.h"

/// Files of pictures, by the system's own codecs. All of it may be called on several threads.
namespace quorvane::picture_tools {

/// The codecs, for as long as a picture is worked on.
class Codecs {
 public:
  Codecs();
  ~Codecs();
  Codecs(const Codecs&) = delete;
  Codecs& operator=(const Codecs&) = delete;

  /// Null where the system has none.
  IWICImagingFactory* get() const { return factory_.Get(); }

 private:
  bool isEntered_ = false;
  Microsoft::WRL::ComPtr<IWICImagingFactory> factory_;
};

/// Reads a jpg, png or gif whose head was read and found fit: `take` gets the rows of its (first)
/// picture as it is stored, in sRGB with 3 channels, or 4 when the head says so. False when it is
/// broken.
bool readRows(std::string_view file, const PictureHead& head,
              const std::function<void(const char*)>& take);

/// Of a raster of any number of channels; a JPEG's has no alpha.
std::optional<std::string> writeJpeg(const Raster& picture, int quality);
std::optional<std::string> writePng(const Raster& picture, bool interlaced);

/// See Library.
std::optional<TextMask> drawnMask(std::string_view text, const TextStyle& style);

}  // namespace quorvane::picture_tools
