#pragma once

#include <array>
#include <cstdint>

/// Letter case of single characters, without regard to the C library's locale. Characters whose
/// counterpart has no byte in Windows-1252 stay as they are in the byte tables.
namespace quorvane::vbs {

extern const std::array<unsigned char, 256> kLowerAnsi;
extern const std::array<unsigned char, 256> kUpperAnsi;

/// The place of each Windows-1252 character in the text order: marks, then digits, then letters
/// with their accented kin. The low byte tells characters of one rank apart.
extern const std::array<std::uint16_t, 256> kTextRanks;

inline char lowerAnsi(char c) {
  return static_cast<char>(kLowerAnsi[static_cast<unsigned char>(c)]);
}
inline char upperAnsi(char c) {
  return static_cast<char>(kUpperAnsi[static_cast<unsigned char>(c)]);
}

/// Latin, Greek, Cyrillic, Armenian and full-width letters.
char16_t lowerUnit(char16_t unit);
char16_t upperUnit(char16_t unit);

}  // namespace quorvane::vbs
