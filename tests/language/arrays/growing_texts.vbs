'=== an element that grows leaves copies of its array alone
Dim list(3), copy, i
list(1) = "a"
copy = list
i = 1
list(i) = list(i) & "b" & i
Echo list(1), copy(1)          '> ab1 a
list(1) = list(1) & "c"
Echo list(1)                   '> ab1c
i = 2
list(i) = list(i) & list(i - 1) & "!"
list(i) = list(i) & list(i)
Echo list(2)                   '> ab1c!ab1c!

'=== an element that was no text becomes one
Dim list(2), i
list(2) = 7
list(2) = list(2) & 8
Show list(2)                   '> String "78"
list(i) = list(i) & Null
Show list(0)                   '> String ""
list(0) = Null
list(i) = list(i) & Null
Show list(0)                   '> Null

'=== what is added may change index and array
Dim list(1), i
Function Moved()
  list(1) = "changed"
  i = 1
  Moved = "+"
End Function
list(0) = "zero"
list(i) = list(i) & Moved()
Echo list(0), list(1)          '> zero zero+

'=== an error leaves the element as it was
Dim list(1), i
list(1) = "kept"
i = 1
On Error Resume Next
list(i) = list(i) & Array(1, 2)
Echo Err.Number, list(1)       '> 13 kept
Err.Clear
i = 4
list(i) = list(i) & "x"
Echo Err.Number                '> 9

'=== an item of an object with a default property
Class Shelf
  Private text_
  Public Default Property Get Item(name)
    Item = "<" & name & text_
  End Property
  Public Property Let Item(name, value)
    text_ = value
  End Property
End Class
Dim o, k
Set o = New Shelf
k = "k"
o(k) = o(k) & "1"
Echo o(k)                      '> <k<k1

'=== a function's own name with an index calls it again
Function Count(n)
  Dim m
  m = n - 1
  Count = ""
  If n > 0 Then Count = Count(m) & n
End Function
Echo Count(3)                  '> 123

'=== what is left of a getter stays as it was when the getter was called
Dim s, t, n, o, list(1)
Class Meddler
  Public Property Get P : s = "" : n = 100 : list(1) = "changed" : P = "p" : End Property
  Public Default Property Get Item(i) : s = "" : Item = "i" : End Property
End Class
Set o = New Meddler
s = "abc" : s = s & "x" & o.P
Echo s                         '> abcxp
s = "abc" : t = s & "x" & o.P
Echo t                         '> abcxp
s = "abc" : s = s & "x" & o(1)
Echo s                         '> abcxi
n = 1
Echo n & "-" & o.P             '> 1-p
list(1) = "old"
list(1) = list(1) & "x" & o.P
Echo list(1)                   '> oldxp
