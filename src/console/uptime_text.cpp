#include "console/uptime_text.h"

#include <chrono>

namespace quorvane {

namespace {

using namespace std::chrono;

sys_days dayOf(const CalendarTime& time) {
  return sys_days{year{time.year} / time.month / time.day};
}

}  // namespace

std::string uptimeText(const Clock& clock, TimePoint start) {
  const TimePoint now = clock.now();
  auto elapsed = floor<seconds>(now) - floor<seconds>(start);
  if (elapsed.count() < 0) elapsed = seconds{0};  // the clock was set back
  const hh_mm_ss part{elapsed % days{1}};
  CalendarTime time;
  time.hour = static_cast<int>(part.hours().count());
  time.minute = static_cast<int>(part.minutes().count());
  time.second = static_cast<int>(part.seconds().count());
  const auto midnights = (dayOf(clock.local(now)) - dayOf(clock.local(start))).count();
  if (midnights <= 0) return timeOfDayText(time);
  return std::to_string(midnights) + " days, " + timeOfDayText(time);
}

}  // namespace quorvane
