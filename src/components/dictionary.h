#pragma once

#include "components/component.h"

namespace quorvane {

/// Scripting.Dictionary.
extern const Component kDictionary;

}  // namespace quorvane
