#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include "support/calendar_time.h"

namespace quorvane {

/// The moment of a date in one of the three forms of RFC 9110 5.6.7; nothing for what is no date.
/// `now` says which century two digits of a year mean: none later than in fifty years.
std::optional<std::chrono::sys_seconds> parseHttpDate(std::string_view text, TimePoint now);

}  // namespace quorvane
