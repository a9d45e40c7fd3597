#pragma once

#include "support/calendar_time.h"

namespace quorvane {

/// The fields of `moment` in the machine's own time zone, for records that are kept with a file.
CalendarTime localTimeOf(TimePoint moment);

}  // namespace quorvane
