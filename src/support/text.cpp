#include "support/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace quorvane {

namespace text_detail {
namespace {

/// Letter pairs of Windows-1252 outside ASCII and outside the block from 192 on.
struct LetterPair {
  unsigned char upper;
  unsigned char lower;
};
constexpr LetterPair kOddPairs[] = {{0x8A, 0x9A}, {0x8C, 0x9C}, {0x8E, 0x9E}, {0x9F, 0xFF}};

constexpr bool isUpperInBlock(int code) {
  return (code >= 'A' && code <= 'Z') || (code >= 0xC0 && code <= 0xDE && code != 0xD7);
}

constexpr std::array<char, 256> caseTable(bool toLower) {
  std::array<char, 256> table{};
  for (int code = 0; code < 256; ++code)
    table[static_cast<std::size_t>(code)] = static_cast<char>(code);
  const auto pair = [&](int upper, int lower) {
    const auto from = static_cast<std::size_t>(toLower ? upper : lower);
    table[from] = static_cast<char>(toLower ? lower : upper);
  };
  for (int code = 0; code < 256; ++code) {
    if (isUpperInBlock(code)) pair(code, code + 32);
  }
  for (const LetterPair& odd : kOddPairs) pair(odd.upper, odd.lower);
  return table;
}

}  // namespace

constinit const std::array<char, 256> kLower = caseTable(true);
constinit const std::array<char, 256> kUpper = caseTable(false);

}  // namespace text_detail

namespace {

constexpr std::string_view kWhite = " \t\r\n\v\f";

/// "&H" and "&O" texts: up to four hexadecimal digits (six octal ones) make a signed 16-bit
/// number, more a signed 32-bit one.
std::optional<double> prefixedValue(std::string_view text) {
  if (text.size() < 3 || text[0] != '&') return std::nullopt;
  const char kind = lowerChar(text[1]);
  if (kind != 'h' && kind != 'o') return std::nullopt;
  const std::string_view digits = text.substr(2);
  std::uint64_t value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, kind == 'h' ? 16 : 8);
  if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
  if (value > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
  const bool isShort = value <= 0xFFFF && digits.size() <= (kind == 'h' ? 4u : 6u);
  if (isShort) return static_cast<double>(static_cast<std::int16_t>(value));
  return static_cast<double>(static_cast<std::int32_t>(value));
}

/// Copies a decimal number without its thousands commas, "D" exponents turned into "E". Empty when
/// the text doesn't follow the grammar.
std::string plainDecimal(std::string_view text) {
  std::string plain;
  std::size_t at = 0;
  std::size_t digits = 0;
  const auto takeDigits = [&](bool commas) {
    while (at < text.size() && (isDigit(text[at]) || (commas && digits > 0 && text[at] == ','))) {
      if (isDigit(text[at])) {
        plain += text[at];
        ++digits;
      }
      ++at;
    }
  };
  takeDigits(true);
  if (at < text.size() && text[at] == '.') {
    plain += text[at++];
    takeDigits(false);
  }
  if (digits == 0) return {};
  if (at < text.size() && (lowerChar(text[at]) == 'e' || lowerChar(text[at]) == 'd')) {
    plain += 'e';
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
      if (text[at] == '-') plain += '-';
      ++at;
    }
    const std::size_t exponentStart = at;
    takeDigits(false);
    if (at == exponentStart) return {};
  }
  return at == text.size() ? plain : std::string();
}

}  // namespace

std::string lowerCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = lowerChar(c);
  return result;
}

std::string upperCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = upperChar(c);
  return result;
}

bool equalsNoCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && startsWithNoCase(a, b);
}

bool startsWithNoCase(std::string_view text, std::string_view prefix) {
  if (text.size() < prefix.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    if (lowerChar(text[i]) != lowerChar(prefix[i])) return false;
  }
  return true;
}

std::size_t findNoCase(std::string_view text, std::string_view needle, std::size_t from) {
  if (from > text.size()) return std::string_view::npos;
  const auto found =
      std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), needle.begin(),
                  needle.end(), [](char a, char b) { return lowerChar(a) == lowerChar(b); });
  if (found == text.end() && !needle.empty()) return std::string_view::npos;
  return static_cast<std::size_t>(found - text.begin());
}

int hexDigit(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

std::optional<char> hexByte(std::string_view text) {
  const int high = text.size() < 2 ? -1 : hexDigit(text[0]);
  const int low = high < 0 ? -1 : hexDigit(text[1]);
  return low < 0 ? std::nullopt : std::optional(static_cast<char>(high * 16 + low));
}

std::string_view trimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view trimmed(std::string_view text, std::string_view characters) {
  const std::size_t first = text.find_first_not_of(characters);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(separator, start);
    pieces.push_back(text.substr(start, end - start));
    if (end == std::string_view::npos) return pieces;
    start = end + 1;
  }
}

std::vector<std::string_view> words(std::string_view list) {
  constexpr std::string_view kBetween = ", \t";
  std::vector<std::string_view> all;
  for (std::size_t start = list.find_first_not_of(kBetween); start < list.size();) {
    const std::size_t end = std::min(list.find_first_of(kBetween, start), list.size());
    all.push_back(list.substr(start, end - start));
    start = list.find_first_not_of(kBetween, end);
  }
  return all;
}

std::string hexDigits(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  std::size_t start = 0;
  for (;;) {
    const std::size_t found = text.find(from, start);
    result.append(text.substr(start, found - start));
    if (found == std::string_view::npos) return result;
    result.append(to);
    start = found + from.size();
  }
}

std::optional<double> numericValue(std::string_view text) {
  text = trimmed(text, kWhite);
  if (const auto prefixed = prefixedValue(text)) return prefixed;
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text = trimmed(text.substr(1), kWhite);
  } else if (!text.empty() && (text.back() == '-' || text.back() == '+')) {
    negative = text.back() == '-';
    text = trimmed(text.substr(0, text.size() - 1), kWhite);
  }
  const std::string plain = plainDecimal(text);
  if (plain.empty()) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (error != std::errc{}) return std::nullopt;
  return negative ? -value : value;
}

double roundHalfEven(double value) {
  const double floor = std::floor(value);
  const double above = value - floor;
  if (above < 0.5) return floor;
  if (above > 0.5) return floor + 1;
  return std::fmod(floor, 2) == 0 ? floor : floor + 1;
}

std::optional<std::int32_t> numericLong(std::string_view text) {
  const auto value = numericValue(text);
  if (!value) return std::nullopt;
  const double rounded = roundHalfEven(*value);
  if (rounded < std::numeric_limits<std::int32_t>::min() ||
      rounded > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(rounded);
}

}  // namespace quorvane
