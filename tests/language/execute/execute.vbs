'=== Execute runs statements
Execute "Echo ""hello"""       '> hello
Dim x
Execute "x = 5 : x = x + 1"
Echo x                         '> 6
Execute "If x = 6 Then" & vbCrLf & "Echo ""six""" & vbCrLf & "End If"   '> six

'=== Execute in a procedure sees its locals
Dim x: x = "global"
Sub S
  Dim x: x = "local"
  Execute "Echo x"
  Execute "x = ""changed"""
  Echo x
End Sub
S
'> local
'> changed
Echo x                         '> global

'=== Execute can define procedures and classes
Execute "Function F(a): F = a * 2: End Function"
Echo F(4)                      '> 8
Execute "Class C: Public V: End Class"
Dim o: Set o = New C
o.V = 1
Echo o.V                       '> 1

'=== ExecuteGlobal works at the script's level
Sub Define
  ExecuteGlobal "Dim made: made = 5" & vbLf & "Function G: G = ""g"": End Function"
End Sub
Define
Echo made, G                   '> 5 g

'=== ExecuteGlobal redefines
Function F: F = 1: End Function
Echo F                         '> 1
ExecuteGlobal "Function F: F = 2: End Function"
Echo F                         '> 2

'=== Eval gives a value
Dim a: a = 4
Show Eval("1 + 2")             '> Integer 3
Show Eval("a * a")             '> Integer 16
Show Eval("a = 4")             '> Boolean True
Show Eval("""x"" & a")         '> String "x4"

'=== Eval compares, it never assigns
Dim a: a = 4
Echo Eval("a = 5")             '> False
Echo a                         '> 4

'=== Eval in a function sees locals and calls functions
Function Twice(x): Twice = x * 2: End Function
Function F(n)
  F = Eval("Twice(n) + 1")
End Function
Echo F(5)                      '> 11

'=== Eval of an object
Class Box
  Public V
End Class
Dim b: Set b = New Box
b.V = "v"
Echo Eval("b").V               '> v
Dim c: Set c = Eval("New Box")
Echo TypeName(c)               '> Box

'=== a compile error in Execute can be trapped
On Error Resume Next
Execute "x = = 1"
Echo Err.Number                '> 1002
Err.Clear
Execute "If True Then"
Echo Err.Number > 1000         '> True
Err.Clear
x = Eval("1 +")
Echo Err.Number                '> 1002

'=== a run-time error in Execute
On Error Resume Next
Execute "x = 1 / 0"
Failed                         '> 11
Echo "end"                     '> end

'=== a trap set in Execute
On Error Resume Next
Execute "y = 1 / 0 : z = 5"
Err.Clear
Echo "after"                   '> after

'=== Execute many times
Dim i, n
For i = 1 To 50
  Execute "n = n + " & i
Next
Echo n                         '> 1275

'=== names that Execute makes
Execute "fresh = 7"
Echo fresh                     '> 7

'=== building a class by text
Dim source
source = "Class Made" & vbCrLf & _
         "  Public Function Greet(n)" & vbCrLf & _
         "    Greet = ""hi "" & n" & vbCrLf & _
         "  End Function" & vbCrLf & _
         "End Class"
ExecuteGlobal source
Echo (New Made).Greet("you")   '> hi you

'=== what is no text
On Error Resume Next
Execute 42
Failed                         '> 13
Execute Null
Failed                         '> 13
Execute Empty
Failed                         '> 13
ExecuteGlobal 42
Failed                         '> 13
Execute ""
Failed                         '> no error
Show Eval(42)                  '> Integer 42
Show Eval(Null)                '> Null
Eval "1 + "
FailedText                     '> 1002 Syntax error
x = Eval("")
Failed                         '> 1002
x = Eval("1 2")
Failed                         '> 1025
Execute "x = 1 +"
Failed                         '> 1023

'=== an object's default value is the text
Class C
  Public Default Property Get Text: Text = "1 + 2": End Property
End Class
Class D
  Public Default Property Get Text: Text = "Echo ""run""": End Property
End Class
Echo Eval(New C)               '> 3
Execute New D                  '> run

'=== constants of procedures in texts
Sub P
  Const outside = 3
  Execute "Sub Inner: Const z = 9: Echo z, outside: End Sub: Inner"
  Execute "Const k = 5: Echo k"
  Execute "Echo k + 1"
  Execute "Class CC: Public Sub Go: Const w = 11: Echo w: End Sub: End Class: Set o = New CC: o.Go"
  Execute "Function F(x): Const y = 2: F = x * y: End Function: Echo F(4)"
End Sub
P                              '> 9 
                               '> 5
                               '> 6
                               '> 11
                               '> 8

'=== a class from a text in a procedure is its call's own
Sub P(n)
  Execute "Class CC: Public v: Public Function Who: Who = " & n & ": End Function: End Class"
  Dim o
  Set o = Eval("New CC")
  o.v = n
  Echo o.v, o.Who
End Sub
P 1                            '> 1 1
P 2                            '> 2 2
P 1                            '> 1 1
Sub Twice
  Execute "Class DD: Public Function Who: Who = 1: End Function: End Class: Set a = New DD"
  Execute "Class DD: Public Function Who: Who = 2: End Function: End Class: Set b = New DD"
  Execute "Echo a.Who, b.Who"
End Sub
Twice                          '> 1 2
Class Fixed: End Class
Sub Redefines
  Execute "Class Fixed: End Class"   '! 1041 Name redefined
End Sub
Redefines

'=== an array declared again
On Error Resume Next
ExecuteGlobal "Dim q()"
Failed                         '> no error
ExecuteGlobal "Dim q()"
Failed                         '> 13
ExecuteGlobal "Dim q(5)"
Failed                         '> 13
ExecuteGlobal "Dim r"
ExecuteGlobal "Dim r"
Failed                         '> no error

'=== a text of any characters
Execute "t = ""a" & ChrW(20013) & """""" & ChrW(&hD83D) & ChrW(&hDE00) & """"
Echo Len(t), AscW(Mid(t, 2, 1)), Mid(t, 3, 1)     '> 5 20013 "
Echo AscW(Eval("""" & ChrW(1078) & """"))         '> 1078
