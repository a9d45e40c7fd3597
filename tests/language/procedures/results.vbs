'=== what a function gives of every type
Class Thing
  Public Default Property Get Value
    Value = "value"
  End Property
End Class
Function Gives(x)
  Gives = x
End Function
Function GivesObject(x)
  Set GivesObject = x
End Function
Echo TypeName(Gives(1)) & TypeName(Gives("a")) & TypeName(Gives(Null)) '> IntegerStringNull
Echo TypeName(Gives(Array(1))) & TypeName(GivesObject(New Thing)) '> Variant()Thing
Dim v
v = GivesObject(New Thing)
Echo TypeName(v)               '> String
v = Array(1, 2)
v = Gives(3)
Echo v                         '> 3

'=== a result that nobody takes
Function Number: Number = 7: End Function
Sub Nothing_: End Sub
Number
Call Number()
Nothing_
Dim v
v = 5
v = Nothing_()
Echo TypeName(v)               '> Empty
Echo TypeName(Nothing_())      '> Empty

'=== a result where something was before
Function Number(n): Number = n: End Function
Dim a(1), s
a(0) = "text"
a(0) = Number(1)
s = "text"
s = Number(2)
Echo a(0) & s                  '> 12
s = Number("x") & Number("y")
Echo s                         '> xy

'=== objects of a routine end when it is left, before what follows
Class Noisy
  Public Name
  Private Sub Class_Terminate: Echo "end of " & Name: End Sub
End Class
Function Made(name)
  Dim n, other
  Set n = New Noisy
  n.Name = name
  Set other = New Noisy
  other.Name = name & "'s other"
  Made = name
End Function
Function Kept(name)
  Dim n
  Set n = New Noisy
  n.Name = name
  Set Kept = n
End Function
Sub Leave(name)
  Dim n
  Set n = Kept(name)
  Exit Sub
End Sub
Echo Made("a")                 '> end of a
'> end of a's other
'> a
Leave "b"                      '> end of b
Dim x
Set x = Kept("c")
Echo "kept"                    '> kept
Set x = Nothing                '> end of c
x = Made("d") & Made("e")      '> end of d
'> end of d's other
'> end of e
'> end of e's other

'=== On Error Resume Next holds for its routine alone, each time anew
Dim round
Function Tries(what)
  If what = 1 Then On Error Resume Next
  Tries = "before"
  Tries = 1 / (what - what)
  Tries = Tries & " after"
End Function
Echo Tries(1)                  '> before after
On Error Resume Next
Echo Tries(2)
Echo Err.Number                '> 11
Err.Clear
Echo Tries(1)                  '> before after
On Error GoTo 0

'=== variables that Execute adds end with their routine
Class Noisy
  Private Sub Class_Terminate: Echo "end": End Sub
End Class
Function Adds(n)
  Execute "Dim added : Set added = New Noisy"
  Adds = n
End Function
Echo Adds(3) + 1               '> end
'> 4
