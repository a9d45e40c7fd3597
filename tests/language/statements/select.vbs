'=== values and lists
Dim n
For n = 0 To 5
  Select Case n
    Case 1
      Echo "one"
    Case 2, 3
      Echo "two or three"
    Case 5 - 1
      Echo "four"
    Case Else
      Echo "other", n
  End Select
Next
'> other 0
'> one
'> two or three
'> two or three
'> four
'> other 5

'=== texts compare exactly
Select Case "b"
  Case "B": Echo "upper"
  Case "b": Echo "lower"       '> lower
End Select

'=== only the first that fits runs
Select Case 1
  Case 1: Echo "first"         '> first
  Case 1: Echo "second"
End Select

'=== no case fits
Select Case 9
  Case 1: Echo 1
End Select
Echo "end"                     '> end

'=== the subject is evaluated once, the values until one fits
Function Tell(x)
  Echo "value " & x
  Tell = x
End Function
Select Case Tell(2)
  Case Tell(1), Tell(2), Tell(3)
    Echo "found"
  Case Tell(4)
    Echo "not"
End Select
'> value 2
'> value 1
'> value 2
'> found

'=== Select Case True
Dim x: x = 15
Select Case True
  Case x < 10: Echo "small"
  Case x < 20: Echo "medium"   '> medium
  Case Else: Echo "large"
End Select

'=== code behind the value without a colon
Dim r
Select Case 7
  Case 7 r = "b"
End Select
Echo r                         '> b
Select Case 1
  Case 1 If r = "b" Then r = 1 Else r = 2
End Select
Echo r                         '> 1
Select Case 5
  Case 1 r = 0
  Case Else r = "else"
End Select
Echo r                         '> else

'=== nested
Select Case 1
  Case 1
    Select Case 2
      Case 2
        Echo "inner"           '> inner
    End Select
    Echo "outer"               '> outer
End Select

'=== a number fits another of its worth
Select Case 2.0
  Case 2: Echo "equal"         '> equal
End Select
Select Case Empty
  Case 0: Echo "zero"          '> zero
End Select

'=== Null fits nothing
Select Case Null
  Case Null: Echo "null"
  Case Else: Echo "else"       '> else
End Select

'=== an empty Select
Select Case 1
End Select
Echo "end"                     '> end

'=== a subject that fails passes the whole Select over
On Error Resume Next
Select Case 1 / 0
  Case 1: Echo "one"
  Case Else: Echo "else"
End Select
Failed                         '> 11
Select Case CInt("x")
  Case 0
    Echo "zero"
End Select
Echo "behind", Err.Number      '> behind 13
Err.Clear
Select Case 1
  Case 1 / 0: Echo "on"        '> on
  Case 1: Echo "one"
End Select
Failed                         '> 11
