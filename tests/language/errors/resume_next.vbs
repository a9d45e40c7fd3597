'=== execution goes on behind the failing statement
On Error Resume Next
x = 1 / 0
Echo "next"                    '> next
Echo Err.Number                '> 11

'=== without it the script stops
Echo "before"                  '> before
x = 1 / 0                      '! 11 Division by zero

'=== On Error GoTo 0 ends the trap
On Error Resume Next
x = 1 / 0
On Error GoTo 0
Echo Err.Number                '> 0
x = 1 / 0                      '! 11

'=== the failing assignment leaves the variable alone
On Error Resume Next
Dim x: x = "kept"
x = 1 / 0
Echo x                         '> kept

'=== a failing condition runs the block
On Error Resume Next
If 1 / 0 Then
  Echo "in"                    '> in
Else
  Echo "else"
End If
Echo "after"                   '> after

'=== a failing condition of a one-line If runs its statement
On Error Resume Next
If 1 / 0 Then Echo "in" Else Echo "else"   '> in

'=== the rest of the line is still run
On Error Resume Next
x = 1 / 0: Echo "same line"    '> same line

'=== a procedure without a trap is left
On Error Resume Next
Sub S
  Echo "one"
  x = 1 / 0
  Echo "two"
End Sub
S                              '> one
Echo "back", Err.Number        '> back 11

'=== several procedures deep
On Error Resume Next
Sub A
  Echo "a"
  B
  Echo "not"
End Sub
Sub B
  Err.Raise 1000
  Echo "not"
End Sub
A                              '> a
Echo Err.Number                '> 1000

'=== a procedure's own trap
Sub S
  On Error Resume Next
  x = 1 / 0
  Echo "inside", Err.Number
End Sub
S                              '> inside 11
Echo "outside"                 '> outside
x = 1 / 0                      '! 11

'=== a trap ends with its procedure
Sub S
  On Error Resume Next
End Sub
S
x = 1 / 0                      '! 11

'=== a procedure may end the trap for itself
On Error Resume Next
Sub S
  On Error GoTo 0
  x = 1 / 0
  Echo "not"
End Sub
S
Echo Err.Number                '> 11

'=== a failing argument skips the call
On Error Resume Next
Sub S(x)
  Echo "called"
End Sub
S 1 / 0
Echo "end"                     '> end

'=== a failing function leaves the assignment undone
On Error Resume Next
Function F
  F = 5
  x = 1 / 0
End Function
Dim y: y = "kept"
y = F()
Echo y                         '> kept

'=== in a loop
On Error Resume Next
Dim i, n
For i = -1 To 1
  n = n + 1
  x = 1 / i
  If Err.Number <> 0 Then
    Echo "failed at", i
    Err.Clear
  End If
Next
Echo n
'> failed at 0
'> 3

'=== the line of an error in a procedure
Sub S
  Dim a(1)
  a(5) = 1                     '! 9
End Sub
S

'=== errors in a class
Class C
  Public Sub Fail
    x = 1 / 0
    Echo "not"
  End Sub
End Class
On Error Resume Next
Dim o: Set o = New C
o.Fail
Echo Err.Number                '> 11

'=== a With over a failing object
On Error Resume Next
Dim n: Set n = Nothing
n.Something
Failed                         '> 424
Echo "end"                     '> end

'=== a failing statement in a branch
On Error Resume Next
If True Then
  x = 1 / 0
  Echo "still in"              '> still in
End If
