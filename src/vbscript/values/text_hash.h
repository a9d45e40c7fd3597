#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "vbscript/values/string_body.h"
#include "vbscript/values/time_check.h"

/// Hashing and comparing texts, short ones without a call. The hash is another one in every
/// process, so that nobody can prepare keys that all fall together.
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

/// The bytes of a text of up to 16, in two words.
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

/// The hash of a text, as many bits as a body has room for. It stays there until the text changes.
/// Never 0. `text` is null for the empty one.
inline std::uint32_t keptHash(StringRep* text) {
  if (text && text->hash != 0) return text->hash;
  const std::string_view bytes = text ? std::string_view(text->data(), text->bytes) : "";
  countWork(bytes.size());
  const auto hash = static_cast<std::uint32_t>(hashOfBytes(bytes) >> 40);
  const std::uint32_t kept = hash == 0 ? 1 : hash;
  if (text) text->hash = kept & 0xFFFFFF;
  return kept;
}

/// The room that each body has at least.
inline constexpr std::size_t kLeastCapacity = sizeof(std::uint64_t);
static_assert(sizeof(OneByteBody::text) >= kLeastCapacity);

/// Whether two bodies of `size` bytes hold the same. Short ones are compared without a jump that
/// depends on their length, which would be guessed wrong more often than the comparison takes.
[[gnu::always_inline]] inline bool sameBytes(const StringRep& a, const StringRep& b,
                                             std::size_t size) {
  using text_hash::load;
  constexpr std::size_t kWord = kLeastCapacity;
  const auto differenceAt = [&](std::size_t at) {
    return load<std::uint64_t>(a.data() + at) ^ load<std::uint64_t>(b.data() + at);
  };
  for (std::size_t at = kWord; at + kWord < size; at += kWord) {
    if (differenceAt(at) != 0) return false;
  }
  if (size == 0) return true;
  const std::size_t last = std::max(size, kWord) - kWord;
  const std::uint64_t text = UINT64_MAX >> (kWord - std::min(size, kWord)) * 8;
  static_assert(std::endian::native == std::endian::little);
  return ((differenceAt(0) | differenceAt(last)) & text) == 0;
}

}  // namespace quorvane::vbs
