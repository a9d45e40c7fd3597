'=== a field of an element is read and written
Class Point
  Public x, y
End Class
Dim points(2), i
For i = 0 To 2
  Set points(i) = New Point
  points(i).x = i
  points(i).y = points(i).x * 10
Next
For i = 0 To 2
  Echo points(i).x & " " & points(i).y  '> 0 0
Next
'> 1 10
'> 2 20

'=== a number outgrows its type in the field
Class Box
  Public n
End Class
Dim boxes(0), i
Set boxes(0) = New Box
boxes(0).n = 32766
For i = 1 To 3
  boxes(0).n = boxes(0).n + 1
  Echo TypeName(boxes(0).n) & " " & boxes(0).n  '> Integer 32767
Next
'> Long 32768
'> Long 32769
boxes(0).n = 2147483647
boxes(0).n = boxes(0).n + 1
Echo TypeName(boxes(0).n) & " " & boxes(0).n  '> Double 2147483648
boxes(0).n = Null
Echo TypeName(boxes(0).n)  '> Null
boxes(0).n = Empty
Echo TypeName(boxes(0).n)  '> Empty

'=== a variable takes the default value of an object in the field, Set the object
Class Inner
  Public Default Property Get Worth()
    Worth = 7
  End Property
End Class
Class Outer
  Public part
End Class
Sub Look()
  Dim a(0), v, o, i
  Set a(0) = New Outer
  Set a(0).part = New Inner
  For i = 1 To 2
    v = a(0).part
    Echo TypeName(v) & " " & v  '> Integer 7
    Set o = a(0).part
    Echo TypeName(o) & " " & (a(0).part + 1)  '> Inner 8
  Next
End Sub
Look
'> Integer 7
'> Inner 8

'=== a field is assigned the default value of an object
Class Inner2
  Public Default Property Get Worth()
    Worth = 5
  End Property
End Class
Class Outer2
  Public part
End Class
Dim a(0), o, i
Set a(0) = New Outer2
Set o = New Inner2
For i = 1 To 2
  a(0).part = o
  Echo TypeName(a(0).part)  '> Integer
  Set a(0).part = o
  Echo TypeName(a(0).part)  '> Inner2
Next
'> Integer
'> Inner2

'=== properties, fields of other classes and constants take their turn at one place
Class WithField
  Public m
End Class
Class WithProperty
  Private kept
  Public Property Get M()
    M = "got " & kept
  End Property
  Public Property Let M(value)
    kept = value
  End Property
End Class
Class WithField2
  Public other, m
End Class
Dim a(3), i, round
Set a(0) = New WithField
Set a(1) = New WithProperty
Set a(2) = New WithField2
Set a(3) = New WithField
For round = 1 To 2
  For i = 0 To 3
    a(i).m = round * 10 + i
    Echo a(i).m
  Next
Next
'> 10
'> got 11
'> 12
'> 13
'> 20
'> got 21
'> 22
'> 23

'=== the object ends when its statement lets it go, not before
Class Noisy
  Public name
  Private Sub Class_Terminate()
    Echo "end of " & name
  End Sub
End Class
Function Made(name)
  Dim a(0)
  Set a(0) = New Noisy
  a(0).name = name
  Made = a
End Function
Function MadeOne(name)
  Set MadeOne = New Noisy
  MadeOne.name = name
End Function
Dim i, list(0)
For i = 1 To 2
  Echo Made("a" & i)(0).name
  Echo MadeOne("b" & i).name
  Set list(0) = MadeOne("c" & i)
  Echo list(0).name
  Set list(0) = Nothing
  Echo "next"
Next
'> end of a1
'> a1
'> end of b1
'> b1
'> c1
'> end of c1
'> next
'> end of a2
'> a2
'> end of b2
'> b2
'> c2
'> end of c2
'> next

'=== what is written to a temporary object is let go after it was written
Class Loud
  Public n
  Private Sub Class_Terminate()
    Echo "end with " & n
  End Sub
End Class
Function Fresh()
  Set Fresh = New Loud
