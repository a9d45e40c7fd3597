#include "http/serverMod.h"

#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kAllowed =
    ".css.bmp.gif.htm.html.ico.jpe.jpeg.jpg.js.m3u.mp3.mpg.png.qvs.tif.tiff.txt.wav.wma.wpl.";
constexpr std::string_view kPackedImages = ".jpg.gif.png.jpeg.bmp.";
constexpr std::string_view kPackedTexts = ".htm.html.txt.js.css.";
constexpr std::string_view kResizable = ".jpg.jpeg.gif.png.bmp.";

bool extensionIsIn(std::string_view path, std::string_view list) {
  const std::string_view extension = paths::extensionOf(path);
  if (extension.empty()) return false;
  return list.find(lowerCase(extension) + '.') != std::string_view::npos;
}

}  // namespace

bool isAllowedExtension(std::string_view path) {
  return extensionIsIn(path, kAllowed);
}

bool isGzipEligible(std::string_view path, const ServerState& state) {
  return (state.EncodeImages && extensionIsIn(path, kPackedImages)) ||
         (state.EncodeStatic && extensionIsIn(path, kPackedTexts));
}

bool isResizableImage(std::string_view path) {
  return extensionIsIn(path, kResizable);
}

std::string serverName(const ServerState& state) {
  return "Quorvane-Server/" + state.AppVersion;
}

}  // namespace quorvane
