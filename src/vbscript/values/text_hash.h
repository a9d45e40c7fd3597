#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Hashing and comparing short texts without a call. The hash is another one in every process, so
/// that nobody can prepare keys that all fall together.
namespace quorvane::vbs {

/// Drawn once for the process.
extern const std::array<std::uint64_t, 2> kTextHashSeeds;

namespace text_hash {

template <class Word>
std::uint64_t load(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

/// Both halves of the product, folded: every bit of either factor reaches every bit of the result.
inline std::uint64_t mixed(std::uint64_t a, std::uint64_t b) {
  __extension__ using Product = unsigned __int128;
  const Product product = static_cast<Product>(a) * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

/// The bytes of a text of up to 16, in two words, which tell texts of one length apart.
struct Words {
  std::uint64_t first = 0;
  std::uint64_t last = 0;

  explicit Words(std::string_view text) {
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    if (text.size() >= 8) {
      first = load<std::uint64_t>(begin);
      last = load<std::uint64_t>(end - 8);
    } else if (text.size() >= 4) {
      first = load<std::uint32_t>(begin);
      last = load<std::uint32_t>(end - 4);
    } else if (!text.empty()) {
      first = load<std::uint8_t>(begin) << 8 | load<std::uint8_t>(end - 1);
      last = load<std::uint8_t>(begin + text.size() / 2);
    }
  }
  bool operator==(const Words&) const = default;
};

}  // namespace text_hash

inline std::uint64_t hashOfBytes(std::string_view text) {
  constexpr std::size_t kStep = 16;
  std::uint64_t hash = kTextHashSeeds[0] + text.size();
  for (; text.size() > kStep; text.remove_prefix(kStep)) {
    const text_hash::Words words(text.substr(0, kStep));
    hash = text_hash::mixed(words.first ^ hash, words.last ^ kTextHashSeeds[1]);
  }
  const text_hash::Words words(text);
  return text_hash::mixed(words.first ^ hash, words.last ^ kTextHashSeeds[1]);
}

inline bool sameBytes(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (a.size() > 16) return std::memcmp(a.data(), b.data(), a.size()) == 0;
  return text_hash::Words(a) == text_hash::Words(b);
}

}  // namespace quorvane::vbs
