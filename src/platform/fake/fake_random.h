#pragma once

#include <array>
#include <cstdint>
#include <deque>

#include "platform/random.h"

namespace quorvane {

/// Identifiers of a running byte: 00 01 02 ...
class CountingRandom final : public Random {
 public:
  double fraction() override { return 0.5; }
  std::array<std::uint8_t, 16> guid() override {
    std::array<std::uint8_t, 16> bytes{};
    for (auto& byte : bytes) byte = next_++;
    return bytes;
  }

 private:
  std::uint8_t next_ = 0;
};

/// Fractions in turn, the last one again and again; GUIDs that count up.
class ScriptedRandom final : public Random {
 public:
  std::deque<double> fractions{0.5};
  std::uint8_t guids = 0;

  double fraction() override {
    const double next = fractions.front();
    if (fractions.size() > 1) fractions.pop_front();
    return next;
  }
  std::array<std::uint8_t, 16> guid() override {
    return {0x0A, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, ++guids};
  }
};

}  // namespace quorvane
