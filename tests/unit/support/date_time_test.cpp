#include "support/date_time.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(DateTime, WritesAndReadsTheStoredForm) {
  const CalendarTime time{2007, 3, 5, 4, 5, 6, 1};
  EXPECT_EQ(dateTimeText(time), "2007-03-05 04:05:06");
  EXPECT_EQ(timeOfDayText(time), "04:05:06");
  EXPECT_EQ(parseDateTimeText("2007-03-05 04:05:06"), time);
}

TEST(DateTime, RefusesWhatIsNoDate) {
  for (const char* text : {"", "2007-03-05", "2007-02-29 00:00:00", "2007-13-01 00:00:00",
                           "2007-01-01 24:00:00", "2007-01-01 00:60:00", "2007-01-01T00:00:00",
                           "2007-01-01 00:00:0x", "-007-01-01 00:00:00", "2007-01-01 00:00:000"}) {
    EXPECT_EQ(parseDateTimeText(text), std::nullopt) << text;
  }
}

TEST(DateTime, CountsWeekdaysFromSunday) {
  EXPECT_EQ(weekdayOf(2026, 3, 8), 0);
  EXPECT_EQ(weekdayOf(1899, 12, 30), 6);
  EXPECT_EQ(weekdayOf(100, 1, 1), 5);
}

}  // namespace quorvane
