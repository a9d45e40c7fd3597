#include "support/visible_text.h"

#include "support/text.h"

namespace quorvane {

namespace {

bool isControl(char c) {
  return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
}

void appendVisible(std::string& result, char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  if (!isControl(c)) {
    result += c;
    return;
  }
  const auto code = static_cast<unsigned char>(c);
  result += "\\x";
  result += kDigits[code >> 4U];
  result += kDigits[code & 15U];
}

}  // namespace

std::string visible(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) appendVisible(result, c);
  return result;
}

std::string visible(std::string_view text, std::size_t most) {
  if (most == 0 || text.size() <= most) return visible(text);
  return visible(text.substr(0, most)) + "...";
}

std::string visibleLines(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i, 2) == "\r\n") {
      result += "\r\n";
      ++i;
    } else if (text[i] == '\t') {
      result += '\t';
    } else {
      appendVisible(result, text[i]);
    }
  }
  return result;
}

std::string visibleLine(std::string_view line) {
  return replaceAll(visibleLines(line), "\r\n", "||");
}

}  // namespace quorvane
