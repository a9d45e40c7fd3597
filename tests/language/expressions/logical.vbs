'=== And
Show True And True             '> Boolean True
Show True And False            '> Boolean False
Show 12 And 10                 '> Integer 8
Show 70000 And 65535           '> Long 4464
Show True And 5                '> Integer 5
Show 6.6 And 3                 '> Long 3
Show "12" And 10               '> Long 8
Show CByte(12) And CByte(10)   '> Byte 8

'=== Or
Show True Or False             '> Boolean True
Show 12 Or 10                  '> Integer 14
Show False Or 5                '> Integer 5
Show False Or False            '> Boolean False

'=== Xor, Eqv, Imp on truths
Show True Xor True             '> Boolean False
Show True Xor False            '> Boolean True
Show True Eqv True             '> Boolean True
Show True Eqv False            '> Boolean False
Show True Imp False            '> Boolean False
Show False Imp True            '> Boolean True
Show False Imp False           '> Boolean True

'=== Xor, Eqv, Imp on bits
Show 12 Xor 10                 '> Integer 6
Show 12 Eqv 10                 '> Integer -7
Show 12 Imp 10                 '> Integer -5

'=== Not
Show Not True                  '> Boolean False
Show Not False                 '> Boolean True
Show Not 0                     '> Integer -1
Show Not 5                     '> Integer -6
Show Not 70000                 '> Long -70001
Show Not 2.5                   '> Long -3
Show Not "5"                   '> Long -6
Show Not CByte(1)              '> Byte 254
Dim e
Show Not e                     '> Long -1

'=== Null
Show Not Null                  '> Null
Show True And Null             '> Null
Show False And Null            '> Boolean False
Show Null And False            '> Boolean False
Show True Or Null              '> Boolean True
Show Null Or True              '> Boolean True
Show False Or Null             '> Null
Show True Xor Null             '> Null
Show Null Eqv True             '> Null
Show False Imp Null            '> Boolean True
Show Null Imp True             '> Boolean True
Show True Imp Null             '> Null

'=== a text that spells no number
x = "a" And 1                  '! 13

'=== too great for a Long
x = 3000000000 And 1           '! 6

'=== Empty counts as a Long
Show Empty And True            '> Long 0
Show Empty Or 1                '> Long 1
Show True Xor Empty            '> Long -1
Show Empty Eqv Empty           '> Long -1
Show Empty Imp CByte(1)        '> Long -1
Show Not Empty                 '> Long -1
Show Empty And Null            '> Long 0

'=== a text that names a Boolean is no number
On Error Resume Next
x = "True" And 1
Failed                         '> 13
x = Not "False"
Failed                         '> 13
x = "True" + 1
Failed                         '> 13
x = -"True"
Failed                         '> 13
If "True" Then Echo "as a condition"   '> as a condition
