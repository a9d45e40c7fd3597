'=== a text that grows by what an object gives
Class Changer
  Public Default Property Get Value : s = "changed" : Value = 1 : End Property
End Class
Dim s, o
Set o = New Changer
s = "a" : s = s & o : Echo s                   '> a1
s = "a" : s = s & CStr(o) : Echo s             '> a1
s = "a" : s = s & (-o) : Echo s                '> a-1
s = "a" : s = s & (Not o) : Echo s             '> a-2
s = "a" : s = s & (o & "z") : Echo s           '> a1z
s = "a" : s = s & "x" & o : Echo s             '> ax1
s = "a" : s = s & "x" & CStr(o) : Echo s       '> ax1
s = "a" : s = s & CStr(o) & s : Echo s         '> a1changed
s = "a" : s = s & o & s : Echo s               '> a1changed
s = "a" : s = s & s & o : Echo s               '> aa1
s = "a" : s = s & s & CStr(o) : Echo s         '> aa1
s = "a" : s = s & o & o & "x" & s : Echo s     '> a11xchanged

'=== the same for globals, parameters, fields, elements and members
Class Changer
  Public Default Property Get Value
    s = "changed" : t(1) = "changed" : h.F = "changed" : Value = 1
  End Property
End Class
Class Holder
  Public F
  Public Sub Grow
    F = "a" : F = F & CStr(o) : Echo F
    F = "a" : Me.F = Me.F & CStr(o) : Echo F
    F = "a" : F = F & "x" & o & F : Echo F
    F = "a" : F = F & o : Echo F
  End Sub
End Class
Dim s, t(2), h, o, one
Set o = New Changer
Set h = New Holder
one = 1
Sub Globals
  s = "a" : s = s & CStr(o) : Echo s
  s = "a" : s = s & "x" & o & s : Echo s
End Sub
Sub Parameters(p)
  s = "a" : p = p & CStr(o) : Echo s
  s = "a" : p = p & "x" & o & p : Echo s
End Sub
Sub Locals
  Dim l
  l = "a" : l = l & CStr(o) : Echo l
  l = "a" : l = l & "x" & o & l : Echo l
End Sub
Globals
'> a1
'> ax1changed
Parameters s
'> a1
'> ax1changed
Locals
'> a1
'> ax1a
h.Grow
'> a1
'> a1
'> ax1changed
'> a1
t(1) = "a" : t(1) = t(1) & CStr(o) : Echo t(1)              '> a1
t(1) = "a" : t(1) = t(1) & o : Echo t(1)                    '> a1
t(1) = "a" : t(1) = t(1) & "x" & o & t(1) : Echo t(1)       '> ax1changed
t(1) = "a" : t(one) = t(one) & "x" & CStr(o) : Echo t(1)    '> ax1
h.F = "a" : h.F = h.F & CStr(o) : Echo h.F                  '> a1
h.F = "a" : h.F = h.F & o : Echo h.F                        '> a1
h.F = "a" : h.F = h.F & "x" & o & h.F : Echo h.F            '> ax1changed
With h
  .F = "a" : .F = .F & CStr(o) : Echo .F                    '> a1
  .F = "a" : .F = .F & "x" & o & .F : Echo .F               '> ax1changed
End With

'=== what grows may be an object itself
Dim log, s, t(1)
Class Speaker
  Public Name
  Public Default Property Get Value : log = log & Name : Value = Name : End Property
End Class
Function Named(name)
  Set Named = New Speaker
  Named.Name = name
End Function
Function Plain(name) : log = log & name : Plain = name : End Function
Dim b
Set b = Named("b")
Set s = Named("a") : log = "" : s = s & b : Echo s, log                     '> ab ab
Set s = Named("a") : log = "" : s = s & b & Plain("c") : Echo s, log        '> abc abc
Set s = Named("a") : log = "" : s = s & Plain("c") & b : Echo s, log        '> acb cab
Set t(0) = Named("a") : log = "" : t(0) = t(0) & b & Plain("c") : Echo t(0), log   '> abc abc
Sub Locals
  Dim l
  Set l = Named("a") : log = "" : l = l & b & b : Echo l, log               '> abb abb
  Set l = Named("a") : log = "" : l = l & b & Plain("c") : Echo l, log      '> abc abc
End Sub
Locals

'=== what grows may be changed by its own default property
Dim s, v
Class Changer
  Public Default Property Get Value : v = 100 : Value = "s" : End Property
