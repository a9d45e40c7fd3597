#pragma once

#include "vbscript/object.h"

namespace vbs {

/// What `New RegExp` and CreateObject("VBScript.RegExp") make.
Value createRegExp();

}  // namespace vbs
