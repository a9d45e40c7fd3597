#pragma once

#include "components/component.h"

namespace quorvane {

/// MSWC.ContentRotator: a piece of HTML by chance, from a file of the site.
extern const Component kContentRotator;

}  // namespace quorvane
