'=== fields
Class Point
  Public X, Y
  Dim Z
End Class
Dim p: Set p = New Point
Show p.X                       '> Empty
p.X = 1: p.Y = "two": p.Z = 3.5
Echo p.X, p.Y, p.Z             '> 1 two 3.5

'=== every instance has its own fields
Class Box
  Public V
End Class
Dim a, b
Set a = New Box: Set b = New Box
a.V = 1: b.V = 2
Echo a.V, b.V                  '> 1 2

'=== methods
Class Counter
  Private count
  Public Sub Increase: count = count + 1: End Sub
  Public Sub Add(n)
    count = count + n
  End Sub
  Public Function Value
    Value = count
  End Function
End Class
Dim c: Set c = New Counter
c.Increase
c.Add 5
c.Add(10)
Call c.Add(100)
Echo c.Value, c.Value()        '> 116 116

'=== private members are not reached from outside
Class C
  Private hidden
  Private Sub Secret: End Sub
End Class
Dim o: Set o = New C
On Error Resume Next
o.hidden = 1
Failed                         '> 438
x = o.hidden
Failed                         '> 438
o.Secret
Failed                         '> 438

'=== a private member of another instance
Class C
  Private v
  Public Sub Init(x): v = x: End Sub
  Public Function Peek(other)
    Peek = other.v
  End Function
End Class
Dim a, b
Set a = New C: Set b = New C
b.Init 5
On Error Resume Next
x = a.Peek(b)
Echo Err.Number                '> 438

'=== unknown members
Class C
End Class
Dim o: Set o = New C
o.Missing                      '! 438

'=== members named like functions and keywords
Class C
  Public Function Replace(a): Replace = "r" & a: End Function
  Public Function Left: Left = "l": End Function
  Public [End]
  Public Property Get [New]: [New] = "n": End Property
  Public Function Join(a): Join = Left & Replace(a): End Function
End Class
Dim o: Set o = New C
o.End = "e"
Echo o.Replace(1), o.Left, o.End, o.New, o.Join(2)   '> r1 l e n lr2

'=== methods call each other with and without Me
Class C
  Public Function A: A = B & Me.B: End Function
  Public Function B: B = "b": End Function
End Class
Dim o: Set o = New C
Echo o.A                       '> bb

'=== Me is the instance
Class C
  Public Name
  Public Function Self: Set Self = Me: End Function
  Public Sub Rename(n): Me.Name = n: End Sub
End Class
Dim o: Set o = New C
o.Rename "x"
Echo o.Self.Self.Name          '> x
Echo o.Self Is o               '> True

'=== fields that are arrays
Class C
  Public Fixed(2)
  Private list()
  Public Sub Fill(n)
    ReDim list(n)
    list(n) = "last"
  End Sub
  Public Function Last: Last = list(UBound(list)): End Function
End Class
Dim o: Set o = New C
o.Fill 4
Echo o.Last                    '> last
o.Fixed(1) = "f"
Echo o.Fixed(1)                '> f

'=== the name of the class
Class Customer
End Class
Dim o: Set o = New Customer
Echo TypeName(o)               '> Customer
Echo VarType(o)                '> 9
Echo IsObject(o)               '> True

'=== a class is known before its text
Dim o: Set o = New Later
Echo o.V                       '> v
Class Later
  Public Function V: V = "v": End Function
End Class

'=== an unknown class
Dim o
Set o = New Missing            '! 506 Class not defined: 'Missing'

'=== members use the script's names
Dim g: g = "global"
Function Outside: Outside = "outside": End Function
Class C
  Public Function F: F = g & " " & Outside: End Function
End Class
Echo (New C).F                 '> global outside

'=== methods on a fresh object
Class C
  Public Sub Say(x): Echo "say " & x: End Sub
  Public Default Function Sum(a, b): Sum = a + b: End Function
End Class
Call (New C).Say("a")          '> say a
Echo (New C)(1, 2)             '> 3

'=== a method changes its arguments
Class C
  Public Sub Fill(x): x = "filled": End Sub
End Class
Dim o, v
Set o = New C
o.Fill v
Echo v                         '> filled

'=== constants of a class
Class C
  Public Function F: F = limit: End Function
  Private Function limit: limit = 10: End Function
End Class
Echo (New C).F                 '> 10

'=== a property beside a Sub of its name
Class C
  Public Sub Size: Echo "sub": End Sub
  Public Property Let Size(v): Echo "let", v: End Property
  Public Property Set Size(v): Echo "set": End Property
End Class
Dim o
Set o = New C
o.Size                         '> sub
o.Size = 5                     '> let 5
Set o.Size = o                 '> set

'=== a Sub beside a property of its name
Class C
  Public Property Let Size(v): End Property
  Public Sub Size: End Sub     '! 1041 Name redefined
End Class

'=== a class on one line
Class C : Public x : End Class
Dim o
Set o = New C : o.x = 2
Echo o.x                       '> 2
Execute "Class D End Class"    '! 1024 Expected statement

'=== New and a member
Class P
  Public v
  Public Function Init(n): v = n: Set Init = Me: End Function
  Public Sub Go(n): Echo "go", n: End Sub
  Public Property Get Items: Items = Array(1, 2): End Property
End Class
Dim o, j
Set o = New P.Init(5)
Echo o.v                       '> 5
Call New P.Go(7)               '> go 7
For Each j In New P.Items
  Echo j                       '> 1
                               '> 2
Next
Echo New P.Init(3).v, TypeName(New P), UBound(New P.Items)   '> 3 P 1
o.Go New P.Init(4).v           '> go 4

'=== empty parentheses behind a field
Class C
  Public x
  Private v
  Public Property Let p(a): v = a: End Property
  Public Property Get p: p = v: End Property
  Public Property Set q(a): Set x = a: End Property
End Class
Dim o
Set o = New C
o.x() = 3
o.p() = 4
Echo o.x(), o.p()              '> 3 4
Set o.q() = o
Echo o.x Is o                  '> True
Set o.x() = Nothing
Echo o.x Is Nothing            '> True

'=== parentheses round a callee or an object
Function F(x): F = x * 2: End Function
Sub S(x): Echo "s", x: End Sub
Class C
  Public v
  Public Property Get Items: Items = Array(7, 8): End Property
End Class
Dim a, o, x
Echo F(1) + (F)(4)             '> 10
Call ((S))(5)                  '> s 5
Call (S)(6)                    '> s 6
a = Array(1, 2)
x = (a)(1)
Echo x                         '> 2
(a)(1) = 5
Echo a(1)                      '> 5
Set o = New C
(o).v = 3
x = (o).v + ((o)).v
Echo x                         '> 6
x = (o.Items)(1)
Echo x                         '> 8
