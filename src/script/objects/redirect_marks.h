#pragma once

#include <optional>
#include <string_view>

#include "http/script_pages.h"

namespace quorvane {

/// A page that redirects leaves a mark as its whole output, with the target behind. Pages may write
/// the marks themselves.
namespace redirect_marks {

std::string_view markOf(RedirectedPage::Kind kind);

/// Nothing when the output does not begin with a mark. `recorded` when the mark is that of
/// Response.RedirectTo, and not what the page wrote.
std::optional<RedirectedPage> recognise(std::string_view output, bool recorded);

}  // namespace redirect_marks

}  // namespace quorvane
