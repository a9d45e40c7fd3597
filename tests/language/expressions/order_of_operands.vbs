'=== a variable on the left keeps the value it had, whatever the right side runs
Class Changer
  Public Default Property Get Value : v = 100 : Value = 1 : End Property
End Class
Dim v, o
Set o = New Changer
v = 1 : Echo v + o             '> 2
v = 1 : Echo v + CInt(o)       '> 2
v = 1 : Echo v + (-o)          '> 0
v = 1 : Echo v + (+o)          '> 2
v = 1 : Echo v + (Not o)       '> -1
v = 1 : Echo v + (o + 0)       '> 2
v = 1 : Echo v + (2 * o)       '> 3
v = 1 : Echo v + ((o))         '> 2
v = 1 : Echo v + Abs(-o)       '> 2
v = 1 : Echo v + Len(o)        '> 2
v = 1 : Echo v + Len(CStr(o))  '> 2
v = 1 : Echo v & Len(o)        '> 11
v = 1 : Echo (v) + CInt(o)     '> 2

'=== with every operator
Class Changer
  Public Default Property Get Value : v = 100 : Value = 3 : End Property
End Class
Dim v, o
Set o = New Changer
v = 7 : Echo v + CInt(o)       '> 10
v = 7 : Echo v - CInt(o)       '> 4
v = 7 : Echo v * CInt(o)       '> 21
v = 6 : Echo v / CInt(o)       '> 2
v = 7 : Echo v \ CInt(o)       '> 2
v = 7 : Echo v Mod CInt(o)     '> 1
v = 2 : Echo v ^ CInt(o)       '> 8
v = 7 : Echo v & CInt(o)       '> 73
v = 6 : Echo v And CInt(o)     '> 2
v = 6 : Echo v Or CInt(o)      '> 7
v = 6 : Echo v Xor CInt(o)     '> 5
v = 6 : Echo v Eqv CInt(o)     '> -6
v = 6 : Echo v Imp CInt(o)     '> -5
v = 3 : Echo v = CInt(o)       '> True
v = 3 : Echo v <> CInt(o)      '> False
v = 2 : Echo v < CInt(o)       '> True
v = 3 : Echo v <= CInt(o)      '> True
v = 3 : Echo v > CInt(o)       '> False
v = 2 : Echo v >= CInt(o)      '> False

'=== and where the object itself is the operand
Class Changer
  Public Default Property Get Value : v = 100 : Value = 3 : End Property
End Class
Dim v, o
Set o = New Changer
v = 7 : Echo v - o             '> 4
v = 7 : Echo v * o             '> 21
v = 6 : Echo v / o             '> 2
v = 7 : Echo v \ o             '> 2
v = 7 : Echo v Mod o           '> 1
v = 2 : Echo v ^ o             '> 8
v = 7 : Echo v & o             '> 73
v = 6 : Echo v And o           '> 2
v = 6 : Echo v Or o            '> 7
v = 6 : Echo v Xor o           '> 5
v = 6 : Echo v Eqv o           '> -6
v = 6 : Echo v Imp o           '> -5
v = 3 : Echo v = o             '> True
v = 3 : Echo v <> o            '> False
v = 2 : Echo v < o             '> True
v = 3 : Echo v <= o            '> True
v = 3 : Echo v > o             '> False
v = 2 : Echo v >= o            '> False

'=== an object on the left gives its value when both sides have been read
Class Changer
  Public Default Property Get Value : v = 100 : Value = 3 : End Property
End Class
Dim v, o
Set o = New Changer
v = 7 : Echo o + v             '> 10
v = 7 : Echo o - v             '> -4
v = 7 : Echo o * v             '> 21
v = 3 : Echo o / v             '> 1
v = 2 : Echo o \ v             '> 1
v = 2 : Echo o Mod v           '> 1
v = 2 : Echo o ^ v             '> 9
v = 7 : Echo o & v             '> 37
v = 6 : Echo o And v           '> 2
v = 6 : Echo o Or v            '> 7
v = 6 : Echo o Xor v           '> 5
v = 6 : Echo o Eqv v           '> -6
v = 6 : Echo o Imp v           '> -2
v = 3 : Echo o = v             '> True
v = 3 : Echo o <> v            '> False
v = 4 : Echo o < v             '> True
v = 3 : Echo o <= v            '> True
v = 3 : Echo o > v             '> False
v = 3 : Echo o >= v            '> True

