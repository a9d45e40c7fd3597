#pragma once

#include <optional>
#include <string>

#include "support/calendar_time.h"

namespace quorvane {

/// When a file's content last changed, in the machine's own time zone, to the second; nothing for
/// a missing file. For records that are kept with a file, not for comparing.
std::optional<CalendarTime> localFileTime(const std::string& path);

}  // namespace quorvane
