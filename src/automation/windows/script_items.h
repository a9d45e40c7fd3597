#pragma once

#include <memory>

#include "automation/windows/com.h"
#include "vbscript/values/object.h"

namespace quorvane::automation {

/// What For Each walks of a script's object, for others. Holds the object.
ComPtr<IUnknown> makeItems(vbs::Object& object);

}  // namespace quorvane::automation
