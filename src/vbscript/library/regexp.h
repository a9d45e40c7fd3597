#pragma once

#include "vbscript/values/object.h"

namespace quorvane::vbs {

/// What `New RegExp` and CreateObject("VBScript.RegExp") make.
Value createRegExp();

}  // namespace quorvane::vbs
