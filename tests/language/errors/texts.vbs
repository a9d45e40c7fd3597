'=== a missing member is shown behind its object
Class C
  Public Inner
  Private hidden
  Public Property Get OnlyGet: OnlyGet = 1: End Property
  Public Function Self: Set Self = Me: End Function
  Public Sub Lost: Me.Missing = 1: End Sub
End Class
Dim o, list(1), d
Set o = New C
Set o.Inner = New C
Set list(1) = o
Set d = CreateObject("Scripting.Dictionary")
On Error Resume Next
o.Foo
FailedText                     '> 438 Object doesn't support this property or method: 'o.Foo'
x = o.Inner.Foo
FailedText                     '> 438 Object doesn't support this property or method: 'o.Inner.Foo'
o.Self().Foo = 1
FailedText                     '> 438 Object doesn't support this property or method: 'o.Self(...).Foo'
list(1).Foo 5
FailedText                     '> 438 Object doesn't support this property or method: 'list(...).Foo'
o.Foo(1) = 2
FailedText                     '> 438 Object doesn't support this property or method: 'o.Foo'
x = o.hidden
FailedText                     '> 438 Object doesn't support this property or method: 'o.hidden'
o.OnlyGet = 2
FailedText                     '> 438 Object doesn't support this property or method: 'o.OnlyGet'
d.Foo
FailedText                     '> 438 Object doesn't support this property or method: 'd.Foo'
Err.Foo
FailedText                     '> 438 Object doesn't support this property or method: 'Err.Foo'
o.Lost
FailedText                     '> 438 Object doesn't support this property or method: 'Me.Missing'

'=== what is no object
Dim n, e, a(1)
Class C
  Public Inner
End Class
Set n = Nothing
On Error Resume Next
e.Foo
FailedText                     '> 424 Object required: 'e'
x = e.Foo.Bar
FailedText                     '> 424 Object required: 'e'
Dim o: Set o = New C
x = o.Inner.Bar
FailedText                     '> 424 Object required: 'o.Inner'
a(1).Foo
FailedText                     '> 424 Object required: 'a(...)'
Set x = e
FailedText                     '> 424 Object required: 'e'
n.Foo
FailedText                     '> 91 Object variable not set: 'n'
With n
  .Foo
End With
Failed                         '> 91

'=== subscripts
Dim a(2), b(1, 1), i, d()
On Error Resume Next
x = a(7)
FailedText                     '> 9 Subscript out of range: '[number: 7]'
a(7) = 1
FailedText                     '> 9 Subscript out of range: '[number: 7]'
i = 9
x = a(i)
FailedText                     '> 9 Subscript out of range: 'i'
a(i) = 1
FailedText                     '> 9 Subscript out of range: 'i'
a(i) = a(i) & "x"
FailedText                     '> 9 Subscript out of range: 'i'
x = a(i + 1)
FailedText                     '> 9 Subscript out of range: '[number: 10]'
x = a("5")
FailedText                     '> 9 Subscript out of range: '[string: "5"]'
x = d(0)
FailedText                     '> 9 Subscript out of range: '[number: 0]'
x = b(2, 0)
Failed                         '> 9
x = UBound(d)
FailedText                     '> 9 Subscript out of range: 'UBound'
Sub S(x): End Sub
S a(i)
FailedText                     '> 9 Subscript out of range: 'i'

'=== type mismatches
Dim v: v = 5
On Error Resume Next
x = CInt("abc")
FailedText                     '> 13 Type mismatch: 'CInt'
x = v(1)
FailedText                     '> 13 Type mismatch: 'v'
v(1) = 1
FailedText                     '> 13 Type mismatch: 'v'
x = "abc" + 1
FailedText                     '> 13 Type mismatch: '[string: "abc"]'
x = -"abc"
FailedText                     '> 13 Type mismatch: '[string: "abc"]'
If "abc" Then x = 1
FailedText                     '> 13 Type mismatch: '[string: "abc"]'
Missing 1
FailedText                     '> 13 Type mismatch: 'Missing'

'=== arguments
Class C
  Public Function F(a): End Function
  Public Property Get P(a): End Property
  Public Property Let P(a, b): End Property
End Class
Sub S(a): End Sub
Dim o: Set o = New C
On Error Resume Next
Execute "S"
FailedText                     '> 450 Wrong number of arguments or invalid property assignment: 'S'
x = o.F
FailedText                     '> 450 Wrong number of arguments or invalid property assignment: 'o.F'
o.F 1, 2
FailedText                     '> 450 Wrong number of arguments or invalid property assignment: 'o.F'
o.P = 1
FailedText                     '> 450 Wrong number of arguments or invalid property assignment: 'o.P'
o.P(1, 2) = 1
FailedText                     '> 450 Wrong number of arguments or invalid property assignment: 'o.P'
x = Mid("abc", 0)
FailedText                     '> 5 Invalid procedure call or argument: 'Mid'
x = CInt(40000)
FailedText                     '> 6 Overflow: 'CInt'
x = CInt(Null)
FailedText                     '> 94 Invalid use of Null: 'CInt'

'=== names that are not there
Option Explicit
Dim x
On Error Resume Next
x = missing
FailedText                     '> 500 Variable is undefined: 'missing'
missing = 1
FailedText                     '> 500 Variable is undefined: 'missing'
Set x = New NoClass
FailedText                     '> 506 Class not defined: 'NoClass'

'=== a key twice
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add "k", 1
On Error Resume Next
d.Add "k", 2
FailedText                     '> 457 This key is already associated with an element of this collection
