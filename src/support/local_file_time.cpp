#include "support/local_file_time.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace quorvane {

std::optional<CalendarTime> localFileTime(const std::string& path) {
  std::error_code error;
  const auto changed = std::filesystem::last_write_time(path, error);
  if (error) return std::nullopt;
  // The file clock has an epoch of its own; the two clocks' presents stand for the same moment.
  const auto age = std::filesystem::file_time_type::clock::now() - changed;
  const auto moment =
      std::chrono::round<std::chrono::seconds>(std::chrono::system_clock::now() - age);
  const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
  const std::tm* fields = std::localtime(&seconds);
  if (fields == nullptr) return std::nullopt;
  return CalendarTime{fields->tm_year + 1900, fields->tm_mon + 1, fields->tm_mday, fields->tm_hour,
                      fields->tm_min,         fields->tm_sec,     fields->tm_wday};
}

}  // namespace quorvane
