#include "platform/random.h"

#include "platform/entropy.h"
#include "platform/system.h"

namespace quorvane {

namespace {

class SystemRandom final : public Random {
 public:
  double fraction() override {
    if (left_ == 0) {
      fillWithEntropy(drawn_.data(), sizeof drawn_);
      left_ = drawn_.size();
    }
    return static_cast<double>(drawn_[--left_] >> 11) * 0x1.0p-53;
  }

  std::array<std::uint8_t, 16> guid() override {
    std::array<std::uint8_t, 16> bytes{};
    fillWithEntropy(bytes.data(), bytes.size());
    // Version 4, random. The version stands in the high byte of the third field, which lies in
    // memory little-endian.
    bytes[7] = static_cast<std::uint8_t>((bytes[7] & 0x0F) | 0x40);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return bytes;
  }

 private:
  std::array<std::uint64_t, 32> drawn_{};  ///< for fractions, as a call of the kernel takes longer
  std::size_t left_ = 0;
};

}  // namespace

std::unique_ptr<Random> makeRandom() {
  return std::make_unique<SystemRandom>();
}

}  // namespace quorvane
