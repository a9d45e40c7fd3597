#include <gtest/gtest.h>

#include "http/cookie_jar.h"
#include "http/http_date.h"
#include "platform/fake/fake_clock.h"

namespace quorvane {

namespace {

class CookieTest : public testing::Test {
 protected:
  FakeClock clock;
  HttpDates dates{clock};
  CookieJar jar;
};

}  // namespace

TEST_F(CookieTest, NamesAreMatchedWithoutRegardToCase) {
  clsCookieObj& cookie = jar.add({"ID", "1", false});
  EXPECT_EQ(jar.find("id"), &cookie);
  EXPECT_EQ(&jar.add({"Id", "2", true}), &cookie);
  EXPECT_EQ(cookie.Value(), "1");
  EXPECT_EQ(jar.find("other"), nullptr);
}

TEST_F(CookieTest, ASessionCookieLineHasNoExpiry) {
  EXPECT_EQ(clsCookieObj("a", "x%20y", true).headerLine(dates), "Set-Cookie: a=x%20y; path=/");
}

TEST_F(CookieTest, ALineHoldsNoLineBreak) {
  EXPECT_EQ(clsCookieObj("a\r", std::string("x\r\ny\0\tz", 7), true).headerLine(dates),
            "Set-Cookie: a =x  y \tz; path=/");
}

TEST_F(CookieTest, TheExpiryIsWrittenAsAnHttpDate) {
  clsCookieObj cookie("a", "b", false);
  cookie.setExpires({2027, 1, 5, 6, 7, 8, 2});
  EXPECT_TRUE(cookie.changed());
  EXPECT_EQ(cookie.expiresText(), "2027-01-05 06:07:08");
  EXPECT_EQ(cookie.Expires(), (CalendarTime{2027, 1, 5, 6, 7, 8, 2}));
  EXPECT_EQ(cookie.headerLine(dates),
            "Set-Cookie: a=b; path=/; expires=Tue, 05 Jan 2027 06:07:08 GMT");
}

TEST_F(CookieTest, SundaysHaveNoNameAndTheZeroDateIsNow) {
  clsCookieObj cookie("a", "b", false);
  cookie.setExpires({2026, 3, 8, 0, 0, 0, 0});
  EXPECT_EQ(cookie.headerLine(dates),
            "Set-Cookie: a=b; path=/; expires=, 08 Mar 2026 00:00:00 GMT");
  cookie.setExpires(CalendarTime{});
  EXPECT_EQ(cookie.headerLine(dates),
            "Set-Cookie: a=b; path=/; expires=Mon, 09 Mar 2026 10:00:00 GMT");
  EXPECT_EQ(clsCookieObj().Expires(), CalendarTime{});
}

TEST_F(CookieTest, SaysWhereItIsValid) {
  clsCookieObj cookie("a", "b", true);
  cookie.setPath("/x");
  cookie.setDomain(".example.com");
  cookie.setSecure(true);
  EXPECT_EQ(cookie.headerLine(dates), "Set-Cookie: a=b; path=/x; domain=.example.com; secure");
  cookie.setPath("/y; domain=z");
  cookie.setDomain("x\r\nX-Line: 1");
  cookie.setSecure(false);
  EXPECT_EQ(cookie.headerLine(dates), "Set-Cookie: a=b; path=/x; domain=.example.com");
}

TEST_F(CookieTest, OnlyChangedCookiesAreSentInTheOrderOfTheirComing) {
  jar.add({"first", "1", true});
  jar.add({"kept", "2", false});
  jar.add({"AAA", "3", false}).setValue("4");
  EXPECT_EQ(jar.changedHeaderLines(dates),
            "Set-Cookie: first=1; path=/\r\nSet-Cookie: AAA=4; path=/");
  jar.clear();
  EXPECT_EQ(jar.changedHeaderLines(dates), "");
}

}  // namespace quorvane
