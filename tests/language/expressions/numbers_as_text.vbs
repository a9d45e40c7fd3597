'=== whole numbers
Echo 0, 1, -1, 32767, 70000, -2147483648   '> 0 1 -1 32767 70000 -2147483648

'=== fifteen significant digits
Echo 1 / 3                     '> 0.333333333333333
Echo 2 / 3                     '> 0.666666666666667
Echo 4 * Atn(1)                '> 3.14159265358979
Echo 0.1 + 0.2                 '> 0.3
Echo 1.1                       '> 1.1
Echo 123456.789                '> 123456.789
Echo 1234567890.12345          '> 1234567890.12345
Echo 100 / 7                   '> 14.2857142857143

'=== great numbers
Echo 2147483648                '> 2147483648
Echo 100000000000000           '> 100000000000000
Echo 999999999999999           '> 999999999999999
Echo 1000000000000000          '> 1E+15
Echo 1234567890123456          '> 1.23456789012346E+15
Echo 1E+20                     '> 1E+20
Echo 1.5E+100                  '> 1.5E+100
Echo -1E+15                    '> -1E+15

'=== small numbers
Echo 0.5                       '> 0.5
Echo -0.5                      '> -0.5
Echo 0.00001                   '> 0.00001
Echo 0.0000000001              '> 0.0000000001
Echo 0.0015                    '> 0.0015
Echo 1E-15                     '> 0.000000000000001
Echo 1E-16                     '> 1E-16
Echo 1.5E-15                   '> 1.5E-15
Echo 1 / 3000                  '> 3.33333333333333E-04
Echo 1 / 30                    '> 3.33333333333333E-02
Echo 1E-300                    '> 1E-300

'=== a Single widened shows what it holds
Dim s: s = CSng(0.02)
Echo s                         '> 0.02
Echo CDbl(s)                   '> 1.99999995529652E-02

'=== Singles have seven digits
Echo CSng(0.1)                 '> 0.1
Echo CSng(1 / 3)               '> 0.3333333
Echo CSng(16777216)            '> 1.677722E+07
Echo CSng(123456.7)            '> 123456.7

'=== Currency has four places
Echo CCur(1.23456)             '> 1.2346
Echo CCur(1.5)                 '> 1.5
Echo CCur(-0.0001)             '> -0.0001
Echo CCur(123456789.25)        '> 123456789.25

'=== truths
Echo True, False               '> True False
Echo CStr(1 = 1)               '> True
