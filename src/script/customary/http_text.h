#pragma once

#include <string>
#include <string_view>

#include "support/calendar_time.h"

namespace quorvane::customary {

/// Texts of header lines.

/// "Sun, 22 Nov 2026 09:00:00 GMT", whatever day of the week the fields name.
std::string httpDate(const CalendarTime& utc);

/// The moment that these fields mean in the machine's own time zone, as far as the zone's present
/// rules tell.
CalendarTime utcOfLocal(const CalendarTime& local);

/// Letters and digits stay, a blank becomes "+", every other byte "%XX".
std::string encodeCookie(std::string_view bytes);

/// What can't stand in the target of a redirect becomes "%XX": blanks, control characters, and
/// bytes that are no ASCII.
std::string encodeLocation(std::string_view bytes);

}  // namespace quorvane::customary
