#include "components/mail/quoted_printable.h"

#include <cstdint>

#include "support/text.h"

namespace quorvane::mail {

namespace {

constexpr std::size_t kLongestLine = 76;

/// How long the line end in front is; 0 when there is none.
std::size_t lineEnd(std::string_view text) {
  if (text.starts_with("\r\n")) return 2;
  return text.starts_with('\n') ? 1 : 0;
}

bool isEscaped(std::string_view text, bool beginsLine) {
  const char c = text.front();
  if (c == ' ' || c == '\t') return text.size() == 1 || lineEnd(text.substr(1)) > 0;
  if (c < '!' || c > '~' || c == '=') return true;
  return beginsLine && (c == '.' || text.starts_with("From "));
}

}  // namespace

std::string quotedPrintable(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  std::size_t column = 0;
  while (!text.empty()) {
    if (const std::size_t end = lineEnd(text)) {
      out += "\r\n";
      column = 0;
      text.remove_prefix(end);
      continue;
    }
    bool escaped = isEscaped(text, column == 0);
    const std::size_t room =
        kLongestLine - (lineEnd(text.substr(1)) > 0 || text.size() == 1 ? 0 : 1);
    if (column + (escaped ? 3 : 1) > room) {
      out += "=\r\n";
      column = 0;
      escaped = isEscaped(text, true);
    }
    const std::string_view byte = text.substr(0, 1);
    out += escaped ? escapedBytes(byte) : std::string(byte);
    column += escaped ? 3 : 1;
    text.remove_prefix(1);
  }
  return out;
}

std::string escapedBytes(std::string_view bytes, char mark) {
  const auto* const first = reinterpret_cast<const std::uint8_t*>(bytes.data());
  const std::string digits = upperCase(hexDigits({first, bytes.size()}));
  std::string out;
  for (std::size_t at = 0; at < digits.size(); at += 2) out.append(1, mark).append(digits, at, 2);
  return out;
}

}  // namespace quorvane::mail
