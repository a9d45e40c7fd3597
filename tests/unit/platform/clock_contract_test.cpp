#include <cstdlib>
#include <memory>

#include "kinds.h"
#include "platform/fake/fake_clock.h"
#include "platform/system.h"

namespace quorvane {

namespace {

using namespace std::chrono_literals;

struct HostClock {
  static constexpr const char* kName = "Host";
  std::unique_ptr<Clock> made = makeClock();
  const Clock& clock = *made;
};

struct HandSetClock {
  static constexpr const char* kName = "Fake";
  HandSetClock() {
    fake.zone = -210min;
    fake.step = 1ms;
  }
  FakeClock fake;
  const Clock& clock = fake;
};

template <typename Kind>
class ClockContract : public testing::Test {
 protected:
  Kind kind;
  const Clock& clock = kind.clock;
};

using Kinds = testing::Types<HostClock, HandSetClock>;
TYPED_TEST_SUITE(ClockContract, Kinds, KindNames);

TimePoint moment(int year, unsigned month, unsigned day, std::chrono::seconds inDay) {
  return std::chrono::sys_days{std::chrono::year{year} / static_cast<int>(month) /
                               static_cast<int>(day)} +
         inDay;
}

/// The seconds since 1970 that the fields name.
std::chrono::seconds secondsOf(const CalendarTime& time) {
  return std::chrono::floor<std::chrono::seconds>(
      moment(time.year, static_cast<unsigned>(time.month), static_cast<unsigned>(time.day),
             time.hour * 1h + time.minute * 1min + time.second * 1s)
          .time_since_epoch());
}

TYPED_TEST(ClockContract, BreaksAMomentIntoFields) {
  const TimePoint t = moment(2007, 3, 15, 14h + 15min + 2s);
  const CalendarTime expected{2007, 3, 15, 14, 15, 2, 4};
  EXPECT_EQ(this->clock.utc(t), expected);
  EXPECT_EQ(this->clock.utc(t + 999ms), expected);
  EXPECT_EQ(this->clock.utc(t + 1s).second, 3);
  EXPECT_EQ(this->clock.utc(t - 1ms).second, 1);
}

TYPED_TEST(ClockContract, KnowsLeapDaysAndTheTimeBefore1970) {
  EXPECT_EQ(this->clock.utc(moment(2000, 2, 29, 23h + 59min + 59s)),
            (CalendarTime{2000, 2, 29, 23, 59, 59, 2}));
  EXPECT_EQ(this->clock.utc(moment(1969, 12, 31, 23h)), (CalendarTime{1969, 12, 31, 23, 0, 0, 3}));
  EXPECT_EQ(this->clock.utc(TimePoint{} - 1ms), (CalendarTime{1969, 12, 31, 23, 59, 59, 3}));
}

TYPED_TEST(ClockContract, TheLocalZoneIsWithinADayOfTheUniversalOne) {
  for (const TimePoint t : {this->clock.now(), moment(2024, 1, 1, 0h), moment(2024, 7, 1, 12h)}) {
    const CalendarTime local = this->clock.local(t);
    const auto apart = secondsOf(local) - secondsOf(this->clock.utc(t));
    EXPECT_LE(std::abs(apart.count()), 26 * 3600);
    EXPECT_EQ(apart % 15min, 0s);
    EXPECT_EQ(local.weekday, utcFields(TimePoint(secondsOf(local))).weekday);
    EXPECT_EQ(this->clock.local(t + 1s).second, (local.second + 1) % 60);
    EXPECT_EQ(this->clock.local(t), local) << "asked again after another second";
  }
}

TYPED_TEST(ClockContract, TheSteadyClockIsNeverSetBack) {
  auto last = this->clock.steadyNow();
  for (int i = 0; i < 1000; ++i) {
    const auto next = this->clock.steadyNow();
    EXPECT_GE(next, last);
    last = next;
  }
}

}  // namespace

}  // namespace quorvane
