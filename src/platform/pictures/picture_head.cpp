#include "platform/pictures/picture_head.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/gif_picture.h"

namespace quorvane::picture_tools {

namespace {

/// Beyond the end everything reads as zero.
std::uint8_t byteAt(std::string_view file, std::size_t at) {
  return at < file.size() ? static_cast<std::uint8_t>(file[at]) : std::uint8_t{0};
}

std::uint32_t bigEndian(std::string_view file, std::size_t at, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < width; ++i) value = value << 8 | byteAt(file, at + i);
  return value;
}

std::uint32_t littleEndian(std::string_view file, std::size_t at, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;) value = value << 8 | byteAt(file, at + i);
  return value;
}

/// Of a camera's notes: a directory of entries, whose numbers stand in the order of bytes that the
/// first two letters name.
int orientationIn(std::string_view notes) {
  constexpr std::uint32_t kOrientation = 0x0112;
  constexpr std::size_t kEntryLength = 12;
  const bool isBig = notes.starts_with("MM");
  if (!isBig && !notes.starts_with("II")) return 1;
  const auto number = [&](std::size_t at, std::size_t width) {
    return isBig ? bigEndian(notes, at, width) : littleEndian(notes, at, width);
  };
  const std::size_t directory = number(4, 4);
  const std::uint32_t count = number(directory, 2);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::size_t entry = directory + 2 + i * kEntryLength;
    if (entry + kEntryLength > notes.size()) break;
    if (number(entry, 2) != kOrientation) continue;
    const auto value = static_cast<int>(number(entry + 8, 2));
    return value >= 1 && value <= 8 ? value : 1;
  }
  return 1;
}

/// A jpg is a row of marks, most with a length and what belongs to them; the packed pixels follow a
/// mark of their own and have none within them but a few without a length.
class JpegReader {
 public:
  explicit JpegReader(std::string_view file) : file_(file) {}

  std::optional<PictureHead> read() {
    while (at_ + 1 < file_.size()) {
      if (byteAt(file_, at_) != 0xFF) return std::nullopt;
      const std::uint8_t mark = byteAt(file_, at_ + 1);
      if (mark == kEnd) return head_.size == Size{} ? std::nullopt : std::optional(head_);
      if (mark == 0xFF) {  // padding
        ++at_;
      } else if (hasNoLength(mark)) {
        at_ += 2;
      } else if (!takeSegment(mark)) {
        return std::nullopt;
      }
    }
    return std::nullopt;
  }

 private:
  static constexpr std::uint8_t kStart = 0xD8;
  static constexpr std::uint8_t kEnd = 0xD9;
  static constexpr std::uint8_t kPixels = 0xDA;
  static constexpr std::uint8_t kNotes = 0xE1;

  static bool hasNoLength(std::uint8_t mark) {
    return mark == kStart || mark == 0x01 || (mark >= 0xD0 && mark <= 0xD7);
  }

  /// C4, C8 and CC stand among the marks of a picture's size, but are others.
  static bool isSize(std::uint8_t mark) {
    return mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC;
  }

  bool takeSegment(std::uint8_t mark) {
    const std::size_t length = bigEndian(file_, at_ + 2, 2);
    if (length < 2 || at_ + 2 + length > file_.size()) return false;
    const std::string_view segment = file_.substr(at_ + 4, length - 2);
    at_ += 2 + length;
    if (isSize(mark)) {
      if (head_.size != Size{}) return false;  // there is one picture
      head_.size = {static_cast<int>(bigEndian(segment, 3, 2)),
                    static_cast<int>(bigEndian(segment, 1, 2))};
      head_.first = head_.size;
      head_.atOnce = mark == 0xC2 || mark == 0xC6 || mark == 0xCA || mark == 0xCE;
    } else if (mark == kNotes && segment.starts_with(std::string_view("Exif\0\0", 6))) {
      head_.orientation = orientationIn(segment.substr(6));
    } else if (mark == kPixels) {
      scans_ += 1;
      // Colours one after another are as good as passes: all of it is unpacked before the first
      // row.
      head_.atOnce = head_.atOnce || scans_ > 1;
      skipPixels();
    }
    return true;
  }

  void skipPixels() {
    while (true) {
      at_ = file_.find('\xFF', at_);
      if (at_ == file_.npos) return;
      const std::uint8_t mark = byteAt(file_, at_ + 1);
      if (mark != 0 && (mark < 0xD0 || mark > 0xD7)) return;
      at_ += 2;
    }
  }

  std::string_view file_;
  std::size_t at_ = 0;
  PictureHead head_;
  int scans_ = 0;
};

std::optional<PictureHead> readPng(std::string_view file) {
  constexpr std::size_t kSignatureLength = 8;
  constexpr std::size_t kAroundChunk = 12;
  PictureHead head;
  bool hasPixels = false;
  std::size_t at = kSignatureLength;
  while (at + kAroundChunk <= file.size()) {
    const std::size_t length = bigEndian(file, at, 4);
    if (length > file.size() - at - kAroundChunk) return std::nullopt;
    const std::string_view name = file.substr(at + 4, 4);
    const std::string_view chunk = file.substr(at + 8, length);
    if (at == kSignatureLength) {
      if (name != "IHDR" || length < 13) return std::nullopt;
      head.size = {static_cast<int>(bigEndian(chunk, 0, 4)),
                   static_cast<int>(bigEndian(chunk, 4, 4))};
      head.first = head.size;
      head.hasAlpha = (byteAt(chunk, 9) & 4) != 0;
      head.atOnce = byteAt(chunk, 12) != 0;
    } else if (name == "tRNS") {
      head.hasAlpha = true;
    } else if (name == "eXIf") {
      head.orientation = orientationIn(chunk);
    } else if (name == "IDAT") {
      hasPixels = true;
    } else if (name == "IEND") {
      return hasPixels ? std::optional(head) : std::nullopt;
    }
    at += length + kAroundChunk;
  }
  return std::nullopt;
}

std::optional<PictureHead> readGif(std::string_view file) {
  const auto first = firstGifPicture(file);
  if (!first) return std::nullopt;
  PictureHead head;
  head.size = {static_cast<int>(littleEndian(file, 6, 2)),
               static_cast<int>(littleEndian(file, 8, 2))};
  head.left = static_cast<int>(littleEndian(file, first->at + 1, 2));
  head.top = static_cast<int>(littleEndian(file, first->at + 3, 2));
  head.first = {static_cast<int>(littleEndian(file, first->at + 5, 2)),
                static_cast<int>(littleEndian(file, first->at + 7, 2))};
  // Some say nothing of their size, or too little.
  head.size.width = std::max(head.size.width, head.left + head.first.width);
  head.size.height = std::max(head.size.height, head.top + head.first.height);
  head.hasAlpha = first->isTransparent || head.first != head.size;
  head.atOnce = true;
  return head;
}

}  // namespace

std::optional<PictureHead> readPictureHead(std::string_view file) {
  const auto format = formatOf(file);
  std::optional<PictureHead> head;
  if (format == Format::Jpeg) head = JpegReader(file).read();
  if (format == Format::Png) head = readPng(file);
  if (format == Format::Gif) head = readGif(file);
  if (!head || std::min(head->size.width, head->size.height) < 1) return std::nullopt;
  if (std::min(head->first.width, head->first.height) < 1) return std::nullopt;
  return head;
}

}  // namespace quorvane::picture_tools
