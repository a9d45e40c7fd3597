'=== variables are Empty at every call, however many there are
Function None: None = TypeName(None): End Function
Function One: Dim a: One = TypeName(a) & TypeName(One): a = "left": End Function
Function Two(p): Dim a, b: Two = TypeName(a) & TypeName(b): a = 1: b = "left": End Function
Function Five(p, q)
  Dim a, b, c, d, e
  Five = TypeName(a) & TypeName(b) & TypeName(c) & TypeName(d) & TypeName(e)
  a = 1.5: b = "left": c = Array(1): d = p: e = True
End Function
Dim i
For i = 1 To 2
  Echo None & " " & One & " " & Two(i) & " " & Five(i, "q")
Next
'> Empty EmptyEmpty EmptyEmpty EmptyEmptyEmptyEmptyEmpty
'> Empty EmptyEmpty EmptyEmpty EmptyEmptyEmptyEmptyEmpty

'=== what is left behind is not found by the next call
Sub Leaves(n)
  Dim a, b, c, d, e, f
  a = "text" & n: b = n: c = Array(n): Set d = New RegExp: e = 1.5: f = Null
  If n > 0 Then Leaves n - 1
End Sub
Function Finds(n)
  Dim a, b, c, d, e, f
  Finds = IsEmpty(a) And IsEmpty(b) And IsEmpty(c) And IsEmpty(d) And IsEmpty(e) And IsEmpty(f)
  If n > 0 Then Finds = Finds And Finds(n - 1)
End Function
Leaves 20
Echo Finds(20)                 '> True

'=== every way out of a function
Function Way(n)
  If n = 0 Then
    Way = "if"
  ElseIf n = 1 Then
    If True Then Way = "inner" Else Way = "never"
  ElseIf n = 2 Then
    Way = "exit"
    Exit Function
  ElseIf n = 3 Then
    Exit Function
  Else
    Select Case n
      Case 4: Way = "case"
      Case Else: Way = n & "th"
    End Select
  End If
End Function
Echo Way(0) & " " & Way(1) & " " & Way(2) & " [" & Way(3) & "] " & Way(4) & " " & Way(5)
'> if inner exit [] case 5th

'=== results of every kind
Function Give(n)
  Dim a
  Select Case n
    Case 0: Give = "text"
    Case 1: Give = Array(1, 2)
    Case 2: Set Give = New RegExp
    Case 3: Give = Null
    Case 4: Give = 70000
    Case 5: Give = 0.5
  End Select
  a = "counted"
End Function
Dim k, all
For k = 0 To 6: all = all & TypeName(Give(k)) & " ": Next
Echo all                       '> String Variant() IRegExp2 Null Long Double Empty 
Give 0: Give 1: Give 2: Give 3
Dim x: x = "before": x = Give(4)
Echo x                         '> 70000
x = Give(0): x = x & Give(0)
Echo x                         '> texttext

'=== calculating with what is passed by reference
Sub Count(n, by): n = n + by: End Sub
Sub CountUp(n): n = n + 1: End Sub
Sub Scale(n, by): n = n * by: n = n - by: End Sub
Dim g: g = 32766
CountUp g: Echo TypeName(g) & " " & g      '> Integer 32767
CountUp g: Echo TypeName(g) & " " & g      '> Long 32768
g = 2147483647
CountUp g: Echo TypeName(g) & " " & g      '> Double 2147483648
g = 1.5
Count g, g: Echo g                         '> 3
g = "12"
CountUp g: Echo TypeName(g) & " " & g      '> Double 13
g = Empty
CountUp g: Echo TypeName(g) & " " & g      '> Integer 1
g = Null
CountUp g: Echo TypeName(g)                '> Null
g = 7
Scale g, g: Echo g                         '> 0
g = CByte(255)
CountUp g: Echo TypeName(g) & " " & g      '> Integer 256
g = "a"
Count g, "b": Echo g                       '> ab

'=== dividing with what is passed by reference
Sub Parts(n, by, q, r, f): q = n \ by: r = n Mod by: f = n / by: End Sub
Dim q, r, f, n, by
n = 17: by = 5
Parts n, by, q, r, f
Echo q & " " & r & " " & f                 '> 3 2 3.4
On Error Resume Next
by = 0
Parts n, by, q, r, f
Echo Err.Number & " " & q & " " & f        '> 11 3 3.4
Err.Clear
Sub Half(n): n = n \ 2: n = n Mod 10: End Sub
n = 46
Half n
Echo n                                     '> 3

'=== comparing what is passed by reference
Function Order(a, b)
  a = a
  If a < b Then
    Order = "less"
  ElseIf a > b Then
    Order = "more"
  ElseIf a = b Then
    Order = "same"
  Else
    Order = "none"
  End If
  If IsNumeric(a) Then If a >= 10 Then Order = Order & " ten"
  If Not a <> b Then Order = Order & " not"
  Order = Order & " " & (a <= b)
End Function
Dim u, v
u = 1: v = 2: Echo Order(u, v)             '> less True
u = 10: v = 2.5: Echo Order(u, v)          '> more ten False
u = 11: v = 11: Echo Order(u, v)           '> same ten not True
u = "x": v = "x": Echo Order(u, v)         '> same not True
u = "a": v = "x": Echo Order(u, v)         '> less True

'=== loops whose conditions are passed by reference
Sub Until10(n, most)
  Do While n < most
    n = n + 3
  Loop
  Do
    n = n - 1
  Loop Until n <= most
  Do
    n = n - 0.5
  Loop While n > 8.25
End Sub
Dim from, most
from = 1: most = 10
Until10 from, most
Echo from & " " & most                     '> 8 10

'=== a variable that refers to itself through two parameters
Sub Twice(a, b): a = a + b: b = a + b: End Sub
Dim w: w = 3
Twice w, w
Echo w                                     '> 12
