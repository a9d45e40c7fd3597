'=== now
Echo Now                       '> 2/29/2024 1:45:30 PM
Echo Date                      '> 2/29/2024
Echo Time                      '> 1:45:30 PM
Show Timer                     '> Single 49530
Echo Now = Date + Time         '> True

'=== parts
Dim d: d = #12/25/2003 4:05:06 PM#
Echo Year(d), Month(d), Day(d) '> 2003 12 25
Echo Hour(d), Minute(d), Second(d)   '> 16 5 6
Echo Weekday(d)                '> 5
Echo Weekday(d, vbMonday)      '> 4
Show Year(d)                   '> Integer 2003
Show Year(Null)                '> Null
Echo Year("1/2/2003"), Month("March 5, 2001")   '> 2003 3

'=== DateSerial
Echo DateSerial(2003, 1, 2)    '> 1/2/2003
Echo DateSerial(2003, 13, 1)   '> 1/1/2004
Echo DateSerial(2003, 1, 0)    '> 12/31/2002
Echo DateSerial(2004, 2, 30)   '> 3/1/2004
Echo DateSerial(2003, 0, 1)    '> 12/1/2002
Echo DateSerial(99, 1, 1)      '> 1/1/1999
Echo DateSerial(5, 1, 1)       '> 1/1/2005
Echo DateSerial(2003, 1, 1 + 40)   '> 2/10/2003

'=== TimeSerial
Echo TimeSerial(4, 5, 6)       '> 4:05:06 AM
Echo TimeSerial(16, 5, 6)      '> 4:05:06 PM
Echo TimeSerial(12, -15, 0)    '> 11:45:00 AM
Echo TimeSerial(0, 0, 0)       '> 12:00:00 AM

'=== DateValue and TimeValue
Echo DateValue("1/2/2003 4:05 PM")   '> 1/2/2003
Echo TimeValue("1/2/2003 4:05 PM")   '> 4:05:00 PM
Echo DateValue("2003-12-25")   '> 12/25/2003

