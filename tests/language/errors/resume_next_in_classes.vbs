'=== a method traps for itself
Class C
  Public Function Try
    On Error Resume Next
    x = 1 / 0
    Try = "went on with " & Err.Number
  End Function
End Class
Dim o: Set o = New C
Echo o.Try                     '> went on with 11
x = 1 / 0                      '! 11

'=== a property that fails leaves the statement undone
Class C
  Public Property Get Bad: Bad = 1: x = 1 / 0: Bad = 2: End Property
  Public Property Let Bad(v): Echo "let": x = 1 / 0: Echo "never": End Property
End Class
Dim o, r: Set o = New C
r = "kept"
On Error Resume Next
r = o.Bad
Echo Err.Number, r             '> 11 kept
Err.Clear
o.Bad = 5                      '> let
Failed                         '> 11

'=== Class_Initialize with a trap
Class C
  Public State
  Private Sub Class_Initialize
    On Error Resume Next
    x = 1 / 0
    State = "made after " & Err.Number
  End Sub
End Class
Echo (New C).State             '> made after 11

'=== Class_Initialize that fails leaves the variable as it was
Class C
  Private Sub Class_Initialize: x = 1 / 0: End Sub
End Class
Dim o: o = "kept"
On Error Resume Next
Set o = New C
Failed                         '> 11
Show o                         '> String "kept"

'=== Class_Terminate with a trap
Class C
  Private Sub Class_Terminate
    On Error Resume Next
    x = 1 / 0
    Echo "end after", Err.Number
  End Sub
End Class
Dim o: Set o = New C
Set o = Nothing                '> end after 11
Echo "on"                      '> on

'=== through methods of several objects
Class Inner
  Public Sub Fail: Err.Raise 1001, "Inner", "deep": Echo "never": End Sub
End Class
Class Outer
  Private part
  Private Sub Class_Initialize: Set part = New Inner: End Sub
  Public Sub Run: part.Fail: Echo "never": End Sub
  Public Function Tries
    On Error Resume Next
    part.Fail
    Tries = Err.Description
  End Function
End Class
Dim o: Set o = New Outer
Echo o.Tries                   '> deep
On Error Resume Next
o.Run
FailedText                     '> 1001 deep

'=== a default property that fails
Class C
  Public Default Property Get V: Err.Raise 1001, "C", "no value": End Property
End Class
Dim o, r: Set o = New C
r = "kept"
On Error Resume Next
r = o
FailedText                     '> 1001 no value
r = "x" & o
FailedText                     '> 1001 no value
r = o + 1
FailedText                     '> 1001 no value
If o = 1 Then Echo "in the branch"   '> in the branch
FailedText                     '> 1001 no value
Echo r                         '> kept

'=== errors within nested With blocks
Class Node
  Public Name, Child
End Class
Function Work(n)
  On Error Resume Next
  With n
    .Name = "outer"
    .Missing = 1
    With .Child
      .Name = "inner"
      .Name = 1 / 0
      .Missing
    End With
    .Name = .Name & "!"
  End With
  Work = Err.Number
End Function
Dim n: Set n = New Node
Set n.Child = New Node
Echo Work(n), n.Name, n.Child.Name   '> 438 outer! inner

'=== leaving a procedure out of a With block lets the object go
Class Loud
  Private Sub Class_Terminate: Echo "gone": End Sub
End Class
Function Leaves
  With New Loud
    Leaves = "result"
    Exit Function
  End With
End Function
Function Fails
  With New Loud
    x = 1 / 0
  End With
End Function
Echo Leaves
'> gone
'> result
On Error Resume Next
Fails                          '> gone
Failed                         '> 11
