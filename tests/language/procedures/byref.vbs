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
