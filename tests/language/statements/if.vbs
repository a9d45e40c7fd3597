'=== blocks
Dim n
For n = 1 To 4
  If n = 1 Then
    Echo "one"
  ElseIf n = 2 Then
    Echo "two"
  ElseIf n = 3 Then
    Echo "three"
  Else
    Echo "more"
  End If
Next
'> one
'> two
'> three
'> more

'=== one line
If True Then Echo "yes"        '> yes
If False Then Echo "no"
If True Then Echo "a" Else Echo "b"    '> a
If False Then Echo "a" Else Echo "b"   '> b
If True Then Echo "x": Echo "y"
'> x
'> y
If False Then Echo "x": Echo "y"
Echo "end"                     '> end

'=== colons around Else and End If
If False Then : Echo 1 : Else : Echo 2 : End If   '> 2
If True Then Echo 3 : Else Echo 4   '> 3
If True Then Echo 5 End If     '> 5

'=== Else belongs to the nearest If of the line
If True Then If False Then Echo 1 Else Echo 2   '> 2
If False Then If False Then Echo 1 Else Echo 2
Echo "end"                     '> end

'=== nested blocks
If True Then
  If False Then
    Echo 1
  Else
    If True Then
      Echo 2                   '> 2
    End If
  End If
End If

'=== what counts as true
If 1 Then Echo "1"             '> 1
If -5 Then Echo "-5"           '> -5
If 0.1 Then Echo "0.1"         '> 0.1
If 0 Then Echo "0"
If Empty Then Echo "Empty"
If Null Then Echo "Null"
If "True" Then Echo "text"     '> text
If "1" Then Echo "number"      '> number
If "0" Then Echo "zero"
Echo "end"                     '> end

'=== a text that is no truth
If "abc" Then Echo "x"         '! 13

'=== only the taken branch runs
Function Tell(x)
  Echo "asked " & x
  Tell = x
End Function
If Tell(False) Then
  Echo "a"
ElseIf Tell(True) Then
  Echo "b"
ElseIf Tell(True) Then
  Echo "c"
End If
'> asked False
'> asked True
'> b

'=== statements behind Then of an ElseIf, and behind Else
If False Then
ElseIf True Then Echo "same line"   '> same line
  Echo "next line"             '> next line
Else Echo "not"
  Echo "neither"
End If

'=== an empty branch
If True Then
Else
  Echo "else"
End If
Echo "end"                     '> end
