#pragma once

#include "components/component.h"

namespace quorvane {

/// MSWC.BrowserType: what the client of the running page is, told by what it calls itself.
extern const Component kBrowserType;

}  // namespace quorvane
