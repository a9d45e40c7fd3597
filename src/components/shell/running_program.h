#pragma once

#include "platform/services.h"
#include "vbscript/values/value.h"

namespace quorvane::shell {

/// What Exec gives: a program that runs beside the script, which reads and writes its streams. It
/// ends with the last reference to the object and to its streams.
vbs::Value runningProgram(std::string_view commandLine, const Services& services);

/// What Run does: starts a program and, when `waits`, gives its exit status. A program that is
/// waited for ends with the script's time.
vbs::Value runProgram(std::string_view commandLine, bool waits, const Services& services);

}  // namespace quorvane::shell
