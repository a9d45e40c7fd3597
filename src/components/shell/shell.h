#pragma once

#include "components/component.h"

namespace quorvane {

/// WScript.Shell.
extern const Component kShell;

}  // namespace quorvane
