'=== one place calls methods of two classes, and fields, in turn
Class First
  Public Function Name(n): Name = "first" & n: End Function
  Public Property Get Value: Value = 1: End Property
  Public Property Let Value(v): Echo "first let " & v: End Property
End Class
Class Second
  Private m_value
  Public Function Name(n): n = n + 1: Name = "second" & n: End Function
  Public Property Get Value: Value = m_value: End Property
  Public Property Let Value(v): m_value = v * 2: End Property
End Class
Class Third
  Public Value
  Public Function Name(ByVal n): n = n + 10: Name = "third" & n: End Function
End Class
Sub Ask(o, n)
  Dim k: k = n
  o.Value = k + 1
  Echo o.Name(k) & " " & o.Value & " " & k
End Sub
Dim i
For i = 1 To 2
  Ask New First, i
  Ask New Second, i
  Ask New Third, i
Next
'> first let 2
'> first1 1 1
'> second2 4 2
'> third11 2 1
'> first let 3
'> first2 1 2
'> second3 6 3
'> third12 3 2

'=== one place meets a member that is not there, or takes other arguments
Class One: Public Function F(a): F = "one" & a: End Function: Public Property Get P: P = 1: End Property: End Class
Class Two: Public Function F: F = "two": End Function: End Class
Class Three: Private Function F(a): F = "three": End Function: Public Property Let P(v): Echo "P " & v: End Property: End Class
Sub Try(o)
  On Error Resume Next
  Dim t: t = "-"
  t = o.F(5)
  Echo t & " " & Err.Number
  Err.Clear
  t = "-": t = o.P
  Echo t & " " & Err.Number
  Err.Clear
  o.P = 1 + 1
  Echo Err.Number
End Sub
Try New One
'> one5 0
'> 1 0
'> 438
Try New Two
'> - 450
'> - 438
'> 438
Try New One
'> one5 0
'> 1 0
'> 438
Try Nothing
'> - 424
'> - 424
'> 424
Try 5
'> - 424
'> - 424
'> 424

'=== an object that ends in its own method
Class Loud
  Public Name
  Public Sub Drop: Set keep = Nothing: Echo Name & " still here": End Sub
  Public Property Get Gone: Set keep = Nothing: Gone = Name & "!": End Property
  Public Property Let Away(v): Set keep = Nothing: Echo v & Name: End Property
  Public Function Hand(ByVal other): Set keep = Nothing: Hand = other.Name: End Function
  Private Sub Class_Terminate: Echo "gone " & Name: End Sub
End Class
Dim keep
Set keep = New Loud: keep.Name = "a"
keep.Drop
'> a still here
'> gone a
Set keep = New Loud: keep.Name = "b"
Echo keep.Gone
'> gone b
'> b!
Set keep = New Loud: keep.Name = "c"
keep.Away = "from "
'> from c
'> gone c
Set keep = New Loud: keep.Name = "d"
Echo keep.Hand(keep)
'> gone d
'> d

'=== variables of a method end in their order, Me among them
Class Ending
  Public Name
  Public Sub Run(ByVal first)
    Dim last: Set last = Named("last")
    Set held = Nothing
  End Sub
  Private Sub Class_Terminate: Echo Name: End Sub
End Class
Function Named(n): Set Named = New Ending: Named.Name = n: End Function
Dim held
Set held = Named("me")
held.Run Named("first")
'> first
'> me
'> last

'=== arguments of methods by reference and by value
Class Adder
  Public Sub Add(n, by): n = n + by: End Sub
  Public Sub AddTo(ByVal n, by): n = n + by: Echo n: End Sub
  Public Function Reads(a, b): Reads = a & "," & b: End Function
  Public Property Let Item(k, v): k = k & "k": v = v & "v": End Property
End Class
Dim gl: gl = 1
Sub Locals
  Dim o, lo, arr: Set o = New Adder
  lo = 1: arr = Array(1, 2)
  o.Add lo, 2: o.Add gl, lo: o.Add arr(1), gl: o.Add (lo), 5
  Echo lo & " " & gl & " " & arr(1)
  o.AddTo lo, gl: o.AddTo gl, 1: o.AddTo arr(0), 1
  Echo lo & " " & gl & " " & arr(0) & " " & o.Reads(lo, gl) & " " & o.Reads(arr(0), "t")
  o.Item(lo) = gl
  Echo lo & " " & gl
End Sub
Locals
'> 3 4 6
'> 7
'> 5
'> 2
'> 3 4 1 3,4 1,t
'> 3 4

'=== recursion through a method and a property
Class Deep
  Public Function Sum(n)
    If n = 0 Then Sum = 0 Else Sum = n + Me.Sum(n - 1)
  End Function
  Public Function Other(o, n)
    If n > 0 Then Other = 1 + o.Other(Me, n - 1)
  End Function
  Public Level
  Public Property Get Below
    Level = Level + 1
    If Level < 50 Then Below = Me.Below + 1 Else Below = 0
  End Property
End Class
Dim x, y: Set x = New Deep: Set y = New Deep
Echo x.Sum(100) & " " & x.Other(y, 31) & " " & x.Below  '> 5050 31 49
On Error Resume Next
Echo x.Sum(100000)
Echo Err.Number                            '> 28
Echo x.Sum(10)                             '> 55

'=== the value of a property that is put is an expression, a text, an object
Class Holder
  Private m
  Public Property Let V(x): m = TypeName(x) & ":" & x: End Property
  Public Property Set V(x): Set m = x: End Property
  Public Property Get V
    If IsObject(m) Then Set V = m Else V = m
  End Property
End Class
Class Plain: Public Default Property Get D: D = "default": End Property: End Class
Dim h: Set h = New Holder
Dim t: t = "t"
h.V = 1 + 1: Echo h.V                      '> Integer:2
h.V = t & "u": Echo h.V                    '> String:tu
h.V = t: Echo h.V                          '> String:t
h.V = New Plain: Echo TypeName(h.V)        '> String
Set h.V = New Plain: Echo h.V              '> default
With New Holder
  .V = 2 * 3
  Echo .V                                  '> Integer:6
End With
