Option Explicit
Const kSize = 200

Function Filled(seed)
  Dim m(), i, j
  ReDim m(kSize - 1, kSize - 1)
  For i = 0 To kSize - 1
    For j = 0 To kSize - 1
      m(i, j) = (i * seed + j) Mod 10
    Next
  Next
  Filled = m
End Function

Function Product(a, b)
  Dim c(), i, j, k, sum
  ReDim c(kSize - 1, kSize - 1)
  For i = 0 To kSize - 1
    For j = 0 To kSize - 1
      sum = 0
      For k = 0 To kSize - 1
        sum = sum + a(i, k) * b(k, j)
      Next
      c(i, j) = sum
    Next
  Next
  Product = c
End Function

Function Primes(limit)
  Dim composite(), i, j, count
  ReDim composite(limit)
  count = 0
  For i = 2 To limit
    If Not composite(i) Then
      count = count + 1
      For j = i + i To limit Step i
        composite(j) = True
      Next
    End If
  Next
  Primes = count
End Function

Dim c
c = Product(Filled(3), Filled(7))
WScript.Echo c(0, 0) & " " & c(kSize - 1, kSize - 1) & " " & c(17, 42)
WScript.Echo Primes(2000000)
