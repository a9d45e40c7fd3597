'=== CInt
Show CInt("12")                '> Integer 12
Show CInt(2.5)                 '> Integer 2
Show CInt(3.5)                 '> Integer 4
Show CInt(-2.5)                '> Integer -2
Show CInt("12.6")              '> Integer 13
Show CInt(True)                '> Integer -1
Show CInt(" 5 ")               '> Integer 5
Show CInt("&HFF")              '> Integer 255
Dim e
Show CInt(e)                   '> Integer 0
On Error Resume Next
x = CInt("")
Failed                         '> 13
x = CInt("12abc")
Failed                         '> 13
x = CInt(32768)
Failed                         '> 6
x = CInt(Null)
Failed                         '> 94

'=== CLng
Show CLng("70000")             '> Long 70000
Show CLng(1.5)                 '> Long 2
Show CLng("1,000")             '> Long 1000
On Error Resume Next
x = CLng(2147483648)
Failed                         '> 6

'=== CDbl and CSng
Show CDbl("1.5")               '> Double 1.5
Show CDbl("1e3")               '> Double 1000
Show CDbl("-2")                '> Double -2
Show CDbl(".5")                '> Double 0.5
Show CDbl(5)                   '> Double 5
Show CSng("1.5")               '> Single 1.5
Show CSng(1 / 3)               '> Single 0.3333333
On Error Resume Next
x = CDbl("x")
Failed                         '> 13
x = CSng(1E+300)
Failed                         '> 6

'=== CStr
Show CStr(5)                   '> String "5"
Show CStr(1.5)                 '> String "1.5"
Show CStr(True)                '> String "True"
Show CStr(#1/2/2003#)          '> String "1/2/2003"
Dim e
Show CStr(e)                   '> String ""

'=== CBool
Show CBool(1)                  '> Boolean True
Show CBool(0)                  '> Boolean False
Show CBool("True")             '> Boolean True
Show CBool("false")            '> Boolean False
Show CBool("2")                '> Boolean True
Show CBool(0.001)              '> Boolean True
On Error Resume Next
x = CBool("yes")
Failed                         '> 13

'=== CByte
Show CByte(255)                '> Byte 255
Show CByte("7")                '> Byte 7
Show CByte(1.5)                '> Byte 2
On Error Resume Next
x = CByte(256)
Failed                         '> 6
x = CByte(-1)
Failed                         '> 6

'=== CCur
Show CCur("1.5")               '> Currency 1.5
Show CCur(1.23456)             '> Currency 1.2346
Show CCur(70000)               '> Currency 70000

'=== CDate
Show CDate("1/2/2003")         '> Date 1/2/2003
Show CDate(36526)              '> Date 1/1/2000
Show CDate(0.5)                '> Date 12:00:00 PM
Show CDate("4:05 PM")          '> Date 4:05:00 PM
On Error Resume Next
x = CDate("x")
Failed                         '> 13

'=== IsNumeric
Echo IsNumeric("12"), IsNumeric("1.5"), IsNumeric("-3"), IsNumeric("1e5")   '> True True True True
Echo IsNumeric("abc"), IsNumeric("12abc"), IsNumeric("")   '> False False False
Echo IsNumeric(5), IsNumeric(True), IsNumeric(Null)   '> True True False
Echo IsNumeric(" 5 "), IsNumeric("&HFF"), IsNumeric("1,000")   '> True True True
Dim e
Echo IsNumeric(e)              '> True
Echo IsNumeric(#1/1/2000#)     '> False
Echo IsNumeric(Array(1))       '> False

'=== IsDate
Echo IsDate("1/2/2003"), IsDate(#1/2/2003#), IsDate("4:05 PM")   '> True True True
Echo IsDate("abc"), IsDate(5), IsDate(""), IsDate(Null)   '> False False False False
Echo IsDate("13/45/2000"), IsDate("2003-01-02"), IsDate("January 2, 2003")   '> False True True

'=== IsEmpty, IsNull and IsObject
Dim e, o
Echo IsEmpty(e), IsEmpty(""), IsEmpty(0), IsEmpty(Null)   '> True False False False
Echo IsNull(Null), IsNull(e), IsNull("")   '> True False False
Set o = Nothing
Echo IsObject(o), IsObject(e), IsObject("x")   '> True False False

'=== VarType and TypeName
Dim e
Echo VarType(e), VarType(Null), VarType(1), VarType(70000)   '> 0 1 2 3
Echo VarType(CSng(1)), VarType(1.5), VarType(CCur(1)), VarType(#1/1/2000#)   '> 4 5 6 7
Echo VarType("x"), VarType(Nothing), VarType(True), VarType(CByte(1))   '> 8 9 11 17
Echo VarType(Array(1))         '> 8204
Echo TypeName(e), TypeName(Null), TypeName(1), TypeName(70000)   '> Empty Null Integer Long
Echo TypeName(CSng(1)), TypeName(1.5), TypeName(CCur(1)), TypeName(#1/1/2000#)   '> Single Double Currency Date
Echo TypeName("x"), TypeName(Nothing), TypeName(True), TypeName(CByte(1))   '> String Nothing Boolean Byte
Echo TypeName(Array(1))        '> Variant()

'=== a Boolean as a Byte
Show CByte(True)               '> Byte 255
Show CByte(False)              '> Byte 0
Show CInt(True)                '> Integer -1

'=== a text that names a Boolean converts by CBool only
On Error Resume Next
Show CBool("TRUE")             '> Boolean True
Show CBool("false")            '> Boolean False
x = CInt("TRUE")
Failed                         '> 13
x = CLng("True")
Failed                         '> 13
x = CDbl("False")
Failed                         '> 13
x = CByte("True")
Failed                         '> 13
x = CSng("True")
Failed                         '> 13
x = CCur("True")
Failed                         '> 13
x = CDate("True")
Failed                         '> 13
Echo IsNumeric("True")         '> False

'=== Round of a Boolean
Show Round(True)               '> Boolean True
Show Round(False, 2)           '> Boolean False
Show Int(True)                 '> Integer -1
Show Round(Empty)              '> Integer 0

'=== constants that are Longs however small
Show vbBlack                   '> Long 0
Show vbRed                     '> Long 255
Show vbGreen                   '> Long 65280
Show vbMsgBoxHelpButton        '> Long 16384
Show vbOKCancel                '> Integer 1
Show vbSystemModal             '> Integer 4096

'=== Null where a text or an array is wanted
On Error Resume Next
x = Escape(Null)
Failed                         '> 94
x = Unescape(Null)
Failed                         '> 94
x = SetLocale(Null)
Failed                         '> 94
x = Join(Null)
Failed                         '> 94
x = Join(Array(1), Null)
Failed                         '> 94
x = Filter(Null, "a")
Failed                         '> 94
x = Filter(Array("a"), Null)
Failed                         '> 94
x = MonthName("a", Null)
Failed                         '> 94
x = DateDiff("d", Now, Now, Null)
Failed                         '> 94
x = DatePart("ww", Now, Null)
Failed                         '> 94
x = Join(5)
Failed                         '> 13

'=== a number is no text of a date
On Error Resume Next
x = DateValue(44000)
Failed                         '> 13
x = TimeValue(44000)
Failed                         '> 13
x = DateValue(Empty)
Failed                         '> 13
x = DateValue(Null)
Failed                         '> 94
Show DateValue(#1/2/2003 4:05:06 PM#)   '> Date 1/2/2003
Show TimeValue("4:05 PM")      '> Date 4:05:00 PM
