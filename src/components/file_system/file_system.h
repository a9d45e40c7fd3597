#pragma once

#include "components/component.h"

namespace quorvane {

/// Scripting.FileSystemObject.
extern const Component kFileSystemObject;

}  // namespace quorvane
