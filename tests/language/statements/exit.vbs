'=== Exit Sub
Sub S(n)
  Echo "in"
  If n = 1 Then Exit Sub
  Echo "through"
End Sub
S 1                            '> in
S 2
'> in
'> through

'=== Exit Function keeps the result so far
Function F(n)
  F = "early"
  If n = 1 Then Exit Function
  F = "late"
End Function
Echo F(1), F(2)                '> early late

'=== Exit Property
Class C
  Public Property Get P(n)
    P = 1
    If n = 0 Then Exit Property
    P = 2
  End Property
End Class
Dim o: Set o = New C
Echo o.P(0), o.P(1)            '> 1 2

'=== Exit Function out of loops
Function Find(a, x)
  Dim i
  For i = 0 To UBound(a)
    Do
      If a(i) = x Then
        Find = i
        Exit Function
      End If
      Exit Do
    Loop
  Next
  Find = -1
End Function
Echo Find(Array(5, 6, 7), 6), Find(Array(5), 9)   '> 1 -1

'=== Exit Sub out of With
Class Loud
  Private Sub Class_Terminate: Echo "gone": End Sub
End Class
Sub S
  With New Loud
    Exit Sub
  End With
End Sub
S                              '> gone
Echo "after"                   '> after

'=== a block that is left with its loop gives its object up
Class Loud
  Private Sub Class_Terminate : Echo "gone" : End Sub
End Class
Dim i
For i = 1 To 3
  With New Loud
    Exit For
  End With
Next
'> gone
Echo "after For"               '> after For
Sub Walk(list)
  Dim item
  For Each item In list
    With New Loud : Exit For : End With
  Next
  Echo "after For Each"
End Sub
Walk Array(1, 2)
'> gone
'> after For Each
For i = 1 To 1
  Do
    With New Loud : Exit Do : End With
  Loop
  Echo "after Do"
Next
'> gone
'> after Do
