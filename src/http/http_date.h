#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace quorvane {

inline constexpr std::array<std::string_view, 12> kHttpMonths{
    "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Fields in UTC by the letter of RFC 9110: "Sun, 22 Nov 2026 09:00:00 GMT".
std::string httpDateText(const CalendarTime& utc);

/// Date texts of the header lines.
class HttpDates {
 public:
  explicit HttpDates(const Clock& clock) : clock_(clock) {}

  /// The present time, in UTC. Made once a second; the reference lasts until the next call.
  const std::string& now();

  /// A date-time in the form of `now`, its fields written as they are and labelled GMT. The day
  /// name of a Sunday is left out, so that the text begins with the comma: clients have come to
  /// rely on both. The zero date means the present time.
  std::string of(const CalendarTime& time);

  std::string standard(TimePoint moment) { return httpDateText(clock_.utc(moment)); }

  /// A file's time of change: local time.
  std::string ofFile(TimePoint modified) { return of(clock_.local(modified)); }

 private:
  const Clock& clock_;
  TimePoint second_ = TimePoint::min();  ///< the second that text_ is of
  std::string text_;
};

}  // namespace quorvane
