'=== Let and Set with several arguments
Class Grid
  Private cells
  Private Sub Class_Initialize: Set cells = CreateObject("Scripting.Dictionary"): End Sub
  Public Property Get Cell(r, c)
    If IsObject(cells(r & "," & c)) Then
      Set Cell = cells(r & "," & c)
    Else
      Cell = cells(r & "," & c)
    End If
  End Property
  Public Property Let Cell(r, c, v): cells(r & "," & c) = "let " & v: End Property
  Public Property Set Cell(r, c, v): Set cells(r & "," & c) = v: End Property
End Class
Class Box
  Public V
End Class
Dim g, b
Set g = New Grid
g.Cell(1, 2) = "x"
Echo g.Cell(1, 2)              '> let x
Set b = New Box: b.V = "boxed"
Set g.Cell(3, 4) = b
Echo g.Cell(3, 4).V            '> boxed
g.Cell(1, 2) = g.Cell(1, 2) & "!"
Echo g.Cell(1, 2)              '> let let x!
With g
  .Cell(5, 6) = "w"
  Echo .Cell(5, 6)             '> let w
End With

'=== the default property with arguments, written and set
Class Table
  Private d
  Private Sub Class_Initialize: Set d = CreateObject("Scripting.Dictionary"): End Sub
  Public Default Property Get Item(a, b)
    If IsObject(d(a & b)) Then Set Item = d(a & b) Else Item = d(a & b)
  End Property
  Public Property Let Item(a, b, v): d(a & b) = v: End Property
  Public Property Set Item(a, b, v): Set d(a & b) = v: End Property
End Class
Dim t: Set t = New Table
t("x", "y") = 5
Echo t("x", "y"), t.Item("x", "y")   '> 5 5
Set t("o", "o") = t
Echo t("o", "o")("x", "y")     '> 5
Echo t("o", "o")("o", "o")("x", "y")   '> 5
t("x", "y") = t("x", "y") + 1
Echo t("x", "y")               '> 6

'=== chains of parentheses
Class Maker
  Public Default Function Item(n): Set Item = New Maker: Item.Depth = Depth + n: End Function
  Public Depth
  Public Function List: List = Array(Array(1, 2), Me): End Function
End Class
Dim m: Set m = New Maker
Echo m(1)(2)(3).Depth          '> 6
Echo m.List()(0)(1)            '> 2
Echo m.List()(1)(4).Depth      '> 4
Echo m(5).List()(1).Depth      '> 5

'=== the arguments of a property may be changed by it
Class C
  Public Property Get P(a): a = a & "!": P = a: End Property
End Class
Dim o, v: Set o = New C
v = "v"
Echo o.P(v), v                 '> v! v!
Echo o.P((v)), v               '> v!! v!

'=== a field with a dictionary or an object with a default
Class Holder
  Public Items
  Private Sub Class_Initialize: Set Items = CreateObject("Scripting.Dictionary"): End Sub
End Class
Dim h: Set h = New Holder
h.Items("a") = 1
h.Items("a") = h.Items("a") + 1
Set h.Items("o") = h
Echo h.Items("a"), h.Items("o").Items("a"), h.Items.Count   '> 2 2 2

'=== a property Let within its class, with arguments
Class C
  Private v
  Public Property Get P(i): P = v & i: End Property
  Public Property Let P(i, x): v = i & x: End Property
  Public Function Run
    P(1) = "a"
    Me.P(2) = P(1)
    Run = P(3)
  End Function
End Class
Echo (New C).Run               '> 21a13
