#pragma once

#include <array>
#include <cstdint>

namespace quorvane {

class Random {
 public:
  virtual ~Random() = default;

  /// Uniform in [0, 1).
  virtual double fraction() = 0;

  /// The bytes of a new globally unique identifier, in memory order. Not to be guessed.
  virtual std::array<std::uint8_t, 16> guid() = 0;
};

}  // namespace quorvane
