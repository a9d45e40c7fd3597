'=== whole numbers take the smallest of Integer, Long and Double
Show 32767                     '> Integer 32767
Show 32768                     '> Long 32768
Show 2147483647                '> Long 2147483647
Show 2147483648                '> Double 2147483648
Show -32768                    '> Long -32768
Show 0                         '> Integer 0

'=== fractions and exponents are Doubles
Show 1.0                       '> Double 1
Show .5                        '> Double 0.5
Show 5.                        '> Double 5
Show 1e3                       '> Double 1000
Show 1E-3                      '> Double 0.001
Show 1.5e+2                    '> Double 150

'=== hexadecimal
Show &HFF                      '> Integer 255
Show &hff                      '> Integer 255
Show &H7FFF                    '> Integer 32767
Show &H8000                    '> Long -32768
Show &H8000&                   '> Long 32768
Show &H10&                     '> Integer 16
Show &HFFFF8000                '> Long -32768
Show &HFFFF                    '> Integer -1
Show &HFFFF&                   '> Long 65535
Show &H10000                   '> Long 65536
Show &HFFFFFFFF                '> Integer -1
Show &HFFFFFFFF&               '> Integer -1
Show &H7FFFFFFF                '> Long 2147483647

'=== octal
Show &O17                      '> Integer 15
Show &o10                      '> Integer 8
Show &O177777                  '> Integer -1
Show &O177777&                 '> Long 65535

'=== a literal ends where it can't go on
Show (&h01or&h02)              '> Integer 3
Show (&h0Fxor&h01)             '> Integer 14
Show (&o17or 16)               '> Integer 31

'=== texts
Show ""                        '> String ""
Show "a""b"                    '> String "a"b"
Show """"                      '> String """
Show "'not a comment"          '> String "'not a comment"

'=== dates
Show #1/2/2003#                '> Date 1/2/2003
Show #12/31/1999 11:59:59 PM#  '> Date 12/31/1999 11:59:59 PM
Show #4:05:06 PM#              '> Date 4:05:06 PM
Show #2003-01-02#              '> Date 1/2/2003
Show #January 2, 2003#         '> Date 1/2/2003

'=== named values
Show True                      '> Boolean True
Show False                     '> Boolean False
Show Empty                     '> Empty
Show Null                      '> Null
Show Nothing                   '> Nothing
Show TRUE                      '> Boolean True

'=== constants
Show vbCrLf = Chr(13) & Chr(10)   '> Boolean True
Show vbTab = Chr(9)            '> Boolean True
Show vbCr & vbLf = vbNewLine   '> Boolean True
Show vbNullString              '> String ""
Show Len(vbNullChar)           '> Long 1
Echo vbTrue, vbFalse, vbUseDefault   '> -1 0 -2
Echo vbRed, vbGreen, vbBlue    '> 255 65280 16711680
Echo vbWhite, vbBlack, vbYellow, vbMagenta, vbCyan   '> 16777215 0 65535 16711935 16776960
Echo vbBinaryCompare, vbTextCompare, vbDatabaseCompare   '> 0 1 2
Echo vbSunday, vbMonday, vbSaturday   '> 1 2 7
Echo vbUseSystem, vbUseSystemDayOfWeek, vbFirstJan1, vbFirstFourDays, vbFirstFullWeek   '> 0 0 1 2 3
Echo vbGeneralDate, vbLongDate, vbShortDate, vbLongTime, vbShortTime   '> 0 1 2 3 4
Echo vbEmpty, vbNull, vbInteger, vbLong, vbSingle, vbDouble   '> 0 1 2 3 4 5
Echo vbCurrency, vbDate, vbString, vbObject, vbError, vbBoolean   '> 6 7 8 9 10 11
Echo vbVariant, vbDataObject, vbDecimal, vbByte, vbArray   '> 12 13 14 17 8192
Echo vbOKOnly, vbOKCancel, vbYesNo, vbCritical, vbQuestion   '> 0 1 4 16 32
Echo vbOK, vbCancel, vbYes, vbNo   '> 1 2 6 7
Echo vbObjectError             '> -2147221504
