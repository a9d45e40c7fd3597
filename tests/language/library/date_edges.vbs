'=== DateDiff counts the weeks' first days
Echo DateDiff("ww", #1/6/2024#, #1/7/2024#), DateDiff("ww", #1/6/2024#, #1/7/2024#, vbMonday)   '> 1 0
Echo DateDiff("ww", #1/7/2024#, #1/8/2024#), DateDiff("ww", #1/7/2024#, #1/8/2024#, vbMonday)   '> 0 1
Echo DateDiff("ww", #1/8/2024#, #1/7/2024#, vbMonday)   '> -1
Echo DateDiff("ww", #1/1/2024#, #12/31/2024#)   '> 52
Echo DateDiff("w", #1/1/2024#, #1/7/2024#), DateDiff("w", #1/1/2024#, #1/8/2024#)   '> 0 1
Echo DateDiff("w", #1/8/2024#, #1/1/2024#), DateDiff("w", #1/7/2024#, #1/1/2024#)   '> -1 0

'=== DateDiff counts what begins in between
Echo DateDiff("h", #1:59:59 AM#, #2:00:00 AM#), DateDiff("h", #1:00:00 AM#, #1:59:59 AM#)   '> 1 0
Echo DateDiff("n", #1:00:59 AM#, #1:01:00 AM#)   '> 1
Echo DateDiff("m", #1/31/2024#, #1/1/2024#), DateDiff("m", #1/1/2024#, #12/31/2023#)   '> 0 -1
Echo DateDiff("yyyy", #1/1/2025#, #12/31/2024#), DateDiff("q", #3/31/2024#, #4/1/2024#)   '> -1 1
Echo DateDiff("d", #2/28/2024#, #3/1/2024#), DateDiff("d", #2/28/2023#, #3/1/2023#)   '> 2 1
Echo DateDiff("s", #12/31/2023 11:59:59 PM#, #1/1/2024#)   '> 1
Echo DateDiff("y", #1/1/2024#, #1/3/2024#)   '> 2
Echo DateDiff("YYYY", #1/1/2020#, #1/1/2024#)   '> 4
Show DateDiff("d", Null, #1/1/2024#)   '> Null
On Error Resume Next
x = DateDiff("x", #1/1/2024#, #1/2/2024#)
Failed                         '> 5

'=== DatePart of weeks
Echo DatePart("ww", #1/1/2024#), DatePart("ww", #1/6/2024#), DatePart("ww", #1/7/2024#)   '> 1 1 2
Echo DatePart("ww", #1/7/2024#, vbMonday), DatePart("ww", #1/8/2024#, vbMonday)   '> 1 2
Echo DatePart("ww", #1/1/2023#, vbMonday, vbFirstFourDays)   '> 52
Echo DatePart("ww", #1/2/2023#, vbMonday, vbFirstFourDays)   '> 1
Echo DatePart("ww", #12/31/2024#, vbMonday, vbFirstFourDays)   '> 1
Echo DatePart("ww", #12/31/2020#, vbMonday, vbFirstFourDays)   '> 53
Echo DatePart("ww", #1/1/2024#, vbSunday, vbFirstFullWeek)   '> 53
Echo DatePart("ww", #1/7/2024#, vbSunday, vbFirstFullWeek)   '> 1
Echo DatePart("w", #1/1/2024#), DatePart("w", #1/1/2024#, vbMonday), DatePart("w", #1/7/2024#, vbMonday)   '> 2 1 7
Echo DatePart("y", #12/31/2024#), DatePart("y", #12/31/2023#), DatePart("q", #4/1/2024#)   '> 366 365 2
Echo Weekday(#1/7/2024#), Weekday(#1/7/2024#, vbMonday), Weekday(#1/7/2024#, vbSaturday)   '> 1 7 2

'=== DateAdd at the months' ends and with fractions
Echo DateAdd("m", 1, #1/31/2024#), DateAdd("m", 1, #1/31/2023#)   '> 2/29/2024 2/28/2023
Echo DateAdd("m", -1, #3/31/2024#), DateAdd("q", -1, #5/31/2024#)   '> 2/29/2024 2/29/2024
Echo DateAdd("yyyy", -1, #2/29/2024#), DateAdd("yyyy", 4, #2/29/2024#)   '> 2/28/2023 2/29/2028
Echo DateAdd("d", 1.6, #1/1/2024#), DateAdd("m", 1.4, #1/1/2024#)   '> 1/3/2024 2/1/2024
Echo DateAdd("h", 25, #1/1/2024 1:00:00 AM#)   '> 1/2/2024 2:00:00 AM
Echo DateAdd("s", 86400, #12/31/2023#), DateAdd("n", -1, #1/1/2024#)   '> 1/1/2024 12/31/2023 11:59:00 PM
Echo DateAdd("d", "2", "1/1/2024")   '> 1/3/2024

'=== dates in sums
Show #1/31/2024# + 1           '> Date 2/1/2024
Show #1/1/2024# - #12/31/2023# '> Double 1
Show #1/1/2024# - 1            '> Date 12/31/2023
Show #1/1/2024# + 0.5          '> Date 1/1/2024 12:00:00 PM
Show #1/2/1900# * 2            '> Double 6
Echo #1/1/2024# < #1/2/2024#, #1/1/2024# = CDate("1/1/2024")   '> True True
Show CDbl(#1/1/1900#)          '> Double 2
Show CLng(#1/1/2024#)          '> Long 45292

'=== months and hours beyond their number
Echo DateSerial(2024, 14, 1), DateSerial(2024, 1, -1), DateSerial(2023, 2, 29)   '> 2/1/2025 12/30/2023 3/1/2023
Echo DateSerial(2024, -1, 1)   '> 11/1/2023
Echo TimeSerial(25, 0, 0)      '> 12/31/1899 1:00:00 AM
Echo TimeSerial(0, 90, 0), TimeSerial(1, 0, -1)   '> 1:30:00 AM 12:59:59 AM
Echo Year(CDate(0)), Hour(0.5), Minute(0.5), Second(#12:00:59 AM#)   '> 1899 12 0 59
Echo IsDate("2/29/2024"), IsDate("2/29/2023"), IsDate("25:00"), IsDate("12:60")   '> True False False False

'=== FormatDateTime
Echo FormatDateTime(#1/1/2024#), FormatDateTime(#1:05:00 PM#)   '> 1/1/2024 1:05:00 PM
Echo FormatDateTime(#1/1/2024#, 4), FormatDateTime(#1:05:00 PM#, 4), FormatDateTime(#1/1/2024#, 3)   '> 00:00 13:05 12:00:00 AM
Echo FormatDateTime(#1/1/2024#, vbLongDate)   '> Monday, January 1, 2024
On Error Resume Next
x = FormatDateTime(#1/1/2024#, 5)
Failed                         '> 5
x = FormatDateTime("x")
Failed                         '> 13
