#pragma once

#include <string_view>

#include "vbscript/values/value.h"

namespace quorvane {

/// The object that CreateObject makes for a program identifier, in any letter case. Error 429 for
/// one that is not known.
vbs::Value createComponent(std::string_view progId);

}  // namespace quorvane
