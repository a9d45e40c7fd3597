#include "support/ip_address.h"

#include <algorithm>
#include <charconv>

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::array<std::uint8_t, 12> kMapped{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff};
constexpr std::size_t kGroups = 8;
using Groups = std::array<std::uint16_t, kGroups>;

/// The whole text as a number of at most `digits` digits.
std::optional<unsigned> number(std::string_view text, int base, std::size_t digits, unsigned most) {
  const auto value = text.size() > digits ? std::nullopt : wholeNumber<unsigned>(text, base);
  return value && *value <= most ? value : std::nullopt;
}

/// Cuts off the text up to the first `separator`; all of it without one.
std::string_view cutFirst(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view first = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return first;
}

/// Four decimal numbers as the two groups that they make. A leading zero is octal to some.
std::optional<std::array<std::uint16_t, 2>> parseDotted(std::string_view text) {
  if (std::count(text.begin(), text.end(), '.') != 3) return std::nullopt;
  std::array<std::uint16_t, 2> groups{};
  for (std::size_t i = 0; i < 4; ++i) {
    const std::string_view part = cutFirst(text, '.');
    const auto value = number(part, 10, 3, 255);
    if (!value || (part.size() > 1 && part.front() == '0')) return std::nullopt;
    groups[i / 2] = static_cast<std::uint16_t>(groups[i / 2] << 8 | *value);
  }
  return groups;
}

/// Takes "a:b:c", perhaps with a dotted end, into `groups`; how many there were.
std::optional<std::size_t> parseGroups(std::string_view text, Groups& groups) {
  std::size_t count = 0;
  if (text.empty()) return count;
  if (text.back() == ':') return std::nullopt;
  while (!text.empty()) {
    const std::string_view part = cutFirst(text, ':');
    if (text.empty() && part.find('.') != part.npos) {
      const auto dotted = parseDotted(part);
      if (!dotted || count + 2 > kGroups) return std::nullopt;
      groups[count++] = (*dotted)[0];
      groups[count++] = (*dotted)[1];
      break;
    }
    const auto value = number(part, 16, 4, 0xffff);
    if (!value || count == kGroups) return std::nullopt;
    groups[count++] = static_cast<std::uint16_t>(*value);
  }
  return count;
}

std::optional<Groups> parseV6(std::string_view text) {
  Groups groups{};
  const std::size_t gap = text.find("::");
  const bool isDottedBeforeGap = gap != text.npos && text.find('.') < gap;
  const auto before = parseGroups(text.substr(0, gap), groups);
  if (!before || isDottedBeforeGap) return std::nullopt;
  if (gap == text.npos) return *before == kGroups ? std::optional(groups) : std::nullopt;
  Groups end{};
  const auto after = parseGroups(text.substr(gap + 2), end);
  if (!after || *before + *after >= kGroups) return std::nullopt;
  std::copy_n(end.begin(), *after, groups.end() - static_cast<std::ptrdiff_t>(*after));
  return groups;
}

std::string textOf(const Groups& groups) {
  std::size_t gapStart = kGroups;
  std::size_t gapLength = 1;  // a single group of zeros is written
  for (std::size_t i = 0; i < kGroups;) {
    std::size_t end = i;
    while (end < kGroups && groups[end] == 0) ++end;
    if (end - i > gapLength) gapLength = end - (gapStart = i);
    i = std::max(end, i + 1);
  }
  std::string text;
  for (std::size_t i = 0; i < kGroups; ++i) {
    if (i == gapStart) {
      text += "::";
      i += gapLength - 1;
      continue;
    }
    if (!text.empty() && text.back() != ':') text += ':';
    char digits[4];
    const auto end = std::to_chars(digits, digits + sizeof digits, groups[i], 16).ptr;
    text.append(digits, end);
  }
  return text;
}

}  // namespace

std::optional<IpAddress> IpAddress::parse(std::string_view text) {
  std::optional<Groups> groups;
  if (text.find(':') != text.npos) {
    groups = parseV6(text);
  } else if (const auto dotted = parseDotted(text)) {
    groups = Groups{0, 0, 0, 0, 0, 0xffff, (*dotted)[0], (*dotted)[1]};
  }
  if (!groups) return std::nullopt;
  Bytes bytes{};
  for (std::size_t i = 0; i < kGroups; ++i) {
    bytes[2 * i] = static_cast<std::uint8_t>((*groups)[i] >> 8);
    bytes[2 * i + 1] = static_cast<std::uint8_t>((*groups)[i] & 0xff);
  }
  return IpAddress(bytes);
}

bool IpAddress::isV4() const {
  return std::equal(kMapped.begin(), kMapped.end(), bytes_.begin());
}

std::string IpAddress::text() const {
  if (isV4()) {
    std::string text = std::to_string(bytes_[12]);
    for (std::size_t i = 13; i < 16; ++i) text += '.' + std::to_string(bytes_[i]);
    return text;
  }
  Groups groups{};
  for (std::size_t i = 0; i < kGroups; ++i) {
    groups[i] = static_cast<std::uint16_t>(bytes_[2 * i] << 8 | bytes_[2 * i + 1]);
  }
  return textOf(groups);
}

bool IpAddress::sharesPrefix(const IpAddress& other, int bits) const {
  const auto whole = static_cast<std::size_t>(bits / 8);
  if (!std::equal(bytes_.begin(), bytes_.begin() + bits / 8, other.bytes_.begin())) return false;
  const int rest = bits % 8;
  return rest == 0 || (bytes_[whole] ^ other.bytes_[whole]) >> (8 - rest) == 0;
}

}  // namespace quorvane
