'=== numbers
Show 1 = 1                     '> Boolean True
Show 1 = 1.0                   '> Boolean True
Show 2 > 10                    '> Boolean False
Show 1 <> 2                    '> Boolean True
Show 2 <= 2                    '> Boolean True
Show 2 >= 3                    '> Boolean False
Show CByte(5) = 5.0            '> Boolean True
Show CCur(1.5) = 1.5           '> Boolean True
Show 0.1 + 0.2 = 0.3           '> Boolean False

'=== texts compare by their characters
Show "a" = "a"                 '> Boolean True
Show "a" = "A"                 '> Boolean False
Show "a" > "B"                 '> Boolean True
Show "10" < "9"                '> Boolean True
Show "" < "a"                  '> Boolean True
Show "abc" < "abd"             '> Boolean True
Show "ab" < "abc"              '> Boolean True

'=== True is minus one
Show True = -1                 '> Boolean True
Show True = 1                  '> Boolean False
Show False = 0                 '> Boolean True
Show True < False              '> Boolean True

'=== Empty is zero and no text and False
Dim e
Show e = 0                     '> Boolean True
Show e = ""                    '> Boolean True
Show e = False                 '> Boolean True
Show e = e                     '> Boolean True
Show e < 1                     '> Boolean True
Show e = "a"                   '> Boolean False
Show e < "a"                   '> Boolean True

'=== Null is neither equal nor different
Show Null = Null               '> Null
Show Null <> 1                 '> Null
Show "a" < Null                '> Null
If Null = Null Then Echo "equal" Else Echo "not"   '> not
If Not (Null = Null) Then Echo "equal" Else Echo "not"   '> not

'=== a number in a variable is less than a text in a variable
Dim n, s
n = 10: s = "10"
Show n = s                     '> Boolean False
Show n < s                     '> Boolean True
Show s > n                     '> Boolean True
n = 999: s = ""
Show n < s                     '> Boolean True

'=== a text in a variable is read as a number beside a number literal
Dim s
s = "10"
Show s = 10                    '> Boolean True
Show s > 9                     '> Boolean True
Show 9 < s                     '> Boolean True
s = " 5 "
Show s = 5                     '> Boolean True

'=== a text that is no number beside a number literal
Dim s
s = "abc"
x = (s = 5)                    '! 13 Type mismatch: '[string: "abc"]'

'=== a number in a variable is read as text beside a text literal
Dim n
n = 10
Show n = "10"                  '> Boolean True
Show "9" > n                   '> Boolean True

'=== dates
Show #1/2/2000# > #1/1/2000#   '> Boolean True
Show #1/1/1900# = 2            '> Boolean True
Dim d: d = #1/1/2000 6:00:00 PM#
Show d = #1/1/2000 18:00#      '> Boolean True

'=== Is tells whether two objects are the same
Class Thing
End Class
Dim a, b, c
Set a = New Thing
Set b = a
Set c = New Thing
Show a Is b                    '> Boolean True
Show a Is c                    '> Boolean False
Show a Is Nothing              '> Boolean False
Show Nothing Is Nothing        '> Boolean True
Set a = Nothing
Show a Is Nothing              '> Boolean True
Show Not b Is Nothing          '> Boolean True

'=== Is wants objects
On Error Resume Next
x = (1 Is Nothing)
Failed                         '> 424

'=== comparing arrays
On Error Resume Next
Dim a: a = Array(1)
x = (a = a)
Failed                         '> 13

'=== a Const is no literal
Const MODE = 2, TEXT = "2", YES = True
Dim m, n
m = "": n = 2
Echo m = MODE, MODE = m, m <> MODE   '> False False True
If m = MODE Then Echo "same" Else Echo "other"   '> other
If MODE = m Then Echo "same" Else Echo "other"   '> other
If Not m = MODE Then Echo "not"      '> not
m = "2"
Echo m = MODE, n = TEXT, TEXT = n    '> False False False
If m = MODE Then Echo "same" Else Echo "other"   '> other
Echo m = 2, n = "2"                  '> True True
Echo n = MODE, m = TEXT, MODE = 2, 2 = MODE   '> True True True True
Echo TEXT = 2, 2 = TEXT, "2" = MODE  '> True True True
Echo MODE = TEXT                     '> False
m = "abc"
Echo m > MODE, m < MODE, MODE < m, MODE > m   '> True False True False
Select Case m
  Case MODE: Echo "mode"
  Case vbTrue: Echo "true"
  Case Else: Echo "else"             '> else
End Select
Select Case "2"
  Case MODE: Echo "mode"
  Case 2: Echo "two"                 '> two
End Select
m = Null
Echo TypeName(m = MODE), TypeName(MODE < m)   '> Null Null
m = ""
Echo m = vbTrue, m = vbBinaryCompare   '> False False
Do While m = MODE: Echo "never": Loop

'=== a literal beside a literal
On Error Resume Next
Echo 9 < "10", "9" < 10, "10" > 9, 10 = "10"   '> True True True True
x = (5 > "abc")
Failed                               '> 13
x = ("abc" > 5)
Failed                               '> 13
Echo "True" = True, True = "True", "False" <> True   '> True True True
Echo "1/15/2024" = #1/15/2024#, #1/15/2024# < "1/16/2024"   '> True True
x = ("abc" = #1/15/2024#)
Failed                               '> 13
x = (#1/15/2024# = "abc")
Failed                               '> 13
x = ("x" = True)
Failed                               '> 13
If "True" = True Then Echo "yes"     '> yes
If Not True = "False" Then Echo "no" '> no
x = ("5") = (5)
Echo x, "a" < "b", 2 > 1   '> True True True
Echo "" = Empty, TypeName("a" = Null)   '> True Null
