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

'=== a colon behind Then makes a line of it
Dim c, x
c = True
If c Then : Echo "a"           '> a
If Not c Then: Echo "no": Else: Echo "b"   '> b
If Not c Then : x = 1 : x = 2 Else : x = 3 : End If
Echo x                         '> 3
If c Then :
Echo "on its own"              '> on its own
If Not c Then : Echo "never" : Echo "never"
Echo "next line"               '> next line
If c Then : If Not c Then : Echo "never" Else : Echo "inner"   '> inner

'=== a procedure in a block is one of the script
If False Then
  Sub Inner
    Echo "inner"
  End Sub
  Private Function Twice(x): Twice = 2 * x: End Function
  Public Sub Loud
    Dim i
    For i = 1 To 5
      If i = 2 Then Exit For
      Echo "loud", i
    Next
  End Sub
Else
  Function Other: Other = "other": End Function
End If
Dim i
For i = 1 To 1
  Function Looped: Looped = i: End Function
Next
With CreateObject("Scripting.Dictionary")
  Sub Withal: Echo "withal": End Sub
End With
Inner                          '> inner
Loud                           '> loud 1
Withal                         '> withal
Echo Twice(4), Other, Looped   '> 8 other 2

'=== a procedure in a block is known before it
Early                          '> early
If True Then
  Sub Early: Echo "early": End Sub
End If

'=== no procedure in a procedure
Sub Outer
  If True Then
    Sub Inner                  '! 1002 Syntax error
    End Sub
  End If
End Sub

'=== no Exit out of a procedure in a loop
Do
  Sub S
    Exit Do                    '! 1039 Invalid 'exit' statement
  End Sub
Loop

'=== End If behind a statement closes a line, not a block
Dim x
If True Then Exit For End If   '! 1039

'=== End If on a statement's line
Sub S
  Dim e: e = True
  If e Then Exit Sub End If
  Echo "never"
End Sub
S
If True Then Echo "one line" End If   '> one line
Sub T() Echo "sub" End Sub
T                              '> sub

'=== End If behind the last statement of a block
Dim x
If True Then
  x = 1 End If                 '! 1042 Must be first statement on the line

'=== End Select behind the last statement of a block
Dim x
Select Case 1
  Case 1: x = 1 End Select     '! 1042 Must be first statement on the line

'=== Not of what is no comparison
Class Yes
  Public Default Property Get Value: Echo "asked": Value = True: End Property
End Class
Dim c, o, t, n
For Each c In Array(True, False, 0, -1, 5, "0", "-1", Empty, Null, 1.4)
  t = "": If Not c Then t = "then" Else t = "else"
  n = 0: Do While Not c: n = n + 1: c = True: Loop
  Echo t, n
Next
'> else 0
'> then 1
'> then 1
'> else 0
'> then 1
'> then 1
'> else 0
'> then 1
'> else 0
'> then 1
c = 0: n = 0: Do Until Not c: n = n + 1: Loop: Echo n       '> 0
c = -1: n = 0: Do Until Not c: c = 0: n = n + 1: Loop: Echo n   '> 1
c = Null: n = 0: Do Until Not c: c = 0: n = n + 1: Loop: Echo n   '> 1
c = True: If Not (c And True) Then Echo "never" Else Echo "else"   '> else
If Not (Not c) Then Echo "twice"                            '> twice
Set o = New Yes
If Not o Then Echo "never" Else Echo "object"
'> asked
'> object
On Error Resume Next
c = "text": If Not c Then Echo "resumed"                    '> resumed
Failed                                                      '> 13
c = Array(1): n = 0: If Not c Then n = 1
Failed                                                      '> 13
Set c = Nothing: If Not c Then n = 1
Failed                                                      '> 91
