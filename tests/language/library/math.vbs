'=== Abs
Show Abs(-5)                   '> Integer 5
Show Abs(5.5)                  '> Double 5.5
Show Abs("-5")                 '> Double 5
Show Abs(-70000)               '> Long 70000
Show Abs(True)                 '> Integer 1
Show Abs(Null)                 '> Null
Show Abs(CCur(-1.5))           '> Currency 1.5
Dim e
Show Abs(e)                    '> Integer 0

'=== Int and Fix
Show Int(2.7)                  '> Double 2
Show Int(-2.7)                 '> Double -3
Show Fix(2.7)                  '> Double 2
Show Fix(-2.7)                 '> Double -2
Show Int(5)                    '> Integer 5
Show Int(70000)                '> Long 70000
Show Int("2.7")                '> Double 2
Show Int(Null)                 '> Null
Show Int(True)                 '> Integer -1
Show Int(CCur(-1.5))           '> Currency -2

'=== Sgn
Show Sgn(-3)                   '> Integer -1
Show Sgn(0)                    '> Integer 0
Show Sgn(2.5)                  '> Integer 1
Show Sgn("-2")                 '> Integer -1

'=== Sqr, Exp and Log
Show Sqr(16)                   '> Double 4
Show Sqr(2)                    '> Double 1.4142135623731
Show Exp(0)                    '> Double 1
Show Exp(1)                    '> Double 2.71828182845905
Show Log(1)                    '> Double 0
Show Log(10)                   '> Double 2.30258509299405
On Error Resume Next
x = Sqr(-1)
Failed                         '> 5
x = Log(0)
Failed                         '> 5
x = Log(-1)
Failed                         '> 5
x = Exp(1000)
Failed                         '> 6
x = Sqr(Null)
Failed                         '> 94
x = Sqr("x")
Failed                         '> 13

'=== angles
Show Sin(0)                    '> Double 0
Show Cos(0)                    '> Double 1
Show Tan(0)                    '> Double 0
Show Atn(1)                    '> Double 0.785398163397448
Echo Round(Sin(Atn(1) * 2), 10), Round(Cos(Atn(1) * 4), 10)   '> 1 -1

'=== Round goes to the even neighbour
Show Round(2.5)                '> Double 2
Show Round(3.5)                '> Double 4
Show Round(-2.5)               '> Double -2
Show Round(2.4)                '> Double 2
Show Round(2.6)                '> Double 3
Show Round(3.14159, 2)         '> Double 3.14
Show Round(1.25, 1)            '> Double 1.2
Show Round(1.35, 1)            '> Double 1.4
Show Round(5)                  '> Integer 5
Show Round(Null)               '> Null
On Error Resume Next
x = Round(1.5, -1)
Failed                         '> 5

'=== Rnd has one sequence
Show Rnd                       '> Single 0.7055475
Show Rnd                       '> Single 0.533424
Show Rnd                       '> Single 0.5795186
Show Rnd                       '> Single 0.2895625
Show Rnd()                     '> Single 0.301948
Show Rnd(1)                    '> Single 0.7747401

'=== Rnd of zero repeats
x = Rnd
Show Rnd(0) = x                '> Boolean True

'=== Rnd of a negative number starts a sequence
x = Rnd(-1)
a = Rnd
x = Rnd(-1)
b = Rnd
Echo a = b                     '> True

'=== Rnd stays below one
Dim i, ok
ok = True
For i = 1 To 1000
  x = Rnd
  If x < 0 Or x >= 1 Then ok = False
Next
Echo ok                        '> True

'=== Randomize with a number after Rnd of a negative one repeats
x = Rnd(-1): Randomize 5
a = Rnd
x = Rnd(-1): Randomize 5
b = Rnd
Echo a = b                     '> True
Randomize
Echo "end"                     '> end

'=== RGB
Echo RGB(255, 0, 0), RGB(0, 255, 0), RGB(0, 0, 255)   '> 255 65280 16711680
Echo RGB(300, 0, 0)            '> 255
On Error Resume Next
x = RGB(-1, 0, 0)
Failed                         '> 5

'=== the engine
Echo ScriptEngine              '> VBScript
Echo ScriptEngineMajorVersion, ScriptEngineMinorVersion   '> 5 8
Echo ScriptEngineBuildVersion > 0   '> True
Echo GetLocale                 '> 1033

'=== dialogs are refused
On Error Resume Next
MsgBox "x"
Failed                         '> 70
x = InputBox("x")
Failed                         '> 70
