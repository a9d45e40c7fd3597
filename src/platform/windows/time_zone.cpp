#include "platform/time_zone.h"

#include <windows.h>

#include <cstdint>

namespace quorvane {

namespace {

constexpr std::int64_t kTicksASecond = 10'000'000;
/// Seconds from 1601, where the system's count begins, to 1970.
constexpr std::int64_t kTo1970 = 11'644'473'600;

FILETIME fileTimeOf(std::int64_t second) {
  const auto ticks = static_cast<std::uint64_t>((second + kTo1970) * kTicksASecond);
  return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

}  // namespace

/// By the rules of the year that the second lies in.
std::optional<CalendarTime> inLocalZone(std::time_t second) {
  if (second < -kTo1970) return std::nullopt;
  const FILETIME time = fileTimeOf(second);
  SYSTEMTIME universal{};
  SYSTEMTIME local{};
  if (!::FileTimeToSystemTime(&time, &universal) ||
      !::SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local)) {
    return std::nullopt;
  }
  return CalendarTime{local.wYear,   local.wMonth,  local.wDay,      local.wHour,
                      local.wMinute, local.wSecond, local.wDayOfWeek};
}

}  // namespace quorvane
