'=== fixed arrays
Dim a(2)
a(0) = 1: a(1) = "two": a(2) = 3.5
Echo a(0), a(1), a(2)          '> 1 two 3.5
Echo LBound(a), UBound(a)      '> 0 2
Show a(1)                      '> String "two"

'=== elements start Empty
Dim a(2)
Show a(0)                      '> Empty

'=== two dimensions and more
Dim a(2, 3), b(1, 1, 1)
a(1, 2) = "x"
Echo a(1, 2)                   '> x
Echo UBound(a), UBound(a, 1), UBound(a, 2), LBound(a, 2)   '> 2 2 3 0
b(1, 0, 1) = "deep"
Echo b(1, 0, 1)                '> deep
Echo UBound(b, 3)              '> 1

'=== an index is rounded
Dim a(3)
a(1.4) = "one": a(1.6) = "two": a("3") = "three"
Echo a(1), a(2), a(3)          '> one two three
Echo a(2.5) = a(2)             '> True
Echo a(True + 2)               '> one

'=== dynamic arrays
Dim a()
ReDim a(1)
a(0) = "x"
Echo UBound(a), a(0)           '> 1 x
ReDim a(3)
Echo UBound(a)                 '> 3
Show a(0)                      '> Empty

'=== ReDim Preserve
Dim a()
ReDim a(1)
a(0) = "x": a(1) = "y"
ReDim Preserve a(2)
Echo a(0), a(1), UBound(a)     '> x y 2
Show a(2)                      '> Empty
ReDim Preserve a(0)
Echo UBound(a), a(0)           '> 0 x

'=== ReDim Preserve keeps the last dimension's neighbours
Dim a(), i, j
ReDim a(1, 1)
For i = 0 To 1: For j = 0 To 1: a(i, j) = i & j: Next: Next
ReDim Preserve a(1, 2)
Echo a(0, 0), a(1, 0), a(0, 1), a(1, 1)   '> 00 10 01 11
Show a(1, 2)                   '> Empty

'=== only the last dimension may change
Dim a()
ReDim a(1, 1)
On Error Resume Next
ReDim Preserve a(2, 1)
Failed                         '> 9
ReDim Preserve a(1)
Failed                         '> 9

'=== ReDim with an expression, a fraction, minus one
Dim n: n = 3
ReDim a(n * 2)
Echo UBound(a)                 '> 6
ReDim b(2.6)
Echo UBound(b)                 '> 3
ReDim c(-1)
Echo UBound(c)                 '> -1
ReDim d("4")
Echo UBound(d)                 '> 4

'=== ReDim below minus one
On Error Resume Next
ReDim a(-2)
Failed                         '> 9

'=== ReDim makes a variable
Option Explicit
ReDim a(2)
a(0) = 1
Echo a(0)                      '> 1

'=== ReDim of a variable declared without parentheses
Dim v
ReDim v(2)
Echo UBound(v)                 '> 2
ReDim v(1, 3)
Echo UBound(v, 2)              '> 3

'=== a fixed array keeps its size
Dim a(2)
On Error Resume Next
ReDim a(5)
Failed                         '> 10

'=== Erase
Dim a(1), d()
a(0) = 5
Erase a
Show a(0)                      '> Empty
Echo UBound(a)                 '> 1
ReDim d(1)
Erase d
On Error Resume Next
x = UBound(d)
Failed                         '> 9

'=== arrays of arrays
Dim a
a = Array(Array(1, 2), Array(3, 4))
Echo a(0)(1), a(1)(0)          '> 2 3
Dim b(1)
b(0) = Array("x", "y")
Echo b(0)(1)                   '> y

'=== assigning into an array in an array
Dim a(1)
a(0) = Array(1, 2)
a(0)(1) = "changed"
Echo a(0)(1)                   '> changed
Dim c: c = a(0)
c(0) = "copy"
Echo a(0)(0)                   '> 1

'=== copies are independent
Dim a, b
a = Array(1, 2, 3)
b = a
b(0) = 9
ReDim Preserve b(5)
Echo a(0), UBound(a), b(0), UBound(b)   '> 1 2 9 5

'=== an array in a field and in a dictionary
Class Holder
  Public List
End Class
Dim h: Set h = New Holder
h.List = Array(1, 2)
Echo h.List(1)                 '> 2
h.List(1) = "set"
Echo h.List(1)                 '> set
Dim d: Set d = CreateObject("Scripting.Dictionary")
d("a") = Array(1, 2)
Echo d("a")(1)                 '> 2

'=== objects in an array
Class Box
  Public V
End Class
Dim a(1)
Set a(0) = New Box
a(0).V = 5
a(0).V = a(0).V + 1
Echo a(0).V                    '> 6

'=== the Array function
Dim a: a = Array()
Echo UBound(a)                 '> -1
a = Array(5)
Echo UBound(a), a(0)           '> 0 5
a = Array(1, "b", Null, Empty, True)
Show a(2)                      '> Null
Echo UBound(a)                 '> 4

'=== IsArray, TypeName and VarType
Dim a(1), d()
Echo IsArray(a), IsArray(d), IsArray(5), IsArray(Array())   '> True True False True
Echo TypeName(a), VarType(a)   '> Variant() 8204

'=== indexes count as declared
Dim a(1, 1)
On Error Resume Next
x = a(0)
Failed                         '> 9
x = a(0, 0, 0)
Failed                         '> 9
x = a(2, 0)
Failed                         '> 9

'=== an index that is no number
Dim a(1)
x = a("x")                     '! 13

'=== sorting in place
Sub Sort(list)
  Dim i, j, x
  For i = 1 To UBound(list)
    x = list(i)
    j = i - 1
    Do While j >= 0
      If list(j) <= x Then Exit Do
      list(j + 1) = list(j)
      j = j - 1
    Loop
    list(j + 1) = x
  Next
End Sub
Dim a: a = Array(5, 3, 9, 1, 7)
Sort a
Echo Join(a, " ")              '> 1 3 5 7 9

'=== swapping elements
Sub Swap(x, y)
  Dim t: t = x: x = y: y = t
End Sub
Dim a: a = Array(1, 2)
Swap a(0), a(1)
Echo a(0), a(1)                '> 2 1

'=== bounds of an object's array
Class C
  Public Default Property Get Items: Items = Array(1, 2, 3): End Property
End Class
Class D
  Public x
End Class
Dim o, n, d2
Set o = New C
Echo UBound(o), LBound(o)      '> 2 0
Set n = Nothing
Set d2 = New D
On Error Resume Next
x = UBound(n)
Failed                         '> 91
x = LBound(d2)
Failed                         '> 438
x = UBound(5)
Failed                         '> 13

'=== elements of every kind over texts and arrays that a variable holds
Dim a, b, s, i, x
a = Array("one", Array(1, 2), 3, Empty, "two"): s = "before"
For i = 0 To 4
  s = a(i): Echo TypeName(s)
  s = "before": s = a(CInt(i)): b = s: s = "after": Echo TypeName(b)
Next
'> String
'> String
'> Variant()
'> Variant()
'> Integer
'> Integer
'> Empty
'> Empty
'> String
'> String
s = a(1): s(0) = 9: Echo a(1)(0), s(0)      '> 1 9
For Each x In a(1): s = a(1): s(1) = x: Next: Echo a(1)(1), s(1)   '> 2 2
s = "x": s = a(0): s = s & "!": Echo a(0), s   '> one one!
a(0) = a(4): a(4) = a(4) & "?": Echo a(0), a(4)   '> two two?
