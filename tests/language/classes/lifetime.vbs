'=== Class_Initialize and Class_Terminate
Class Loud
  Private Sub Class_Initialize: Echo "born": End Sub
  Private Sub Class_Terminate: Echo "gone": End Sub
End Class
Dim o
Set o = New Loud               '> born
Echo "alive"                   '> alive
Set o = Nothing                '> gone
Echo "after"                   '> after

'=== the last reference counts
Class Loud
  Private Sub Class_Terminate: Echo "gone": End Sub
End Class
Dim a, b
Set a = New Loud
Set b = a
Set a = Nothing
Echo "still"                   '> still
Set b = Nothing                '> gone

'=== replacing the object
Class Loud
  Public Name
  Private Sub Class_Terminate: Echo "gone " & Name: End Sub
End Class
Dim o
Set o = New Loud: o.Name = 1
Set o = New Loud: o.Name = 2   '> gone 1
o = 5                          '> gone 2
Echo "end"                     '> end

'=== locals end with their procedure
Class Loud
  Private Sub Class_Terminate: Echo "gone": End Sub
End Class
Sub S
  Dim o: Set o = New Loud
  Echo "in"
End Sub
S
'> in
'> gone
Echo "after"                   '> after

'=== a temporary ends with its statement
Class Loud
  Public Sub Speak: Echo "here": End Sub
  Private Sub Class_Terminate: Echo "gone": End Sub
End Class
Call (New Loud).Speak
'> here
'> gone
Echo "after"                   '> after

'=== objects in arrays and dictionaries
Class Loud
  Public Name
  Private Sub Class_Terminate: Echo "gone " & Name: End Sub
End Class
Function Make(n)
  Set Make = New Loud
  Make.Name = n
End Function
Dim a(1)
Set a(0) = Make("a")
Erase a                        '> gone a
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add 1, Make("d")
d.Remove 1                     '> gone d

'=== fields end with their object
Class Loud
  Private Sub Class_Terminate: Echo "inner gone": End Sub
End Class
Class Holder
  Private inner
  Private Sub Class_Initialize: Set inner = New Loud: End Sub
  Private Sub Class_Terminate: Echo "outer gone": End Sub
End Class
Dim h: Set h = New Holder
Set h = Nothing
'> outer gone
'> inner gone

'=== objects left at the end of the script
Class Loud
  Private Sub Class_Terminate: Echo "gone": End Sub
End Class
Dim o: Set o = New Loud
Echo "last line"
'> last line
'> gone

'=== an error in Class_Initialize
Class C
  Private Sub Class_Initialize
    Err.Raise 1001, "C", "refused"
  End Sub
End Class
On Error Resume Next
Dim o: Set o = New C
FailedText                     '> 1001 refused

'=== a result nobody keeps
Class Loud
  Private Sub Class_Terminate: Echo "gone": End Sub
End Class
Function Make: Set Make = New Loud: End Function
Make                           '> gone
Echo "after"                   '> after

'=== objects that end while there is no stack left for their code
Class Endless
  Public Default Property Get V: V = "v" & New Endless: End Property
  Private Sub Class_Terminate: ended = ended + 1: End Sub
End Class
Dim ended
On Error Resume Next
x = "x" & New Endless
Failed                         '> 28
Echo ended > 10                '> True

'=== objects that take each other's place in a variable
Class Named
  Public Name
  Private Sub Class_Terminate
    Echo "end of " & Name & ", " & Shown()
  End Sub
End Class
Function Made(name)
  Set Made = New Named
  Made.Name = name
End Function
Dim held, list(1)
Function Shown()
  Shown = "held none"
  If Not IsObject(held) Then Exit Function
  If Not held Is Nothing Then Shown = "held " & held.Name
End Function
Set list(0) = Made("a")
Set list(1) = Made("b")
Set held = list(0)
Set held = list(1)
Set held = list(1)
Set held = list(0)
Set held = Made("c")
Set held = Made("d")           '> end of c, held d
Set held = list(0)             '> end of d, held a
Erase list                     '> end of b, held a
Set held = Nothing
                               '> end of a, held none
Set held = Made("e")
held = 1                       '> end of e, held none
Set held = Made("f")
On Error Resume Next
Set held = 5
Echo Err.Number & " " & Shown() '> 424 held f
Set held = Nothing             '> end of f, held none

'=== an object that its own method lets go
Dim held
Class Leaving
  Public Name
  Public Function Leave(what)
    Set held = Nothing
    Leave = what & " of " & Name
  End Function
  Public Function Itself
    Set Itself = Me
  End Function
  Public Sub Quit
    Set held = Nothing
    Echo "still " & Name
  End Sub
  Private Sub Class_Terminate
    Echo "end of " & Name
  End Sub
End Class
Set held = New Leaving
held.Name = "first"
Echo held.Leave(1)             '> end of first
                               '> 1 of first
Set held = New Leaving
held.Name = "second"
held.Quit                      '> still second
                               '> end of second
Set held = New Leaving
held.Name = "third"
Dim other
Set other = held.Itself
Set held = Nothing
Echo other.Itself.Name         '> third
other.Quit                     '> still third
Set other = Nothing            '> end of third
