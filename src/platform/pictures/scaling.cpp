#include "platform/pictures/scaling.h"

#include <algorithm>
#include <array>

#define STB_IMAGE_RESIZE_STATIC
#define STB_IMAGE_RESIZE_IMPLEMENTATION
#include <stb_image_resize.h>

namespace quorvane::picture_tools {

namespace {

/// Averages are crude; the last halving at least is left to the better way. That one's memory grows
/// with how much smaller a picture gets, so it is never asked for more than a quarter of a side.
int averaged(int source, int target) {
  return std::max(1, source / (2 * target));
}

int ceilingOf(int side, int factor) {
  return (side + factor - 1) / factor;
}

Size heldSize(Size source, Size target) {
  return {ceilingOf(source.width, averaged(source.width, target.width)),
          ceilingOf(source.height, averaged(source.height, target.height))};
}

int byteAt(const char* at) {
  return static_cast<std::uint8_t>(*at);
}

stbir_filter filterOf(Scaling scaling) {
  return scaling == Scaling::Linear ? STBIR_FILTER_TRIANGLE : STBIR_FILTER_CATMULLROM;
}

Raster nearest(const Raster& source, Size target) {
  Raster result{target, source.channels, {}};
  result.pixels.reserve(result.rowLength() * target.height);
  const auto from = [](int place, int targetSide, int side) {
    const std::int64_t twice = (2 * std::int64_t{place} + 1) * side;
    return static_cast<std::size_t>(twice / targetSide / 2);
  };
  for (int y = 0; y < target.height; ++y) {
    const char* const row =
        source.pixels.data() + from(y, target.height, source.size.height) * source.rowLength();
    for (int x = 0; x < target.width; ++x) {
      const auto channels = static_cast<std::size_t>(source.channels);
      result.pixels.append(row + from(x, target.width, source.size.width) * channels, channels);
    }
  }
  return result;
}

}  // namespace

Scaler::Scaler(Size source, int channels, Size target, Scaling scaling)
    : source_(source),
      target_(target),
      scaling_(scaling),
      across_(averaged(source.width, target.width)),
      down_(averaged(source.height, target.height)),
      held_{heldSize(source, target), channels, {}} {
  held_.pixels.reserve(held_.rowLength() * held_.size.height);
  if (across_ * down_ > 1) sums_.resize(held_.rowLength());
}

bool Scaler::canScale(Size source, Size target) {
  return isAllowed(heldSize(source, target));
}

namespace {

/// Adds a row's pixels to sums of `across` of them each. Colours count as much as they are opaque:
/// what is seen through has none of its own.
template <int channels>
void addRow(const char* row, int width, int across, std::uint64_t* sums) {
  for (int x = 0; x < width; x += across, sums += channels) {
    std::array<std::uint64_t, channels> block{};
    for (int end = std::min(x + across, width), i = x; i < end; ++i, row += channels) {
      if constexpr (channels == 4) {
        const auto alpha = static_cast<std::uint64_t>(byteAt(row + 3));
        for (std::size_t part = 0; part < 3; ++part) block[part] += alpha * byteAt(row + part);
        block[3] += alpha;
      } else {
        for (std::size_t part = 0; part < channels; ++part) block[part] += byteAt(row + part);
      }
    }
    for (std::size_t part = 0; part < channels; ++part) sums[part] += block[part];
  }
}

}  // namespace

void Scaler::take(const char* row) {
  ++rows_;
  if (sums_.empty()) {
    held_.pixels.append(row, held_.rowLength());
    return;
  }
  if (held_.channels == 1) {
    addRow<1>(row, source_.width, across_, sums_.data());
  } else if (held_.channels == 3) {
    addRow<3>(row, source_.width, across_, sums_.data());
  } else {
    addRow<4>(row, source_.width, across_, sums_.data());
  }
  if (rows_ % down_ == 0 || rows_ == source_.height) finishRow();
}

void Scaler::finishRow() {
  const int channels = held_.channels;
  const int taken = (rows_ - 1) % down_ + 1;
  for (int x = 0; x < held_.size.width; ++x) {
    std::uint64_t* const sum = sums_.data() + std::size_t{1} * x * channels;
    const std::uint64_t count =
        std::uint64_t{1} * taken * std::min(across_, source_.width - x * across_);
    const std::uint64_t weight = held_.hasAlpha() ? sum[3] : count;
    for (int i = 0; i < std::min(channels, 3); ++i) {
      held_.pixels += static_cast<char>(weight == 0 ? 0 : (sum[i] + weight / 2) / weight);
    }
    if (held_.hasAlpha()) held_.pixels += static_cast<char>((sum[3] + count / 2) / count);
  }
  std::ranges::fill(sums_, 0);
}

std::optional<Raster> Scaler::result() {
  // How much of the last averages the source reaches.
  const auto covered = [](int side, int held, int factor) {
    return static_cast<float>(side) / (static_cast<float>(held) * static_cast<float>(factor));
  };
  const float right = covered(source_.width, held_.size.width, across_);
  const float bottom = covered(source_.height, held_.size.height, down_);
  if (held_.size == target_ && right == 1 && bottom == 1) return std::move(held_);
  Raster result = blank(target_, held_.channels);
  const stbir_filter filter = filterOf(scaling_);
  const int done = stbir_resize_region(
      held_.pixels.data(), held_.size.width, held_.size.height, 0, result.pixels.data(),
      target_.width, target_.height, 0, STBIR_TYPE_UINT8, held_.channels,
      held_.hasAlpha() ? 3 : STBIR_ALPHA_CHANNEL_NONE, 0, STBIR_EDGE_CLAMP, STBIR_EDGE_CLAMP,
      filter, filter, STBIR_COLORSPACE_LINEAR, nullptr, 0, 0, right, bottom);
  return done ? std::optional(std::move(result)) : std::nullopt;
}

std::optional<Raster> scaled(const Raster& source, Size target, Scaling scaling) {
  if (source.size == target) return source;
  if (scaling == Scaling::Nearest) return nearest(source, target);
  Scaler scaler(source.size, source.channels, target, scaling);
  for (int y = 0; y < source.size.height; ++y) {
    scaler.take(source.pixels.data() + source.rowLength() * y);
  }
  return scaler.result();
}

}  // namespace quorvane::picture_tools
