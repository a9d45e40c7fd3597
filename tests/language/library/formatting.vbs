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
