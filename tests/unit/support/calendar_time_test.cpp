#include "support/calendar_time.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(CalendarTimeTest, WritesAndReadsTheStoredForm) {
  const CalendarTime time{2007, 3, 5, 4, 5, 6, 1};
  EXPECT_EQ(dateTimeText(time), "2007-03-05 04:05:06");
  EXPECT_EQ(timeOfDayText(time), "04:05:06");
  EXPECT_EQ(parseDateTimeText("2007-03-05 04:05:06"), time);
  EXPECT_EQ(dateTimeText({99, 12, 31, 23, 59, 59, 1}), "0099-12-31 23:59:59");
  EXPECT_EQ(dateTimeText({12007, 10, 15, 14, 35, 46, 1}), "12007-10-15 14:35:46");
}

TEST(CalendarTimeTest, RefusesWhatIsNoDate) {
  for (const char* text : {"", "2007-03-05", "2007-02-29 00:00:00", "2007-13-01 00:00:00",
                           "2007-01-01 24:00:00", "2007-01-01 00:60:00", "2007-01-01T00:00:00",
                           "2007-01-01 00:00:0x", "-007-01-01 00:00:00", "2007-01-01 00:00:000"}) {
    EXPECT_EQ(parseDateTimeText(text), std::nullopt) << text;
  }
}

TEST(CalendarTimeTest, CountsWeekdaysFromSunday) {
  EXPECT_EQ(parseDateTimeText("2026-03-08 00:00:00")->weekday, 0);
  EXPECT_EQ(parseDateTimeText("1899-12-30 00:00:00")->weekday, 6);
  EXPECT_EQ(parseDateTimeText("0100-01-01 00:00:00")->weekday, 5);
}

}  // namespace quorvane
