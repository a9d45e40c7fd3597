#pragma once

#include "components/component.h"

namespace quorvane {

/// WScript.Network: the names of the computer and of the user.
extern const Component kNetwork;

}  // namespace quorvane
