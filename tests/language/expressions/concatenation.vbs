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
