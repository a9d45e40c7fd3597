#include "http/picture_copies.h"

#include <algorithm>

#include "platform/image_library.h"

namespace quorvane {

namespace {

constexpr std::string_view kMark = "^R";

bool takeDigits(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  text.remove_prefix(end);
  return end > 0;
}

/// Whether `text` begins with a size as it stands in a name, with `times` between its sides.
bool beginsWithSize(std::string_view text, char times) {
  if (!takeDigits(text) || !text.starts_with(times)) return false;
  text.remove_prefix(1);
  return takeDigits(text);
}

}  // namespace

std::string PictureCopies::nameOf(const ImageRendering& wanted, std::string_view fileName) {
  return std::string(kMark) + std::to_string(wanted.width) + 'x' + std::to_string(wanted.height) +
         std::string(fileName);
}

/// A compressed copy has its picture's name in upper case behind the separator of a folder, which
/// is a "^" there.
bool PictureCopies::isCopy(std::string_view name) {
  if (name.starts_with(kMark) && beginsWithSize(name.substr(kMark.size()), 'x')) return true;
  const std::size_t compressed = name.find("^^R");
  return compressed != std::string_view::npos && beginsWithSize(name.substr(compressed + 3), 'X');
}

}  // namespace quorvane
