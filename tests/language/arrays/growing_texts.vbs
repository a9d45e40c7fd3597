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

'=== a default property within what is added leaves the left side as it was
Dim s, t, o, list(1), n
Class Meddler
  Public Field
  Public Default Property Get P : s = "changed" : list(1) = s : n = s : Field = s : P = "p" : End Property
End Class
Class Clearer
  Public Default Property Get P : s = 5 : Set o = Nothing : P = "p" : End Property
End Class
Set o = New Meddler
s = "abc" : s = s & o
Echo s                         '> abcp
s = "abc" : s = s & "x" & o
Echo s                         '> abcxp
s = "abc" : t = s & o
Echo t                         '> abcp
list(1) = "old" : list(1) = list(1) & o
Echo list(1)                   '> oldp
list(1) = "old" : list(1) = list(1) & "x" & o
Echo list(1)                   '> oldxp
o.Field = "f" : o.Field = o.Field & "x" & o
Echo o.Field                   '> fxp
n = 1 : n = n & o
Echo n                         '> 1p
Set o = New Clearer
s = "abc" : s = s & o
Echo s                         '> abcp

'=== a parameter may stand for a variable that others change
Dim s
Function Change : s = "changed" : Change = "f" : End Function
Class Meddler
  Public Default Property Get P : s = "changed" : P = "p" : End Property
End Class
Sub Extend(x) : x = x & "-" & Change() : End Sub
Sub ExtendBy(x, o) : x = x & "-" & o : End Sub
s = "abc" : Extend s
Echo s                         '> abc-f
s = "abc" : ExtendBy s, New Meddler
Echo s                         '> abc-p

'=== fields grow through their object
Class Box
  Public Text
  Private hidden
  Public Function Build(n)
    Dim i
    For i = 1 To n
      Me.Text = Me.Text & i & ","
      Text = Me.Text & ";"
      Me.hidden = Me.hidden & i
    Next
    Build = hidden
  End Function
End Class
Dim b, copy, i
Set b = New Box
For i = 1 To 3
  b.Text = b.Text & i
  copy = b.Text
  b.Text = b.Text & "-" & i & b.Text
Next
Echo b.Text                    '> 1-112-21-1123-31-112-21-1123
Echo copy                      '> 1-112-21-1123
Echo b.Build(2)                '> 12
Echo b.Text                    '> 1-112-21-1123-31-112-21-11231,;2,;
With b
  .Text = "w"
  For i = 1 To 3
    .Text = .Text & i
  Next
  Echo .Text                   '> w123
End With
b.Text = Null
For i = 1 To 2
  b.Text = b.Text & 7
Next
Show b.Text                    '> String "77"

'=== a property that builds a text runs its code every time
Class Counter
  Private text_
  Public Gets, Lets
  Public Property Get Text : Gets = Gets + 1 : Text = text_ : End Property
  Public Property Let Text(v) : Lets = Lets + 1 : text_ = "<" & v & ">" : End Property
End Class
Dim c, i: Set c = New Counter
For i = 1 To 3
  c.Text = c.Text & i
Next
Echo c.Text, c.Gets, c.Lets    '> <<<1>2>3> 4 3

'=== objects of several classes at one place
Class A
  Public T
End Class
Class B
  Private t_
  Public Property Get T : T = t_ : End Property
  Public Property Let T(v) : t_ = v & "." : End Property
End Class
Dim o, x, y
Set x = New A: Set y = New B
For Each o In Array(x, y, x, y, x)
  o.T = o.T & "t"
Next
Echo x.T, y.T                  '> ttt t.t.

'=== a private field stays out of reach, an error leaves the field alone
Class Box
  Public Text
  Private hidden
End Class
Dim b, i
Set b = New Box
b.Text = "kept"
On Error Resume Next
For i = 1 To 2
  b.Text = b.Text & Array(1)
  Failed
  b.hidden = b.hidden & "x"
  Failed
Next
'> 13
'> 438
'> 13
'> 438
Echo b.Text                    '> kept

'=== the object may be exchanged by what is added
Class Box
  Public Text
End Class
Dim b, first
Function Exchange
  Set b = New Box
  b.Text = "new"
  Exchange = "+"
End Function
Set b = New Box
Set first = b
b.Text = "old"
b.Text = b.Text & Exchange()
Echo first.Text, b.Text        '> old old+

'=== elements grow beside calls of functions
Dim list(1), d, i, s
Function Twice(x) : Twice = x * 2 : End Function
Set d = CreateObject("Scripting.Dictionary")
For i = 1 To 3
  list(1) = list(1) & Twice(i)
  d("k") = d("k") & "-" & Twice(i)
Next
Echo list(1), d("k")           '> 246 -2-4-6