End Function
Dim i, kept
For i = 1 To 2
  Fresh().n = i
  Set kept = Fresh()
  kept.n = i + 10
  Echo "kept"
Next
Set kept = Nothing
'> end with 1
'> kept
'> end with 2
'> end with 11
'> kept
'> end with 12

'=== an array that is given away in between stays as it was
Class Item
  Public v
End Class
Dim a(0), b, i
Set a(0) = New Item
For i = 1 To 2
  a(0).v = i
  b = a
  Set a(0) = New Item
  a(0).v = 100 + i
  Echo a(0).v & " " & b(0).v
Next
'> 101 1
'> 102 2

'=== an array in a field goes to a variable as a copy while an element of it is passed by reference
Class Holder
  Public list
End Class
Dim outer(0)
outer(0) = Array(1, 2, 3)
Sub Change(ByRef element)
  Dim copy
  copy = outer(0)
  element = 99
  Echo copy(1) & " " & outer(0)(1)  '> 2 99
End Sub
Change outer(0)(1)

'=== elements that are no objects, indexes outside and missing members
Class P
  Public x
  Private hidden
End Class
Dim a(1), i
On Error Resume Next
For i = 1 To 2
  Set a(0) = New P
  a(0).x = 1
  Echo a(i).x
  Echo i & " " & Err.Number : Err.Clear
  a(i).x = 5
  Echo i & " " & Err.Number : Err.Clear
  a(0).hidden = 1
  Echo Err.Number : Err.Clear
  Echo a(0).nowhere
  Echo Err.Number : Err.Clear
  Set a(0) = Nothing
  Echo a(0).x
  Echo Err.Number : Err.Clear
Next
'> 1 424
'> 1 424
'> 438
'> 438
'> 424
'> 2 9
'> 2 9
'> 438
'> 438
'> 424

'=== errors show the element and its line
Class Q
  Public x
End Class
Dim a(1), n
Set a(0) = New Q
n = 0
a(n).x = 1
n = 1
a(n).x = 2  '! 424 Object required: 'a(...)'
n = 2
Echo a(n).x  '! 9 Subscript out of range: 'n'
a(0).y = 1  '! 438 Object doesn't support this property or method: 'a(...).y'

'=== any index that counts as a number, and any place of the array
Class R
  Public x
End Class
Class Shelf
  Private rows(1)
  Public Sub Fill()
    Set rows(1) = New R
    rows(1).x = 4
    rows("1").x = rows("1").x + 1
    rows(True + 2).x = rows(0.6).x + 1
    Echo rows(1).x  '> 6
  End Sub
End Class
Dim s
Set s = New Shelf
s.Fill
Sub Through(ByRef list, ByVal copy)
  list(0).x = 1
  copy(0).x = copy(0).x + 1
  Echo list(0).x & " " & copy(0).x  '> 2 2
End Sub
Dim some(0)
Set some(0) = New R
Through some, some

'=== collections in place of arrays
Class S
  Public x
End Class
Dim d, i
Set d = CreateObject("Scripting.Dictionary")
Set d("k") = New S
Set d(1) = New S
For i = 1 To 2
  d("k").x = i
  d(1).x = d("k").x + 1
  Echo d("k").x & d(1).x  '> 12
Next
'> 23

'=== a member of an array's element in two dimensions, and of an element's element
Class T
  Public x
End Class
Dim grid(1, 1), rows(0), i
Set grid(1, 0) = New T
rows(0) = Array(0, New T)
For i = 1 To 2
  grid(1, 0).x = i
  rows(0)(1).x = grid(1, 0).x + 1
  Echo grid(1, 0).x & rows(0)(1).x  '> 12
Next
'> 23

'=== the value's evaluation changes the array
Class U
  Public x
End Class
Dim a(), i
ReDim a(0)
Set a(0) = New U
Function Grow()
  ReDim a(1)
  Set a(0) = New U
  Set a(1) = New U
  Grow = 7
End Function
For i = 0 To 1
  a(0).x = Grow()
  Echo a(0).x  '> 7
Next
'> 7
a(UBound(a)).x = 1 + a(UBound(a)).x
Echo a(1).x  '> 1
