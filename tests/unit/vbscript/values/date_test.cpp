#include <gtest/gtest.h>

#include <set>

#include "testing.h"
#include "testing/fake_host.h"
#include "vbscript/values/locale_table.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::vbs {
namespace {

class DateTest : public ::testing::Test {
 protected:
  /// The date that a text spells, shown again; "none" when it spells none.
  static std::string read(const char* spelled) {
    const auto date = parseDate(String(spelled));
    return date ? formatDate(*date).narrow() : "none";
  }

  FakeHost host_;
  TextScope scope_{host_};
};

TEST_F(DateTest, CalendarKnowsItsDays) {
  EXPECT_EQ(dayNumber(1899, 12, 30), 0);
  EXPECT_EQ(dayNumber(1900, 1, 1), 2);
  EXPECT_EQ(dayNumber(1970, 1, 1), 25569);
  EXPECT_EQ(dayNumber(2000, 2, 29) + 1, dayNumber(2000, 3, 1));
  EXPECT_EQ(dayNumber(100, 1, 1), kMinDate);
  EXPECT_EQ(dayNumber(9999, 12, 31) + 1, kDateLimit);
  EXPECT_EQ(daysInMonth(1900, 2), 28);
  EXPECT_EQ(daysInMonth(2000, 2), 29);
}

TEST_F(DateTest, EveryDayRoundTrips) {
  int weekday = dateParts(kMinDate).weekday;
  for (std::int32_t day = static_cast<std::int32_t>(kMinDate); day < kDateLimit; day += 17) {
    const DateParts parts = dateParts(day);
    ASSERT_EQ(dayNumber(parts.year, parts.month, parts.day), day);
    ASSERT_EQ(parts.weekday, weekday);
    weekday = (weekday - 1 + 17) % 7 + 1;
  }
}

TEST_F(DateTest, TimesBeforeDayZeroCountForward) {
  const DateParts parts = dateParts(-1.25);
  EXPECT_EQ(parts.day, 29);
  EXPECT_EQ(parts.hour, 6);
  EXPECT_EQ(combineDate(-1, 6 * 3600), -1.25);
  EXPECT_EQ(combineDate(0, -1), -1 - 86399.0 / 86400);
}

TEST_F(DateTest, GeneralDate) {
  EXPECT_EQ(formatDate(37986.5).narrow(), "12/31/2003 12:00:00 PM");
  EXPECT_EQ(formatDate(37986).narrow(), "12/31/2003");
  EXPECT_EQ(formatDate(0.25).narrow(), "6:00:00 AM");
  EXPECT_EQ(formatDate(0).narrow(), "12:00:00 AM");
  EXPECT_EQ(formatDate(1 - 1e-9).narrow(), "12/31/1899");
}

TEST_F(DateTest, EveryLocaleIsComplete) {
  std::set<std::int32_t> ids;
  std::set<std::string_view> tags;
  for (const Locale& locale : kLocales) {
    SCOPED_TRACE(locale.tag);
    EXPECT_TRUE(ids.insert(locale.id).second);
    EXPECT_TRUE(tags.insert(locale.tag).second);
    for (const auto& names : {locale.names.months, locale.names.shortMonths}) {
      for (const std::string_view name : names) EXPECT_FALSE(name.empty());
    }
    for (const auto& names : {locale.names.weekdays, locale.names.shortWeekdays}) {
      for (const std::string_view name : names) EXPECT_FALSE(name.empty());
    }
  }
}

TEST_F(DateTest, WhatALocaleWritesItReads) {
  const double day = dayNumber(2026, 11, 5);
  for (const Locale& locale : kLocales) {
    SCOPED_TRACE(locale.tag);
    setActiveLocale(locale);
    EXPECT_EQ(parseDate(formatDate(day + 0.75)), day + 0.75);
    EXPECT_EQ(parseDate(formatDate(0.25)), 0.25);
    EXPECT_EQ(parseNumber(formatDouble(-1234.5)), -1234.5);
  }
}

TEST_F(DateTest, NumericSpellings) {
  EXPECT_EQ(read("1/2/2003"), "1/2/2003");
  EXPECT_EQ(read("1-2-03"), "1/2/2003");
  EXPECT_EQ(read("1/2/29"), "1/2/2029");
  EXPECT_EQ(read("1/2/30"), "1/2/1930");
  EXPECT_EQ(read("2003-01-02"), "1/2/2003");
  EXPECT_EQ(read("2003/13/2"), "2/13/2003");
  EXPECT_EQ(read("13/1/2003"), "1/13/2003");
  EXPECT_EQ(read("2/29/2004"), "2/29/2004");
  EXPECT_EQ(read("2/29/2003"), "none");
  EXPECT_EQ(read("4/5"), "4/5/2003");
  EXPECT_EQ(read("13/4"), "4/13/2003");
  EXPECT_EQ(read("4/2005"), "4/1/2005");
  EXPECT_EQ(read("1/2/10000"), "none");
  EXPECT_EQ(read("5"), "none");
  EXPECT_EQ(read(""), "none");
}

TEST_F(DateTest, SpellingsWithMonthNames) {
  EXPECT_EQ(read("January 5, 2004"), "1/5/2004");
  EXPECT_EQ(read("5 Jan 2004"), "1/5/2004");
  EXPECT_EQ(read("5-jan-04"), "1/5/2004");
  EXPECT_EQ(read("Monday, January 5, 2004"), "1/5/2004");
  EXPECT_EQ(read("2004 jan 5"), "1/5/2004");
  EXPECT_EQ(read("Jan 2004"), "1/1/2004");
  EXPECT_EQ(read("Jan 5"), "1/5/2003");
  EXPECT_EQ(read("Foo 5, 2004"), "none");
  EXPECT_EQ(read("Jan Feb 5"), "none");
}

TEST_F(DateTest, Times) {
  EXPECT_EQ(read("4:05"), "4:05:00 AM");
  EXPECT_EQ(read("16:05:06"), "4:05:06 PM");
  EXPECT_EQ(read("4:05:06 pm"), "4:05:06 PM");
  EXPECT_EQ(read("12:00 AM"), "12:00:00 AM");
  EXPECT_EQ(read("12 pm"), "12:00:00 PM");
  EXPECT_EQ(read("4PM"), "4:00:00 PM");
  EXPECT_EQ(read("1/2/2003 4:05 PM"), "1/2/2003 4:05:00 PM");
  EXPECT_EQ(read("4:05 PM 1/2/2003"), "1/2/2003 4:05:00 PM");
  EXPECT_EQ(read("25:00"), "none");
  EXPECT_EQ(read("4:60"), "none");
  EXPECT_EQ(read("13:00 PM"), "none");
  EXPECT_EQ(read("4:"), "none");
  EXPECT_EQ(read("13.50"), "1:50:00 PM");
  EXPECT_EQ(read("12.25.2010"), "12/25/2010");
}

TEST_F(DateTest, TextsOfNumbersBecomeDatesOnlyByConversion) {
  EXPECT_EQ(toDate(Value("37986")), 37986);
  EXPECT_EQ(toDate(Value("1/2/2003")), 37623);
  EXPECT_EQ(testing::errorOf([] { toDate(Value("soon")); }), 13);
}

TEST_F(DateTest, OtherLocales) {
  setActiveLocale(*findLocale(1031));
  EXPECT_EQ(formatDate(37986.5).narrow(), "31.12.2003 12:00:00");
  EXPECT_EQ(read("31.12.2003"), "31.12.2003");
  EXPECT_EQ(read("5. M\xE4rz 2003"), "05.03.2003");
  EXPECT_EQ(formatDouble(1.5).narrow(), "1,5");
  EXPECT_EQ(*parseNumber(String("1.234,5")), 1234.5);
  setActiveLocale(*findLocale(2057));
  EXPECT_EQ(read("1/2/2003"), "01/02/2003");
  EXPECT_EQ(*parseDate(String("1/2/2003")), dayNumber(2003, 2, 1));
}

}  // namespace
}  // namespace quorvane::vbs
