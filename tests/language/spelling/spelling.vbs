'=== glued tokens
Dim j, n, s, a
n = 4
For j=2To n
  s = s&j
Next
Echo s                         '> 234
a = 60
If a>50Then Echo"big"          '> big
If s="234"Then Echo "text"     '> text
If (a=60)Then Echo "paren"     '> paren
Echo"x"                        '> x
Echo 2.^3                      '> 8
Echo "t"&hour(#5:00:00 AM#)    '> t5

'=== comparisons spelled the other way
Echo 1 =< 2, 2 => 2, 1 >< 2    '> True True True

'=== continued lines
Dim s
s = "a" &_
    "b" & _
    "c"&_
"d"
Echo s                         '> abcd
Echo _
  1, _
  2                            '> 1 2
Public _
  later, _
  other
later = 1
Echo later                     '> 1

'=== End If on the line without a colon
Sub S(e)
  If e Then Exit Sub End If
  Echo "through"
End Sub
S True
S False                        '> through

'=== a body straight behind its header
Class C
  Private m
  Public Function P() m = True : Set P = Me End Function
  Public Property Get ID() ID = m End Property
  Sub R() Rem note
    Echo "r"
  End Sub
End Class
Dim o: Set o = New C
Echo o.P().ID                  '> True
o.R                            '> r

'=== Else with code on its line and more lines
Dim r
If False Then
  r = 1
Else r = 2
  r = r + 1
End If
Echo r                         '> 3

'=== bracketed names
Dim [new], [end], [], [a b]
[new] = 1: [end] = 2: [] = 3: [a b] = 4
Echo [new], [end], [], [a b]   '> 1 2 3 4
Dim plain: plain = 5
Echo [plain]                   '> 5
Class C
  Public Sub [Loop](x): Echo "loop " & x: End Sub
End Class
Dim o: Set o = New C
o.Loop 1                       '> loop 1
o.[Loop] 2                     '> loop 2

'=== colons
x = 5:
Echo x:                        '> 5
:Echo 6                        '> 6
Do: x = x + 1: Loop Until x > 7
Echo x                         '> 8
If x > 7 Then Echo "a": Echo "b"
'> a
'> b

'=== comments
Echo 1 ' note                  '> 1
Echo 2 : Rem note              '> 2
' a whole line
Rem another
REM and another
Echo "'" & "x"                 '> 'x

'=== statements that join after a call in parentheses
Sub P(x): Echo x: End Sub
P ("x") & "y"                  '> xy
P (1 + 2) * 3                  '> 9
P(4) + 1                       '> 5

'=== new objects in arguments
Class C
  Public V
  Private Sub Class_Initialize: V = "v": End Sub
End Class
Sub Take(o): Echo o.V: End Sub
Take New C                     '> v
Echo (New C).V                 '> v

'=== a default method of an object in a variable
Class C
  Public Default Sub Run(x): Echo "run " & x: End Sub
End Class
Dim a: Set a = New C
a 5                            '> run 5
a(6)                           '> run 6
Call a(7)                      '> run 7

'=== omitted arguments
Sub S(a, b, c, d)
  Echo TypeName(a), TypeName(b), TypeName(c), TypeName(d)
End Sub
S 1, , , 2                     '> Integer Error Error Integer
S , , , 2                      '> Error Error Error Integer
Call S(, 1, , 2)               '> Error Integer Error Integer

'=== ReDim spellings
Dim a(): ReDim a(3)
Echo UBound(a)                 '> 3
ReDim [b](1), c(2)
Echo UBound(b), UBound(c)      '> 1 2

'=== UBound as a statement
Dim a: a = Array(1)
UBound a
Echo "end"                     '> end

'=== Set with blanks and members
Class Node
  Public [Next], Step, Error, Property, Default
End Class
Dim n: Set n = New Node
Set n . Next = New Node
n.Step = 1: n.Error = 2: n.Property = 3: n.Default = 4
Echo n.Step + n.Error + n.Property + n.Default   '> 10
Echo TypeName(n.Next)          '> Node

'=== deep nesting of calls
Echo UCase(Left(Trim("  " & Replace("hello", "l", "L") & "  "), 4))   '> HELL

'=== Call of a member of a call
Class C
  Public Function Self: Set Self = Me: End Function
  Public Sub Say(x): Echo x: End Sub
End Class
Dim o: Set o = New C
Call o.Self.Self().Say("deep") '> deep
o.Self.Say "plain"             '> plain
o.Self().Self.Say("paren")     '> paren

'=== a name that begins like a keyword
Dim iff, endif, nextone, remark, dimension
iff = 1: endif = 2: nextone = 3: remark = 4: dimension = 5
Echo iff + endif + nextone + remark + dimension   '> 15

'=== letters beyond ASCII in texts
Echo Len("" & Chr(228) & Chr(246))   '> 2

'=== a blank line behind a continued one
Dim x
x = 1 + _

  2
Echo x                         '> 3
x = Array(1, _
  	

  2)
Echo x(1)                      '> 2

'=== no letters beyond ASCII in names
Dim naïve                      '! 1032 Invalid character

'=== unless in brackets
Dim [naïve]
[naïve] = 3
Echo [naïve]                   '> 3
