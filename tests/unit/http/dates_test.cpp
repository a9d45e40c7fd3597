#include <gtest/gtest.h>

#include "http/http_date.h"
#include "platform/fake/fake_clock.h"

namespace quorvane {

TEST(HttpDates, NowIsUtcAndAlwaysNamesTheDay) {
  FakeClock clock;
  clock.zone = std::chrono::hours(5);
  HttpDates dates(clock);
  EXPECT_EQ(dates.now(), "Mon, 09 Mar 2026 10:00:00 GMT");
  clock.advance(std::chrono::milliseconds(999));
  EXPECT_EQ(dates.now(), "Mon, 09 Mar 2026 10:00:00 GMT");
  clock.advance(std::chrono::milliseconds(1));
  EXPECT_EQ(dates.now(), "Mon, 09 Mar 2026 10:00:01 GMT");
  clock.advance(std::chrono::hours(6 * 24));
  EXPECT_EQ(dates.now(), "Sun, 15 Mar 2026 10:00:01 GMT");
}

TEST(HttpDates, FileTimesAreLocalAndNamelessOnSundays) {
  FakeClock clock;
  clock.zone = std::chrono::hours(-11);
  HttpDates dates(clock);
  EXPECT_EQ(dates.ofFile(clock.now()), ", 08 Mar 2026 23:00:00 GMT");
  EXPECT_EQ(dates.ofFile(clock.now() + std::chrono::hours(1)), "Mon, 09 Mar 2026 00:00:00 GMT");
  EXPECT_EQ(dates.ofFile(clock.now() - std::chrono::hours(24)), "Sat, 07 Mar 2026 23:00:00 GMT");
}

TEST(HttpDates, EveryMonthAndDayHasItsName) {
  const FakeClock clock;
  HttpDates dates(clock);
  EXPECT_EQ(dates.of({2024, 2, 29, 1, 2, 3, 4}), "Thu, 29 Feb 2024 01:02:03 GMT");
  EXPECT_EQ(dates.of({1601, 1, 1, 0, 0, 0, 1}), "Mon, 01 Jan 1601 00:00:00 GMT");
  EXPECT_EQ(dates.of({2024, 12, 31, 23, 59, 59, 2}), "Tue, 31 Dec 2024 23:59:59 GMT");
}

}  // namespace quorvane
