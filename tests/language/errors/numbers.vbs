'=== type mismatch
On Error Resume Next
x = CInt("abc")
Failed                         '> 13
x = CDate("never")
Failed                         '> 13
x = UBound(5)
Failed                         '> 13
Dim v: v = 5
v(1) = 2
Failed                         '> 13
x = v(1)
Failed                         '> 13
x = Array(1) & ""
Failed                         '> 13

'=== overflow
On Error Resume Next
x = CInt(40000)
Failed                         '> 6
x = CLng(3000000000)
Failed                         '> 6
x = CByte(256)
Failed                         '> 6
x = CByte(-1)
Failed                         '> 6

'=== subscripts
On Error Resume Next
Dim a(2)
a(3) = 1
Failed                         '> 9
a(-1) = 1
Failed                         '> 9
x = a(0, 0)
Failed                         '> 9
Dim d()
x = d(0)
Failed                         '> 9
x = UBound(d)
Failed                         '> 9
x = UBound(a, 2)
Failed                         '> 9

'=== Null where it cannot be
On Error Resume Next
x = CInt(Null)
Failed                         '> 94
x = CStr(Null)
Failed                         '> 94
x = CDate(Null)
Failed                         '> 94
x = Space(Null)
Failed                         '> 94

'=== objects
On Error Resume Next
Dim n, e
Set n = Nothing
n.X = 1
Failed                         '> 424
x = n.X
Failed                         '> 424
e.X = 1
Failed                         '> 424
Set x = e
Failed                         '> 424
Set x = CreateObject("No.Such.Thing")
Failed                         '> 429

'=== argument counts
On Error Resume Next
Execute "x = Len()"
Echo Err.Number = 450          '> True
Err.Clear
Execute "x = Len(1, 2)"
Echo Err.Number = 450          '> True

'=== a compile error names its number and line
Echo "never"
x = 1 y = 2                    '! 1025 Expected end of statement

'=== Next with a name
Dim i
For i = 1 To 2
Next i                         '! 1025 Expected end of statement

'=== Dim with a type
Dim x As Integer               '! 1025 Expected end of statement

'=== Dim with a value
Dim x = 5                      '! 1025 Expected end of statement

'=== a Sub closed as a Function
Sub S
End Function                   '! 1016 Expected 'Sub'

'=== two arguments in parentheses
Sub S(a, b)
End Sub
S(1, 2)                        '! 1044 Cannot use parentheses when calling a Sub

'=== Loop without Do
Echo "never"
Loop                           '! 1038 'loop' without 'do'

'=== Mid is no statement
Dim s: s = "abc"
On Error Resume Next
Execute "Mid(s, 1, 1) = ""x"""
Echo Err.Number <> 0, s        '> True abc

'=== members of Nothing, and Nothing itself
Class C: Public x: End Class
Dim n, o, d
Set n = Nothing
Set o = New C
Set o.x = Nothing
On Error Resume Next
n.X = 1
Failed                         '> 424
n.Go
Failed                         '> 424
n.Go 1, 2
Failed                         '> 424
Call n.Go(1)
Failed                         '> 424
Set n.X = o
Failed                         '> 424
x = n.X
Failed                         '> 424
n.X(1) = 2
Failed                         '> 424
o.x.y = 1
Failed                         '> 424
x = n
Failed                         '> 91
x = n & ""
Failed                         '> 91
x = CStr(n)
Failed                         '> 91
x = n(1)
Failed                         '> 91
x = n + 1
Failed                         '> 91

'=== what has no elements
Class C
  Public f, e
End Class
Dim o, a, v, b()
Set o = New C
o.f = 5
a = Array(1, 2)
v = 5
On Error Resume Next
x = o.f(1)
Failed                         '> 438
o.f(1) = 2
Failed                         '> 438
x = o.e(1)
Failed                         '> 438
o.f = Array(7, 8)
Echo o.f(1)                    '> 8
o.f(1) = 9
Echo o.f(1)                    '> 9
x = v(1)
Failed                         '> 13
x = a()
Failed                         '> 9
x = b()
Failed                         '> 9
x = (a)()
Failed                         '> 9

'=== fixed arrays
Dim f(3), g
Class C
  Public h(2)
  Public Sub S
    On Error Resume Next
    h = 5
    Failed
    ReDim h(9)
    Failed
  End Sub
End Class
On Error Resume Next
ReDim f("abc")
Failed                         '> 10
ReDim f(5)
Failed                         '> 10
ReDim Preserve f(5)
Failed                         '> 10
f = 5
Failed                         '> 13
f = Array(1)
Failed                         '> 13
Set f = Nothing
Failed                         '> 13
Set g = New C
g.S                            '> 13
                               '> 10
g.h = 5
Failed                         '> 13
Sub L
  Dim f(1)
  On Error Resume Next
  f = 5
  Failed
  ReDim f("abc")
  Failed
End Sub
L                              '> 13
                               '> 10
ReDim g("abc")
Failed                         '> 13

'=== conversions are no statements
On Error Resume Next
CInt 5
Failed                         '> 458
CStr "x"
Failed                         '> 458
Call CDbl(5)
Failed                         '> 458
CBool(1)
Failed                         '> 458
Len "abc"
Failed                         '> no error

'=== classes that are not there
On Error Resume Next
Set x = New NoSuch
Failed                         '> 506
Execute "Option Explicit: Dim y: Set y = New NoSuch"
Failed                         '> 500

'=== the built-in class wins
Class RegExp
  Public mine
End Class
Dim r
Set r = New RegExp
r.Pattern = "b"
Echo r.Test("abc"), TypeName(r) = "RegExp"   '> True False