'=== two objects give their values from left to right
Class Counter
  Private n
  Public Default Property Get Value : n = n + 1 : Value = n : End Property
End Class
Dim c
Set c = New Counter : Echo c - c     '> -1
Set c = New Counter : Echo c / c     '> 0.5
Set c = New Counter : Echo c ^ c     '> 1
Set c = New Counter : Echo c & c     '> 12
Set c = New Counter : Echo c < c     '> True
Set c = New Counter : Echo c <= c    '> True
Set c = New Counter : Echo c > c     '> False
Set c = New Counter : Echo c >= c    '> False
Set c = New Counter : Echo c Imp c   '> -2
Set c = New Counter
If c > c Then Echo "greater" Else Echo "less"    '> less
If c >= c Then Echo "greater" Else Echo "less"   '> less
If Not c > c Then Echo "less"                    '> less
Set c = New Counter : Echo c & c & c & c         '> 1234

'=== three and more texts
Class Changer
  Public Default Property Get Value : v = 100 : Value = 1 : End Property
End Class
Dim v, o
Set o = New Changer
v = 1 : Echo v & "-" & o             '> 1-1
v = 1 : Echo v & "-" & CInt(o)       '> 1-1
v = 1 : Echo v & v & CInt(o)         '> 111
v = 1 : Echo "x" & v & CInt(o)       '> x11
v = 1 : Echo v & CInt(o) & v         '> 11100
v = 1 : Echo "x" & o & v             '> x1100
v = 1 : Echo o & v & "x"             '> 11x
v = 1 : Echo o & v & v               '> 11100
v = 1 : Echo o & "x" & v             '> 1x100
v = 1 : Echo "x" & o & (v + 1)       '> x1101
v = 1 : Echo o & v & (v + 1)         '> 11101
v = 1 : Echo o & (v + 1) & "x"       '> 12x
v = 1 : Echo v & (o & v)             '> 111
v = 1 : Echo v & "a" & (o & v) & v   '> 1a11100

'=== what a part shows comes in the order of the parts
Dim log
Class Speaker
  Public Name
  Public Default Property Get Value : log = log & Name : Value = "." : End Property
End Class
Function Named(name)
  Set Named = New Speaker
  Named.Name = name
  log = log & "+"
End Function
Function Plain(name) : log = log & name : Plain = "_" : End Function
Dim a, b
Set a = Named("a") : Set b = Named("b")
log = "" : Echo a & b & Plain("c"), log                  '> .._ abc
log = "" : Echo "x" & a & Plain("c") & b, log            '> x._. acb
log = "" : Echo a & Plain("c") & b, log                  '> ._. cab
log = "" : Echo "x" & "y" & a & b & Plain("c") & "z", log   '> xy.._z abc
log = "" : Echo Named("d") & Named("e") & Named("f"), log   '> ... ++de+f

'=== globals, locals and parameters
Class Changer
  Public Default Property Get Value : g = 100 : Value = 1 : End Property
End Class
Dim g, o
Set o = New Changer
Function F : g = 100 : F = 1 : End Function
Sub OfGlobal
  g = 1 : Echo g + CInt(o), g        '> 2 100
  g = 1 : Echo g + F, g              '> 2 100
  g = 1 : Echo o + g                 '> 2
  g = 1 : Echo g & "-" & CInt(o)     '> 1-1
  g = 1 : Echo "x" & o & g           '> x1100
  g = 1 : Echo g > CInt(o)           '> False
End Sub
Sub OfLocal(changer)
  Dim v
  v = 1
  Echo v + CInt(changer), v          '> 2 1
  Echo v & "-" & CInt(changer) & v   '> 1-11
End Sub
Sub OfParameter(p)
  g = 1 : Echo p + CInt(o), p        '> 2 100
  g = 1 : Echo p + F, p              '> 2 100
  g = 1 : Echo o + p                 '> 2
  g = 1 : Echo p & "-" & CInt(o) & p '> 1-1100
  g = 1 : Echo p > CInt(o)           '> False
  If p = CInt(o) Then Echo "wrong" Else Echo "read first" '> read first
