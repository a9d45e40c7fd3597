#pragma once

#include "components/component.h"

namespace quorvane {

/// System.Text.UTF8Encoding. Methods that exist with several lists of arguments have a name each;
/// the ones for arrays of characters, which scripts can't make, are left out.
extern const Component kUtf8Encoding;

}  // namespace quorvane
