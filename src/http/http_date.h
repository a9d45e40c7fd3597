#pragma once

#include <string>

#include "platform/clock.h"

namespace quorvane {

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

  /// A moment by the letter of RFC 9110: in UTC, every day with its name.
  std::string standard(TimePoint moment);

  /// A file's time of change: local time.
  std::string ofFile(TimePoint modified) { return of(clock_.local(modified)); }

 private:
  const Clock& clock_;
  TimePoint second_ = TimePoint::min();  ///< the second that text_ is of
  std::string text_;
};

}  // namespace quorvane
