#pragma once

#include "components/component.h"

namespace quorvane {

/// System.Collections.ArrayList. Methods that exist with several lists of arguments have a name
/// each: Sort, Sort_2, ...
extern const Component kArrayList;

}  // namespace quorvane
