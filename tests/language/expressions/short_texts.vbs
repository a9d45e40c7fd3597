'=== texts of every length are told apart by every character
Dim n, i, a, b, wrong, same
For n = 0 To 20
  a = String(n, "x"): b = String(n, "x")
  If a <> b Then wrong = wrong & " " & n
  If Not a = b Then wrong = wrong & " not " & n
  same = False: If a = String(n, "x") Then same = True
  If Not same Then wrong = wrong & " made " & n
  If a = b & "x" Or b & "x" = a Then wrong = wrong & " longer " & n
  For i = 1 To n
    b = Left(a, i - 1) & "y" & Mid(a, i + 1)
    If a = b Then wrong = wrong & " " & n & "," & i
    If b <> a Then same = False Else wrong = wrong & " else " & n & "," & i
    If (a = b) Or Not (a <> b) Then wrong = wrong & " value " & n & "," & i
  Next
Next
Echo Len(wrong), same        '> 0 False

'=== texts beside what is none
Dim t, n, e, w, o: t = "7": n = Null: w = ChrW(1046) & "x"
Class Seven
  Public Default Property Get Value : Value = "7" : End Property
End Class
Set o = New Seven
If t = "7" Then Echo "literal"                       '> literal
If t = 7 Then Echo "number"                          '> number
If t = n Then Echo "null" Else Echo "not null"       '> not null
If t <> n Then Echo "other than null" Else Echo "nothing known"   '> nothing known
If e = "" Then Echo "empty"                          '> empty
If "" = e Then Echo "empty, too"                     '> empty, too
If o = "7" Then Echo "default"                       '> default
If t = o Then Echo "default, too"                    '> default, too
If w = ChrW(1046) & "x" Then Echo "wide"             '> wide
If w <> "Zx" Then Echo "other"                       '> other
If "" = String(0, "x") Then Echo "none"              '> none
If "x" <> "" Then Echo "some"                        '> some
Sub Compare(ByRef a, ByRef b)
  If a = b Then Echo "same" Else Echo "different"
  If a <> b Then Echo "different" Else Echo "same"
  If a = "abc" Then Echo "it is"
  Select Case a
    Case "x", "ab": Echo "no"
    Case "abc", "abcd": Echo "case"
    Case Else: Echo "else"
  End Select
End Sub
Dim s, r: s = "a": s = s & "bc": r = "abc": Compare s, r
'> same
'> same
'> it is
'> case
Compare "abc", s & "d"
'> different
'> different
'> it is
'> case
Compare w, w
'> same
'> same
'> else

'=== a character out of a text
Dim s, i, r, c, p: s = "h" & Chr(233) & "llo"
For i = 1 To 5: r = r & Mid(s, i, 1) & "|": Next: Echo r = "h|" & Chr(233) & "|l|l|o|"   '> True
c = Mid(s, 1, 1): c = Mid(s, 2, 1): Echo Asc(c)      '> 233
c = s: c = Mid(c, 5, 1): Echo c, Len(s)              '> o 5
c = "long" & "er": c = Mid(c, 3, 1): Echo c          '> n
c = Mid(c, 1, 1): Echo c                             '> n
Echo "[" & Mid(s, 6, 1) & "]", "[" & Mid(s, 32767, 1) & "]", Mid(s, CLng(1), 1), Mid(s, 1.4, 1), Mid(s, "1", 1)   '> [] [] h h h
Echo Mid(s, 1, CLng(1)), Mid(s, 1, 1.0), Mid(s, 1, True + 2), "[" & Mid(s, 1, 0) & "]", Mid(s, 3, 2)   '> h h h [] ll
Echo Mid(12345, 2, 1), Mid(True, 1, 1), IsNull(Mid(Null, 1, 1)), "[" & Mid(Empty, 1, 1) & "]"   '> 2 T True []
s = ChrW(1046) & "z": Echo AscW(Mid(s, 1, 1)), Mid(s, 2, 1)   '> 1046 z
Sub Take(ByRef text, ByRef at, ByRef into): into = Mid(text, at, 1): End Sub
Take "xyz", 2, p: Echo p                             '> y
i = 3: s = "abc": Take s, i, s: Echo s, i            '> c 3
Dim a(1): a(0) = "pq": a(1) = 2: Echo Mid(a(0), a(1), 1)   '> q
Mid s, 1, 1
On Error Resume Next
r = "kept"
r = Mid(s, 0, 1): FailedText                         '> 5 Invalid procedure call or argument
r = Mid(s, -1, 1): FailedText                        '> 5 Invalid procedure call or argument
r = Mid(s, 1, -1): Failed                            '> 5
r = Mid(s, Null, 1): Failed                          '> 94
r = Mid(Array(1), 1, 1): Failed                      '> 13
Echo r                                               '> kept

