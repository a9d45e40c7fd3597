#pragma once

#include "components/component.h"

namespace quorvane {

/// MSWC.Counters: numbers by name that all pages share and that outlast the server. They stand in
/// Counters.txt in the base folder, "name:number" a line.
extern const Component kCounters;

}  // namespace quorvane
