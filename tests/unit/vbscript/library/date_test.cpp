#include "testing.h"

namespace quorvane::vbs {
namespace {

class DateFunctionTest : public testing::LibraryTest {};

TEST_F(DateFunctionTest, Clock) {
  EXPECT_EQ(run("now"), "Date 12/31/2003 12:00:00 PM");
  EXPECT_EQ(run("date"), "Date 12/31/2003");
  EXPECT_EQ(run("time"), "Date 12:00:00 PM");
  EXPECT_EQ(run("timer"), "Single 43200.25");
}

TEST_F(DateFunctionTest, Parts) {
  EXPECT_EQ(run("year", "5/6/2007 8:09:10"), "Integer 2007");
  EXPECT_EQ(run("month", "5/6/2007"), "Integer 5");
  EXPECT_EQ(run("day", "5/6/2007"), "Integer 6");
  EXPECT_EQ(run("hour", "20:09:10"), "Integer 20");
  EXPECT_EQ(run("minute", "20:09:10"), "Integer 9");
  EXPECT_EQ(run("second", "20:09:10"), "Integer 10");
  EXPECT_EQ(run("weekday", "5/6/2007"), "Integer 1");
  EXPECT_EQ(run("weekday", "5/6/2007", 2), "Integer 7");
  EXPECT_EQ(run("weekday", "5/6/2007", 8), "error 5");
  EXPECT_EQ(run("year", null_), "Null");
  EXPECT_EQ(run("year", "soon"), "error 13");
}

TEST_F(DateFunctionTest, Names) {
  EXPECT_EQ(run("monthname", 2), "String February");
  EXPECT_EQ(run("monthname", 2, true), "String Feb");
  EXPECT_EQ(run("monthname", 13), "error 5");
  EXPECT_EQ(run("weekdayname", 1), "String Sunday");
  EXPECT_EQ(run("weekdayname", 1, true, 2), "String Mon");
  EXPECT_EQ(run("weekdayname", 8), "error 5");
}

TEST_F(DateFunctionTest, Serials) {
  EXPECT_EQ(run("dateserial", 2003, 2, 30), "Date 3/2/2003");
  EXPECT_EQ(run("dateserial", 2003, 0, 1), "Date 12/1/2002");
  EXPECT_EQ(run("dateserial", 2003, 14, 0), "Date 1/31/2004");
  EXPECT_EQ(run("dateserial", 29, 1, 1), "Date 1/1/2029");
  EXPECT_EQ(run("dateserial", 99, 1, 1), "Date 1/1/1999");
  EXPECT_EQ(run("dateserial", 10000, 1, 1), "error 5");
  EXPECT_EQ(run("timeserial", 13, 5, 6), "Date 1:05:06 PM");
  EXPECT_EQ(run("timeserial", 12, -15, 0), "Date 11:45:00 AM");
  EXPECT_EQ(run("datevalue", "1/2/2003 4:05"), "Date 1/2/2003");
  EXPECT_EQ(run("timevalue", "1/2/2003 4:05"), "Date 4:05:00 AM");
}

TEST_F(DateFunctionTest, DateAdd) {
  EXPECT_EQ(run("dateadd", "m", 1, "1/31/2003"), "Date 2/28/2003");
  EXPECT_EQ(run("dateadd", "m", -1, "3/31/2004"), "Date 2/29/2004");
  EXPECT_EQ(run("dateadd", "yyyy", 1, "2/29/2004"), "Date 2/28/2005");
  EXPECT_EQ(run("dateadd", "q", 1, "11/30/2003"), "Date 2/29/2004");
  EXPECT_EQ(run("dateadd", "d", 10, "12/25/2003"), "Date 1/4/2004");
  EXPECT_EQ(run("dateadd", "ww", -1, "1/1/2004"), "Date 12/25/2003");
  EXPECT_EQ(run("dateadd", "h", 25, "1/1/2004 23:00"), "Date 1/3/2004");
  EXPECT_EQ(run("dateadd", "n", -1, "1/1/2004"), "Date 12/31/2003 11:59:00 PM");
  EXPECT_EQ(run("dateadd", "s", 1, "12/31/2003 23:59:59"), "Date 1/1/2004");
  EXPECT_EQ(run("dateadd", "x", 1, "1/1/2004"), "error 5");
  EXPECT_EQ(run("dateadd", "yyyy", 9000, "1/1/2004"), "error 5");
  EXPECT_EQ(run("dateadd", "d", 1, null_), "Null");
}

TEST_F(DateFunctionTest, DateDiff) {
  EXPECT_EQ(run("datediff", "yyyy", "12/31/2003", "1/1/2004"), "Long 1");
  EXPECT_EQ(run("datediff", "m", "1/31/2003", "2/1/2003"), "Long 1");
  EXPECT_EQ(run("datediff", "q", "3/31/2003", "4/1/2003"), "Long 1");
  EXPECT_EQ(run("datediff", "d", "1/1/2004 23:00", "1/2/2004 01:00"), "Long 1");
  EXPECT_EQ(run("datediff", "d", "1/2/2004", "1/1/2004"), "Long -1");
  EXPECT_EQ(run("datediff", "h", "1:59", "2:01"), "Long 1");
  EXPECT_EQ(run("datediff", "n", "1:59:59", "2:00:00"), "Long 1");
  EXPECT_EQ(run("datediff", "s", "1/1/1970", "1/1/2000"), "Long 946684800");
  EXPECT_EQ(run("datediff", "w", "1/1/2004", "1/15/2004"), "Long 2");
  EXPECT_EQ(run("datediff", "ww", "1/3/2004", "1/4/2004"), "Long 1");
  EXPECT_EQ(run("datediff", "ww", "1/3/2004", "1/4/2004", 2), "Long 0");
  EXPECT_EQ(run("datediff", "s", "1/1/1900", "1/1/2000"), "error 6");
  EXPECT_EQ(run("datediff", "d", null_, "1/1/2000"), "Null");
}

TEST_F(DateFunctionTest, DatePart) {
  EXPECT_EQ(run("datepart", "q", "8/1/2003"), "Integer 3");
  EXPECT_EQ(run("datepart", "y", "2/1/2003"), "Integer 32");
  EXPECT_EQ(run("datepart", "w", "5/6/2007"), "Integer 1");
  EXPECT_EQ(run("datepart", "ww", "1/1/2003"), "Integer 1");
  EXPECT_EQ(run("datepart", "ww", "12/31/2003"), "Integer 53");
  EXPECT_EQ(run("datepart", "ww", "1/1/2005", 2, 2), "Integer 53");
  EXPECT_EQ(run("datepart", "ww", "12/30/2002", 2, 2), "Integer 1");
  EXPECT_EQ(run("datepart", "ww", "1/1/2003", 1, 3), "Integer 52");
  EXPECT_EQ(run("datepart", "n", "4:05:06"), "Integer 5");
  EXPECT_EQ(run("datepart", "zz", "4:05:06"), "error 5");
}

TEST_F(DateFunctionTest, FormatDateTime) {
  const Value moment = call("cdate", "1/2/2003 16:05:06");
  EXPECT_EQ(run("formatdatetime", moment), "String 1/2/2003 4:05:06 PM");
  EXPECT_EQ(run("formatdatetime", moment, 1), "String Thursday, January 2, 2003");
  EXPECT_EQ(run("formatdatetime", moment, 2), "String 1/2/2003");
  EXPECT_EQ(run("formatdatetime", moment, 3), "String 4:05:06 PM");
  EXPECT_EQ(run("formatdatetime", moment, 4), "String 16:05");
  EXPECT_EQ(run("formatdatetime", moment, 5), "error 5");
  EXPECT_EQ(run("formatdatetime", "x"), "error 13");
}

}  // namespace
}  // namespace quorvane::vbs
