'=== arrays of arrays in a field
Class Table
  Private rows()
  Private Sub Class_Initialize
    Dim i
    ReDim rows(2)
    For i = 0 To 2
      rows(i) = Array(i, i * 10)
    Next
  End Sub
  Public Sub Put(i, j, v): rows(i)(j) = v: End Sub
  Public Function Cell(i, j): Cell = rows(i)(j): End Function
  Public Property Get Row(i): Row = rows(i): End Property
  Public Property Get Count: Count = UBound(rows) + 1: End Property
  Public Sub Add(row)
    ReDim Preserve rows(Count)
    rows(UBound(rows)) = row
  End Sub
End Class
Dim c, r: Set c = New Table
c.Put 1, 1, "set"
Echo c.Cell(1, 1), c.Cell(2, 1), c.Count   '> set 20 3
r = c.Row(1)
r(0) = "copy"
Echo c.Cell(1, 0), c.Row(1)(1) '> 1 set
c.Add Array("a", "b")
Echo c.Count, c.Cell(3, 1), c.Cell(1, 1)   '> 4 b set

'=== two instances have arrays of their own
Class C
  Public List(1)
  Public Dynamic()
  Public Sub Make(n): ReDim Dynamic(n): Dynamic(n) = n: End Sub
End Class
Dim a, b: Set a = New C: Set b = New C
a.List(0) = "a": b.List(0) = "b"
a.Make 1: b.Make 3
Echo a.List(0), b.List(0), UBound(a.Dynamic), UBound(b.Dynamic)   '> a b 1 3

'=== growing an array behind a property
Class Stack
  Private items, top
  Private Sub Class_Initialize: items = Array(): End Sub
  Public Sub Push(x)
    ReDim Preserve items(top)
    If IsObject(x) Then Set items(top) = x Else items(top) = x
    top = top + 1
  End Sub
  Public Function Pop
    top = top - 1
    If IsObject(items(top)) Then Set Pop = items(top) Else Pop = items(top)
    If top > 0 Then ReDim Preserve items(top - 1) Else items = Array()
  End Function
  Public Property Get All: All = items: End Property
End Class
Dim s: Set s = New Stack
s.Push 1: s.Push "two": s.Push s: s.Push Array(4)
Echo UBound(s.All), TypeName(s.Pop), TypeName(s.Pop), s.Pop   '> 3 Variant() Stack two
Echo UBound(s.All), s.Pop, UBound(s.All)   '> 0 1 -1

'=== an array handed to a field is a copy
Class Box
  Public List
End Class
Dim a, c: a = Array(1, 2)
Set c = New Box
c.List = a
a(0) = "mine"
c.List(1) = "its"
Echo a(0), a(1), c.List(0), c.List(1)   '> mine 2 1 its

'=== an array of objects that hold arrays
Class Box
  Public List
End Class
Dim a(1), i
For i = 0 To 1
  Set a(i) = New Box
  a(i).List = Array(i, Array("deep" & i))
Next
Echo a(0).List(0), a(1).List(1)(0)   '> 0 deep1
a(1).List(0) = "set"
Echo a(1).List(0), a(0).List(0)      '> set 0
