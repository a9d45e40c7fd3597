#pragma once

#include <string>

#include "platform/clock.h"

namespace quorvane {

/// How long ago `start` was: "HH:mm:ss" of the elapsed time within a day and, once the calendar
/// day has changed, the midnights since in front: "1 days, 02:00:00" two hours after 23:00.
std::string uptimeText(const Clock& clock, TimePoint start);

}  // namespace quorvane
