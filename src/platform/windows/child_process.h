#pragma once

#include <memory>

#include "platform/child_process.h"

namespace quorvane {

/// Null when the program can't be started.
std::unique_ptr<ChildProcess> startChild(const ChildCommand& command);

/// Starts a program that nobody waits for.
bool startDetached(const ChildCommand& command);

}  // namespace quorvane
