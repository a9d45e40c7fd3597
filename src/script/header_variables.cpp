#include "script/header_variables.h"

#include <iterator>

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kCrLf = "\r\n";
constexpr std::string_view kHidden = "qvs_sessionid";

}  // namespace

HeaderVariables::HeaderVariables(std::string_view request) {
  std::string_view rest = request.substr(0, request.find("\r\n\r\n"));
  while (!rest.empty()) {
    const std::size_t end = rest.find(kCrLf);
    const std::string_view line = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + kCrLf.size());

    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) continue;
    const std::string_view name = trimBlanks(line.substr(0, colon));
    std::string_view value = line.substr(colon + 1);
    while (value.starts_with(' ')) value.remove_prefix(1);
    if (startsWithNoCase(value, kHidden)) continue;
    lines_.add(std::string(name), {std::string(name), std::string(value)});
  }
}

const HeaderVariables::Line* HeaderVariables::at(std::size_t position) const {
  if (position == 0 || position > lines_.size()) return nullptr;
  return &std::next(lines_.begin(), static_cast<std::ptrdiff_t>(position) - 1)->value;
}

}  // namespace quorvane
