'=== numbers of all types beside each other
Function Which(x)
  Select Case x
    Case 1: Which = "one"
    Case 2.5: Which = "two and a half"
    Case 70000: Which = "many"
    Case Else: Which = "other"
  End Select
End Function
Echo Which(1), Which(CLng(1)), Which(1.0), Which(CByte(1)), Which(CCur(1))   '> one one one one one
Echo Which(2.5), Which(CSng(2.5)), Which(CCur(2.5)), Which(70000)   '> two and a half two and a half two and a half many
Echo Which(-1), Which(1.0000001)   '> other other

'=== True is minus one
Select Case True
  Case 1: Echo "one"
  Case -1: Echo "minus one"    '> minus one
End Select
Select Case 0
  Case True: Echo "true"
  Case False: Echo "false"     '> false
End Select

'=== Null beside values
Dim n, s: n = Null
Select Case n
  Case Null, 0, "": s = "fits"
  Case Else: s = "else"
End Select
Echo s                         '> else
Select Case 1
  Case n: Echo "null"
  Case 1: Echo "one"           '> one
End Select

'=== Empty is both nought and the empty text
Dim e
Select Case e
  Case "": Echo "text"         '> text
End Select
Select Case e
  Case 0: Echo "nought"        '> nought
End Select
Select Case e
  Case False: Echo "false"     '> false
End Select

'=== dates
Select Case #1/2/2003#
  Case #1/1/2003#: Echo "first"
  Case DateSerial(2003, 1, 2): Echo "second"   '> second
End Select

'=== an object stands for its default value
Class C
  Public Count
  Public Default Property Get V: Count = Count + 1: V = 5: End Property
End Class
Dim o: Set o = New C
Select Case o
  Case 4: Echo "four"
  Case 5: Echo "five"          '> five
End Select
Echo o.Count                   '> 1
Select Case 5
  Case o: Echo "five"          '> five
End Select

'=== an error in a value goes on in its block
On Error Resume Next
Select Case 1
  Case 1 / 0: Echo "in"        '> in
  Case Else: Echo "else"
End Select
Failed                         '> 11
