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
Echo Err.Number                '> 1023

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
