#include "support/local_time.h"

#include <ctime>

namespace quorvane {

CalendarTime localTimeOf(TimePoint moment) {
  const std::time_t seconds =
      std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(moment));
  const std::tm* fields = std::localtime(&seconds);
  if (fields == nullptr) return {};
  return {fields->tm_year + 1900, fields->tm_mon + 1, fields->tm_mday, fields->tm_hour,
          fields->tm_min,         fields->tm_sec,     fields->tm_wday};
}

}  // namespace quorvane
