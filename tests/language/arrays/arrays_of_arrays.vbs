'=== reading
Dim g: g = Array(Array(1, "x", Array(7, 8)), Array(4, Nothing))
Echo g(0)(0) & g(0)(1) & g(0)(2)(1) & g(1)(0) & (g(1)(1) Is Nothing) '> 1x84True
Echo UBound(g(0)(2)) & UBound(g) '> 11
Function Made: Made = Array(1, 2, Array(3, "z")): End Function
Echo Made()(0) & Made()(2)(1) & Split("a,b", ",")(1) '> 1zb

'=== what is taken out is a copy
Dim rows, row: rows = Array(Array(1, 2), Array(3, 4))
row = rows(0): row(0) = 99
Echo rows(0)(0) & " " & row(0) '> 1 99
rows(0)(0) = 5
Echo rows(0)(0) & " " & row(0) '> 5 99
rows(1) = rows(0): rows(1)(1) = "b"
Echo rows(0)(1) & rows(1)(1) '> 2b

'=== an index outside
Dim few: few = Array(Array(1))
On Error Resume Next
Echo few(0)(1)
Echo Err.Number: Err.Clear '> 9
Echo few(1)(0)
Echo Err.Number: Err.Clear '> 9
Echo few(0)(0)(0)
Echo Err.Number: Err.Clear '> 13
Echo few(0)(0) '> 1

'=== an object in the inner one lives as long as that
Class Thing
  Public Name
  Private Sub Class_Terminate: Echo "end of " & Name: End Sub
End Class
Function Things
  Dim one: Set one = New Thing: one.Name = "one"
  Things = Array(Array(one))
End Function
Dim held: Set held = Things()(0)(0)
Echo held.Name '> one
Set held = Nothing '> end of one
Echo Things()(0)(0).Name
'> end of one
'> one
