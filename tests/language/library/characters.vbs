'=== a character by its place, of everything that may stand there
Function At(text, place): At = Mid(text, place, 1): End Function
Class Word
  Public Default Property Get Value: Value = "ab": End Property
End Class
Dim wide: wide = "x" & ChrW(&H3B1)
Echo At("abc", 1) & At("abc", 3) & "|" & At("abc", 4) & "|" & At("", 1) & "|" '> ac|||
Echo At(1234, 2) & At("abc", "2") & At("abc", 2.5) & At("abc", CDbl(3)) '> 2bbc
Echo At(wide, 1) & AscW(At(wide, 2)) & At(New Word, 2) & At(True, 1) '> x945bT
Echo TypeName(At(Null, 1)) & " " & TypeName(At(Empty, 1)) '> Null String
Sub Try(text, place)
  On Error Resume Next
  Dim kept: kept = "kept"
  kept = Mid(text, place, 1)
  Echo kept & " " & Err.Number
End Sub
Try "abc", 0         '> kept 5
Try "abc", -1        '> kept 5
Try "abc", 100000    '>  0
Try "abc", Null      '> kept 94
Try "abc", "x"       '> kept 13
Try Array("a"), 1    '> kept 13
Try Nothing, 1       '> kept 91

'=== into the text or the place itself, and into what holds something else
Dim s, i, other, n
s = "hello": i = 2
s = Mid(s, i, 1): Echo s '> e
s = "hello": other = s
s = Mid(s, i, 1): Echo s & other '> ehello
s = "987": i = 3
i = Mid(s, i, 1): Echo i & TypeName(i) '> 7String
n = Array(1, 2): i = 1
n = Mid(s, i, 1): Echo n '> 9
Set n = New RegExp
n = Mid(s, i, 1): Echo n '> 9

'=== by reference, in a field, of the function's own name
Sub Cut(ByRef whole, ByRef place): whole = Mid(whole, place, 1): End Sub
s = "hello": i = 5: Cut s, i: Echo s '> o
Class Reader
  Private text, place
  Public Default Function Read(given)
    text = given: Read = given
    For place = 1 To Len(text): Read = Mid(text, place, 1) & Read: Next
    For i = 1 To 2: Read = Read & Mid(Read, i, 1): Next
  End Function
End Class
Echo (New Reader)("abc") '> cbaabccb

'=== as an argument, a condition and a piece of a text
Dim count, joined
s = "a,b,,c"
For i = 1 To Len(s)
  If Mid(s, i, 1) = "," Then count = count + 1
  If Asc(Mid(s, i, 1)) > 97 Then joined = joined & Mid(s, i, 1) & UCase(Mid(s, i, 1)) & i
Next
Echo count & joined '> 3bB3cC6
