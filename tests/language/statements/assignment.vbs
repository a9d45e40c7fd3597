'=== values are copied
Dim a, b
a = 1
b = a
a = 2
Echo a, b                      '> 2 1

'=== arrays are copied
Dim a, b
a = Array(1, 2)
b = a
a(0) = 9
Echo a(0), b(0)                '> 9 1
b(1) = 8
Echo a(1), b(1)                '> 2 8

'=== objects are shared
Class Box
  Public V
End Class
Dim a, b
Set a = New Box
Set b = a
a.V = 5
Echo b.V                       '> 5

'=== without Set an object gives its default value
Class Named
  Public Default Function Text: Text = "value": End Function
End Class
Dim n, v
Set n = New Named
v = n
Show v                         '> String "value"

'=== an object without a default value needs Set
Class Thing
End Class
Dim x
x = New Thing                  '! 438

'=== Set wants an object
Dim x
Set x = 5                      '! 424

'=== Set wants an object, not Empty
Dim x, y
Set x = y                      '! 424

'=== Set x = Nothing
Dim x
Set x = Nothing
Show x                         '> Nothing
Echo x Is Nothing              '> True

'=== an assignment replaces an object
Class Thing
End Class
Dim x
Set x = New Thing
x = 5
Show x                         '> Integer 5

'=== Nothing has no members
Dim x
Set x = Nothing
x.Name = 1                     '! 424

'=== a number has no members
Dim x
x = 5
x.Name = 1                     '! 424

'=== a chain of members
Class Node
  Public Value, Following
End Class
Dim n: Set n = New Node
Set n.Following = New Node
Set n.Following.Following = New Node
n.Following.Following.Value = "deep"
Echo n.Following.Following.Value   '> deep

'=== a variable assigned to itself
Class Box
  Public V
End Class
Dim s, a, o
s = "te" & "xt"
s = s
Echo s                         '> text
a = Array(1, 2)
a = a
a(0) = a(0)
Echo a(0), a(1)                '> 1 2
Set o = New Box
o.V = "v" & 1
Set o = o
o.V = o.V
Echo o.V                       '> v1
Dim b(1)
b(0) = "el" & "ement"
b(0) = b(0)
Echo b(0)                      '> element
