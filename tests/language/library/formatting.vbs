'=== FormatNumber
Echo FormatNumber(1234.567)    '> 1,234.57
Echo FormatNumber(1234567.891, 1)   '> 1,234,567.9
Echo FormatNumber(1234.5, 0)   '> 1,235
Echo FormatNumber(0.5)         '> 0.50
Echo FormatNumber(-1234.5)     '> -1,234.50
Echo FormatNumber(1234.5, 2, -2, -2, 0)   '> 1234.50
Echo FormatNumber(0.5, 2, 0)   '> .50
Echo FormatNumber(-5, 1, -1, -1)   '> (5.0)
Echo FormatNumber("12.3", 1)   '> 12.3
Echo FormatNumber(999999.999, 2)   '> 1,000,000.00
Echo FormatNumber(0)           '> 0.00

'=== FormatCurrency
Echo FormatCurrency(1234.5)    '> $1,234.50
Echo FormatCurrency(-1234.5)   '> ($1,234.50)
Echo FormatCurrency(5, 0)      '> $5
Echo FormatCurrency(0.5)       '> $0.50

'=== FormatPercent
Echo FormatPercent(0.1234)     '> 12.34%
Echo FormatPercent(0.5, 0)     '> 50%
Echo FormatPercent(12.5)       '> 1,250.00%
Echo FormatPercent(-0.05, 1)   '> -5.0%

'=== what is no number
On Error Resume Next
x = FormatNumber("abc")
Failed                         '> 13
x = FormatNumber(Null)
Failed                         '> 13

'=== a run's language and country
Function Sample(locale)
  SetLocale locale
  Sample = FormatDateTime(#3/9/2026 4:05:06 PM#, 1) & "; " & #3/9/2026 4:05:06 PM# & "; " & FormatCurrency(-1234.5) & "; " & FormatNumber(1234.5)
End Function
Echo Sample(1033)      '> Monday, March 9, 2026; 3/9/2026 4:05:06 PM; ($1,234.50); 1,234.50
Echo Sample("en-GB")   '> 09 March 2026; 09/03/2026 16:05:06; -£1,234.50; 1,234.50
Echo Sample(1046)      '> segunda-feira, 9 de março de 2026; 09/03/2026 16:05:06; -R$ 1.234,50; 1.234,50
Echo Sample(1043)      '> maandag 9 maart 2026; 9-3-2026 16:05:06; € -1.234,50; 1.234,50
Echo Sample(1053)      '> den 9 mars 2026; 2026-03-09 16:05:06; -1 234,50 kr; 1 234,50
Echo Sample(1035)      '> 9. maaliskuuta 2026; 9.3.2026 16:05:06; -1 234,50 €; 1 234,50
Echo Sample(2055)      '> Montag, 9. März 2026; 09.03.2026 16:05:06; SFr.-1'234.50; 1'234.50
Echo Sample(3084)      '> 9 mars 2026; 2026-03-09 16:05:06; (1 234,50 $); 1 234,50
Echo CDate("06-03-09") = #3/9/2006#   '> True
SetLocale 1040
Echo MonthName(3), WeekdayName(2), CDbl("1.234,5") = 1234.5   '> marzo martedì True
