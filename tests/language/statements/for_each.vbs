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
