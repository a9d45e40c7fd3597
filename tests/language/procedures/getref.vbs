'=== a reference is called like the function
Function Add(a, b)
  Add = a + b
End Function
Dim f: Set f = GetRef("Add")
Echo f(2, 3)                   '> 5
Echo IsObject(f)               '> True

'=== as a statement
Sub Say(x)
  Echo "say " & x
End Sub
Sub Hello
  Echo "hello"
End Sub
Dim s: Set s = GetRef("Say")
s "x"                          '> say x
Call s("y")                    '> say y
Dim h: Set h = GetRef("Hello")
h                              '> hello
h()                            '> hello
Call h                         '> hello
Call GetRef("Hello")()         '> hello

'=== passed along
Function Apply(f, x)
  Apply = f(x)
End Function
Function Square(x)
  Square = x * x
End Function
Echo Apply(GetRef("square"), 5)   '> 25

'=== stored in a dictionary and an array
Function One: One = 1: End Function
Function Twice(x): Twice = 2 * x: End Function
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add "twice", GetRef("Twice")
Echo d("twice")(4)             '> 8
Dim a(1): Set a(0) = GetRef("Twice")
Echo a(0)(5)                   '> 10

'=== an unknown name
On Error Resume Next
Dim f: Set f = GetRef("Missing")
Failed                         '> 5

'=== what is no name
On Error Resume Next
Set f = GetRef(123)
Failed                         '> 13
Set f = GetRef(Null)
Failed                         '> 13
Set f = GetRef(Empty)
Failed                         '> 13
Set f = GetRef("NoSuch")
Failed                         '> 5
