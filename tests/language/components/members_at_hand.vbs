'=== one call meets objects of several classes, in turn
Class Own
  Public Function Exists(k): Exists = "own " & k: End Function
  Public Function Count: Count = -1: End Function
End Class
Class Changing
  Public Function Exists(k): k = k & "!": Exists = "changed": End Function
  Public Count
End Class
Dim objects(5), o, k, i, a(1)
Set objects(0) = CreateObject("Scripting.Dictionary"): objects(0).Add "x", 1
Set objects(1) = New Own
Set objects(2) = CreateObject("System.Collections.ArrayList"): objects(2).Add "x"
Set objects(3) = CreateObject("Scripting.Dictionary")
Set objects(4) = New Changing
Set objects(5) = CreateObject("Scripting.Dictionary"): objects(5).Add "x", 1
Sub Ask(o, k)
  On Error Resume Next
  Dim r: r = "none"
  r = o.Exists(k)
  Echo r, o.Count, k, Err.Number
End Sub
For i = 0 To 5
  k = "x"
  Ask objects(i), k
Next
'> True 1 x 0
'> own x -1 x 0
'> none 1 x 438
'> False 0 x 0
'> changed  x! 0
'> True 1 x 0
i = 1
For Each o In objects
  a(1) = "x"
  On Error Resume Next
  k = "none"
  k = o.Exists(a(i))
  Echo k, a(1)
  On Error GoTo 0
Next
'> True x
'> own x x
'> none x
'> False x
'> changed x!
'> True x

'=== one call meets what is no object
Dim o, k, i: k = "x"
For i = 0 To 6
  Select Case i
    Case 0, 4: Set o = CreateObject("Scripting.Dictionary")
    Case 1: Set o = Nothing
    Case 2: o = 5
    Case 3: o = Empty
    Case 5: o = "text"
    Case 6: o = Array(1)
  End Select
  On Error Resume Next
  Echo o.Exists(k)
  Echo o.Count: Failed
  On Error GoTo 0
Next
'> False
'> 0
'> no error
'> 424
'> 424
'> 424
'> False
'> 0
'> no error
'> 424
'> 424

'=== errors of members that are at hand, and of those that are not
Dim d, k, i, r: Set d = CreateObject("Scripting.Dictionary"): k = "x"
On Error Resume Next
For i = 1 To 2
  d.Add k, i: FailedText
  d.Remove k: FailedText
  d.Remove k: FailedText
  d.Add k: FailedText
  r = d.Exists(): FailedText
  r = d.Exists(k, k): FailedText
  r = d.Count(k): FailedText
  r = d.Nobody(k): FailedText
  r = d.Nobody: FailedText
  d.Exists = k: FailedText
  d.Count = 1: FailedText
  r = d.Key(k): FailedText
  Echo "--"
Next
'> no error
'> no error
'> 32811 Element not found
'> 450 Wrong number of arguments or invalid property assignment
'> 450 Wrong number of arguments or invalid property assignment
'> 450 Wrong number of arguments or invalid property assignment
'> 450 Wrong number of arguments or invalid property assignment
'> 438 Object doesn't support this property or method
'> 438 Object doesn't support this property or method
'> 438 Object doesn't support this property or method
'> 438 Object doesn't support this property or method
'> 438 Object doesn't support this property or method
'> --
'> no error
'> no error
'> 32811 Element not found
'> 450 Wrong number of arguments or invalid property assignment
'> 450 Wrong number of arguments or invalid property assignment
'> 450 Wrong number of arguments or invalid property assignment
'> 450 Wrong number of arguments or invalid property assignment
'> 438 Object doesn't support this property or method
'> 438 Object doesn't support this property or method
'> 438 Object doesn't support this property or method
'> 438 Object doesn't support this property or method
'> 438 Object doesn't support this property or method
'> --

'=== an object released by its own call
Class Holder
  Public What
  Private Sub Class_Terminate: Echo "ended", What: End Sub
End Class
Class Breaker
  Private Sub Class_Terminate
    Echo "letting go"
    Set d = Nothing
    Echo "gone"
  End Sub
End Class
Dim d, k, a, i, h
For i = 1 To 2
  Set d = CreateObject("Scripting.Dictionary")
  k = "x"
  Set h = New Holder: h.What = i
  d.Add "h", h: Set h = Nothing
  d.Add k, New Breaker
  If i = 1 Then d.Remove k Else d.RemoveAll
  Echo d Is Nothing
Next
'> letting go
'> gone
'> ended 1
'> True
'> ended 2
'> letting go
'> gone
'> True
For i = 1 To 2
  Set d = CreateObject("Scripting.Dictionary")
  a = Array("x", "y"): k = 0
  d.Add a(k), New Breaker
  d.Remove a(k)
  Echo d Is Nothing, a(0)
Next
'> letting go
'> gone
'> True x
'> letting go
'> gone
'> True x

'=== an argument that its own call takes away
Class Swapper
  Private Sub Class_Terminate
    a = Empty
    k = "other"
  End Sub
End Class
Dim d, a, k, i
For i = 1 To 3
  Set d = CreateObject("Scripting.Dictionary")
  ReDim a(3): k = 2: a(2) = "the key that is taken away " & i
  d.Add a(k), New Swapper
  d.Remove a(k)
  Echo TypeName(a), k, d.Count
  k = "another key " & i
  d.Add k, New Swapper
  d.Remove k
  Echo k, d.Count
Next
'> Empty other 0
'> other 0
'> Empty other 0
'> other 0
'> Empty other 0
'> other 0

'=== elements passed to members: other kinds of arrays, indexes and texts
Dim d, a, b, i, t: Set d = CreateObject("Scripting.Dictionary")
d.Add "1", "one": d.Add 1, "number"
a = Array("0", "1", 1, Null, Empty): b = a
For i = 0 To 4: Echo d.Exists(a(i)), d.Exists(b(i)): Next
'> False False
'> True True
'> True True
'> False False
'> False False
On Error Resume Next
i = 5: Echo d.Exists(a(i)): FailedText   '> 9 Subscript out of range
i = -1: Echo d.Exists(a(i)): FailedText  '> 9 Subscript out of range
i = "1": Echo d.Exists(a(i))             '> True
i = 1.4: Echo d.Exists(a(i))             '> True
i = 1: a = "text": Echo d.Exists(a(i)): FailedText   '> 13 Type mismatch
Set a = CreateObject("Scripting.Dictionary"): a(1) = "1"
Echo d.Exists(a(i))                      '> True
ReDim t(1, 1): t(1, 1) = "1"
Echo d.Exists(t(i, i))                   '> True

'=== members of parameters, by reference and by value
Function Has(d, ByVal k)
  Has = d.Exists(k)
End Function
Function HasElement(ByVal d, a, i)
  HasElement = d.Exists(a(i)) And Not d.Exists(i)
End Function
Dim d, i, a: Set d = CreateObject("Scripting.Dictionary"): d("x") = 1
a = Array("w", "x")
For i = 0 To 1: Echo Has(d, a(i)), HasElement(d, a, i): Next
'> False False
'> True True

'=== a function whose own name holds the object
Function Filled(k)
  Set Filled = CreateObject("Scripting.Dictionary")
  Filled.Add k, 1
  Echo Filled.Exists(k)
End Function
Echo Filled("a").Count   '> True
'> 1
