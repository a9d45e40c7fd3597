#include "platform/pictures/gif_writing.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <vector>

namespace quorvane::picture_tools {

namespace {

using Colour = std::array<int, 3>;

/// Colours whose parts agree in their upper five bits are counted as one.
constexpr std::size_t kBins = 32768;

std::size_t binOf(const Colour& colour) {
  return static_cast<std::size_t>(colour[0] >> 3 << 10 | colour[1] >> 3 << 5 | colour[2] >> 3);
}

Colour midOf(std::size_t bin) {
  const auto part = [&](int shift) { return static_cast<int>(bin >> shift & 31) * 8 + 4; };
  return {part(10), part(5), part(0)};
}

class Pixels {
 public:
  explicit Pixels(const Raster& picture) : picture_(picture) {}

  std::size_t count() const { return picture_.pixels.size() / step(); }
  Colour colour(std::size_t i) const {
    const std::size_t at = i * step();
    if (picture_.channels == 1) return {byteAt(at), byteAt(at), byteAt(at)};
    return {byteAt(at), byteAt(at + 1), byteAt(at + 2)};
  }
  bool isSeen(std::size_t i) const { return !picture_.hasAlpha() || byteAt(i * step() + 3) >= 128; }

 private:
  std::size_t step() const { return static_cast<std::size_t>(picture_.channels); }
  int byteAt(std::size_t at) const { return static_cast<std::uint8_t>(picture_.pixels[at]); }

  const Raster& picture_;
};

struct Bin {
  Colour mid{};
  std::int64_t count = 0;
  std::array<std::int64_t, 3> sums{};
};

std::vector<Bin> binsOf(const Pixels& pixels) {
  std::vector<Bin> bins(kBins);
  for (std::size_t i = 0; i < pixels.count(); ++i) {
    if (!pixels.isSeen(i)) continue;
    const Colour colour = pixels.colour(i);
    Bin& bin = bins[binOf(colour)];
    ++bin.count;
    for (std::size_t part = 0; part < 3; ++part) bin.sums[part] += colour[part];
  }
  for (std::size_t i = 0; i < kBins; ++i) bins[i].mid = midOf(i);
  std::erase_if(bins, [](const Bin& bin) { return bin.count == 0; });
  return bins;
}

/// Bins that are to become one colour.
struct Box {
  std::vector<Bin>::iterator begin;
  std::vector<Bin>::iterator end;
  std::int64_t count = 0;
  std::size_t longest = 0;  ///< which part of the colour differs most within
  int length = 0;           ///< and by how much

  Box(std::vector<Bin>::iterator from, std::vector<Bin>::iterator to) : begin(from), end(to) {
    for (auto bin = begin; bin != end; ++bin) count += bin->count;
    for (std::size_t part = 0; part < 3; ++part) {
      const auto [least, most] = std::minmax_element(
          begin, end, [&](const Bin& a, const Bin& b) { return a.mid[part] < b.mid[part]; });
      if (most->mid[part] - least->mid[part] <= length) continue;
      length = most->mid[part] - least->mid[part];
      longest = part;
    }
  }

  /// How much there is to win by halving it; 0 when it is one bin.
  std::int64_t weight() const { return count * length; }

  Colour average() const {
    Colour colour{};
    for (std::size_t part = 0; part < 3; ++part) {
      const std::int64_t sum = std::accumulate(
          begin, end, std::int64_t{0},
          [&](std::int64_t before, const Bin& bin) { return before + bin.sums[part]; });
      colour[part] = static_cast<int>((sum + count / 2) / count);
    }
    return colour;
  }
};

/// Where half of a box's pixels are on either side, and a bin at least.
std::vector<Bin>::iterator middleOf(const Box& box) {
  std::sort(box.begin, box.end,
            [&](const Bin& a, const Bin& b) { return a.mid[box.longest] < b.mid[box.longest]; });
  std::int64_t before = 0;
  auto middle = box.begin;
  while (middle + 1 != box.end && before + middle->count <= box.count / 2) {
    before += middle->count;
    ++middle;
  }
  return std::max(middle, box.begin + 1);
}

/// Halves the box that has most to win until there are as many as there may be colours.
std::vector<Colour> chosenColours(const Pixels& pixels, std::size_t most) {
  std::vector<Bin> bins = binsOf(pixels);
  if (bins.empty()) return {Colour{}};
  std::vector<Box> boxes = {Box(bins.begin(), bins.end())};
  while (boxes.size() < most) {
    const auto widest = std::ranges::max_element(boxes, {}, &Box::weight);
    if (widest->weight() == 0) break;
    const Box whole = *widest;
    const auto middle = middleOf(whole);
    *widest = Box(whole.begin, middle);
    boxes.emplace_back(middle, whole.end);
  }
  std::vector<Colour> colours;
  colours.reserve(boxes.size());
  for (const Box& box : boxes) colours.push_back(box.average());
  return colours;
}

/// Finds the nearest of the chosen colours, and keeps what it found for each bin.
class Palette {
 public:
  explicit Palette(std::vector<Colour> colours) : colours_(std::move(colours)) {}

  std::size_t size() const { return colours_.size(); }
  const Colour& operator[](std::size_t i) const { return colours_[i]; }

  std::size_t nearest(const Colour& colour) {
    int& known = known_[binOf(colour)];
    if (known < 0) known = static_cast<int>(search(midOf(binOf(colour))));
    return static_cast<std::size_t>(known);
  }

 private:
  std::size_t search(const Colour& colour) const {
    const auto distance = [&](const Colour& other) {
      int sum = 0;
      for (std::size_t part = 0; part < 3; ++part) {
        sum += (colour[part] - other[part]) * (colour[part] - other[part]);
      }
      return sum;
    };
    return static_cast<std::size_t>(std::ranges::min_element(colours_, {}, distance) -
                                    colours_.begin());
  }

