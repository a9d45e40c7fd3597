#pragma once

#include "components/component.h"

namespace quorvane {

/// MSWC.AdRotator: a banner by chance, from a schedule file of the site.
extern const Component kAdRotator;

}  // namespace quorvane
