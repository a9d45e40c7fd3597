'=== variables start Empty
Dim a, b
Show a                         '> Empty
Show b                         '> Empty
Show never                     '> Empty

'=== names have no letter case
Dim Total
TOTAL = 5
Echo total                     '> 5

'=== declared after use
x = 5
Dim x
Echo x                         '> 5

'=== a Dim in a branch declares for the whole scope
Option Explicit
If False Then
  Dim x
End If
x = 1
Echo x                         '> 1

'=== Option Explicit wants every name declared
Option Explicit
Dim a
a = 1
b = 2                          '! 500 Variable is undefined: 'b'

'=== reading an undeclared name under Option Explicit
Option Explicit
Echo missing                   '! 500 Variable is undefined: 'missing'

'=== Option Explicit inside procedures
Option Explicit
Sub S
  y = 1                        '! 500 Variable is undefined: 'y'
End Sub
S

'=== a declared constant
Const kA = 5, kB = "text", kC = -1.5
Echo kA, kB, kC                '> 5 text -1.5
Show kC                        '> Double -1.5

'=== a constant cannot be assigned
Const k = 5
On Error Resume Next
Execute "k = 6"
Failed                         '> 501
Echo k                         '> 5

'=== constants of a procedure are its own
Const k = "outer"
Sub S
  Const k = "inner"
  Echo k
End Sub
S                              '> inner
Echo k                         '> outer

'=== constants are known before their line
Sub S
  Echo k                       '> 7
End Sub
Const k = 7
S

'=== locals hide globals
Dim x: x = "global"
Sub S
  Dim x
  x = "local"
  Echo x                       '> local
End Sub
S
Echo x                         '> global

'=== an undeclared name in a procedure is a local unless the script has it
Sub S
  y = y + 5
  Echo y
End Sub
S                              '> 5
S                              '> 5

'=== a procedure reaches the script's variables
Dim count
Sub Increase
  count = count + 1
End Sub
Increase: Increase
Echo count                     '> 2

'=== locals start anew with each call
Sub S
  Dim x
  x = x + 1
  Echo x
End Sub
S                              '> 1
S                              '> 1

'=== Public and Private at the script's level
Public a, b(2)
Private c
a = 1: b(2) = 2: c = 3
Echo a, b(2), c                '> 1 2 3

'=== a name twice
Dim a
Dim A                          '! 1041 Name redefined

'=== a procedure twice: the later one counts
Echo F                         '> second
Function F: F = "first": End Function
Function F: F = "second": End Function

'=== shadowing built-in functions
Dim Len, time
Len = 5
time = "noon"
Echo Len, time                 '> 5 noon

'=== a procedure named like a built-in function
Function Left(x)
  Left = "mine " & x
End Function
Echo Left("a")                 '> mine a

'=== a parameter named like a keyword of other places
Sub S(default, step, error)
  Echo default, step, error
End Sub
S 1, 2, 3                      '> 1 2 3