  std::vector<Colour> colours_;
  std::vector<int> known_ = std::vector<int>(kBins, -1);
};

/// What a pixel's colour misses is made up for by those beside and below it that come after:
/// sixteenths, 7 to the right, 3, 5 and 1 below.
class Mixer {
 public:
  explicit Mixer(int width) : width_(static_cast<std::size_t>(width)) {
    here_.resize(width_ + 2);
    below_.resize(width_ + 2);
  }

  void nextRow() {
    here_.swap(below_);
    std::ranges::fill(below_, Colour{});
  }

  Colour wanted(std::size_t x, const Colour& colour) const {
    Colour sum{};
    for (std::size_t part = 0; part < 3; ++part) {
      sum[part] = std::clamp(colour[part] + here_[x + 1][part] / 16, 0, 255);
    }
    return sum;
  }

  void note(std::size_t x, const Colour& wanted, const Colour& taken) {
    for (std::size_t part = 0; part < 3; ++part) {
      const int missing = wanted[part] - taken[part];
      here_[x + 2][part] += 7 * missing;
      below_[x][part] += 3 * missing;
      below_[x + 1][part] += 5 * missing;
      below_[x + 2][part] += missing;
    }
  }

 private:
  std::size_t width_;
  std::vector<Colour> here_;  ///< sixteenths; one before and one after the row's pixels
  std::vector<Colour> below_;
};

constexpr std::size_t kMostColours = 256;
constexpr std::uint8_t kClear = 255;  // where there are pixels that aren't seen

std::string indicesOf(const Pixels& pixels, int width, Palette& palette) {
  std::string indices;
  indices.reserve(pixels.count());
  Mixer mixer(width);
  for (std::size_t i = 0; i < pixels.count(); ++i) {
    const std::size_t x = i % static_cast<std::size_t>(width);
    if (x == 0) mixer.nextRow();
    if (!pixels.isSeen(i)) {
      indices += static_cast<char>(kClear);
      continue;
    }
    const Colour wanted = mixer.wanted(x, pixels.colour(i));
    const std::size_t index = palette.nearest(wanted);
    mixer.note(x, wanted, palette[index]);
    indices += static_cast<char>(index);
  }
  return indices;
}

/// Packs bytes as GIF does: a row that was there before, with one byte more, gets a code of its
/// own, until there are no more; codes grow from 9 to 12 bits, and go out in pieces of 255 bytes.
class Packer {
 public:
  std::string packed(const std::string& bytes) {
    put(kReset);
    std::size_t row = static_cast<std::uint8_t>(bytes[0]);
    for (const char c : std::string_view(bytes).substr(1)) {
      const auto byte = static_cast<std::uint8_t>(c);
      std::uint16_t& longer = codes_[row << 8 | byte];
      if (longer != 0) {
        row = longer;
        continue;
      }
      put(row);
      if (next_ < kMostCodes) {
        longer = static_cast<std::uint16_t>(next_++);
        if (next_ > std::size_t{1} << bits_ && bits_ < kMostBits) ++bits_;
      } else {
        put(kReset);
        reset();
      }
      row = byte;
    }
    put(row);
    // The reader makes a code of what it has read so far, which may be one that needs a bit more.
    if (next_ == std::size_t{1} << bits_ && bits_ < kMostBits) ++bits_;
    put(kEnd);
    if (filled_ > 0) byte(waiting_);
    flush();
    return out_ + '\0';
  }

 private:
  static constexpr std::size_t kReset = 256;
  static constexpr std::size_t kEnd = 257;
  static constexpr std::size_t kMostCodes = 4096;
  static constexpr int kMostBits = 12;

  void reset() {
    std::ranges::fill(codes_, std::uint16_t{0});
    next_ = kEnd + 1;
    bits_ = 9;
  }

  void put(std::size_t code) {
    waiting_ |= static_cast<std::uint32_t>(code) << filled_;
    filled_ += bits_;
    for (; filled_ >= 8; filled_ -= 8, waiting_ >>= 8) byte(waiting_);
  }

  void byte(std::uint32_t value) {
    piece_ += static_cast<char>(value & 0xFF);
    if (piece_.size() == 255) flush();
  }

  void flush() {
    if (piece_.empty()) return;
    out_ += static_cast<char>(piece_.size());
    out_ += piece_;
    piece_.clear();
  }

  std::vector<std::uint16_t> codes_ = std::vector<std::uint16_t>(kMostCodes << 8);
  std::size_t next_ = kEnd + 1;
  int bits_ = 9;
  std::uint32_t waiting_ = 0;
  int filled_ = 0;
  std::string piece_;
  std::string out_;
};

std::string number(int value) {
  return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
}

}  // namespace

std::string encodeGif(const Raster& picture) {
  const Pixels pixels(picture);
  const std::size_t most = picture.hasAlpha() ? kMostColours - 1 : kMostColours;
  Palette palette(chosenColours(pixels, most));
  const std::string size = number(picture.size.width) + number(picture.size.height);
  std::string file = "GIF89a" + size + std::string("\xF7\0\0", 3);
  for (std::size_t i = 0; i < kMostColours; ++i) {
    for (std::size_t part = 0; part < 3; ++part) {
      file += i < palette.size() ? static_cast<char>(palette[i][part]) : '\0';
    }
  }
  if (picture.hasAlpha()) file += std::string("!\xF9\x04\x01\0\0\xFF\0", 8);
  file += "," + std::string(4, '\0') + size + std::string("\0\x08", 2);
  file += Packer().packed(indicesOf(pixels, picture.size.width, palette));
  return file + ';';
}

}  // namespace quorvane::picture_tools
