#include "vbscript/values/text_hash.h"

#include <chrono>
#include <exception>
#include <random>

namespace quorvane::vbs {

namespace {

std::uint64_t drawnNumber() noexcept {
  try {
    std::random_device device;
    return std::uint64_t{device()} << 32 | device();
  } catch (const std::exception&) {
    return static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  }
}

}  // namespace

const std::array<std::uint64_t, 2> kTextHashSeeds = {drawnNumber(), drawnNumber()};

}  // namespace quorvane::vbs
