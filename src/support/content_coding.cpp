#include "support/content_coding.h"

#include <brotli/encode.h>
#include <zstd.h>

#include <utility>

#include "support/clsZipString.h"

namespace quorvane {

namespace content_coding {
namespace {

/// Up to this size the highest levels take less than half a second; a file of many megabytes would
/// take them minutes.
constexpr std::size_t kMostForHighest = std::size_t{256} << 10;

struct Levels {
  int quick;
  int kept;
  int highest;

  int of(Effort effort, std::size_t size) const {
    if (effort == Effort::Quick) return quick;
    return size > kMostForHighest ? kept : highest;
  }
};

// Of each the last level before time grows much faster than size shrinks.
constexpr Levels kBrotli{4, 6, 11};
constexpr Levels kZstd{3, 9, 19};

bool packBrotli(std::string& data, int level) {
  std::size_t size = BrotliEncoderMaxCompressedSize(data.size());
  std::string packed(size, '\0');
  if (BrotliEncoderCompress(level, BROTLI_DEFAULT_WINDOW, BROTLI_MODE_GENERIC, data.size(),
                            reinterpret_cast<const std::uint8_t*>(data.data()), &size,
                            reinterpret_cast<std::uint8_t*>(packed.data())) != BROTLI_TRUE) {
    return false;
  }
  packed.resize(size);
  packed.shrink_to_fit();
  data = std::move(packed);
  return true;
}

bool packZstd(std::string& data, int level) {
  std::string packed(ZSTD_compressBound(data.size()), '\0');
  const std::size_t size =
      ZSTD_compress(packed.data(), packed.size(), data.data(), data.size(), level);
  if (ZSTD_isError(size) != 0) return false;
  packed.resize(size);
  packed.shrink_to_fit();
  data = std::move(packed);
  return true;
}

}  // namespace

std::string_view nameOf(ContentCoding coding) {
  constexpr std::array<std::string_view, 4> kNames{"identity", "gzip", "br", "zstd"};
  return kNames[static_cast<std::size_t>(coding)];
}

bool pack(std::string& data, ContentCoding coding, Effort effort) {
  if (data.empty()) return false;
  switch (coding) {
    case ContentCoding::Identity:
      return false;
    case ContentCoding::Gzip:
      return clsZipString::CompressString(data, clsZipString::kGzip);
    case ContentCoding::Brotli:
      return packBrotli(data, kBrotli.of(effort, data.size()));
    case ContentCoding::Zstd:
      return packZstd(data, kZstd.of(effort, data.size()));
  }
  return false;
}

}  // namespace content_coding

}  // namespace quorvane
