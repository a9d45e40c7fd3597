#pragma once

namespace quorvane {

/// What a run that ends by itself tells its caller; the numbers are those of sysexits.
enum class ExitStatus : int {
  Done = 0,
  NotDone = 69,         ///< by the service manager, or there is none
  AlreadyRunning = 75,  ///< another instance holds the settings
  NoRights = 77,        ///< the user may not install services
};

}  // namespace quorvane
