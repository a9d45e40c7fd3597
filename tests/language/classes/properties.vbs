'=== Get and Let
Class C
  Private value_
  Public Property Get Value
    Value = value_
  End Property
  Public Property Let Value(v)
    value_ = v * 2
  End Property
End Class
Dim o: Set o = New C
o.Value = 5
Echo o.Value                   '> 10

'=== Set
Class Box
  Public Tag
End Class
Class C
  Private item_
  Public Property Get Item: Set Item = item_: End Property
  Public Property Set Item(x): Set item_ = x: End Property
End Class
Dim o, b
Set o = New C
Set b = New Box
b.Tag = "t"
Set o.Item = b
Echo o.Item.Tag                '> t
Echo o.Item Is b               '> True

'=== with indexes
Class C
  Private d
  Private Sub Class_Initialize: Set d = CreateObject("Scripting.Dictionary"): End Sub
  Public Property Get Item(i, j): Item = d(i & "," & j): End Property
  Public Property Let Item(i, j, v): d(i & "," & j) = v: End Property
End Class
Dim o: Set o = New C
o.Item(1, 2) = "x"
Echo o.Item(1, 2)              '> x

'=== the default property
Class C
  Private d
  Private Sub Class_Initialize: Set d = CreateObject("Scripting.Dictionary"): End Sub
  Public Default Property Get Item(k): Item = d(k): End Property
  Public Property Let Item(k, v): d(k) = v: End Property
End Class
Dim o: Set o = New C
o("a") = 1
o("b") = 2
Echo o("a") + o("b")           '> 3
Echo o.Item("b")               '> 2

'=== a default without arguments stands for the object
Class Money
  Public Amount
  Public Default Property Get Value: Value = Amount: End Property
End Class
Dim m: Set m = New Money
m.Amount = 5
Echo m + 1                     '> 6
Echo m & "x"                   '> 5x
Echo m = 5                     '> True
If m Then Echo "true"          '> true

'=== a property that can only be read
Class C
  Public Property Get P: P = 1: End Property
End Class
Dim o: Set o = New C
Echo o.P                       '> 1
On Error Resume Next
o.P = 2
Echo Err.Number <> 0           '> True

'=== a property that can only be written
Class C
  Public Property Let P(v): Echo "let " & v: End Property
End Class
Dim o: Set o = New C
o.P = 2                        '> let 2
On Error Resume Next
x = o.P
Echo Err.Number <> 0           '> True

'=== Let of an object hands over the object
Class Node
  Private next_
  Public Name
  Public Property Let NextNode(n): Set next_ = n: End Property
  Public Property Get NextNode: Set NextNode = next_: End Property
End Class
Dim a, b
Set a = New Node: Set b = New Node
b.Name = "b"
a.NextNode = b
Echo a.NextNode.Name           '> b

'=== the property's own name inside
Class C
  Public Property Get Sum(n)
    Dim i
    For i = 1 To n
      Sum = Sum + i
    Next
  End Property
End Class
Echo (New C).Sum(4)            '> 10

'=== a property used inside its class
Class C
  Private v
  Public Property Get P: P = v: End Property
  Public Property Let P(x): v = x: End Property
  Public Sub Grow: P = P + 1: Me.P = Me.P + 1: End Sub
End Class
Dim o: Set o = New C
o.P = 1
o.Grow
Echo o.P                       '> 3

'=== an array from a property
Class C
  Public Property Get List: List = Array(1, 2, 3): End Property
End Class
Dim o: Set o = New C
Echo UBound(o.List)            '> 2
Echo o.List()(1)               '> 2

'=== a private property
Class C
  Private Property Get P: P = "p": End Property
  Public Function F: F = P: End Function
End Class
Dim o: Set o = New C
Echo o.F                       '> p
x = o.P                        '! 438
