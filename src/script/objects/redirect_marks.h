#pragma once

#include <optional>
#include <string_view>

#include "http/script_pages.h"

namespace quorvane {

/// A page that redirects leaves a mark as its whole output, with the target behind. Pages may write
/// the marks themselves.
namespace redirect_marks {

std::string_view markOf(RedirectedPage::Kind kind);

/// Nothing when the output does not begin with a mark.
std::optional<RedirectedPage> recognise(std::string_view output);

}  // namespace redirect_marks

}  // namespace quorvane
