#pragma once

#include "components/component.h"

namespace quorvane {

/// CDO.Message and CDO.Configuration.
extern const Component kCdoMessage;
extern const Component kCdoConfiguration;

}  // namespace quorvane
