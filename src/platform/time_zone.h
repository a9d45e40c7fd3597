#pragma once

#include <ctime>
#include <optional>

#include "support/calendar_time.h"

namespace quorvane {

/// The fields of a second since 1970 in the machine's own time zone; nothing when the system can't
/// tell. Each system's folder implements it.
std::optional<CalendarTime> inLocalZone(std::time_t second);

}  // namespace quorvane
