#include "http/header_lines.h"

#include "support/text.h"

namespace quorvane {

namespace header_lines {

void write(std::string& text, std::string_view name, std::string_view value) {
  text.append(name).append(": ").append(value);
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
