#include "http/header_lines.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane {

namespace header_lines {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool endsLine(char c) {
  return c == '\r' || c == '\n' || c == '\0';
}

void append(std::string& text, std::string_view part) {
  const std::size_t start = text.size();
  text.append(part);
  std::replace_if(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), endsLine, ' ');
}

}  // namespace

void writeOwn(std::string& text, std::string_view name, std::string_view value) {
  text.append(name).append(": ").append(value);
}

void write(std::string& text, std::string_view name, std::string_view value) {
  append(text, name);
  text += ": ";
  append(text, value);
}

void add(std::string& lines, std::string_view name, std::string_view value) {
  if (!lines.empty()) lines += kLineEnd;
  write(lines, name, value);
}

void addOwn(std::string& lines, std::string_view name, std::string_view value) {
  if (!lines.empty()) lines += kLineEnd;
  writeOwn(lines, name, value);
}

std::string sessionCookie(std::int32_t number) {
  return std::string(kSessionCookie).append("=").append(std::to_string(number)).append("; path=/");
}

std::string oneLine(std::string_view text) {
  std::string line;
  append(line, text);
  return line;
}

std::string without(std::string_view lines, std::span<const std::string_view> names) {
  std::string kept;
  for (std::size_t start = 0; start < lines.size();) {
    const std::size_t end = std::min(lines.find(kLineEnd, start), lines.size());
    const std::string_view line = lines.substr(start, end - start);
    const std::string_view name = trimBlanks(line.substr(0, line.find(':')));
    const auto isIt = [name](std::string_view other) { return equalsNoCase(name, other); };
    if (!line.empty() && std::none_of(names.begin(), names.end(), isIt)) {
      if (!kept.empty()) kept += kLineEnd;
      append(kept, line);
    }
    start = end + kLineEnd.size();
  }
  return kept;
}

bool bring(std::string_view lines, std::string_view name) {
  if (lines.empty()) return false;
  return findNoCase(lines, std::string(name) + ": ") != std::string_view::npos;
}

}  // namespace header_lines

}  // namespace quorvane
