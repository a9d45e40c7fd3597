#include "http/standard/grammar.h"

#include <algorithm>
#include <array>

#include "support/text.h"

namespace quorvane {

namespace standard_grammar {
namespace {

constexpr std::string_view kAlphanumeric =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";

/// What each character may be part of.
enum Part : unsigned char { kToken = 1, kValue = 2, kHost = 4 };

constexpr std::array<unsigned char, 256> makeParts() {
  std::array<unsigned char, 256> parts{};
  const auto mark = [&parts](std::string_view characters, Part part) {
    for (const char c : characters) {
      auto& entry = parts[static_cast<unsigned char>(c)];
      entry = static_cast<unsigned char>(entry | part);
    }
  };
  mark(kAlphanumeric, kToken);
  mark("!#$%&'*+-.^_`|~", kToken);
  mark(kAlphanumeric, kHost);
  mark("-._~!$&'()*+,;=", kHost);
  mark("\t ", kValue);
  for (std::size_t c = 33; c < parts.size(); ++c) {
    if (c != 127) parts[c] = static_cast<unsigned char>(parts[c] | kValue);
  }
  return parts;
}

constexpr std::array<unsigned char, 256> kParts = makeParts();

bool is(char c, Part part) {
  return (kParts[static_cast<unsigned char>(c)] & part) != 0;
}

bool isPort(std::string_view text) {
  return std::all_of(text.begin(), text.end(), isDigit);
}

/// Percent-encoded characters included.
bool isName(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (is(text[i], kHost)) continue;
    if (text[i] != '%' || !hexByte(text.substr(i + 1))) return false;
    i += 2;
  }
  return !text.empty();
}

bool isAddress(std::string_view text) {
  const auto fits = [](char c) { return hexDigit(c) >= 0 || c == ':' || c == '.'; };
  return text.find(':') != std::string_view::npos && std::all_of(text.begin(), text.end(), fits);
}

}  // namespace

bool isTokenChar(char c) {
  return is(c, kToken);
}

bool isToken(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), isTokenChar);
}

bool isFieldValue(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return is(c, kValue); });
}

std::string_view trimmed(std::string_view text) {
  return quorvane::trimmed(text, " \t");
}

std::optional<Field> fieldOf(std::string_view line) {
  const auto colon = std::find_if_not(line.begin(), line.end(), isTokenChar);
  if (colon == line.begin() || colon == line.end() || *colon != ':') return std::nullopt;
  const auto length = static_cast<std::size_t>(colon - line.begin());
  const std::string_view value = line.substr(length + 1);
  if (!isFieldValue(value)) return std::nullopt;
  return Field{line.substr(0, length), trimmed(value)};
}

bool isAuthority(std::string_view text) {
  if (!text.starts_with('[')) {
    const std::size_t colon = std::min(text.find(':'), text.size());
    return isName(text.substr(0, colon)) && isPort(text.substr(std::min(colon + 1, text.size())));
  }
  const std::size_t end = text.find(']');
  if (end == std::string_view::npos || !isAddress(text.substr(1, end - 1))) return false;
  const std::string_view behind = text.substr(end + 1);
  return behind.empty() || (behind.front() == ':' && isPort(behind.substr(1)));
}

}  // namespace standard_grammar

}  // namespace quorvane
