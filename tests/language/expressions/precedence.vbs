'=== arithmetic
Echo 1 + 2 * 3                 '> 7
Echo (1 + 2) * 3               '> 9
Echo 2 * 3 ^ 2                 '> 18
Echo -2 ^ 2                    '> 4
Dim two: two = 2
Echo -two ^ 2, 0 - two ^ 2     '> 4 -4
Echo 2 ^ -two ^ 2              '> 0.0625
Echo 3 * -2 ^ 2, +3 ^ 2        '> 12 9
Echo 2 ^ -1                    '> 0.5
Echo 2 ^ 3 ^ 2                 '> 64
Echo 7 \ 2 * 2                 '> 1
Echo 7 Mod 4 \ 2               '> 1
Echo 10 - 4 - 3                '> 3
Echo 100 / 10 / 5              '> 2
Echo 5 + 8 Mod 3               '> 7

'=== joining binds looser than adding and tighter than comparing
Echo 1 + 2 & 3 + 4             '> 37
Echo "a" & "b" = "ab"          '> True
Echo 1 & 2 * 3                 '> 16

'=== comparisons go from left to right
Echo 3 > 2 > 1                 '> False
Echo 1 = 1 = True              '> True

'=== Not, And, Or, Xor, Eqv, Imp
Echo Not True And False        '> False
Echo Not (True And False)      '> True
Echo Not 1 = 2                 '> True
Echo True Or True And False    '> True
Echo (True Or True) And False  '> False
Echo True Xor True Or True     '> False
Echo True Eqv False Xor True   '> True
Echo True Imp False Eqv False  '> True
Echo 1 Or 2 And 4              '> 1

'=== every operand of And and Or is evaluated
Function Tell(text, result)
  Echo text
  Tell = result
End Function
x = Tell("left", False) And Tell("right", True)
'> left
'> right
x = Tell("one", True) Or Tell("two", True)
'> one
'> two

'=== operands are evaluated from left to right
Function Note(n)
  Echo "n" & n
  Note = n
End Function
x = Note(1) + Note(2) * Note(3)
'> n1
'> n2
'> n3
Echo x                         '> 7
