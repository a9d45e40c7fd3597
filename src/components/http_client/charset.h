#pragma once

#include <string_view>

#include "vbscript/values/string.h"

namespace quorvane::http_client {

/// The text of an answer's bytes: by their mark if they begin with one, else in the character set
/// of that name. With neither, and for an unknown one, UTF-8 if they are that, else Windows-1252.
vbs::String decoded(std::string_view bytes, std::string_view name);

/// What stands behind "charset=" in a Content-Type, without quotes; empty when nothing does.
std::string_view charsetOf(std::string_view contentType);

}  // namespace quorvane::http_client
