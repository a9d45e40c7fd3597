#include "script/customary/tag.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane::customary {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool isQuote(char c) {
  return c == '"' || c == '\'';
}

}  // namespace

Attributes::Attributes(std::string_view text) {
  while (true) {
    const std::size_t start = text.find_first_not_of(" \t\r\n/");
    if (start == text.npos) return;
    text.remove_prefix(start);
    const std::size_t end = std::min(text.find_first_of(" \t\r\n=", 1), text.size());
    std::string name = lowerCase(text.substr(0, end));
    text.remove_prefix(end);
    std::string value;
    const std::size_t behind = text.find_first_not_of(kBlanks);
    if (behind != text.npos && text[behind] == '=') {
      const std::size_t first = text.find_first_not_of(kBlanks, behind + 1);
      text.remove_prefix(first == text.npos ? text.size() : first);
      const bool quoted = !text.empty() && isQuote(text.front());
      const std::size_t close = quoted ? text.find(text.front(), 1) : text.find_first_of(kBlanks);
      const std::size_t stop = std::min(close, text.size());
      value = text.substr(quoted ? 1 : 0, stop - (quoted ? 1 : 0));
      text.remove_prefix(std::min(stop + (quoted ? 1 : 0), text.size()));
    }
    rows_.emplace_back(std::move(name), std::move(value));
  }
}

std::optional<std::string> Attributes::find(std::string_view name) const {
  for (const auto& [known, value] : rows_) {
    if (known == name) return value;
  }
  return std::nullopt;
}

std::size_t endOfTag(std::string_view text) {
  text = text.substr(0, kLongestTag);
  char quote = '\0';
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '<' && text.substr(i + 1, 1) == "%") return text.npos;
    if (quote != '\0') {
      if (c == quote) quote = '\0';
    } else if (isQuote(c)) {
      quote = c;
    } else if (c == '>') {
      return i;
    }
  }
  return text.npos;
}

}  // namespace quorvane::customary
