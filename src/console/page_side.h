#pragma once

#include "console/script_side.h"

namespace quorvane {

class Process;

/// Makes the script side that runs pages on the server's own engine. `process` outlives what is
/// made.
MakeScriptSide pageSideMaker(Process& process);

}  // namespace quorvane
