'=== the same sum with other types each time
Function Sum(a, b)
  Sum = a + b
End Function
Sub Show(a, b)
  Dim s
  s = Sum(a, b)
  Echo s & " " & TypeName(s)
End Sub
Show 1, 2                      '> 3 Integer
Show 32767, 1                  '> 32768 Long
Show CInt(-32768), -1          '> -32769 Long
Show 100000, -100000           '> 0 Long
Show 1, 100000                 '> 100001 Long
Show 2147483647, 1             '> 2147483648 Double
Show 1.5, 1.5                  '> 3 Double
Show 1, 0.5                    '> 1.5 Double
Show 2147483647, 0.5           '> 2147483647.5 Double
Show "1", "2"                  '> 12 String
Show "1", 2                    '> 3 Double
Show Empty, 2                  '> 2 Integer
Show True, True                '> -2 Integer
Show CByte(200), CByte(100)    '> 300 Integer
Show CCur(1), 2                '> 3 Currency
Show CSng(1), 2                '> 3 Single
Show 1, 2                      '> 3 Integer
Echo TypeName(Sum(Null, 1))    '> Null
Echo TypeName(Sum(#1/2/2000#, 1)) '> Date

'=== the same product and difference with other types each time
Sub Show(a, b)
  Echo a * b & " " & TypeName(a * b) & ", " & a - b & " " & TypeName(a - b)
End Sub
Show 3, 4                      '> 12 Integer, -1 Integer
Show 300, 300                  '> 90000 Long, 0 Integer
Show CInt(-32768), 1           '> -32768 Integer, -32769 Long
Show 70000, 70000              '> 4900000000 Double, 0 Long
Show 70000, 2                  '> 140000 Long, 69998 Long
Show 0.5, 4                    '> 2 Double, -3.5 Double
Show "3", "4"                  '> 12 Double, -1 Double
Show True, 5                   '> -5 Integer, -6 Integer

'=== an Integer in the code beside other types
Sub Show(a)
  Echo a + 1 & " " & TypeName(a + 1) & ", " & a - 1 & " " & TypeName(a - 1)
End Sub
Show 32767                     '> 32768 Long, 32766 Integer
Show CInt(-32768)              '> -32767 Integer, -32769 Long
Show 40000                     '> 40001 Long, 39999 Long
Show 2147483647                '> 2147483648 Double, 2147483646 Long
Show -2147483647 - 1           '> -2147483647 Long, -2147483649 Double
Show 0.5                       '> 1.5 Double, -0.5 Double
Show "5"                       '> 6 Double, 4 Double
Show Empty                     '> 1 Integer, -1 Integer
Show False                     '> 1 Integer, -1 Integer
Show CDbl("1e308")             '> 1E+308 Double, 1E+308 Double

'=== whole division and remainder keep the wider subtype
Sub Show(a, b)
  Echo a \ b & " " & TypeName(a \ b) & ", " & a Mod b & " " & TypeName(a Mod b)
End Sub
Show 7, 2                      '> 3 Integer, 1 Integer
Show -7, 2                     '> -3 Integer, -1 Integer
Show 100000, 7                 '> 14285 Long, 5 Long
Show 7, 100000                 '> 0 Long, 7 Long
Show CInt(-32768), -1          '> 32768 Long, 0 Integer
Show 7.5, 2                    '> 4 Long, 0 Long
On Error Resume Next
Show 1, 0
Echo Err.Number                '> 11

'=== a comparison that decides about a jump, by all types
Function Answers(a, b)
  Answers = ""
  If a < b Then Answers = Answers & "<"
  If a <= b Then Answers = Answers & "<="
  If a = b Then Answers = Answers & "="
  If a <> b Then Answers = Answers & "<>"
  If a >= b Then Answers = Answers & ">="
  If a > b Then Answers = Answers & ">"
  If Not a < b Then Answers = Answers & "!<"
  If Not a = b Then Answers = Answers & "!="
End Function
Echo Answers(1, 2)             '> <<=<>!=
Echo Answers(2, 2)             '> <==>=!<
Echo Answers(3, 2)             '> <>>=>!<!=
Echo Answers(1, 100000)        '> <<=<>!=
Echo Answers(1.5, 1)           '> <>>=>!<!=
Echo Answers("b", "a")         '> <>>=>!<!=
Echo Answers("10", 9)          '> <>>=>!<!=
Echo Answers(Empty, 0)         '> <==>=!<
Echo Answers(True, -1)         '> <==>=!<
Echo "[" & Answers(Null, 1) & "]" '> []
Echo "[" & Answers(1, Null) & "]" '> []

'=== beside an Integer in the code
Function Answers(a)
  Answers = ""
  If a < 10 Then Answers = Answers & "<"
  If a <= 10 Then Answers = Answers & "<="
  If a = 10 Then Answers = Answers & "="
  If a <> 10 Then Answers = Answers & "<>"
  If a >= 10 Then Answers = Answers & ">="
  If a > 10 Then Answers = Answers & ">"
  If Not a > 10 Then Answers = Answers & "!>"
  If Not a <> 10 Then Answers = Answers & "!<>"
End Function
Echo Answers(9)                '> <<=<>!>
Echo Answers(10)               '> <==>=!>!<>
Echo Answers(100000)           '> <>>=>
Echo Answers(10.5)             '> <>>=>
Echo Answers("9")              '> <<=<>!>
Echo Answers("10")             '> <==>=!>!<>
Echo Answers(Empty)            '> <<=<>!>
Echo Answers(True)             '> <<=<>!>
Echo "[" & Answers(Null) & "]" '> []
Echo Answers(10)               '> <==>=!>!<>

'=== loops until Null
Dim n, i
n = Null
i = 0
Do Until n > 3
  i = i + 1
  If i = 2 Then n = 5
Loop
Echo i                         '> 2
n = Null
Do While n < 3
  i = i + 1
Loop
Echo i                         '> 2
Do
  i = i + 1
  If i = 5 Then n = 3
Loop Until n = 3
Echo i                         '> 5

'=== objects with a default value among the operands
Class Five
  Public Default Property Get Value
    Echo "asked"
    Value = 5
  End Property
End Class
Dim f
Set f = New Five
If f > 4 Then Echo "more"      '> asked
'> more
If f + 1 = 6 Then Echo "six"   '> asked
'> six
Echo f - 1                     '> asked
'> 4

'=== a constant into an element
Const kName = "n"
Dim a(3), b, i
For i = 0 To 3: a(i) = True: Next
a(1) = kName
a(2) = 100000
a(3) = Empty
b = a
b(0) = False
Echo a(0) & " " & a(1) & " " & a(2) & " " & TypeName(a(3)) & " " & b(0) '> True n 100000 Empty False
a(1) = 7
Echo a(1) & " " & b(1)         '> 7 n
On Error Resume Next
a(4) = 1
Echo Err.Number                '> 9
Err.Clear
a("x") = 1
Echo Err.Number                '> 13
Err.Clear
i(0) = 1
Echo Err.Number                '> 13

'=== a constant as an item of an object
Dim d
Set d = CreateObject("Scripting.Dictionary")
d("k") = 5
d("t") = "text"
Echo d("k") & d("t")           '> 5text

'=== Doubles at a place, then others, then Doubles again
Sub Show(a, b)
  Echo a + b & " " & TypeName(a + b) & ", " & a - b & " " & TypeName(a - b) & ", " & a * b & " " & TypeName(a * b)
End Sub
Show 1.5, 0.5                  '> 2 Double, 1 Double, 0.75 Double
Show 1.5, 2.5                  '> 4 Double, -1 Double, 3.75 Double
Show 1.5, 2                    '> 3.5 Double, -0.5 Double, 3 Double
Show 1, 2.5                    '> 3.5 Double, -1.5 Double, 2.5 Double
Show 1.5, 0.5                  '> 2 Double, 1 Double, 0.75 Double
Show 3, 2                      '> 5 Integer, 1 Integer, 6 Integer
Show 1.5, 0.5                  '> 2 Double, 1 Double, 0.75 Double
Show 1.5, CSng(0.5)            '> 2 Double, 1 Double, 0.75 Double
Show 1.5, CCur(0.5)            '> 2 Currency, 1 Currency, 0.75 Double
Show 1.5, "0.5"                '> 2 Double, 1 Double, 0.75 Double
Show 1.5, Empty                '> 1.5 Double, 1.5 Double, 0 Double
Show 1.5, True                 '> 0.5 Double, 2.5 Double, -1.5 Double
Echo TypeName(#1/2/2000# + 0.5) '> Date
Show 1.5, 0.5                  '> 2 Double, 1 Double, 0.75 Double
Show Null, 0.5                 '>  Null,  Null,  Null

'=== Doubles that grow too large where Doubles have met
Function Sum(a, b)
  Sum = a + b
End Function
Function Product(a, b)
  Product = a * b
End Function
Echo Sum(1.5, 2.5)             '> 4
Echo Product(1.5, 2.5)         '> 3.75
On Error Resume Next
Echo Sum(1.5e308, 1.5e308)
Echo Err.Number & " " & Err.Description '> 6 Overflow
Err.Clear
Echo Product(-1.5e308, 2.5)
Echo Err.Number                '> 6
Err.Clear
Echo Sum(1.5, Nothing)
Echo Err.Number                '> 91
On Error GoTo 0
Echo Sum(1.5e308, -1.5e308)    '> 0

'=== an object's default value where Doubles have met
Class Half
  Public Default Property Get Value
    Echo "asked"
    Value = 0.5
  End Property
End Class
Function Sum(a, b)
  Sum = a + b
End Function
Echo Sum(1.5, 0.5)             '> 2
Echo Sum(1.5, New Half)        '> asked
                               '> 2
Echo Sum(New Half, New Half)   '> asked
                               '> asked
                               '> 1
Echo Sum(1.5, 0.5)             '> 2

'=== a result in place of something counted
Dim held
held = "text"
held = Product(1.5, 2.5)
Echo held                      '> 3.75
Function Product(a, b)
  Product = "text"
  Product = a * b
End Function
Echo Product(1.5, 2.5)         '> 3.75
