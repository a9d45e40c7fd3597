#pragma once

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

namespace text_hash {

/// Where the one or two words lie that hold a short text: the bits of the first that are text, and
/// where the last begins.
struct Reach {
  std::uint64_t first = 0;
  std::size_t last = 0;
};

inline constexpr auto kReaches = [] {
  static_assert(std::endian::native == std::endian::little);
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::array<Reach, 2 * kWord + 1> reaches{};
  for (std::size_t size = 1; size < reaches.size(); ++size) {
    reaches[size].first = size < kWord ? ~(UINT64_MAX << size * 8) : UINT64_MAX;
    reaches[size].last = size < kWord ? 0 : size - kWord;
  }
  return reaches;
}();

inline constexpr std::size_t kMostReached = kReaches.size() - 1;

/// Whether two bodies hold the same in their first bytes, kMostReached at most, without a jump that
/// depends on how many: that would be guessed wrong more often than the comparison takes.
[[gnu::always_inline]] inline bool startAlike(const StringRep& a, const StringRep& b,
                                              std::size_t size) {
  const auto differenceAt = [&](std::size_t at) {
    return load<std::uint64_t>(a.data() + at) ^ load<std::uint64_t>(b.data() + at);
  };
  const Reach& reach = kReaches[size];
  return ((differenceAt(0) | differenceAt(reach.last)) & reach.first) == 0;
}

}  // namespace text_hash

/// Encoding, hash and length of a body in one number.
inline std::uint64_t likenessOf(const StringRep& text) {
  return text_hash::load<std::uint64_t>(reinterpret_cast<const char*>(&text) +
                                        sizeof text.references);
}

/// A text of bytes that has its hash and is short: what is most often a key.
class ShortText {
 public:
  static constexpr std::uint32_t kMostBytes = text_hash::kMostReached;

  /// False for any other text.
  [[gnu::always_inline]] inline bool set(const StringRep* text) {
    if (!text) return false;
    text_ = text;
    likeness_ = likenessOf(*text);
    static_assert(static_cast<int>(Encoding::Ansi) == 0);
    const bool isAnsi = static_cast<std::uint8_t>(likeness_) == 0;
    return isAnsi && hash() != 0 && size() - 1 < kMostBytes;
  }
  std::uint32_t hash() const { return static_cast<std::uint32_t>(likeness_) >> 8; }

  /// `other` has its hash, or is null for the empty text.
  [[gnu::always_inline]] inline bool isSame(const StringRep* other) const {
    if (other == text_) return true;
    if (!other || likenessOf(*other) != likeness_) return false;
    return text_hash::startAlike(*text_, *other, size());
  }

 private:
  std::uint32_t size() const { return static_cast<std::uint32_t>(likeness_ >> 32); }

  const StringRep* text_;
  std::uint64_t likeness_;
};

}  // namespace quorvane::vbs
