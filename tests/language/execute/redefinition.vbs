'=== of functions the last one counts, for earlier callers too
Function F: F = "first": End Function
Function Caller: Caller = F: End Function
Dim i
For i = 1 To 3
  ExecuteGlobal "Function F: F = ""made " & i & """: End Function"
  Echo F, Caller
Next
'> made 1 made 1
'> made 2 made 2
'> made 3 made 3

'=== a variable may be declared again and keeps its value
Dim v: v = "kept"
ExecuteGlobal "Dim v"
Echo v                         '> kept
ExecuteGlobal "Dim w: w = 1"
ExecuteGlobal "Dim w"
Echo w                         '> 1

'=== a class is defined once
Class C
End Class
On Error Resume Next
ExecuteGlobal "Class C: End Class"
FailedText                     '> 1041 Name redefined
ExecuteGlobal "Class D: End Class"
Failed                         '> no error
ExecuteGlobal "Class D: End Class"
Failed                         '> 1041

'=== a constant is defined once
On Error Resume Next
ExecuteGlobal "Const k = 1"
Failed                         '> no error
ExecuteGlobal "Const k = 2"
FailedText                     '> 1041 Name redefined
Echo k                         '> 1

'=== constants, variables and classes share their names
Const k = 1
Dim v: v = 2
Class C
End Class
On Error Resume Next
ExecuteGlobal "Dim k"
Failed                         '> 1041
ExecuteGlobal "Const v = 3"
Failed                         '> 1041
ExecuteGlobal "Const c = 3"
Failed                         '> 1041
ExecuteGlobal "Dim c"
Failed                         '> 1041
ExecuteGlobal "Class v: End Class"
Failed                         '> 1041
ExecuteGlobal "k = 5"
Failed                         '> 501
Echo k, v                      '> 1 2

'=== nothing of a text with a fault is defined
On Error Resume Next
ExecuteGlobal "Function G: G = 1: End Function" & vbLf & "x = = 1"
Failed                         '> 1002
x = G()
Failed                         '> 13

'=== a constant that Execute makes in a procedure stays there
Sub S
  Execute "Const k = 5"
  Execute "Echo k + 1"
  Echo k
End Sub
S
'> 6
'> 5
Show k                         '> Empty

'=== names made by hundreds of texts
Dim i, sum
For i = 1 To 300
  ExecuteGlobal "Dim made" & i & ": made" & i & " = " & i
  ExecuteGlobal "Function Get" & i & ": Get" & i & " = made" & i & ": End Function"
Next
For i = 1 To 300
  sum = sum + Eval("Get" & i)
Next
Echo sum                       '> 45150
