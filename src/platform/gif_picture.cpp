#include "platform/gif_picture.h"

#include <cstdint>

namespace quorvane {

namespace {

constexpr std::size_t kHeaderLength = 13;  // with the description of the screen
constexpr std::size_t kPictureHeaderLength = 10;
constexpr std::uint8_t kExtension = 0x21;
constexpr std::uint8_t kControl = 0xF9;  // the extension about the picture that follows
constexpr std::uint8_t kPicture = 0x2C;

/// Beyond the end everything reads as zero, which begins no block.
std::uint8_t byteAt(std::string_view file, std::size_t at) {
  return at < file.size() ? static_cast<std::uint8_t>(file[at]) : std::uint8_t{0};
}

std::size_t colourTableLength(std::uint8_t flags) {
  return (flags & 0x80) == 0 ? 0 : std::size_t{3} << ((flags & 7) + 1);
}

/// Where a chain of sub-blocks ends; beyond the file's end when it doesn't.
std::size_t afterSubBlocks(std::string_view file, std::size_t at) {
  while (at < file.size()) {
    const std::uint8_t length = byteAt(file, at);
    at += std::size_t{1} + length;
    if (length == 0) return at;
  }
  return file.size() + 1;
}

}  // namespace

std::optional<FirstGifPicture> firstGifPicture(std::string_view file) {
  std::size_t at = kHeaderLength + colourTableLength(byteAt(file, 10));
  FirstGifPicture first;
  for (; byteAt(file, at) == kExtension; at = afterSubBlocks(file, at + 2)) {
    if (byteAt(file, at + 1) == kControl) first.isTransparent = (byteAt(file, at + 3) & 1) != 0;
  }
  if (byteAt(file, at) != kPicture) return std::nullopt;
  first.at = at;
  const std::size_t data =
      at + kPictureHeaderLength + colourTableLength(byteAt(file, at + kPictureHeaderLength - 1));
  // A byte with the width of the codes stands before the data.
  if (afterSubBlocks(file, data + 1) > file.size()) return std::nullopt;
  return first;
}

}  // namespace quorvane
