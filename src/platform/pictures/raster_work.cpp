#include "platform/pictures/raster_work.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace quorvane::picture_tools {

namespace {

int byteAt(const char* at) {
  return static_cast<std::uint8_t>(*at);
}

char byteOf(double value) {
  return static_cast<char>(std::lround(std::clamp(value, 0.0, 255.0)));
}

const char* pixelAt(const Raster& picture, int x, int y) {
  return picture.pixels.data() + picture.rowLength() * y + std::size_t{1} * x * picture.channels;
}

/// How much light a byte of a colour is, and back, in so many steps.
constexpr int kLightSteps = 4096;

double lightOf(double shade) {
  return shade <= 0.04045 ? shade / 12.92 : std::pow((shade + 0.055) / 1.055, 2.4);
}

double shadeOf(double light) {
  return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

struct LightTables {
  std::array<double, 256> lights{};
  std::array<char, kLightSteps + 1> shades{};

  LightTables() {
    for (int i = 0; i < 256; ++i) lights[static_cast<std::size_t>(i)] = lightOf(i / 255.0);
    for (int i = 0; i <= kLightSteps; ++i) {
      shades[static_cast<std::size_t>(i)] =
          byteOf(255 * shadeOf(static_cast<double>(i) / kLightSteps));
    }
  }

  char greyOf(const char* pixel) const {
    const auto light = [&](int part) {
      return lights[static_cast<std::size_t>(byteAt(pixel + part))];
    };
    const double sum = 0.2126 * light(0) + 0.7152 * light(1) + 0.0722 * light(2);
    return shades[static_cast<std::size_t>(std::lround(std::min(sum, 1.0) * kLightSteps))];
  }
};

}  // namespace

Raster upright(const Raster& picture, int orientation) {
  if (orientation == 1) return picture;
  const bool isTurned = orientation > 4;
  // What is shown at the right, or at the bottom, comes first in the file.
  const bool fromRight =
      orientation == 2 || orientation == 3 || orientation == 6 || orientation == 7;
  const bool fromBottom =
      orientation == 3 || orientation == 4 || orientation == 7 || orientation == 8;
  const Size size = isTurned ? Size{picture.size.height, picture.size.width} : picture.size;
  Raster result{size, picture.channels, {}};
  result.pixels.reserve(picture.pixels.size());
  for (int y = 0; y < size.height; ++y) {
    const int v = fromBottom ? size.height - 1 - y : y;
    for (int x = 0; x < size.width; ++x) {
      const int u = fromRight ? size.width - 1 - x : x;
      const char* const pixel = isTurned ? pixelAt(picture, v, u) : pixelAt(picture, u, v);
      result.pixels.append(pixel, static_cast<std::size_t>(picture.channels));
    }
  }
  return result;
}

Raster grey(const Raster& picture) {
  static const LightTables tables;
  if (picture.channels == 1) return picture;
  Raster result{picture.size, picture.hasAlpha() ? 4 : 1, {}};
  result.pixels.reserve(result.rowLength() * picture.size.height);
  const auto step = static_cast<std::size_t>(picture.channels);
  for (std::size_t at = 0; at < picture.pixels.size(); at += step) {
    const char* const pixel = picture.pixels.data() + at;
    result.pixels.append(picture.hasAlpha() ? 3 : 1, tables.greyOf(pixel));
    if (picture.hasAlpha()) result.pixels += pixel[3];
  }
  return result;
}

Raster onWhite(const Raster& picture) {
  if (picture.channels == 3) return picture;
  Raster result{picture.size, 3, {}};
  result.pixels.reserve(result.rowLength() * picture.size.height);
  const auto step = static_cast<std::size_t>(picture.channels);
  for (std::size_t at = 0; at < picture.pixels.size(); at += step) {
    const char* const pixel = picture.pixels.data() + at;
    for (int i = 0; i < 3; ++i) {
      const int opaque = picture.hasAlpha() ? byteAt(pixel + 3) : 255;
      const int colour = byteAt(pixel + (picture.channels == 1 ? 0 : i));
      result.pixels += static_cast<char>((colour * opaque + 255 * (255 - opaque) + 127) / 255);
    }
  }
  return result;
}

namespace {

/// How much the pixels around count, from the middle on.
std::vector<float> bell(double radius) {
  const int reach = static_cast<int>(std::ceil(3 * radius));
  std::vector<float> weights;
  double sum = 0;
  for (int i = 0; i <= reach; ++i) {
    const double weight = std::exp(-i * i / (2 * radius * radius));
    weights.push_back(static_cast<float>(weight));
    sum += i == 0 ? weight : 2 * weight;
  }
  for (float& weight : weights) weight /= static_cast<float>(sum);
  return weights;
}

/// The average around each of a row of numbers, `step` apart; the outermost stand for what is
/// beyond them.
void blurLine(const float* in, float* out, int count, std::size_t step,
              const std::vector<float>& weights) {
  const int reach = static_cast<int>(weights.size()) - 1;
  for (int i = 0; i < count; ++i) {
    float sum = weights[0] * in[step * i];
    for (int k = 1; k <= reach; ++k) {
      sum += weights[static_cast<std::size_t>(k)] *
             (in[step * std::max(i - k, 0)] + in[step * std::min(i + k, count - 1)]);
    }
    out[step * i] = sum;
  }
}

/// Of one of three colours.
std::vector<float> blurred(const Raster& picture, int part, const std::vector<float>& weights) {
  const auto width = static_cast<std::size_t>(picture.size.width);
  std::vector<float> plane(width * picture.size.height);
  for (std::size_t i = 0; i < plane.size(); ++i) {
    plane[i] = static_cast<float>(byteAt(picture.pixels.data() + 3 * i + part));
  }
  std::vector<float> across(plane.size());
  for (int y = 0; y < picture.size.height; ++y) {
    blurLine(&plane[width * y], &across[width * y], picture.size.width, 1, weights);
  }
  for (int x = 0; x < picture.size.width; ++x) {
    blurLine(&across[static_cast<std::size_t>(x)], &plane[static_cast<std::size_t>(x)],
             picture.size.height, width, weights);
  }
  return plane;
}

}  // namespace

Raster sharpened(const Raster& picture, double radius, double amount) {
  constexpr double kMostRadius = 16;
  const double more = std::clamp(amount - 100, 0.0, 1000.0) / 100;
  if (!(more > 0)) return picture;
  const std::vector<float> weights = bell(std::clamp(radius, 0.1, kMostRadius));
  Raster result = picture;
  for (int part = 0; part < 3; ++part) {
    const std::vector<float> around = blurred(picture, part, weights);
    for (std::size_t i = 0; i < around.size(); ++i) {
      const double was = byteAt(picture.pixels.data() + 3 * i + part);
      result.pixels[3 * i + part] = byteOf(was + more * (was - around[i]));
    }
  }
  return result;
}

namespace {

/// A pixel of a picture that lies in the midst of a colour, at a place between its pixels.
void mix(const Raster& picture, double x, double y, std::uint32_t fill, std::string& out) {
  const double left = std::floor(x);
  const double top = std::floor(y);
  const std::array<double, 2> across = {1 - (x - left), x - left};
  const std::array<double, 2> down = {1 - (y - top), y - top};
  std::array<double, 3> sums{};
  for (int j = 0; j < 2; ++j) {
    for (int i = 0; i < 2; ++i) {
      const int column = static_cast<int>(left) + i;
      const int row = static_cast<int>(top) + j;
      const double weight = across[static_cast<std::size_t>(i)] * down[static_cast<std::size_t>(j)];
      const bool isInside =
          column >= 0 && row >= 0 && column < picture.size.width && row < picture.size.height;
      for (int part = 0; part < 3; ++part) {
        const int colour = isInside ? byteAt(pixelAt(picture, column, row) + part)
                                    : static_cast<int>(fill >> (16 - 8 * part) & 0xFF);
        sums[static_cast<std::size_t>(part)] += weight * colour;
      }
    }
  }
  for (const double sum : sums) out += byteOf(sum);
}

}  // namespace

Raster turned(const Raster& picture, double degrees, std::uint32_t fill) {
  const double angle = std::fmod(degrees, 360) * std::numbers::pi / 180;
  // A quarter of a turn is one exactly.
  const auto rounded = [](double value) { return std::round(value * 1e9) / 1e9; };
  const double sine = rounded(std::sin(angle));
  const double cosine = rounded(std::cos(angle));
  const auto [width, height] = picture.size;
  const Size size{static_cast<int>(std::round(std::abs(width * cosine) + std::abs(height * sine))),
                  static_cast<int>(std::round(std::abs(width * sine) + std::abs(height * cosine)))};
  Raster result{size, 3, {}};
  if (!isAllowed(size)) return {};
  result.pixels.reserve(result.rowLength() * size.height);
  for (int y = 0; y < size.height; ++y) {
    const double down = y + 0.5 - size.height / 2.0;
    for (int x = 0; x < size.width; ++x) {
      const double across = x + 0.5 - size.width / 2.0;
      mix(picture, across * cosine - down * sine + width / 2.0 - 0.5,
          across * sine + down * cosine + height / 2.0 - 0.5, fill, result.pixels);
    }
  }
  return result;
}

}  // namespace quorvane::picture_tools
