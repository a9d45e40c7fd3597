'=== there is one Err for all procedures
Sub Look
  Echo "callee sees", Err.Number
End Sub
On Error Resume Next
x = 1 / 0
Look                           '> callee sees 11
Echo Err.Number                '> 11

'=== what a procedure raises and clears itself
Sub S
  On Error Resume Next
  Err.Raise 1001, "S", "own"
  Echo Err.Description
  Err.Clear
End Sub
On Error Resume Next
S                              '> own
Failed                         '> no error

'=== a trap set in a procedure clears the caller's error
Sub S
  On Error Resume Next
  Echo "inside", Err.Number
End Sub
On Error Resume Next
x = 1 / 0
S                              '> inside 0
Echo Err.Number                '> 0

'=== raising anew what was trapped
Sub Inner
  Err.Raise 1001, "Inner", "deep"
End Sub
Sub Outer
  On Error Resume Next
  Inner
  Dim number, source, text
  number = Err.Number: source = Err.Source: text = Err.Description
  On Error GoTo 0
  Err.Raise number, source, "outer: " & text
End Sub
On Error Resume Next
Outer
Echo Err.Number, Err.Source, Err.Description   '> 1001 Inner outer: deep

'=== a description of one's own for a known number
On Error Resume Next
Err.Raise 9, , "not that one"
FailedText                     '> 9 not that one
Err.Raise 9, "me"
Echo Err.Source, Err.Description   '> me Subscript out of range

'=== the error of an argument is the caller's
Function Fails: Err.Raise 1002, "F", "in the argument": End Function
Sub S(x): Echo "never": End Sub
On Error Resume Next
S Fails
FailedText                     '> 1002 in the argument

'=== an error between two calls of one expression
Function Say(x): Echo x: Say = x: End Function
Function Fails: Err.Raise 1003: End Function
Dim r: r = "kept"
On Error Resume Next
r = Say("a") & Fails & Say("b")   '> a
Echo Err.Number, r             '> 1003 kept

'=== a loop over a failing function goes on
Function Half(n)
  If n = 2 Then Err.Raise 1000
  Half = n / 2
End Function
Dim i, s
On Error Resume Next
For i = 1 To 3
  s = s & Half(i) & ";"
Next
Echo s                         '> 0.5;1.5;

'=== Err in a condition of its own
Dim i
On Error Resume Next
Do
  i = i + 1
  Err.Clear
  x = 10 / (3 - i)
Loop Until Err.Number <> 0
Echo i                         '> 3
