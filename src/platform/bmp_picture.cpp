#include "platform/bmp_picture.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <vector>

namespace quorvane {

namespace {

constexpr std::size_t kFileHeaderLength = 14;
constexpr std::uint32_t kCoreHeaderLength = 12;
constexpr std::uint32_t kInfoHeaderLength = 40;
/// An info header this long or longer holds the colour masks itself.
constexpr std::uint32_t kHeaderWithMasksLength = 52;

enum class Packing : std::uint32_t {
  None = 0,
  RunLength8 = 1,
  RunLength4 = 2,
  Masks = 3,
  MasksWithAlpha = 6,
};

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

/// Where one colour stands in a pixel of 16 or 32 bits.
struct Channel {
  std::uint32_t mask = 0;

  std::uint8_t of(std::uint32_t pixel) const {
    if (mask == 0) return 0;
    const int shift = std::countr_zero(mask);
    const std::uint64_t most = mask >> shift;
    const std::uint64_t value = (pixel & mask) >> shift;
    return static_cast<std::uint8_t>((value * 255 + most / 2) / most);
  }
};

struct Layout {
  int width = 0;
  int height = 0;
  bool topDown = false;
  unsigned bits = 0;  ///< a pixel
  Packing packing = Packing::None;
  std::array<Channel, 3> channels;  ///< red, green, blue
  std::vector<Colour> palette;
  std::size_t pixelOffset = 0;
};

std::uint8_t byteAt(std::string_view file, std::size_t at) {
  return at < file.size() ? static_cast<std::uint8_t>(file[at]) : std::uint8_t{0};
}

/// Little-endian; what lies beyond the end reads as zero.
std::uint32_t numberAt(std::string_view file, std::size_t at, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;) value = value << 8 | byteAt(file, at + i);
  return value;
}

bool packingFits(Packing packing, unsigned bits) {
  switch (packing) {
    case Packing::None:
      return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    case Packing::RunLength8:
      return bits == 8;
    case Packing::RunLength4:
      return bits == 4;
    case Packing::Masks:
    case Packing::MasksWithAlpha:
      return bits == 16 || bits == 32;
  }
  return false;
}

void readDimensions(std::string_view file, std::uint32_t headerLength, Layout& layout) {
  if (headerLength == kCoreHeaderLength) {
    layout.width = static_cast<int>(numberAt(file, 18, 2));
    layout.height = static_cast<int>(numberAt(file, 20, 2));
    layout.bits = numberAt(file, 24, 2);
    return;
  }
  layout.width = static_cast<int>(numberAt(file, 18, 4));
  const std::uint32_t height = numberAt(file, 22, 4);
  layout.topDown = (height & 0x80000000U) != 0;
  layout.height = static_cast<int>(layout.topDown ? 0U - height : height);
  layout.bits = numberAt(file, 28, 2);
  layout.packing = static_cast<Packing>(numberAt(file, 30, 4));
}

void readChannels(std::string_view file, Layout& layout) {
  if (layout.packing == Packing::Masks || layout.packing == Packing::MasksWithAlpha) {
    for (std::size_t i = 0; i < 3; ++i) {
      layout.channels[i].mask = numberAt(file, kFileHeaderLength + kInfoHeaderLength + 4 * i, 4);
    }
  } else if (layout.bits == 16) {
    layout.channels = {Channel{0x7C00}, Channel{0x03E0}, Channel{0x001F}};
  } else {
    layout.channels = {Channel{0xFF0000}, Channel{0xFF00}, Channel{0xFF}};
  }
}

/// The bytes between the headers and the palette: masks that stand behind the header.
std::size_t maskLength(std::uint32_t headerLength, Packing packing) {
  if (headerLength >= kHeaderWithMasksLength) return 0;
  if (packing == Packing::Masks) return 12;
  return packing == Packing::MasksWithAlpha ? 16 : 0;
}

/// Colours that the file doesn't hold are black.
void readPalette(std::string_view file, std::uint32_t headerLength, Layout& layout) {
  if (layout.bits > 8) return;
  const std::size_t entryLength = headerLength == kCoreHeaderLength ? 3 : 4;
  const std::size_t start =
      kFileHeaderLength + headerLength + maskLength(headerLength, layout.packing);
  layout.palette.resize(std::size_t{1} << layout.bits);
  for (std::size_t i = 0; i < layout.palette.size(); ++i) {
    const std::size_t at = start + i * entryLength;
    if (at + entryLength > layout.pixelOffset) break;
    layout.palette[i] = {byteAt(file, at + 2), byteAt(file, at + 1), byteAt(file, at)};
  }
}

std::optional<Layout> readLayout(std::string_view file, int mostSide, std::int64_t mostPixels) {
  if (!file.starts_with("BM")) return std::nullopt;
  const std::uint32_t headerLength = numberAt(file, kFileHeaderLength, 4);
  if (headerLength != kCoreHeaderLength &&
      (headerLength < kInfoHeaderLength || headerLength > 256)) {
    return std::nullopt;
  }
  if (file.size() < kFileHeaderLength + headerLength) return std::nullopt;
  Layout layout;
  layout.pixelOffset = numberAt(file, 10, 4);
  readDimensions(file, headerLength, layout);
  if (layout.width < 1 || layout.height < 1) return std::nullopt;
  if (layout.width > mostSide || layout.height > mostSide) return std::nullopt;
  if (std::int64_t{layout.width} * layout.height > mostPixels) return std::nullopt;
  if (!packingFits(layout.packing, layout.bits)) return std::nullopt;
  if (layout.pixelOffset >= file.size()) return std::nullopt;
  readChannels(file, layout);
  readPalette(file, headerLength, layout);
  return layout;
}

void put(char* out, Colour colour) {
  out[0] = static_cast<char>(colour.red);
  out[1] = static_cast<char>(colour.green);
  out[2] = static_cast<char>(colour.blue);
}

/// The place of a row counted in the file's own order.
char* rowOf(RgbPicture& picture, const Layout& layout, int row) {
  const int fromTop = layout.topDown ? row : layout.height - 1 - row;
  return picture.pixels.data() + std::size_t{3} * layout.width * fromTop;
}

std::uint8_t paletteIndex(std::string_view row, int x, unsigned bits) {
  const std::size_t bit = std::size_t{bits} * x;
  const unsigned shift = 8 - bits - static_cast<unsigned>(bit % 8);
  return static_cast<std::uint8_t>(byteAt(row, bit / 8) >> shift & ((1U << bits) - 1));
}

void unpackTriples(std::string_view row, int width, char* out) {
  const char* in = row.data();
  for (int x = 0; x < width; ++x, in += 3, out += 3) {
    out[0] = in[2];
    out[1] = in[1];
    out[2] = in[0];
  }
}

/// `row` holds at least the bits of its pixels.
void unpackRow(std::string_view row, const Layout& layout, char* out) {
  if (layout.bits == 24) return unpackTriples(row, layout.width, out);
  for (int x = 0; x < layout.width; ++x, out += 3) {
    if (layout.bits <= 8) {
      put(out, layout.palette[paletteIndex(row, x, layout.bits)]);
    } else {
      const std::size_t width = layout.bits / 8;
      const std::uint32_t pixel = numberAt(row, width * x, width);
      put(out, {layout.channels[0].of(pixel), layout.channels[1].of(pixel),
                layout.channels[2].of(pixel)});
    }
  }
}

bool unpackRows(std::string_view data, const Layout& layout, RgbPicture& picture) {
  // Rows are padded to whole groups of 32 bits.
  const std::size_t stride = (std::size_t{layout.bits} * layout.width + 31) / 32 * 4;
  if (data.size() / stride < static_cast<std::size_t>(layout.height)) return false;
  for (int row = 0; row < layout.height; ++row) {
    unpackRow(data.substr(stride * row, stride), layout, rowOf(picture, layout, row));
  }
  return true;
}

/// Follows run-length commands; pixels that none of them names stay colour 0.
class RunLengthDecoder {
 public:
  RunLengthDecoder(std::string_view data, const Layout& layout, RgbPicture& picture)
      : data_(data), layout_(layout), picture_(picture) {}