'=== DateAdd
Dim d: d = #1/31/2003#
Echo DateAdd("d", 1, d)        '> 2/1/2003
Echo DateAdd("d", -31, d)      '> 12/31/2002
Echo DateAdd("m", 1, d)        '> 2/28/2003
Echo DateAdd("m", -2, d)       '> 11/30/2002
Echo DateAdd("yyyy", 1, #2/29/2004#)   '> 2/28/2005
Echo DateAdd("q", 1, d)        '> 4/30/2003
Echo DateAdd("ww", 1, d)       '> 2/7/2003
Echo DateAdd("w", 1, d)        '> 2/1/2003
Echo DateAdd("y", 1, d)        '> 2/1/2003
Echo DateAdd("h", 1, d)        '> 1/31/2003 1:00:00 AM
Echo DateAdd("n", 90, d)       '> 1/31/2003 1:30:00 AM
Echo DateAdd("s", -1, d)       '> 1/30/2003 11:59:59 PM
On Error Resume Next
x = DateAdd("x", 1, d)
Failed                         '> 5

'=== DateDiff
Echo DateDiff("d", #1/1/2003#, #12/31/2003#)   '> 364
Echo DateDiff("d", #1/2/2003#, #1/1/2003#)     '> -1
Echo DateDiff("d", #1/1/2003 11:00 PM#, #1/2/2003 1:00 AM#)   '> 1
Echo DateDiff("m", #1/31/2003#, #2/1/2003#)    '> 1
Echo DateDiff("yyyy", #12/31/2002#, #1/1/2003#)   '> 1
Echo DateDiff("q", #1/1/2003#, #12/31/2003#)   '> 3
Echo DateDiff("h", #1/1/2003#, #1/2/2003#)     '> 24
Echo DateDiff("n", #1/1/2003 1:00 PM#, #1/1/2003 1:30 PM#)   '> 30
Echo DateDiff("s", #1/1/2003#, #1/1/2003 0:01:00#)   '> 60
Echo DateDiff("ww", #1/4/2003#, #1/5/2003#)    '> 1
Echo DateDiff("w", #1/1/2003#, #1/15/2003#)    '> 2
Show DateDiff("d", #1/1/2003#, #1/2/2003#)     '> Long 1

'=== DatePart
Dim d: d = #11/15/2003 4:05:06 PM#
Echo DatePart("yyyy", d), DatePart("q", d), DatePart("m", d)   '> 2003 4 11
Echo DatePart("y", d), DatePart("d", d), DatePart("w", d)      '> 319 15 7
Echo DatePart("h", d), DatePart("n", d), DatePart("s", d)      '> 16 5 6
Echo DatePart("ww", #1/1/2003#), DatePart("ww", #12/31/2003#)  '> 1 53
Echo DatePart("w", d, vbMonday)   '> 6

'=== names
Echo MonthName(1), MonthName(12), MonthName(2, True)   '> January December Feb
Echo WeekdayName(1), WeekdayName(7), WeekdayName(2, True)   '> Sunday Saturday Mon
Echo WeekdayName(1, False, vbMonday)   '> Monday
On Error Resume Next
x = MonthName(13)
Failed                         '> 5
x = WeekdayName(0)
Failed                         '> 5

'=== FormatDateTime
Dim d: d = #12/25/2003 4:05:06 PM#
Echo FormatDateTime(d)         '> 12/25/2003 4:05:06 PM
Echo FormatDateTime(d, 0)      '> 12/25/2003 4:05:06 PM
Echo FormatDateTime(d, 1)      '> Thursday, December 25, 2003
Echo FormatDateTime(d, 2)      '> 12/25/2003
Echo FormatDateTime(d, 3)      '> 4:05:06 PM
Echo FormatDateTime(d, 4)      '> 16:05
Echo FormatDateTime("1/2/2003", 2)   '> 1/2/2003

'=== dates as text
Echo #1/2/2003#                '> 1/2/2003
Echo #1/2/2003 12:00:00 AM#    '> 1/2/2003
Echo #1/2/2003 12:00:01 AM#    '> 1/2/2003 12:00:01 AM
Echo #4:05:06 AM#              '> 4:05:06 AM
Echo CDate(0)                  '> 12:00:00 AM
Echo CDate(1)                  '> 12/31/1899
Echo CDate(-1)                 '> 12/29/1899
Echo CDate(1.75)               '> 12/31/1899 6:00:00 PM
Echo CDate(-1.25)              '> 12/29/1899 6:00:00 AM
Echo DateSerial(1850, 1, 2)    '> 1/2/1850

'=== texts as dates
Echo CDate("1/2/03")           '> 1/2/2003
Echo CDate("1/2/99")           '> 1/2/1999
Echo CDate("13/1/2003")        '> 1/13/2003
Echo CDate("1-2-2003")         '> 1/2/2003
Echo CDate("2003-01-02")       '> 1/2/2003
Echo CDate("2003/1/2")         '> 1/2/2003
Echo CDate("January 2, 2003")  '> 1/2/2003
Echo CDate("2 January 2003")   '> 1/2/2003
Echo CDate("Jan 2 2003")       '> 1/2/2003
Echo CDate("2-Jan-2003")       '> 1/2/2003
Echo CDate("1/2/2003 13:05")   '> 1/2/2003 1:05:00 PM
Echo CDate("1:02:03 pm")       '> 1:02:03 PM
Echo CDate("1/2")              '> 1/2/2024

'=== the last day
Echo CDate("12/31/9999")       '> 12/31/9999
On Error Resume Next
x = DateSerial(10000, 1, 1)
Failed                         '> 5
x = CDate(3000000)
Failed                         '> 6

'=== no date
On Error Resume Next
x = CDate("2/30/2003")
Failed                         '> 13
x = Year("abc")
Failed                         '> 13
