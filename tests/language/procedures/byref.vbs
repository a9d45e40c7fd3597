'=== parameters are by reference unless said otherwise
Sub S(x)
  x = x + 1
End Sub
Dim a: a = 1
S a
Echo a                         '> 2
Call S(a)
Echo a                         '> 3

'=== ByVal
Sub S(ByVal x)
  x = x + 1
  Echo x
End Sub
Dim a: a = 1
S a                            '> 2
Echo a                         '> 1

'=== parentheses around an argument pass a copy
Sub S(x)
  x = x + 1
End Sub
Dim a: a = 1
S (a)
Echo a                         '> 1
S(a)
Echo a                         '> 1
Call S((a))
Echo a                         '> 1

'=== an expression is passed as a value
Sub S(x)
  x = 99
End Sub
Dim a: a = 1
S a + 0
Echo a                         '> 1
S 5
Echo "end"                     '> end

'=== array elements by reference
Sub S(x)
  x = "changed"
End Sub
Dim a(2)
S a(1)
Echo a(1)                      '> changed
Dim b: b = Array(1, 2)
S b(0)
Echo b(0), b(1)                '> changed 2

'=== a whole array by reference
Sub Fill(x)
  x(0) = "filled"
End Sub
Dim a(1)
Fill a
Echo a(0)                      '> filled

'=== a whole array by value
Sub Fill(ByVal x)
  x(0) = "filled"
  Echo x(0)
End Sub
Dim a: a = Array("kept")
Fill a                         '> filled
Echo a(0)                      '> kept

'=== through several calls
Sub Outer(x): Inner x: End Sub
Sub Inner(y): y = y * 10: End Sub
Dim a: a = 4
Outer a
Echo a                         '> 40

'=== a member is passed as a value
Class Box
  Public V
End Class
Sub S(x): x = 99: End Sub
Dim b: Set b = New Box
b.V = 1
S b.V
Echo b.V                       '> 1

'=== an object parameter can be replaced
Class Box
  Public V
End Class
Sub Replace1(x)
  Set x = New Box
  x.V = "new"
End Sub
Dim b: Set b = New Box
b.V = "old"
Replace1 b
Echo b.V                       '> new

'=== an object by value is still the same object
Class Box
  Public V
End Class
Sub S(ByVal x)
  x.V = "set"
  Set x = Nothing
End Sub
Dim b: Set b = New Box
S b
Echo b.V                       '> set

'=== two parameters for one variable
Sub S(x, y)
  x = x + 1
  Echo y
End Sub
Dim a: a = 1
S a, a                         '> 2

'=== the variable of a loop
Sub S(x): x = x + 1: End Sub
Dim i, n
For i = 1 To 6
  n = n + 1
  S i
Next
Echo n                         '> 3

'=== functions change their arguments too
Function Pop(list)
  Pop = list(UBound(list))
  ReDim Preserve list(UBound(list) - 1)
End Function
Dim a: a = Array(1, 2, 3)
Echo Pop(a), UBound(a)         '> 3 1

'=== a global changed behind a reference
Dim g: g = 1
Sub S(x)
  g = 5
  Echo x
End Sub
S g                            '> 5

'=== a constant cannot be changed through a reference
Const k = 5
Sub S(x)
  x = 6
  Echo x
End Sub
S k                            '> 6
Echo k                         '> 5

'=== an array parameter written with parentheses
Sub S(ByRef list())
  list(0) = "x"
End Sub
Dim a(1)
S a
Echo a(0)                      '> x

'=== elements of all kinds of arrays by reference
Sub S(x): x = "changed": End Sub
Function F(x): x = "by function": F = True: End Function
Class Holder
  Private list(1), rows
  Public Function Own
    rows = Array(Array("row"))
    S list(1)
    S rows(0)(0)
    Own = list(1) & " " & rows(0)(0)
  End Function
End Class
Dim a(1, 1), b, i
S a(1, 0)
Echo a(1, 0)                   '> changed
b = Array(Array(1, 2), 3)
i = 1
S b(0)(i)
Echo b(0)(1), b(0)(0)          '> changed 1
If F(b(i)) Then Echo b(1)      '> by function
Echo (New Holder).Own          '> changed changed

'=== items of a dictionary and whatever a dot gives are passed as values
Class Holder
  Public Field, List
  Public Sub Inside
    S Me.Field
    Echo Field
    S Field
    Echo Field
  End Sub
