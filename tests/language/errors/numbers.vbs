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
Failed                         '> 91
x = n.X
Failed                         '> 91
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
