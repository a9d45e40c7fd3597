#pragma once

#include <string>

#include "automation/windows/com.h"

namespace quorvane::automation {

/// The name of an object's class, or else of its interface, as its library has them; "Object" for
/// one that doesn't tell, "Unknown" for one that can't be called (null).
std::string typeNameOf(IDispatch* object);

}  // namespace quorvane::automation
