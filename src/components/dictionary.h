#pragma once

#include "vbscript/values/value.h"

namespace quorvane {

/// What CreateObject("Scripting.Dictionary") makes.
vbs::Value createDictionary();

}  // namespace quorvane
