#include "console/uptime_text.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_clock.h"

namespace quorvane {

namespace {

using namespace std::chrono_literals;

class Uptime : public testing::Test {
 protected:
  /// The clock stands at 10:00 when the test begins.
  FakeClock clock;
  TimePoint start = clock.time;
};

TEST_F(Uptime, WithinADayIsTheTimeAlone) {
  EXPECT_EQ(uptimeText(clock, start), "00:00:00");
  clock.advance(13h + 59min + 59s);
  EXPECT_EQ(uptimeText(clock, start), "13:59:59");
}

TEST_F(Uptime, CountsMidnightsAndTheRemainderOfTheDay) {
  clock.advance(26h);
  EXPECT_EQ(uptimeText(clock, start), "1 days, 02:00:00");
  start = clock.time + 11h;  // 23:00
  clock.advance(13h);        // 01:00
  EXPECT_EQ(uptimeText(clock, start), "1 days, 02:00:00");
  clock.advance(24h);
  EXPECT_EQ(uptimeText(clock, start), "2 days, 02:00:00");
}

TEST_F(Uptime, MidnightsAreThoseOfTheLocalDay) {
  clock.zone = 13h + 30min;  // 10:00 is 23:30
  clock.advance(1h);
  EXPECT_EQ(uptimeText(clock, start), "1 days, 01:00:00");
}

TEST_F(Uptime, AClockSetBackShowsNoTime) {
  clock.advance(-5s);
  EXPECT_EQ(uptimeText(clock, start), "00:00:00");
}

TEST_F(Uptime, FractionsOfSecondsDontCount) {
  start += 900ms;
  clock.advance(1s);
  EXPECT_EQ(uptimeText(clock, start), "00:00:01");
}

}  // namespace

}  // namespace quorvane
