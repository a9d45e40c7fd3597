'=== members of the object
Class Point
  Public X, Y
  Public Function Sum(): Sum = X + Y: End Function
  Public Sub Move(dx, dy): X = X + dx: Y = Y + dy: End Sub
End Class
Dim p: Set p = New Point
With p
  .X = 1
  .Y = 2
  Echo .X, .Y, .Sum            '> 1 2 3
  .Move 10, 20
  Echo .Sum()                  '> 33
  If .X > 10 Then Echo "far"   '> far
End With

'=== the object is fixed at the start
Class Point
  Public X
End Class
Dim p, q
Set p = New Point
Set q = p
With p
  Set p = Nothing
  .X = 5
End With
Echo q.X                       '> 5

'=== nested
Class Node
  Public Name, Child
End Class
Dim n: Set n = New Node
n.Name = "outer"
Set n.Child = New Node
With n
  With .Child
    .Name = "inner"
  End With
  Echo .Name, .Child.Name      '> outer inner
End With

'=== an argument that begins with a dot
Class Point
  Public X
End Class
Dim p: Set p = New Point
p.X = 7
With p
  Echo .X                      '> 7
  Echo .X + 1, .X              '> 8 7
End With

'=== the object lives until End With
Class Loud
  Private Sub Class_Terminate: Echo "gone": End Sub
  Public Sub Speak: Echo "here": End Sub
End Class
With New Loud
  .Speak                       '> here
  Echo "inside"                '> inside
End With                       '> gone
Echo "after"                   '> after

'=== With of a dictionary
With CreateObject("Scripting.Dictionary")
  .Add "a", 1
  .Item("b") = 2
  Echo .Count, .Item("a"), .Exists("b")   '> 2 1 True
End With

'=== no object
Dim x: x = 5
With x                         '! 424
  .Y = 1
End With

'=== a dot without With
On Error Resume Next
Execute "x = .Name"
Echo Err.Number <> 0           '> True

'=== what is no object
On Error Resume Next
With 42
  Failed                       '> 424
  .x = 1
  Failed                       '> 424
End With
With e
  Failed                       '> 424
End With
With "text"
  Failed                       '> 424
End With
Dim n
Set n = Nothing
With n
  Failed                       '> no error
  x = .y
  Failed                       '> 424
  .y = 1
  Failed                       '> 424
  .z 1
  Failed                       '> 424
  Set .y = n
  Failed                       '> 424
End With
With Nothing
  Failed                       '> no error
End With
