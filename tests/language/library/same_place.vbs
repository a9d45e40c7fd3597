'=== functions of one argument, by other types each time
Function Answers(x)
  Answers = Abs(x) & " " & TypeName(Abs(x)) & ", " & Int(x) & " " & TypeName(Int(x)) & ", " & Fix(x) & " " & TypeName(Fix(x))
End Function
Echo Answers(5)                '> 5 Integer, 5 Integer, 5 Integer
Echo Answers(-5)               '> 5 Integer, -5 Integer, -5 Integer
Echo Answers(CInt(-32767))     '> 32767 Integer, -32767 Integer, -32767 Integer
Echo Answers(CInt(-32768))     '> 32768 Long, -32768 Integer, -32768 Integer
Echo Answers(CLng(-32768))     '> 32768 Long, -32768 Long, -32768 Long
Echo Answers(-70000)           '> 70000 Long, -70000 Long, -70000 Long
Echo Answers(CLng(-2147483648)) '> 2147483648 Double, -2147483648 Long, -2147483648 Long
Echo Answers(2.5)              '> 2.5 Double, 2 Double, 2 Double
Echo Answers(-2.5)             '> 2.5 Double, -3 Double, -2 Double
Echo Answers(1e300)            '> 1E+300 Double, 1E+300 Double, 1E+300 Double
Echo Answers(CSng(-2.5))       '> 2.5 Single, -3 Single, -2 Single
Echo Answers(CCur(-2.5))       '> 2.5 Currency, -3 Currency, -2 Currency
Echo Answers(CByte(7))         '> 7 Byte, 7 Byte, 7 Byte
Echo Answers(True)             '> 1 Integer, -1 Integer, -1 Integer
Echo Answers(Empty)            '> 0 Integer, 0 Integer, 0 Integer
Echo Answers("-2.5")           '> 2.5 Double, -3 Double, -2 Double
Echo Answers(Null)             '>  Null,  Null,  Null
Echo Answers(#12/31/1999 6:00# - #1/1/2000#) '> 0.75 Double, -1 Double, 0 Double
Echo Answers(-5)               '> 5 Integer, -5 Integer, -5 Integer
On Error Resume Next
Echo Answers("x")
Echo Err.Number & " " & Err.Description '> 13 Type mismatch
Err.Clear
Echo Answers(Nothing)
Echo Err.Number                '> 91

'=== a root, by other types each time
Function Root(x)
  Root = Sqr(x)                '! 5 Invalid procedure call or argument: 'Sqr'
End Function
Echo Root(2.25) & " " & TypeName(Root(2.25)) '> 1.5 Double
Echo Root(9) & " " & TypeName(Root(9)) '> 3 Double
Echo Root(1000000)             '> 1000
Echo Root(CCur(6.25))          '> 2.5
Echo Root("4")                 '> 2
Echo Root(Empty)               '> 0
On Error Resume Next
Echo Root(-0.5)
Echo Err.Number & " " & Err.Description '> 5 Invalid procedure call or argument
Err.Clear
Echo Root(-1)
Echo Err.Number                '> 5
Err.Clear
Echo Root(Null)
Echo Err.Number & " " & Err.Description '> 94 Invalid use of Null
Err.Clear
Echo Root(True)
Echo Err.Number                '> 5
On Error GoTo 0
Echo Root(Root(16))            '> 2
Echo Root(-4)

'=== a length, by other types each time
Function Length(x)
  Length = Len(x)
End Function
Echo Length("four") & " " & TypeName(Length("four")) '> 4 Long
Echo Length("")                '> 0
Echo Length(ChrW(8364) & ChrW(1080)) '> 2
Echo Length(1234567)           '> 7
Echo Length(1.5)               '> 3
Echo Length(Empty)             '> 0
Echo TypeName(Length(Null))    '> Null
Echo Len("a" & "bc" & Length("x")) '> 4
Echo Len(String(100000, "x"))  '> 100000
Dim text
text = "some"
text = Len(text)
Echo text & " " & TypeName(text) '> 4 Long

'=== a character by its number, by other types each time
Function Character(x)
  Character = Chr(x)
End Function
Echo Character(65) & Character(97) '> Aa
Echo Asc(Character(0)) & " " & Asc(Character(255)) '> 0 255
Echo Character(CLng(66)) & Character("67") & Character(67.6) '> BCD
Echo Asc(Character(Empty))     '> 0
text = "held"
text = Chr(72)
Echo text                      '> H
On Error Resume Next
Echo Character(256)
Echo Err.Number & " " & Err.Description '> 5 Invalid procedure call or argument
Err.Clear
Echo Character(-1)
Echo Err.Number                '> 5
Err.Clear
Echo Character(Null)
Echo Err.Number                '> 94

'=== the upper bound, of other arrays each time
Function Last(a)
  Last = UBound(a)
End Function
Dim grid(2, 3), vector(4), growing()
Echo Last(vector) & " " & TypeName(Last(vector)) '> 4 Long
Echo Last(grid)                '> 2
Echo Last(Array())             '> -1
Echo Last(Array(1))            '> 0
Echo Last(Split("a b c"))      '> 2
ReDim growing(7)
Echo Last(growing)             '> 7
ReDim Preserve growing(9)
Echo Last(growing)             '> 9
Echo UBound(Split("a b c d"))  '> 3
On Error Resume Next
Erase growing
Echo Last(growing)
Echo Err.Number & " " & Err.Description '> 9 Subscript out of range
Err.Clear
Echo Last("text")
Echo Err.Number & " " & Err.Description '> 13 Type mismatch
Err.Clear
Echo Last(Empty)
Echo Err.Number                '> 13

'=== arguments that stand for variables elsewhere
Dim number, list
number = -6.25
list = Array(1, 2, 3)
Sub Ask(n, a)
  Echo Abs(n) & " " & Int(n) & " " & Fix(n) & " " & UBound(a) & " " & Len(n)
  n = Sqr(Abs(n))
  ReDim Preserve a(UBound(a) + 1)
End Sub
Ask number, list               '> 6.25 -7 -6 2 5
Ask number, list               '> 2.5 2 2 3 3
Function Outside
  Outside = UBound(list) & " " & Int(number)
End Function
Echo Outside()                 '> 4 1

'=== an object's default value as the argument
Class Number
  Public Default Property Get Value
    Value = -2.5
  End Property
End Class
Dim n
Set n = New Number
Echo Abs(n) & " " & Int(n) & " " & Fix(n) & " " & Sqr(Abs(n) * 2.5) & " " & Len(n) '> 2.5 -3 -2 2.5 4
