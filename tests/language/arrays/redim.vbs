'=== ReDim makes an array of whatever the variable held
Dim x
x = 5: ReDim x(3)
Echo UBound(x)                 '> 3
x = "text": ReDim x(1, 2)
Echo UBound(x, 2)              '> 2
Set x = CreateObject("Scripting.Dictionary"): ReDim x(0)
Echo UBound(x)                 '> 0

'=== ReDim Preserve of a variable that holds nothing yet
Dim x
ReDim Preserve x(2)
Echo UBound(x)                 '> 2
Dim y()
ReDim Preserve y(1)
Echo UBound(y)                 '> 1

'=== ReDim Preserve has nothing to keep of a plain value
Dim x: x = 5
On Error Resume Next
ReDim Preserve x(2)
Failed                         '> 13
Echo x                         '> 5

'=== an array declared with bounds is not resized, by whatever name
Dim a(3)
Class Holder
  Public List(2)
  Public Sub Grow: ReDim Preserve List(9): End Sub
End Class
Sub Resize(x): ReDim x(9): End Sub
On Error Resume Next
ReDim a(5)
FailedText                     '> 10 This array is fixed or temporarily locked
ReDim Preserve a(3)
Failed                         '> 10
Resize a
Failed                         '> 10
Dim h: Set h = New Holder
h.Grow
Failed                         '> 10
Echo UBound(a), UBound(h.List) '> 3 2

'=== only the elements of an array declared with bounds can be assigned
Dim a(3), b(3)
Class Holder
  Public List(2)
End Class
Sub Change(x): x = "changed": End Sub
Function Fill
  Dim own(1)
  On Error Resume Next
  own = Array(7)
  Fill = Err.Number & " " & UBound(own)
End Function
a(1) = "kept"
On Error Resume Next
a = 5
FailedText                     '> 13 Type mismatch
a = Array(1, 2)
Failed                         '> 13
a = b
Failed                         '> 13
Set a = New Holder
Failed                         '> 13
Change a
Failed                         '> 13
Dim h: Set h = New Holder
h.List = Array(1)
Failed                         '> 13
Echo a(1), UBound(h.List)      '> kept 2
Echo Fill                      '> 13 1

'=== a copy of an array declared with bounds is like any value
Dim a(2), v
a(0) = "first"
v = a
ReDim Preserve v(5)
Echo v(0), UBound(v)           '> first 5
v = a
v = "plain"
Echo v                         '> plain
Sub Replaces(ByVal x)
  ReDim Preserve x(4)
  Echo x(0), UBound(x)
  x = "mine"
  Echo x
End Sub
Sub ReplacesToo(x)
  x = "mine too"
  Echo x
End Sub
Replaces a
'> first 4
'> mine
ReplacesToo (a)                '> mine too
Echo a(0), UBound(a)           '> first 2

'=== so are copies that functions, dictionaries and arrays hold
Dim a(2), d, v, e
Function Same(x): Same = x: End Function
Class Holder
  Private own(1)
  Public Function Give: Give = own: End Function
End Class
On Error Resume Next
v = Same(a): ReDim Preserve v(5): v = 5
Failed                         '> no error
Set d = CreateObject("Scripting.Dictionary")
d("k") = a
v = d("k"): ReDim Preserve v(5): v = 5
Failed                         '> no error
v = (New Holder).Give: ReDim v(5): v = 5
Failed                         '> no error
v = Array(a): v(0) = 5
Failed                         '> no error
For Each e In Array(a)
  ReDim e(5): e = 5
  Failed                       '> no error
Next
v = Eval("a"): v = 5
Failed                         '> no error
Echo UBound(a)                 '> 2

'=== Erase empties an array declared with bounds and leaves its size
Dim a(2), v
a(1) = "x"
v = a
Erase a
Show a(1)                      '> Empty
Echo UBound(a), v(1)           '> 2 x
Erase v
On Error Resume Next
x = UBound(v)
Failed                         '> 9
ReDim a(1)
Failed                         '> 10

'=== an array declared without bounds takes any value
Dim d()
d = Array(1, 2, 3)
Echo UBound(d)                 '> 2
d = Split("a b")
Echo d(1)                      '> b