'=== texts put together out of themselves
Dim s, t, u, i, n: s = "s": t = s
s = "<" & s & ">": Echo s, t                         '> <s> s
s = "<" & s & ">" & s: Echo s                        '> <<s>><s>
s = s & s & s: Echo Len(s)                           '> 24
For i = 1 To 3: u = "[" & i & "," & -i * 100000 & "]": Next: Echo u   '> [3,-300000]
t = u: u = "(" & u & ")" & 1: Echo t, u              '> [3,-300000] ([3,-300000])1
u = "x" & CByte(200) & "y" & 2147483647: Echo u      '> x200y2147483647
u = "x" & 1.5 & "y" & True & Null & Empty: Echo u    '> x1.5yTrue
u = "x" & ChrW(1046) & "y": Echo Len(u), AscW(Mid(u, 2, 1))   '> 3 1046
u = "a" & u & "b": Echo Len(u)                       '> 5
u = "" & "" & "": Echo Len(u), TypeName(u)           '> 0 String
u = String(300, "u"): u = "1" & 2 & "3": Echo u      '> 123
u = String(15, "a") & String(16, "b") & String(17, "c"): Echo u   '> aaaaaaaaaaaaaaabbbbbbbbbbbbbbbbccccccccccccccccc
Sub Grow(ByRef x, ByRef y): x = y & x & y: End Sub
s = "m": t = "o": Grow s, t: Echo s, t               '> omo o
Grow s, s: Echo s                                    '> omoomoomo
Dim d: Set d = CreateObject("Scripting.Dictionary")
n = "k" & 1 & "k": d(n) = 1: n = "k" & 2 & "k": d(n) = 2: Echo Join(d.Keys), d("k" & 1 & "k"), d.Exists(n)   '> k1k k2k 1 True

'=== constants that variables hold stay as they are
Dim a, b, i
For i = 1 To 3
  a = "constant": b = a
  If i = 2 Then a = a & "!"
  b = b & i: Echo a, b
Next
'> constant constant1
'> constant! constant2
'> constant constant3
Function Kind(x)
  Select Case TypeName(x) & ""
    Case "String": Kind = "text"
    Case Else: Kind = "other"
  End Select
End Function
Echo Kind("a"), Kind(1), Kind("b")                   '> text other text

'=== Replace at many places, at none and of all
Dim s, i: s = Replace(String(40, "a"), "a", "bc"): Echo Len(s), s = String(1, "b") & Replace(Space(39), " ", "cb") & "c"   '> 80 True
For i = 14 To 18: Echo Replace(String(i, "x"), "x", i Mod 10): Next
'> 44444444444444
'> 555555555555555
'> 6666666666666666
'> 77777777777777777
'> 888888888888888888
Echo "[" & Replace("aaa", "a", "") & "]", Replace("abc", "x", "y"), Replace("abcabc", "bc", ""), Replace("abc", "", "y")   '> [] abc aa abc
Echo Replace("aXbxc", "x", "-", 1, -1, 1), Replace("aaa", "a", "b", 2), Replace("aaa", "a", "b", 1, 2)   '> a-b-c bb bba
Echo AscW(Replace("a", "a", ChrW(1046))), Len(Replace("aba", "a", ChrW(1046))), Replace(ChrW(1046) & "b", ChrW(1046), "x")   '> 1046 3 xb
Echo UBound(Split(String(40, ","), ",")), Join(Split("a,b,,c", ","), "|"), UBound(Split("", ","))   '> 40 a|b||c -1