  bool run() {
    for (int row = 0; row < layout_.height; ++row) {
      char* out = rowOf(picture_, layout_, row);
      for (int x = 0; x < layout_.width; ++x) put(out + std::size_t{3} * x, layout_.palette[0]);
    }
    while (at_ + 2 <= data_.size() && row_ < layout_.height) {
      const std::uint8_t count = byteAt(data_, at_);
      const std::uint8_t value = byteAt(data_, at_ + 1);
      at_ += 2;
      if (count > 0) {
        repeat(count, value);
      } else if (value == kEndOfPicture) {
        return true;
      } else {
        escape(value);
      }
    }
    return row_ >= layout_.height;
  }

 private:
  static constexpr std::uint8_t kEndOfRow = 0;
  static constexpr std::uint8_t kEndOfPicture = 1;
  static constexpr std::uint8_t kMove = 2;

  void plot(std::uint8_t index) {
    if (x_ >= layout_.width || row_ >= layout_.height) return;
    put(rowOf(picture_, layout_, row_) + std::size_t{3} * x_, layout_.palette[index]);
    ++x_;
  }

  std::uint8_t indexIn(std::uint8_t value, int place) const {
    if (layout_.bits == 8) return value;
    return place % 2 == 0 ? static_cast<std::uint8_t>(value >> 4)
                          : static_cast<std::uint8_t>(value & 15);
  }

