'=== sums keep the wider whole type
Show 1 + 2                     '> Integer 3
Show 1 + 70000                 '> Long 70001
Show CByte(1) + CByte(2)       '> Byte 3
Show CByte(1) + 2              '> Integer 3
Show True + True               '> Integer -2
Show True + CByte(1)           '> Integer 0

'=== sums that do not fit widen
Show 32767 + 1                 '> Long 32768
Show -32768 - 1                '> Long -32769
Show 2147483647 + 1            '> Double 2147483648
Show -2147483647 - 2           '> Double -2147483649
Show CByte(200) + CByte(100)   '> Integer 300
Show CByte(1) - CByte(2)       '> Integer -1

'=== sums with fractions
Show 1.5 + 1                   '> Double 2.5
Show CSng(1.5) + 1             '> Single 2.5
Show CSng(1.5) + CSng(1)       '> Single 2.5
Show CSng(1.5) + 70000         '> Double 70001.5
Show CSng(1.5) + 1.25          '> Double 2.75
Show CCur(1.5) + 1             '> Currency 2.5
Show CCur(1.5) + CCur(2.25)    '> Currency 3.75

'=== texts that spell numbers count when added to numbers
Show "1" + 1                   '> Double 2
Show 1 + "2.5"                 '> Double 3.5
Show "1" + "1"                 '> String "11"
Show "a" + "b"                 '> String "ab"

'=== a text that spells no number does not add to a number
Show "a" + 1                   '! 13 Type mismatch: '[string: "a"]'

'=== differences of texts are numbers
Show "5" - "3"                 '> Double 2
Show "5" * "3"                 '> Double 15

'=== Empty counts as zero, or as no text
Dim e
Show e + 1                     '> Integer 1
Show 1 + e                     '> Integer 1
Show e + "x"                   '> String "x"
Show e + e                     '> Integer 0
Show e - 1                     '> Integer -1
Show e * 5                     '> Integer 0

'=== Null makes everything Null
Show Null + 1                  '> Null
Show 1 - Null                  '> Null
Show Null * Null               '> Null
Show Null / 2                  '> Null
Show 7 \ Null                  '> Null
Show Null Mod 2                '> Null
Show 2 ^ Null                  '> Null
Show -Null                     '> Null
Show Null & Null               '> Null
Show Null & "x"                '> String "x"
Show "x" & Null                '> String "x"
Show Null & Null & Null        '> Null
Show "a" & 1 & Null & True & 0.5  '> String "a1True0.5"

'=== products widen
Show 100 * 100                 '> Integer 10000
Show 200 * 200                 '> Long 40000
Show 100000 * 100000           '> Double 10000000000
Show CByte(16) * CByte(16)     '> Integer 256
Show CByte(15) * CByte(17)     '> Byte 255
Show 1.5 * 2                   '> Double 3
Show CCur(1.5) * 2             '> Currency 3
Show True * True               '> Integer 1

'=== a division is a Double
Show 6 / 3                     '> Double 2
Show 1 / 3                     '> Double 0.333333333333333
Show CByte(1) / CByte(2)       '> Double 0.5
Show "7" / 2                   '> Double 3.5
Show True / 2                  '> Double -0.5

'=== division by zero
On Error Resume Next
x = 1 / 0
FailedText                     '> 11 Division by zero
x = 1.5 / 0
Failed                         '> 11
x = 1 \ 0
Failed                         '> 11
x = 1 Mod 0
Failed                         '> 11
x = 0 / 0
Failed                         '> 6
x = 5 \ 0.4
Failed                         '> 11

'=== whole division rounds its operands
Show 7 \ 2                     '> Integer 3
Show -7 \ 2                    '> Integer -3
Show 7 \ -2                    '> Integer -3
Show 7.5 \ 2                   '> Long 4
Show 6.5 \ 2                   '> Long 3
Show "9" \ "2"                 '> Long 4
Show 70000 \ 7                 '> Long 10000
Show CByte(9) \ CByte(2)       '> Byte 4
Show True \ True               '> Integer 1

'=== the remainder has the sign of the dividend
Show 7 Mod 3                   '> Integer 1
Show -7 Mod 3                  '> Integer -1
Show 7 Mod -3                  '> Integer 1
Show 7.5 Mod 3                 '> Long 2
Show 70000 Mod 7               '> Long 0
Show "10" Mod 4                '> Long 2
Show 10.5 Mod 4                '> Long 2

'=== whole division beyond a Long overflows
On Error Resume Next
x = 3000000000 \ 2
Failed                         '> 6
x = 3000000000 Mod 2
Failed                         '> 6

'=== powers are Doubles
Show 2 ^ 10                    '> Double 1024
Show 2 ^ 0.5                   '> Double 1.4142135623731
Show 2 ^ -1                    '> Double 0.5
Show 0 ^ 0                     '> Double 1
Show (-8) ^ 3                  '> Double -512
Show "2" ^ "3"                 '> Double 8
Show True ^ 2                  '> Double 1

'=== the root of a negative number is an invalid call
On Error Resume Next
x = (-8) ^ 0.5
Failed                         '> 5

'=== a power too great overflows
On Error Resume Next
x = 10 ^ 400
Failed                         '> 6
x = 1E200 * 1E200
Failed                         '> 6

'=== negation
Show -5                        '> Integer -5
Show -(-32767)                 '> Integer 32767
Dim least: least = CInt(-32768)
Show -least                    '> Long 32768
Show -True                     '> Integer 1
Show -"5"                      '> Double -5
Show -CByte(5)                 '> Integer -5
Show -CCur(1.5)                '> Currency -1.5
Show -1.5                      '> Double -1.5
Dim nothingYet
Show -nothingYet               '> Integer 0

'=== dates and numbers
Dim d: d = #1/31/2000#
Show d + 1                     '> Date 2/1/2000
Show 1 + d                     '> Date 2/1/2000
Show d - 31                    '> Date 12/31/1999
Show d - #1/1/2000#            '> Double 30
Show d + 0.5                   '> Date 1/31/2000 12:00:00 PM
Show d * 1                     '> Double 36556
Show -#1/1/1900#               '> Date 12/28/1899

'=== an object without a default member is no operand
On Error Resume Next
Class Thing
End Class
Dim t: Set t = New Thing
x = t + 1
Failed                         '> 438
x = Nothing & "x"
Failed                         '> 91

'=== an array is no operand
On Error Resume Next
Dim a: a = Array(1)
x = a + 1
Failed                         '> 13
x = a & "x"
Failed                         '> 13
