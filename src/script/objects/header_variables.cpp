#include "script/objects/header_variables.h"

#include <iterator>

#include "support/text.h"

namespace quorvane {

HeaderVariables::HeaderVariables(const RequestHead& head) {
  constexpr std::string_view kHidden = "qvs_sessionid";
  for (const Line& line : head.headers()) {
    if (!startsWithNoCase(line.value, kHidden)) lines_.add(std::string(line.name), line);
  }
}

const HeaderVariables::Line* HeaderVariables::at(std::size_t position) const {
  if (position == 0 || position > lines_.size()) return nullptr;
  return &std::next(lines_.begin(), static_cast<std::ptrdiff_t>(position) - 1)->value;
}

}  // namespace quorvane
