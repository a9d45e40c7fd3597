'=== everything becomes text
Show "a" & "b"                 '> String "ab"
Show 1 & 2                     '> String "12"
Show 1.5 & "x"                 '> String "1.5x"
Show True & False              '> String "TrueFalse"
Show "d" & #1/2/2003#          '> String "d1/2/2003"
Show CCur(1.5) & ""            '> String "1.5"
Dim e
Show e & "x"                   '> String "x"
Show e & e                     '> String ""
Show "" & ""                   '> String ""

'=== a text grows in a loop
Dim s, i
For i = 1 To 1000
  s = s & "ab"
Next
Echo Len(s), Left(s, 6), Right(s, 3)   '> 2000 ababab bab

'=== appending leaves other holders of the text alone
Dim a, b
a = "x"
b = a
a = a & "y"
Echo a, b                      '> xy x
b = b & "z"
Echo a, b                      '> xy xz

'=== a text appended to itself
Dim s: s = "ab"
s = s & s
Echo s                         '> abab
s = s & "-" & s
Echo s                         '> abab-abab

'=== objects are joined by their default value
Class Named
  Public Default Property Get Text
    Text = "named"
  End Property
End Class
Dim n: Set n = New Named
Echo "[" & n & "]"             '> [named]
Echo n & n                     '> namednamed

'=== numbers join as their digits
Dim i, s
For Each i In Array(0, -1, 32767, -32768, 65536, 2147483647, CLng(-2147483647) - 1, CByte(200))
  s = "n" & i
  Echo s & "/" & i & "/" & i & s
Next
'> n0/0/0n0
'> n-1/-1/-1n-1
'> n32767/32767/32767n32767
'> n-32768/-32768/-32768n-32768
'> n65536/65536/65536n65536
'> n2147483647/2147483647/2147483647n2147483647
'> n-2147483648/-2147483648/-2147483648n-2147483648
'> n200/200/200n200
i = 7
Echo TypeName(i & i) & " " & i & i  '> String 77

'=== a variable that gets a new text leaves alone who has the old one
Dim s, t, a(1), i
For i = 8 To 11
  s = "key" & i
  If i = 9 Then t = s
  a(i Mod 2) = s
Next
Echo s, t, a(0), a(1)  '> key11 key9 key10 key11
s = "head" & 1
s = s & 2
s = 3 & s
s = "<" & s
s = s & s
Echo s  '> <3head12<3head12
s = String(300, "x") & 1
t = s
s = "short" & 2
Echo s & " " & Len(t)  '> short2 301
s = ChrW(8364) & 1
s = "narrow" & 2
Echo s  '> narrow2
s = "" & 5
Echo s & TypeName(s)  '> 5String
s = "" & Null & Empty
Echo "[" & s & "]" & TypeName(Null & Null)  '> []Null

'=== a new text in what is passed by reference
Dim whole, part(1)
Sub Name(ByRef target, ByVal n)
  Dim before
  before = target
  target = "name" & n
  target = "name" & (n + 1)
  Echo before & " " & target
End Sub
whole = "old" & 1
Name whole, 5  '> old1 name6
Name part(1), 7  '>  name8
Name part(1), 9  '> name8 name10
Echo whole & part(1)  '> name6name10

'=== default values join once, from left to right
Class Spoken
  Public word
  Public Default Property Get Say()
    Echo "says " & word
    Say = word
  End Property
End Class
Dim one, s
Set one = New Spoken
one.word = 5
s = "a" & one
Echo s  '> says 5
'> a5
s = one & 1 & one & "z"
Echo s  '> says 5
'> says 5
'> 515z