End Sub
Sub OfCopy(ByVal p)
  Echo p + CInt(o), p                '> 2 1
  Echo p & "-" & F & p               '> 1-11
End Sub
OfGlobal
OfLocal o
OfParameter g
g = 1 : OfCopy g

'=== a parameter stands for the variable of a caller, or for another parameter's
Function Raised(x) : x = x + 10 : Raised = 1 : End Function
Sub Both(a, b)
  Echo a + Raised(b), a              '> 2 11
  Echo "x" & a & Raised(b) & a       '> x11121
End Sub
Dim v
v = 1
Both v, v

'=== a local variable that a call gets by reference
Function Raised(x) : x = x + 10 : Raised = 1 : End Function
Function Sum(ByVal x) : Sum = x : End Function
Sub Test
  Dim v, t(1)
  v = 1 : Echo v + Raised(v), v            '> 2 11
  v = 1 : Echo v & Raised(v) & v           '> 1111
  v = 1 : Echo v < Raised(v)               '> False
  v = 1 : Echo v + Sum(Raised(v))          '> 2
  v = 1 : Echo v + Raised((v)), v          '> 2 1
  t(0) = 1 : Echo t(0) + Raised(t(0)), t(0)  '> 2 11
  t(0) = 1 : Echo t(0) & t(0) & Raised(t(0)) & t(0)  '> 11111
End Sub
Test

'=== a function that calls itself with its own name
Function Down(n)
  If n = 0 Then Down = 0 : Exit Function
  n = n - 1
  Down = 1
  Down = Down + Down(n)
End Function
Dim v
v = 3
Echo Down(v), v                '> 3 0

'=== fields with and without Me, properties and members of With
Class Changer
  Public Owner
  Public Default Property Get Value : Owner.V = 100 : Value = 1 : End Property
End Class
Class Holder
  Public V, O
  Public Property Get P : V = 100 : P = 1 : End Property
  Public Function Test
    V = 1 : Echo V + CInt(O)         '> 2
    V = 1 : Echo Me.V + CInt(O)      '> 2
    V = 1 : Echo V + Me.P            '> 2
    V = 1 : Echo V + P               '> 2
    V = 1 : Echo O + V               '> 2
    V = 1 : Echo Me.O + Me.V         '> 2
    V = 1 : Echo V & "-" & CInt(O)   '> 1-1
    V = 1 : Echo "x" & O & V         '> x1100
    V = 1 : Echo "x" & Me.O & Me.V   '> x1100
    V = 1 : Echo V & P & V           '> 11100
    V = 1 : Echo V > CInt(O)         '> False
  End Function
End Class
Dim h
Set h = New Holder
Set h.O = New Changer
Set h.O.Owner = h
h.Test
h.V = 1 : Echo h.V + CInt(h.O)       '> 2
h.V = 1 : Echo h.V + h.P             '> 2
h.V = 1 : Echo h.O + h.V             '> 2
h.V = 1 : Echo h.V & h.P & h.V       '> 11100
With h
  .V = 1 : Echo .V + CInt(.O)        '> 2
  .V = 1 : Echo .V + .P              '> 2
  .V = 1 : Echo .V & "-" & .P & .V   '> 1-1100
  .V = 1 : Echo "x" & .O & .V        '> x1100
End With

'=== a variable beside a member
Class Holder
  Public Property Get P : v = 100 : P = 1 : End Property
  Public Function M(x) : v = 100 : M = x : End Function
End Class
Dim v, h
Set h = New Holder
v = 1 : Echo v + h.P           '> 2
v = 1 : Echo v + h.M(2)        '> 3
v = 1 : Echo v & h.P & v       '> 11100
v = 1 : Echo v = h.P           '> True
With h
  v = 1 : Echo v + .P          '> 2
  v = 1 : Echo v + .M(2)       '> 3
End With

'=== elements, and objects as their indexes
Class Changer
  Public Default Property Get Value : v = 100 : a(1) = 50 : Value = 1 : End Property
