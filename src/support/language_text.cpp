#include "support/language_text.h"

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kLineBreakMark = "||";

}  // namespace

std::string languageHeading(std::int32_t lcid, std::string_view name) {
  return std::string(kLanguageTag) + std::string(kLanguageVersion) + '$' + std::to_string(lcid) +
         '$' + std::string(name);
}

std::optional<LanguageHeading> parseLanguageHeading(std::string_view text) {
  if (!text.starts_with(kLanguageTag)) return std::nullopt;
  const auto parts = split(text.substr(0, text.find(kLineEnd)), '$');
  if (parts.size() < 2) return std::nullopt;
  const auto lcid = numericLong(trimBlanks(parts[1]));
  if (!lcid) return std::nullopt;
  return LanguageHeading{*lcid, parts.size() > 2 ? std::string(trimBlanks(parts[2])) : ""};
}

std::vector<std::string_view> languageLines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (;;) {
    const std::size_t end = text.find(kLineEnd);
    lines.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return lines;
    text.remove_prefix(end + kLineEnd.size());
  }
}

std::string languageLine(std::string_view key, std::string_view text) {
  return std::string(key) + '=' + replaceAll(text, kLineEnd, kLineBreakMark);
}

std::optional<LanguageEntry> parseLanguageLine(std::string_view line) {
  line = trimBlanks(line);
  const std::size_t equals = line.find('=');
  if (line.starts_with(';') || equals == std::string_view::npos) return std::nullopt;
  return LanguageEntry{std::string(line.substr(0, equals)),
                       replaceAll(line.substr(equals + 1), kLineBreakMark, kLineEnd)};
}

std::string numberedTextKey(std::int32_t number) {
  std::string digits = std::to_string(number);
  const std::size_t start = number < 0 ? 1 : 0;
  if (digits.size() < 3 + start) digits.insert(start, 3 + start - digits.size(), '0');
  return '$' + digits;
}

}  // namespace quorvane
