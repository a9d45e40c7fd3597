#pragma once

#include "components/component.h"

namespace quorvane {

/// The engine's own RegExp class under the name by which older scripts create it.
extern const Component kRegExp;

}  // namespace quorvane
