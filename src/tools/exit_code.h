#pragma once

namespace quorvane {

/// What every tool tells the script that called it.
enum class ExitCode : int {
  Done = 0,
  Finding = 1,  ///< it worked, and the answer is not the good one
  Usage = 2,    ///< the arguments make no sense
  Failed = 3,   ///< a file or the server could not be reached
};

}  // namespace quorvane
