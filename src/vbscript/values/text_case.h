#pragma once

#include <array>

/// Letter case of single characters, without regard to the C library's locale. Characters whose
/// counterpart has no byte in Windows-1252 stay as they are in the byte tables.
namespace quorvane::vbs {

extern const std::array<unsigned char, 256> kLowerAnsi;
extern const std::array<unsigned char, 256> kUpperAnsi;

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