End Class
Dim v, o, a(2), b(2, 2)
Set o = New Changer
b(1, 1) = 5
v = 1 : a(1) = 2 : Echo v + a(o)           '> 51
v = 1 : a(1) = 2 : Echo v & a(o) & v       '> 150100
v = 1 : a(1) = 2 : Echo a(1) + a(o)        '> 52
v = 1 : a(1) = 2 : Echo a(1) & o & a(1)    '> 2150
v = 1 : a(1) = 2 : Echo a(1) + CInt(o)     '> 3
v = 1 : Echo b(v, CInt(o))                 '> 5
v = 1 : Echo b(v, o)                       '> 5
v = 1 : Echo b(CInt(o), 1) + v             '> 105

'=== indexes of arrays in arrays
Dim log, n
Function At(i) : log = log & i : At = i : End Function
n = Array(Array(1, 2), Array(3, 4))
Echo n(At(1))(At(0)), log                  '> 3 10
log = "" : n(At(1))(At(0)) = 30 : Echo n(1)(0), log   '> 30 10
Sub Raise(x) : x = x + 1 : End Sub
log = "" : Raise n(At(1))(At(0)) : Echo n(1)(0), log  '> 31 10

'=== arguments of the library's functions are values
Class Changer
  Public Default Property Get Value : v = "changed" : Value = 2 : End Property
End Class
Dim v, o
Set o = New Changer
v = "abc" : Echo Left(v, CInt(o))          '> ab
v = "abc" : Echo Left(v, o)                '> ab
v = "abc" : Echo Mid(v, o, 1)              '> b
v = "a2c" : Echo Replace(v, CInt(o), "-")  '> a-c
v = "a2c" : Echo Replace(v, o, "-")        '> a-c
v = "abc" : Echo v & Left(v, CInt(o)) & v  '> abcabchanged

'=== arguments by value and by reference
Class Changer
  Public Default Property Get Value : v = 100 : Value = 1 : End Property
End Class
Dim v, o
Set o = New Changer
Sub ByCopy(ByVal a, ByVal b) : Echo a, b : End Sub
Sub ByPlace(a, b) : Echo a, b : End Sub
v = 1 : ByCopy v, CInt(o)      '> 1 1
v = 1 : ByCopy v + 0, CInt(o)  '> 1 1
v = 1 : ByPlace (v), CInt(o)   '> 1 1
v = 1 : ByPlace v, CInt(o)     '> 100 1

'=== a local variable goes by reference though nothing writes to the parameter
Function Raised(x) : x = x + 10 : Raised = 1 : End Function
Sub Show2(a, b) : Echo a, b : End Sub
Sub Test
  Dim v
  v = 1
  Show2 v, Raised(v)           '> 11 1
End Sub
Test

'=== New runs code, and so does the end of an object
Class C
  Private Sub Class_Initialize : v = 100 : End Sub
End Class
Class T
  Private Sub Class_Terminate : v = 200 : End Sub
End Class
Dim v
v = 1 : Echo v + Len(TypeName(New C)), v    '> 2 100
v = 1 : Echo v & TypeName(New C) & v        '> 1C100
v = 1 : Echo v + Len(TypeName(New T)), v    '> 2 200
v = 1 : Echo v = Len(TypeName(New C))       '> True

'=== Eval and Execute, in the main code and in a procedure
Function Raised(x) : x = x + 10 : Raised = 1 : End Function
Function Run(text) : ExecuteGlobal text : Run = 1 : End Function
Dim v
v = 1 : Echo v + Eval("Raised(v)"), v       '> 2 11
v = 1 : Echo v & Eval("Raised(v)") & v      '> 1111
v = 1 : Echo v + Run("v = 7"), v            '> 2 7
Sub Test
  Dim w
  w = 1 : Echo w + Eval("Raised(w)"), w     '> 2 11
  w = 1 : Echo w & Eval("Raised(w)") & w    '> 1111
  w = 1 : Echo w < Eval("Raised(w)")        '> False
  Execute "w = 1 : Echo w + Raised(w), w"   '> 2 11
End Sub
Test
Class Changer
  Public Default Property Get Value : v = 100 : Value = "1" : End Property
End Class
Dim o
Set o = New Changer
v = 1 : Echo v + Eval("o + 0")              '> 2
v = 1 : Echo Eval("v + CInt(o)")            '> 2

'=== a procedure behind a reference
Function Change : v = 100 : Change = 1 : End Function
Dim v, r
Set r = GetRef("Change")
v = 1 : Echo v + r(), v                     '> 2 100
