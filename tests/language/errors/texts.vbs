'=== a missing member is shown behind its object
Class C
  Public Inner
  Private hidden
  Public Property Get OnlyGet: OnlyGet = 1: End Property
  Public Function Self: Set Self = Me: End Function
End Class
Dim o, list(1), d
Set o = New C
Set o.Inner = New C
Set list(1) = o
Set d = CreateObject("Scripting.Dictionary")
o.Foo                          '! 438 Object doesn't support this property or method: 'o.Foo'
x = o.Inner.Foo                '! 438 Object doesn't support this property or method: 'o.Inner.Foo'
o.Self().Foo = 1               '! 438 Object doesn't support this property or method: 'o.Self(...).Foo'
list(1).Foo 5                  '! 438 Object doesn't support this property or method: 'list(...).Foo'
o.Foo(1) = 2                   '! 438 Object doesn't support this property or method: 'o.Foo'
x = o.hidden                   '! 438 Object doesn't support this property or method: 'o.hidden'
o.OnlyGet = 2                  '! 438 Object doesn't support this property or method: 'o.OnlyGet'
d.Foo                          '! 438 Object doesn't support this property or method: 'd.Foo'
Err.Foo                        '! 438 Object doesn't support this property or method: 'Err.Foo'

'=== a missing member of Me
Class C
  Public Sub Lost: Me.Missing = 1: End Sub   '! 438 Object doesn't support this property or method: 'Me.Missing'
End Class
Call New C.Lost

'=== what is no object
Dim n, e, a(1)
Class C
  Public Inner
End Class
Set n = Nothing
e.Foo                          '! 424 Object required: 'e'
x = e.Foo.Bar                  '! 424 Object required: 'e'
Dim o: Set o = New C
x = o.Inner.Bar                '! 424 Object required: 'o.Inner'
a(1).Foo                       '! 424 Object required: 'a(...)'
Set x = e                      '! 424 Object required: 'e'
n.Foo                          '! 424 Object required: 'n'
With n
  .Foo                         '! 424 Object required
End With

'=== subscripts
Dim a(2), b(1, 1), i, d()
x = a(7)                       '! 9 Subscript out of range: '[number: 7]'
a(7) = 1                       '! 9 Subscript out of range: '[number: 7]'
i = 9
x = a(i)                       '! 9 Subscript out of range: 'i'
a(i) = 1                       '! 9 Subscript out of range: 'i'
a(i) = a(i) & "x"              '! 9 Subscript out of range: 'i'
x = a(i + 1)                   '! 9 Subscript out of range: '[number: 10]'
x = a("5")                     '! 9 Subscript out of range: '[string: "5"]'
x = d(0)                       '! 9 Subscript out of range: '[number: 0]'
x = b(2, 0)                    '! 9 Subscript out of range
x = UBound(d)                  '! 9 Subscript out of range: 'UBound'
Sub S(x): End Sub
S a(i)                         '! 9 Subscript out of range: 'i'

'=== type mismatches
Dim v: v = 5
x = CInt("abc")                '! 13 Type mismatch: 'CInt'
x = v(1)                       '! 13 Type mismatch: 'v'
v(1) = 1                       '! 13 Type mismatch: 'v'
x = "abc" + 1                  '! 13 Type mismatch: '[string: "abc"]'
x = -"abc"                     '! 13 Type mismatch: '[string: "abc"]'
If "abc" Then x = 1            '! 13 Type mismatch: '[string: "abc"]'
Missing 1                      '! 13 Type mismatch: 'Missing'

'=== what is no procedure, in a procedure
Uses
Sub Uses
  x = missing(1)               '! 13 Type mismatch: 'missing'
End Sub

'=== the same with nothing in parentheses
Uses
Sub Uses
  x = missing()                '! 13 Type mismatch: 'missing'
End Sub

'=== arguments
Class C
  Public Function F(a): End Function
  Public Property Get P(a): End Property
  Public Property Let P(a, b): End Property
End Class
Sub S(a): End Sub
Dim o: Set o = New C
S                    '! 450 Wrong number of arguments or invalid property assignment: 'S'
x = o.F                        '! 450 Wrong number of arguments or invalid property assignment: 'o.F'
o.F 1, 2                       '! 450 Wrong number of arguments or invalid property assignment: 'o.F'
o.P = 1                        '! 450 Wrong number of arguments or invalid property assignment: 'o.P'
o.P(1, 2) = 1                  '! 450 Wrong number of arguments or invalid property assignment: 'o.P'
x = Mid("abc", 0)              '! 5 Invalid procedure call or argument: 'Mid'
x = CInt(40000)                '! 6 Overflow: 'CInt'
x = CInt(Null)                 '! 94 Invalid use of Null: 'CInt'

'=== names that are not there
Dim x
Option Explicit
x = missing                    '! 500 Variable is undefined: 'missing'
Option Explicit
missing = 1                    '! 500 Variable is undefined: 'missing'
Option Explicit
Set x = New NoClass            '! 500 Variable is undefined: 'NoClass'
Set x = New NoClass            '! 506 Class not defined: 'NoClass'

'=== a key twice
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add "k", 1
d.Add "k", 2                   '! 457 This key is already associated with an element of this collection

'=== a trapped error has no name behind its text
On Error Resume Next
Dim o, a(1)
Set o = New RegExp
x = CInt("abc")
FailedText                     '> 13 Type mismatch
o.Foo
FailedText                     '> 438 Object doesn't support this property or method
x = a(7)
FailedText                     '> 9 Subscript out of range
x = 1 + "abc"
FailedText                     '> 13 Type mismatch
x = CreateObject("No.Such")
FailedText                     '> 429 ActiveX component can't create object
Execute "Option Explicit: nosuch = 1"
FailedText                     '> 500 Variable is undefined
