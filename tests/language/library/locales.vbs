'=== numbers of the usual systems
Dim id, n
n = 0
For Each id In Array(1025, 1026, 1028, 1029, 1032, 1037, 1038, 1041, 1042, 1045, 1048, 1049, 1050, _
                     1051, 1055, 1058, 1060, 1061, 1062, 1063, 2052, 2058, 3076, 9242, 16393)
  SetLocale id
  If GetLocale = id Then n = n + 1
Next
Echo n                         '> 25
SetLocale "pl-PL"
Echo GetLocale                 '> 1045
SetLocale "zh-cn"
Echo GetLocale                 '> 2052
On Error Resume Next
SetLocale 9999
Failed                         '> 447
SetLocale "xx-yy"
Failed                         '> 447

'=== Russian
SetLocale 1049
Echo AscW(MonthName(1)), Len(MonthName(1))   '> 1103 6
Echo Left(FormatDateTime(#2/29/2024#, vbLongDate), 3), Len(FormatDateTime(#2/29/2024#, vbLongDate))   '> 29  18
Echo AscW(Mid(FormatDateTime(#2/29/2024#, vbLongDate), 10, 1)), AscW(Right(MonthName(2), 1))   '> 1103 1100
Echo #2/29/2024 1:45:30 PM#    '> 29.02.2024 13:45:30
Echo CStr(1234.5)              '> 1234,5
Echo FormatNumber(1234567.891) = "1" & Chr(160) & "234" & Chr(160) & "567,89"   '> True
Echo CDbl("1" & Chr(160) & "234,5")   '> 1234,5
Echo AscW(Right(FormatCurrency(5), 1))   '> 8381
Echo CDbl("5,25 " & ChrW(8381))   '> 5,25
Echo IsDate("15 " & ChrW(1103) & ChrW(1085) & ChrW(1074) & ChrW(1072) & ChrW(1088) & ChrW(1103) & " 2024")   '> True
Echo CDate("15 " & UCase(MonthName(1)) & " 2024")   '> 15.01.2024

'=== Polish
SetLocale 1045
Echo #2/3/2024#                '> 3.02.2024
Echo CDate("03.02.2024") = #2/3/2024#   '> True
Echo Replace(FormatNumber(-1234.5), Chr(160), "_"), CDbl("-12,5")   '> -1_234,50 -12,5
Echo Len(FormatCurrency(-3.5)), CDbl(FormatCurrency(3.5))   '> 8 3,5

'=== Japanese
SetLocale 1041
Echo #2/9/2024 1:45:30 PM#     '> 2024/02/09 13:45:30
Echo AscW(MonthName(12)), Len(MonthName(12)), Len(WeekdayName(1))   '> 49 3 3
Echo CDate(FormatDateTime(#2/9/2024#, vbLongDate))   '> 2024/02/09
Echo FormatCurrency(1234.5) = Chr(165) & "1,235", FormatCurrency(1.25, 2) = Chr(165) & "1.25"   '> True True

'=== Korean puts the half of the day first
SetLocale 1042
Dim t
t = CStr(#2/9/2024 1:45:30 PM#)
Echo Left(t, 11) & "|" & Right(t, 8), Len(t), AscW(Mid(t, 12, 1)) = &HC624   '> 2024-02-09 | 1:45:30 21 True
Echo CDate(t) = #2/9/2024 1:45:30 PM#   '> True

'=== dates go through texts and back
Dim id, bad, moment
bad = ""
For Each id In Array(1025, 1026, 1027, 1028, 1029, 1032, 1037, 1038, 1039, 1041, 1042, 1045, 1048, 1049, _
                     1050, 1051, 1052, 1054, 1055, 1057, 1058, 1060, 1061, 1062, 1063, 1065, 1066, 1069, _
                     1071, 1078, 1079, 1081, 1110, 2052, 2058, 3076, 9242, 11274, 16393, 21514)
  SetLocale id
  For Each moment In Array(#2/9/2024 1:45:30 PM#, #12/31/1999#, #11/2/2003 12:00:01 AM#, #4:05:06 AM#)
    If Not IsDate(CStr(moment)) Then
      bad = bad & " " & id & "?"
    ElseIf CDate(CStr(moment)) <> moment Then
      bad = bad & " " & id
    End If
  Next
Next
Echo "[" & bad & "]"           '> []

'=== the first day of the week
SetLocale 1025
Echo Weekday(#2/4/2024#, vbUseSystem)   '> 1
SetLocale 1038
Echo Weekday(#2/4/2024#, vbUseSystem)   '> 7

'=== countries that share a language
SetLocale 2060
Echo GetLocale, DateSerial(2024, 3, 5), FormatNumber(-234.5, 1), MonthName(3)   '> 2060 5/03/2024 -234,5 mars
SetLocale "fr-ch"
Echo GetLocale, DateSerial(2024, 3, 5), WeekdayName(1)   '> 4108 05.03.2024 lundi
SetLocale "sr-latn-cs"
Echo GetLocale, MonthName(1)   '> 2074 januar
