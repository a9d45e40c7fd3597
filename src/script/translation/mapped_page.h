#pragma once

#include <string>

#include "script/translation/include_expansion.h"
#include "script/translation/line_map.h"

namespace quorvane {

/// A page's program and where its lines come from.
struct MappedPage {
  std::string program;
  LineMap lines;
};

/// What expandIncludes() and translatePage() make of a page. The map takes much of the time, which
/// is why pages run without it.
MappedPage mapPage(IncludedFile page, const IncludeReader& read);

}  // namespace quorvane
