'=== Execute in a method sees Me and the private members
Class C
  Private secret
  Public Function Run
    Execute "secret = ""set"" : Me.Note secret : Run = secret & ""!"""
  End Function
  Public Sub Note(x): Echo "note " & x: End Sub
  Private Function Hidden(x): Hidden = "hidden " & x: End Function
  Public Function Evaluate(text): Evaluate = Eval(text): End Function
End Class
Dim o: Set o = New C
Echo o.Run
'> note set
'> set!
Echo o.Evaluate("Hidden(1) & secret")   '> hidden 1set

'=== a variable that Execute makes belongs to the procedure
Sub S
  Execute "Dim made : made = 5"
  Echo made
  Execute "made = made + 1"
  Echo Eval("made * 2")
End Sub
S
'> 5
'> 12
Show made                      '> Empty

'=== ExecuteGlobal does not see the locals
Dim x: x = "global"
Sub S
  Dim x: x = "local"
  ExecuteGlobal "Echo x : x = ""changed"""
  Echo x
End Sub
S
'> global
'> local
Echo x                         '> changed

'=== a trap around Execute
Sub S
  On Error Resume Next
  Execute "Echo ""one"" : y = 1 / 0 : Echo ""never"""
  Echo "went on with", Err.Number
End Sub
S
'> one
'> went on with 11

'=== Execute in a loop with an Exit of its own
Dim i, s
For i = 1 To 3
  Execute "Do : s = s & i : Exit Do : Loop"
Next
Echo s                         '> 123

'=== by reference into Execute's text
Sub Twice(x): x = x * 2: End Sub
Sub S
  Dim n: n = 4
  Execute "Twice n"
  Echo n
End Sub
S                              '> 8

'=== Eval and the sign of equality
Dim a, r: a = 4
r = Eval("a = 4")
Show r                         '> Boolean True
Show Eval("a = 5")             '> Boolean False
Execute "a = 5"
Show a                         '> Integer 5
Execute "r = a = 5"
Show r                         '> Boolean True
r = a = 4
Show r                         '> Boolean False
Show Eval("""a"" = ""a"" And a = 5")   '> Boolean True

'=== Eval of what is no text
Show Eval(5)                   '> Integer 5
Show Eval(Null)                '> Null
Show Eval(True)                '> Boolean True

'=== Eval within Eval and within Execute
Dim a: a = 3
Echo Eval("Eval(""a + 1"") * 2")   '> 8
Execute "Execute ""a = a + 1"" : a = a * 2"
Echo a                         '> 8

'=== what a text brings is met by later texts of the same procedure
Sub Routines
  Execute "Function Made(a): Made = a * 3: End Function"
  Echo Made(2), Eval("Made(3)")
  Execute "Echo Made(4)"
End Sub
Sub Variables
  ExecuteGlobal "met = 7"
  Echo met, Eval("met")
  Execute "met = met + 1"
  Echo met
  ExecuteGlobal "Echo met"
End Sub
Sub Constants
  ExecuteGlobal "Const fixed = 4"
  Echo fixed, Eval("fixed + 1")
  Execute "Echo fixed + 2"
End Sub
Routines
'> 6 9
'> 12
Variables
'> 7 7
'> 8
'> 8
Constants
'> 4 5
'> 6

'=== a variable named like a function stays one for texts
Sub S
  Len = 5
  Execute "Len = Len + 1"
  Echo Len, Eval("Len")
End Sub
S                              '> 6 6
