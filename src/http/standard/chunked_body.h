#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "http/status.h"

namespace quorvane {

/// Takes a body in chunks apart, piece by piece as it arrives, by RFC 9112. What stands around the
/// data, extensions and trailers, is looked at and dropped.
class ChunkedBody {
 public:
  /// Bytes of all extensions and trailers: more than that is no honest client's.
  static constexpr std::size_t kMostAround = std::size_t{64} << 10;

  enum class State { NeedMore, Whole, Refused };

  /// Takes bytes off the front of `input` as far as they belong to the body, and adds its data to
  /// `into`, `most` bytes in all. Refused: refusal() says why.
  State take(std::string_view& input, std::string& into, std::uint64_t most);

  Status refusal() const { return refusal_; }

 private:
  enum class Expected { Size, Data, DataEnd, Trailer };

  State takeLine(std::string_view line, std::uint64_t most);
  State takeSize(std::string_view line, std::uint64_t most);
  State refuse(Status status);

  Expected expected_ = Expected::Size;
  std::string line_;         ///< the beginning of one that has not come whole
  std::uint64_t left_ = 0;   ///< bytes of the chunk to come
  std::uint64_t total_ = 0;  ///< bytes of data that are announced so far
  std::size_t around_ = 0;
  Status refusal_ = Status::BadRequest;
};

}  // namespace quorvane
