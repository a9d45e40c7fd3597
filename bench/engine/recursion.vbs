Option Explicit

Function Tak(x, y, z)
  If y >= x Then
    Tak = z
  Else
    Tak = Tak(Tak(x - 1, y, z), Tak(y - 1, z, x), Tak(z - 1, x, y))
  End If
End Function

Function Ackermann(m, n)
  If m = 0 Then
    Ackermann = n + 1
  ElseIf n = 0 Then
    Ackermann = Ackermann(m - 1, 1)
  Else
    Ackermann = Ackermann(m - 1, Ackermann(m, n - 1))
  End If
End Function

Dim towers
Sub Move(height, from, into, spare)
  If height = 0 Then Exit Sub
  Move height - 1, from, spare, into
  towers(into) = towers(into) + 1
  Move height - 1, spare, into, from
End Sub

towers = Array(0, 0, 0)
Move 18, 0, 1, 2
WScript.Echo Tak(24, 16, 8) & " " & Ackermann(2, 1000) & " " & towers(0) & " " & towers(1) & " " & towers(2)