  void repeat(int count, std::uint8_t value) {
    const int visible = std::min(count, layout_.width - x_);
    for (int i = 0; i < visible; ++i) plot(indexIn(value, i));
  }

  void escape(std::uint8_t command) {
    if (command == kEndOfRow) {
      x_ = 0;
      ++row_;
    } else if (command == kMove) {
      x_ = std::min(x_ + byteAt(data_, at_), layout_.width);
      row_ += byteAt(data_, at_ + 1);
      at_ += 2;
    } else {
      literal(command);
    }
  }

  /// `count` pixels as they are, padded to whole groups of 16 bits.
  void literal(int count) {
    const int inByte = layout_.bits == 8 ? 1 : 2;
    for (int i = 0; i < count; ++i) plot(indexIn(byteAt(data_, at_ + i / inByte), i));
    const int length = (count + inByte - 1) / inByte;
    at_ += static_cast<std::size_t>(length + length % 2);
  }

  std::string_view data_;
  const Layout& layout_;
  RgbPicture& picture_;
  std::size_t at_ = 0;
  int x_ = 0;
  int row_ = 0;
};

void append(std::string& out, std::uint32_t value, int width) {
  for (int i = 0; i < width; ++i) out += static_cast<char>(value >> (8 * i) & 0xFF);
}

}  // namespace

std::optional<RgbPicture> decodeBmp(std::string_view file, int mostSide, std::int64_t mostPixels) {
  const auto layout = readLayout(file, mostSide, mostPixels);
  if (!layout) return std::nullopt;
  const std::string_view data = file.substr(layout->pixelOffset);
  const bool runLength =
      layout->packing == Packing::RunLength8 || layout->packing == Packing::RunLength4;
  RgbPicture picture{layout->width, layout->height, {}};
  picture.pixels.resize(std::size_t{3} * layout->width * layout->height);
  const bool complete = runLength ? RunLengthDecoder(data, *layout, picture).run()
                                  : unpackRows(data, *layout, picture);
  if (!complete) return std::nullopt;
  return picture;
}

std::string encodeBmp(const RgbPicture& picture) {
  const std::size_t used = std::size_t{3} * picture.width;
  const std::size_t stride = (used + 3) / 4 * 4;
  const std::size_t pixelOffset = kFileHeaderLength + kInfoHeaderLength;
  const std::size_t length = pixelOffset + stride * picture.height;
  std::string out;
  out.reserve(length);
  out += "BM";
  append(out, static_cast<std::uint32_t>(length), 4);
  append(out, 0, 4);
  append(out, static_cast<std::uint32_t>(pixelOffset), 4);
  append(out, kInfoHeaderLength, 4);
  append(out, static_cast<std::uint32_t>(picture.width), 4);
  append(out, static_cast<std::uint32_t>(picture.height), 4);
  append(out, 1, 2);   // planes
  append(out, 24, 2);  // bits a pixel
  out.append(24, '\0');
  for (int row = picture.height - 1; row >= 0; --row) {
    const char* pixel = picture.pixels.data() + used * row;
    for (int x = 0; x < picture.width; ++x, pixel += 3) {
      out += pixel[2];
      out += pixel[1];
      out += pixel[0];
    }
    out.append(stride - used, '\0');
  }
  return out;
}

}  // namespace quorvane
