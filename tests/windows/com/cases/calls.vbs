'=== a default member with a key, read, assigned, set
Set p = CreateObject("Quorvane.Probe")
p("a") = 1
p.Item("b") = "two"
Set p("c") = p
WScript.Echo p("A") & p("a") & " " & p.Item("b") & " " & p("c")
'> 1 two an object

'=== a property that takes none of the ways it is used in
Set p = CreateObject("Quorvane.Probe")
WScript.Echo p.PropertyOnly
'> property
p.PropertyOnly = 5
Set p.PropertyOnly = Nothing
WScript.Echo p.Log
'> put I2 5 put DISPATCH nothing
p.PropertyOnly
WScript.Echo "as a statement"
'> as a statement

'=== a method as a statement and in an expression
Set p = CreateObject("Quorvane.Probe")
p.MethodOnly
x = p.MethodOnly
WScript.Echo p.Log & " " & TypeName(x)
'> without result with result Empty

'=== names are looked up once
Set p = CreateObject("Quorvane.Probe")
For i = 1 To 100
  x = p.Item("a")
  p.ITEM("a") = i
Next
WScript.Echo p("a") & " " & p.LookUps
'> 100 2

'=== variables change that go by reference
Set p = CreateObject("Quorvane.Probe")
a = "i4"
b = "text"
c = "table"
d = "null"
p.Change a, b, c, (d), "cy"
WScript.Echo a & " " & Len(b) & " " & c(2, 2) & " " & d
'> -70000 8 23 null
Dim list(2)
list(1) = "date"
p.Change list(1)
WScript.Echo TypeName(list(1)) & TypeName(list(0))
'> DateEmpty
Class Holder
  Public Content
End Class
Set h = New Holder
h.Content = "i2"
p.Change h.Content
WScript.Echo h.Content
'> i2
Sub Inner(ByRef x)
  p.Change x
End Sub
y = "r8"
Inner y
WScript.Echo y
'> 0.1
same = "text of its own"
before = "ui1"
p.Change before, same
WScript.Echo before & " " & TypeName(same)
'> 200 Error

'=== arrays change that go by reference
Set p = CreateObject("Quorvane.Probe")
Dim fixed(1)
fixed(0) = 1
p.ChangeElement fixed
WScript.Echo fixed(0)
'> changed
a = Array(1, 2)
b = a
p.ChangeElement a
WScript.Echo a(0) & b(0)
'> changed1
For Each e In a
  p.ChangeElement a
  WScript.Echo e
Next
'> changed
'> 2
On Error Resume Next
p.Change fixed
WScript.Echo Err.Number & " " & fixed(0)
'> 13 changed

'=== For Each
Set p = CreateObject("Quorvane.Probe")
For Each word In p
  WScript.Echo word
Next
'> one
'> two
'> three
WScript.Echo p.Log
'> ~items
For Each word In p
  Exit For
Next
WScript.Echo word & " " & p.Log
'> one ~items ~items
On Error Resume Next
For Each x In p.Mute
Next
WScript.Echo Err.Number
'> 451

'=== the same object is the same
Set p = CreateObject("Quorvane.Probe")
WScript.Echo (p Is p.Itself) & (p Is p.Make("other"))
'> TrueFalse
WScript.Echo TypeName(p) & " " & TypeName(p.Mute) & " " & IsObject(p.Mute)
'> Object Unknown True

'=== objects go when the script lets them go
Set p = CreateObject("Quorvane.Probe")
Set a = p.Make("a")
Set b = p.Make("b")
Set a2 = a
Set a = Nothing
p.Write "a-dropped"
Set a2 = Nothing
p.Write "a2-dropped"
p.Make("c").Write "c-called"
p.Write "after-c"
Sub Scope
  Dim local
  Set local = p.Make("local")
  p.Write "in-scope"
End Sub
Scope
b = 1
WScript.Echo p.Log
'> a-dropped ~a a2-dropped c-called ~c after-c in-scope ~local ~b

'=== objects that a collection of the engine holds go with it
Set p = CreateObject("Quorvane.Probe")
Class Pair
  Public Left, Right
  Private Sub Class_Terminate
    p.Write "pair"
  End Sub
End Class
Set x = New Pair
Set x.Left = p.Make("left")
Set x.Right = p.Make("right")
Set x = Nothing
WScript.Echo p.Log
'> pair ~left ~right
