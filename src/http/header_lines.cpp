#include "http/header_lines.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane {

namespace header_lines {
namespace {

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
  if (!lines.empty()) lines += "\r\n";
  write(lines, name, value);
}

bool bring(std::string_view lines, std::string_view name) {
  if (lines.empty()) return false;
  return findNoCase(lines, std::string(name) + ": ") != std::string_view::npos;
}

}  // namespace header_lines

}  // namespace quorvane
