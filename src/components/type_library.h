#pragma once

#include "components/component.h"

namespace quorvane {

/// Scriptlet.TypeLib: where scripts get new identifiers from.
extern const Component kTypeLibrary;

}  // namespace quorvane
