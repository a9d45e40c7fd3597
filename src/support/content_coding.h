#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

/// The forms in which content goes over the wire.
enum class ContentCoding : std::uint8_t { Identity, Gzip, Brotli, Zstd };

namespace content_coding {

inline constexpr std::array kAll{ContentCoding::Identity, ContentCoding::Gzip,
                                 ContentCoding::Brotli, ContentCoding::Zstd};

/// By which it goes in header lines: "br".
std::string_view nameOf(ContentCoding coding);

enum class Effort {
  Quick,  ///< for one answer: some ten milliseconds a megabyte
  Kept,   ///< for many: up to a second, for which small content comes out a sixth smaller
};

/// Replaces the data by their coded form. False leaves them as they are: of no data, or when memory
/// runs out. May be called beside the loop.
bool pack(std::string& data, ContentCoding coding, Effort effort);

}  // namespace content_coding

}  // namespace quorvane
