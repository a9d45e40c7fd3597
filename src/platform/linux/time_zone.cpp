#include "platform/time_zone.h"

namespace quorvane {

std::optional<CalendarTime> inLocalZone(std::time_t second) {
  std::tm fields{};
  if (!::localtime_r(&second, &fields)) return std::nullopt;
  return CalendarTime{fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
                      fields.tm_min,         fields.tm_sec,     fields.tm_wday};
}

}  // namespace quorvane
