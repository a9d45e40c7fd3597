#pragma once

#include <string_view>

#include "vbscript/values/serial_date.h"
#include "vbscript/values/string.h"

namespace quorvane::vbs {

/// The parts of a date laid out by one of the active locale's patterns.
String formatDatePattern(const DateParts& parts, std::string_view pattern);
/// The time of day with seconds, as the active locale writes it.
String formatTimeOfDay(const DateParts& parts);

/// A year of two digits in the customary century: 0 to 29 are 2000 to 2029.
int fullYear(int year);

}  // namespace quorvane::vbs
