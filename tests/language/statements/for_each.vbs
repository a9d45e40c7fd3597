'=== arrays
Dim x, s
For Each x In Array(1, "two", 3.5)
  s = s & x & " "
Next
Echo Trim(s)                   '> 1 two 3.5

'=== an empty array
Dim x
For Each x In Array()
  Echo "never"
Next
Echo "end"                     '> end

'=== arrays of two dimensions: the first index moves fastest
Dim a(1, 2), i, j, x, s
For i = 0 To 1
  For j = 0 To 2
    a(i, j) = i & j
  Next
Next
For Each x In a
  s = s & x & " "
Next
Echo Trim(s)                   '> 00 10 01 11 02 12

'=== assigning the variable leaves the array alone
Dim a, x
a = Array(1, 2)
For Each x In a
  x = x * 10
Next
Echo a(0), a(1)                '> 1 2

'=== Exit For
Dim x
For Each x In Array(1, 2, 3)
  If x = 2 Then Exit For
Next
Echo x                         '> 2

'=== keys of a dictionary
Dim d, k, s
Set d = CreateObject("Scripting.Dictionary")
d.Add "b", 1
d.Add "a", 2
For Each k In d
  s = s & k & d(k) & " "
Next
Echo Trim(s)                   '> b1 a2

'=== keys of a dictionary may be removed meanwhile
Dim d, k
Set d = CreateObject("Scripting.Dictionary")
d("a") = 1: d("b") = 2: d("c") = 3
For Each k In d.Keys
  d.Remove k
Next
Echo d.Count                   '> 0

'=== objects in an array
Class Box
  Public Content
End Class
Dim a(1), b
Set a(0) = New Box: a(0).Content = "x"
Set a(1) = New Box: a(1).Content = "y"
For Each b In a
  Echo b.Content
Next
'> x
'> y

'=== no collection
Dim x
For Each x In 5                '! 451
Next

'=== an object that is no collection
Class Thing
End Class
Dim x, t
Set t = New Thing
For Each x In t                '! 451
Next

'=== what the body assigns to elements the loop comes to
Dim a, x, i, s
a = Array(1, 2, 3)
For Each x In a
  i = i + 1
  If i < 3 Then a(i) = "set" & i
  s = s & x & " "
Next
Echo Trim(s)                   '> 1 set1 set2

'=== the same in a procedure, a field and a copied array
Class Holder
  Public List
  Public Function Walk
    Dim x
    For Each x In List
      List(1) = "set"
      Walk = Walk & x
    Next
  End Function
End Class
Function Walk(list)
  Dim x
  For Each x In list
    list(1) = "set"
    Walk = Walk & x
  Next
End Function
Dim a, b, h
a = Array(1, 2, 3)
b = a
Echo Walk(a)                   '> 1set3
Echo b(1)                      '> 2
Set h = New Holder
h.List = b
Echo h.Walk                    '> 1set3
Echo b(1)                      '> 2

'=== an array keeps its size as long as it is walked
Dim a, x
a = Array(1, 2)
On Error Resume Next
For Each x In a
  ReDim Preserve a(5)
  Failed
  Erase a
  Failed
Next
'> 10
'> 10
'> 10
'> 10
ReDim Preserve a(5)
Failed                         '> no error
Echo UBound(a)                 '> 5
For Each x In a
  Exit For
Next
ReDim a(1)
Failed                         '> no error
Sub Leaves(list)
  Dim x
  For Each x In list
    Exit Sub
  Next
End Sub
Leaves a
ReDim a(2)
Failed                         '> no error

'=== an error that leaves a loop gives the array free
Dim a: a = Array(1, 2)
Sub Fails(list)
  Dim x
  For Each x In list
    x = 1 / 0
  Next
End Sub
On Error Resume Next
Fails a
Failed                         '> 11
ReDim a(7)
Echo UBound(a)                 '> 7

'=== the variable of the array may get another value meanwhile
Dim a, x, s
a = Array(1, 2, 3)
For Each x In a
  a = "other"
  s = s & x
Next
Echo s, a                      '> 123 other

'=== one array walked twice at a time
Dim a, x, y, s
a = Array(1, 2)
For Each x In a
  For Each y In a
    s = s & x & y & " "
  Next
Next
Echo Trim(s)                   '> 11 12 21 22

'=== elements that are objects, changed through the variable
Class Box
  Public V
End Class
Dim a(1), b
Set a(0) = New Box: Set a(1) = New Box
For Each b In a
  b.V = "set"
Next
Echo a(0).V, a(1).V            '> set set

'=== what is no collection
Class C: Public x: End Class
Dim v, o
Set o = New C
On Error Resume Next
For Each v In 5: Next
Failed                         '> 451
For Each v In "abc": Next
Failed                         '> 451
For Each v In Empty: Next
Failed                         '> 451
For Each v In Null: Next
Failed                         '> 451
For Each v In o: Next
Failed                         '> 451
For Each v In Nothing: Next
Failed                         '> 91
For Each v In 5
  Echo "the body runs once"    '> the body runs once
Next
Err.Clear
On Error GoTo 0
For Each v In 5                '! 451 Object not a collection
Next

'=== an array that is walked keeps its size
Dim a, v, d()
a = Array(1, 2)
ReDim d(2)
On Error Resume Next
For Each v In a
  ReDim a(5)
  Failed                       '> 10
  ReDim Preserve a(5)
  Failed                       '> 10
  Erase a
  Failed                       '> 10
  Exit For
Next
ReDim a(5)
Failed                         '> no error
Sub Walk
  Dim l, w
  l = Array(1)
  On Error Resume Next
  For Each w In l
    ReDim l(3)
    Failed                     '> 10
    Erase l
    Failed                     '> 10
  Next
  Erase l
  Failed                       '> no error
End Sub
Walk
