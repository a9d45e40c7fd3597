#include "components/ado/jet/file_head.h"

#include <array>
#include <cmath>
#include <cstring>
#include <numeric>
#include <utility>

#include "vbscript/values/string.h"

namespace quorvane::ado::jet {

namespace {

constexpr std::size_t kNameAt = 4;
constexpr std::size_t kVersionAt = 0x14;
constexpr std::size_t kHiddenAt = 0x18;  ///< from here on the page is scrambled, always in one way
constexpr std::size_t kKeyAt = 0x3E;
constexpr std::size_t kPasswordAt = 0x42;
constexpr std::size_t kDateAt = 0x72;

/// RC4 with the key that all these files have.
void unscramble(std::string& bytes) {
  constexpr std::array<std::uint8_t, 4> kKey{0xC7, 0xDA, 0x39, 0x6B};
  std::array<std::uint8_t, 256> state;
  std::iota(state.begin(), state.end(), std::uint8_t{0});
  std::uint8_t j = 0;
  for (std::size_t i = 0; i < state.size(); ++i) {
    j = static_cast<std::uint8_t>(j + state[i] + kKey[i % kKey.size()]);
    std::swap(state[i], state[j]);
  }
  std::uint8_t i = 0;
  j = 0;
  for (char& c : bytes) {
    ++i;
    j = static_cast<std::uint8_t>(j + state[i]);
    std::swap(state[i], state[j]);
    const auto sum = static_cast<std::uint8_t>(state[i] + state[j]);
    c = static_cast<char>(static_cast<std::uint8_t>(c) ^ state[sum]);
  }
}

std::string oldPassword(std::string_view hidden) {
  constexpr std::size_t kLongest = 20;
  const std::string_view field = hidden.substr(kPasswordAt - kHiddenAt, kLongest);
  return vbs::String(field.substr(0, field.find('\0'))).utf8();
}

/// Over the password lie the whole days of the file's date, again and again.
std::string password(std::string_view hidden) {
  constexpr std::size_t kUnits = 20;
  double created = 0;
  std::memcpy(&created, hidden.data() + (kDateAt - kHiddenAt), sizeof created);
  const auto days = static_cast<std::uint32_t>(
      std::abs(created) < INT32_MAX ? static_cast<std::int32_t>(created) : 0);
  std::u16string text;
  for (std::size_t i = 0; i < kUnits; ++i) {
    const char* at = hidden.data() + (kPasswordAt - kHiddenAt) + 2 * i;
    const auto unit = static_cast<char16_t>(static_cast<std::uint8_t>(at[0]) |
                                            static_cast<std::uint8_t>(at[1]) << 8);
    const auto mask = static_cast<char16_t>(days >> (i % 2 == 0 ? 0 : 16));
    const auto plain = static_cast<char16_t>(unit ^ mask);
    if (plain == 0) break;
    text += plain;
  }
  return vbs::String::fromWide(text).utf8();
}

}  // namespace

std::optional<FileHead> fileHead(std::string_view bytes) {
  if (bytes.size() < FileHead::kBytes) return std::nullopt;
  const std::string_view name = bytes.substr(kNameAt);
  if (!name.starts_with("Standard Jet DB") && !name.starts_with("Standard ACE DB")) {
    return std::nullopt;
  }
  std::string hidden(bytes.substr(kHiddenAt, FileHead::kBytes - kHiddenAt));
  unscramble(hidden);
  FileHead head;
  head.isOld = bytes[kVersionAt] == 0;
  const bool isLate = static_cast<std::uint8_t>(bytes[kVersionAt]) > 1;
  head.isEncrypted =
      isLate && hidden.substr(kKeyAt - kHiddenAt, 4) != std::string_view("\0\0\0\0", 4);
  head.password = head.isOld ? oldPassword(hidden) : password(hidden);
  return head;
}

}  // namespace quorvane::ado::jet
