#include "vbscript/values/text_case.h"

#include <string_view>

namespace quorvane::vbs {

namespace {

constexpr std::array<unsigned char, 256> makeLower() {
  std::array<unsigned char, 256> table{};
  for (unsigned c = 0; c < 256; ++c) {
    const bool plain = c >= 'A' && c <= 'Z';
    const bool accented = c >= 0xC0 && c <= 0xDE && c != 0xD7;
    table[c] = static_cast<unsigned char>(plain || accented ? c + 0x20 : c);
  }
  table[0x8A] = 0x9A;  // S, Z and OE with their marks stand apart from the other letters
  table[0x8C] = 0x9C;
  table[0x8E] = 0x9E;
  table[0x9F] = 0xFF;
  return table;
}

constexpr std::array<unsigned char, 256> makeUpper() {
  constexpr auto lower = makeLower();
  std::array<unsigned char, 256> table{};
  for (unsigned c = 0; c < 256; ++c) table[c] = static_cast<unsigned char>(c);
  for (unsigned c = 0; c < 256; ++c) {
    if (lower[c] != c) table[lower[c]] = static_cast<unsigned char>(c);
  }
  return table;
}

constexpr std::array<std::uint16_t, 256> makeTextRanks() {
  constexpr std::string_view kMarks = "'- !\"#$%&()*,./:;?@[\\]^_`{|}~+<=>";
  constexpr std::string_view kKin =
      "A\xC0\xC1\xC2\xC3\xC4\xC5\xC6"
      "C\xC7"
      "D\xD0"
      "E\xC8\xC9\xCA\xCB"
      "I\xCC\xCD\xCE\xCF"
      "N\xD1"
      "O\xD2\xD3\xD4\xD5\xD6\xD8\x8C"
      "S\x8A"
      "U\xD9\xDA\xDB\xDC"
      "Y\xDD\x9F"
      "Z\x8E";
  constexpr auto kUpper = makeUpper();
  std::array<std::uint16_t, 256> ranks{};
  for (unsigned c = 0; c < 256; ++c) {
    const auto mark = kMarks.find(static_cast<char>(c));
    const unsigned upper = kUpper[c];
    unsigned rank = c < 0x20 ? 1 + c : 0x60 + c % 0x80;
    if (mark != std::string_view::npos) rank = 0x21 + static_cast<unsigned>(mark);
    if (c >= '0' && c <= '9') rank = 0xE0 + c - '0';
    unsigned within = 0;
    if (upper >= 'A' && upper <= 'Z') rank = 0x100 + upper;
    if (upper >= 0x80) {
      within = upper - 0x7F;
      if (upper == 0xDE) rank = 0x100 + 'T';
      if (upper == 0xDF) rank = 0x100 + 'S';
      const auto kin = kKin.find(static_cast<char>(upper));
      if (kin != std::string_view::npos) {
        const auto base = kKin.find_last_of("ACDEINOSUYZ", kin);
        rank = 0x100 + static_cast<unsigned char>(kKin[base]);
      }
    }
    ranks[c] = static_cast<std::uint16_t>(rank << 7 | within);
  }
  return ranks;
}

/// A run of letters whose two cases stand either a fixed distance apart or side by side.
struct CaseRun {
  char16_t first;  ///< first upper-case letter
  char16_t last;   ///< last upper-case letter
  int distance;    ///< from upper to lower; 1: upper and lower alternate
};

constexpr CaseRun kRuns[] = {
    {u'A', u'Z', 32},     {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32}, {0x0100, 0x012E, 1},
    {0x0132, 0x0136, 1},  {0x0139, 0x0147, 1},  {0x014A, 0x0176, 1},  {0x0178, 0x0178, -0x79},
    {0x0179, 0x017D, 1},  {0x01CD, 0x01DB, 1},  {0x01DE, 0x01EE, 1},  {0x01F8, 0x021E, 1},
    {0x0222, 0x0232, 1},  {0x0386, 0x0386, 38}, {0x0388, 0x038A, 37}, {0x038C, 0x038C, 64},
    {0x038E, 0x038F, 63}, {0x0391, 0x03A1, 32}, {0x03A3, 0x03AB, 32}, {0x0400, 0x040F, 80},
    {0x0410, 0x042F, 32}, {0x0460, 0x0480, 1},  {0x048A, 0x04BE, 1},  {0x04C1, 0x04CD, 1},
    {0x04D0, 0x052E, 1},  {0x0531, 0x0556, 48}, {0x1E00, 0x1E94, 1},  {0x1EA0, 0x1EFE, 1},
    {0x2160, 0x216F, 16}, {0x24B6, 0x24CF, 26}, {0xFF21, 0xFF3A, 32},
};

constexpr bool isUpperIn(const CaseRun& run, char16_t unit) {
  if (unit < run.first || unit > run.last) return false;
  return run.distance != 1 || (unit - run.first) % 2 == 0;
}

}  // namespace

constinit const std::array<unsigned char, 256> kLowerAnsi = makeLower();
constinit const std::array<unsigned char, 256> kUpperAnsi = makeUpper();
constinit const std::array<std::uint16_t, 256> kTextRanks = makeTextRanks();

char16_t lowerUnit(char16_t unit) {
  for (const CaseRun& run : kRuns) {
    if (isUpperIn(run, unit)) return static_cast<char16_t>(unit + run.distance);
  }
  return unit;
}

char16_t upperUnit(char16_t unit) {
  for (const CaseRun& run : kRuns) {
    const auto upper = static_cast<char16_t>(unit - run.distance);
    if (isUpperIn(run, upper)) return upper;
  }
  return unit;
}

}  // namespace quorvane::vbs
