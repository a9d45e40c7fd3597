'=== a loop over the elements of a global array
Dim list(9), total
Sub Fill
  Dim i
  For i = 0 To 9: list(i) = i * i: Next
  i = 0
  Do While i < 10
    total = total + list(i)
    list(i) = list(i) + 1
    i = i + 1
  Loop
End Sub
Fill
Echo total & " " & list(0) & " " & list(9) '> 285 1 82

'=== the array changes while the loop runs
Dim a: a = Array(1, 2, 3)
Sub Change
  Dim i, text
  For i = 0 To 5
    If i = 2 Then ReDim Preserve a(7)
    If i = 3 Then a = Array(10, 11, 12, 13, 14, 15)
    If i = 4 Then Replace2
    If i <= UBound(a) Then text = text & " " & a(i)
  Next
  Echo text & " " & UBound(a)
End Sub
Sub Replace2: a = Split("a b c d e f g"): End Sub
Change                                     '>  1 2 3 13 e f 6

'=== the array becomes something else
Dim b: b = Array(1, 2, 3)
Sub Becomes
  Dim i
  On Error Resume Next
  For i = 0 To 3
    If i = 1 Then b = 5
    If i = 2 Then Set b = CreateObject("Scripting.Dictionary"): b.Add 2, "two"
    If i = 3 Then Erase b
    Echo i & " " & b(i) & " " & Err.Number
    If Err.Number <> 0 Then Echo "error " & Err.Number
    Err.Clear
  Next
End Sub
Becomes
'> 0 1 0
'> error 13
'> 2 two 0
'> 3  13
'> error 13

'=== its copies and its elements
Dim c: c = Array("x", "y", "z")
Sub Elements
  Dim i, copy
  For i = 0 To 2
    copy = c
    c(i) = c(i) & i
    Grow c(i)
    copy(i) = "copy"
  Next
End Sub
Sub Grow(e): e = e & "!": End Sub
Elements
Echo Join(c)                               '> x0! y1! z2!

'=== objects in it
Class Box: Public V: Private Sub Class_Terminate: Echo "gone " & V: End Sub: End Class
Dim boxes(2)
Sub Make
  Dim i
  For i = 0 To 2
    Set boxes(i) = New Box
    boxes(i).V = i
    boxes(i).V = boxes(i).V + 10
  Next
  Set boxes(1) = Nothing
End Sub
Make                                       '> gone 11
Echo boxes(2).V                            '> 12
Set boxes(0) = Nothing                     '> gone 10
Set boxes(2) = Nothing                     '> gone 12

'=== a variable or parameter of the same name is another
Dim d(2)
d(0) = "global"
Sub Hides(d)
  Dim i
  For i = 0 To 0: d(i) = "mine": Next
End Sub
Sub HidesToo
  Dim i, d(1)
  For i = 0 To 1: d(i) = "own": Next
End Sub
Dim other: other = Array(0)
Hides other
HidesToo
Echo d(0) & " " & other(0)                 '> global mine

'=== in a recursion, in a method, and walked meanwhile
Dim e: e = Array(0, 0, 0)
Sub Down(n)
  Dim i
  For i = 0 To 2
    e(i) = e(i) + n
    If n > 0 And i = 1 Then Down n - 1
  Next
End Sub
Down 3
Echo Join(e)                               '> 6 6 6
Class Walker
  Public Function Sum
    Dim i, item
    For Each item In e
      For i = 0 To 2: Sum = Sum + e(i) * item: Next
    Next
  End Function
End Class
Echo (New Walker).Sum                      '> 324

'=== errors name it
Dim f(2)
Sub Outside
  Dim i
  For i = 1 To 5
    f(i) = i
  Next
End Sub
On Error Resume Next
Outside
Echo Err.Number & " " & f(2)               '> 9 2
