#pragma once

namespace vbs {

/// Native work without a small bound of its own (a regular expression over a long text, say) calls
/// this now and then. The running engine puts a function here that throws when the script's time is
/// over; null while no engine runs on this thread.
using TimeCheck = void (*)();
inline constinit thread_local TimeCheck timeCheck = nullptr;

inline void checkTime() {
  if (timeCheck) timeCheck();
}

}  // namespace vbs