End Class
Sub S(x): x = "changed": End Sub
Dim d, h
Set d = CreateObject("Scripting.Dictionary")
d("k") = "kept"
S d("k")
Echo d("k")                    '> kept
S d.Item("k")
Echo d("k")                    '> kept
Set h = New Holder
h.Field = "kept"
h.List = Array("kept")
S h.Field
S h.List(0)
Echo h.Field, h.List(0)        '> kept kept
With h
  S .Field
  Echo .Field                  '> kept
End With
h.Inside
'> kept
'> changed

'=== an element keeps its place while it is passed
Dim a()
Sub S(x)
  On Error Resume Next
  ReDim a(9)
  Failed
  x = "set"
End Sub
ReDim a(1)
S a(1)                         '> 10
Echo a(1)                      '> set

'=== a copy made while an element is passed stays as it was
Dim a, v
Sub S(x)
  Dim own
  v = a
  own = a
  x = "set"
  Echo v(0), own(0), a(0)
End Sub
a = Array("kept")
S a(0)                         '> kept kept set

'=== an argument in parentheses is a copy, of an array too
Sub S(x): x(0) = "changed": End Sub
Dim a: a = Array("kept")
S (a)
Echo a(0)                      '> kept
Call S((a))
Echo a(0)                      '> kept
S a
Echo a(0)                      '> changed

'=== ByVal and ByRef mixed, with an element and a property of the same thing
Sub Both(ByVal v, ByRef r)
  v = v & "!": r = r & v
End Sub
Dim a: a = Array("x", "y")
Both a(0), a(1)
Echo a(0), a(1)                '> x yx!
Both a(0), a(0)
Echo a(0)                      '> xx!

'=== an element by reference: its array is locked during the call, and a copy keeps its own
Dim list(), fixed(2), copy
ReDim list(2)
Sub Change(ByRef x, ByVal n)
  On Error Resume Next
  ReDim list(5)
  Echo Err.Number
  x = n
End Sub
Dim i
For i = 0 To 1
  copy = list
  Change list(i), i + 5  '> 10
  Echo list(i) & "[" & copy(i) & "]"  '> 5[]
Next
'> 10
'> 6[]
ReDim Preserve list(5)
Echo list(0) & list(1) & UBound(list)  '> 565

'=== an index that stands for a variable elsewhere
Dim list, grid(2, 2)
list = Array("a", "b", "c")
Sub Visit(i, j)
  Echo list(i) & grid(i, j)
  list(i) = list(i) & j
  grid(i, j) = i + j
  i = i + 1
  Echo list(i) & grid(i, j)
End Sub
Dim at, other
at = 0
other = 1
Visit at, other                '> a
                               '> b
Echo at & list(0) & grid(0, 1) '> 1a11
at = "1"
Visit at, other                '> b
                               '> c
Echo at & list(1)              '> 2b1
at = 1.5
Visit at, other                '> c
                               '> c12.5

'=== an index elsewhere that is of no use
Dim list(2), at
Sub Visit(i)
  Echo "[" & list(i) & "]"
  i = i
End Sub
On Error Resume Next
at = 3
Visit at
Echo Err.Number                '> 9
Err.Clear
at = -1
Visit at
Echo Err.Number                '> 9
Err.Clear
at = Null
Visit at
Echo Err.Number                '> 94
Err.Clear
at = Empty
Visit at                       '> []

'=== elements of a variable elsewhere, read and written
Dim list(2), grid(1, 1)
Sub Fill(a, g)
  Dim i
  For i = 0 To 2
    a(i) = i * 2
    list(i) = list(i) + 1
    g(i Mod 2, 0) = a(i)
    grid(1, i Mod 2) = "x"
  Next
  a(0) = Null
  a(1) = Empty
  list(2) = 0.5
End Sub
Fill list, grid
Echo TypeName(list(0)) & " " & TypeName(list(1)) & " " & list(2) '> Null Empty 0.5
Echo grid(0, 0) & grid(1, 0) & grid(0, 1) & grid(1, 1) '> 5xx
Dim shared
shared = list
Sub Change(a)
  a(2) = 7
  shared(2) = shared(2) * 2
End Sub
Change shared
Echo shared(2) & " " & list(2) '> 14 0.5
Function Made
  Made = Array(1, 2, 3)
End Function
Made()(1) = 5
Echo Made()(1)                 '> 2

'=== an array of which the elements are in use elsewhere
Dim list
Sub Grow(item)
  On Error Resume Next
  ReDim Preserve list(5)
  Echo Err.Number
  item = item + 1
  list(0) = list(0) + 1
End Sub
list = Array(1, 2)
Grow list(0)                   '> 10
Echo list(0) & " " & UBound(list) '> 3 1