End Class
Set s = New Changer : v = 1 : s = s & v : Echo s               '> s1
Set s = New Changer : v = 1 : s = s & v & v : Echo s           '> s1100
Set s = New Changer : v = 1 : s = s & "-" & v : Echo s         '> s-100

'=== a value that is stored is read before the index or the object
Class Changer
  Public Default Property Get Value : v = 100 : Value = 1 : End Property
  Public Property Get Self : v = 100 : Set Self = Me : End Property
  Public F
End Class
Dim v, o, a(2), b(2, 2), n
Set o = New Changer
v = 1 : a(CInt(o)) = v : Echo a(1)             '> 1
v = 1 : a(o) = v : Echo a(1)                   '> 1
v = 1 : b(CInt(o), 2) = v : Echo b(1, 2)       '> 1
v = 1 : b(v, CInt(o)) = 5 : Echo b(1, 1)       '> 5
v = 1 : b(v, o) = 6 : Echo b(1, 1)             '> 6
v = 1 : o.Self.F = v : Echo o.F                '> 1
n = Array(0, Array(0, 0))
v = 1 : n(CInt(o))(1) = v : Echo n(1)(1)       '> 1
v = 1 : n(1)(v - 100) = CInt(o) : Echo n(1)(0)    '> 1

'=== conditions
Class Changer
  Public Default Property Get Value : v = 100 : Value = 1 : End Property
End Class
Dim v, o, n
Set o = New Changer
v = 1
If v = CInt(o) Then Echo "equal" Else Echo "changed"                '> equal
v = 1
If v = o Then Echo "equal" Else Echo "changed"                      '> equal
v = 1
If o = v Then Echo "equal" Else Echo "changed"                      '> equal
v = 1
If Not v <> Len(o) Then Echo "equal" Else Echo "changed"            '> equal
v = 1
If False Then
ElseIf v > -o Then
  Echo "greater", v                                                 '> greater 100
End If
v = 0
If v > -o Then Echo "greater"                                       '> greater
v = 1
If v + CInt(o) = 2 Then Echo "two"                                  '> two
v = 1 : n = 0
Do While v <= CInt(o) : n = n + 1 : Loop
Echo n                                                              '> 1
v = 1 : n = 0
Do : n = n + 1 : Loop Until v > CInt(o)
Echo n                                                              '> 2
v = 2 : n = 0
While v > 1 And n < Len(o) : n = n + 1 : Wend
Echo n                                                              '> 1

'=== Select Case keeps its subject
Class Changer
  Public Default Property Get Value : v = 100 : Value = 1 : End Property
End Class
Dim v, o
Set o = New Changer
v = 2
Select Case v
  Case CInt(o) : Echo "one"
  Case v : Echo "changed"
  Case 2 : Echo "two"                          '> two
End Select
v = 1
Select Case v + CInt(o)
  Case 2 : Echo "two"                          '> two
End Select
v = 1
Select Case 2
  Case v + Len(o) : Echo "sum"                 '> sum
End Select

'=== bounds of a loop
Class Changer
  Public Default Property Get Value : v = 100 : Value = 3 : End Property
End Class
Class Counter
  Private n
  Public Default Property Get Value : n = n + 1 : Value = n : End Property
End Class
Dim v, o, i, c, s
Set o = New Changer
v = 1 : s = ""
For i = v To CInt(o) : s = s & i : Next
Echo s                                         '> 123
v = 1 : s = ""
For i = v To o : s = s & i : Next
Echo s                                         '> 123
v = 1 : s = ""
For i = v To 7 Step CInt(o) : s = s & i : Next
Echo s                                         '> 147
v = 1 : s = ""
For i = v + 0 To v + CInt(o) : s = s & i : Next
Echo s                                         '> 1234
Set c = New Counter : s = ""
For i = c To c : s = s & i : Next
Echo s                                         '> 12
Set c = New Counter : s = ""
For i = c To 5 Step c : s = s & i : Next
Echo s                                         '> 135
Set c = New Counter : s = ""
For i = 0 To c Step c : s = s & i : Next
Echo s                                         '> 0

'=== With, ReDim and Erase
Class Changer
  Public Default Property Get Value : v = 100 : Value = 1 : End Property
  Public F
End Class
Dim v, o, a
Set o = New Changer
v = 2 : ReDim a(v, CInt(o)) : Echo UBound(a, 1), UBound(a, 2)   '> 2 1
v = 2 : ReDim a(v, o) : Echo UBound(a, 1), UBound(a, 2)         '> 2 1
With o
  v = 1 : .F = v + CInt(o) : Echo .F           '> 2
End With
