'=== InStrRev and where it starts
Echo InStrRev("abcabc", "c", -1), InStrRev("abcabc", "bc", 5), InStrRev("abcabc", "bc", 6)   '> 6 2 5
Echo InStrRev("abc", "", 2), InStrRev("abc", "abcd"), InStrRev("abc", "c", 2), InStrRev("abc", "a", 1)   '> 2 0 0 1
Show InStrRev(Null, "a")       '> Null
Show InStrRev("a", Null)       '> Null
On Error Resume Next
x = InStrRev("abc", "a", 0)
Failed                         '> 5
x = InStrRev("abc", "a", -2)
Failed                         '> 5

'=== InStr and where it starts
Echo InStr(3, "abcabc", "abc"), InStr(5, "abcabc", "abc"), InStr(2.5, "abc", "b"), InStr(4, "abc", "")   '> 4 0 2 0
On Error Resume Next
x = InStr(-1, "abc", "a")
Failed                         '> 5

'=== Replace with a start and a count
Echo Replace("aaa", "a", "b", 1, 0), Replace("aaa", "a", "b", 2, 1), Replace("aaa", "a", "b", 3)   '> aaa ba b
Show Replace("abc", "b", "x", 10)   '> String ""
Show Replace("abc", "b", "x", 4)    '> String ""
Show Replace("aXa", "x", "", 1, -1, vbTextCompare)   '> String "aa"
On Error Resume Next
x = Replace("abc", "b", "x", -1)
Failed                         '> 5
x = Replace("abc", Null, "x")
Failed                         '> 94

'=== Replace by, in and of wider texts, of a text by itself, and in many places
Dim alpha, t
alpha = ChrW(945)
t = Replace("a-b-c", "-", alpha)
Echo Len(t), AscW(Mid(t, 2)), AscW(Mid(t, 4))   '> 5 945 945
Show Replace(t, alpha, "-")      '> String "a-b-c"
Show Replace(alpha & "b", alpha, "aa")   '> String "aab"
Show Replace("abc", alpha, "x")  '> String "abc"
t = "ab": t = Replace(t, t, t & t): Show t   '> String "abab"
Show Replace(1213, 1, "x")       '> String "x2x3"
Show Replace("a", "a", "")       '> String ""
t = Replace(String(100, "-"), "-", "+-")
Echo Len(t), Left(t, 4), Right(t, 3), Len(Replace(t, "+-+", ""))   '> 200 +-+- -+- 50

'=== Split with a count or without a delimiter
Dim a
Echo UBound(Split("a,b,c", ",", 0)), UBound(Split("a,b,c", ",", 1)), UBound(Split("a,b,c", ",", 9))   '> -1 0 2
a = Split("a,b,c", ",", 1)
Echo a(0)                      '> a,b,c
a = Split("a,b", "")
Echo UBound(a), a(0)           '> 0 a,b
a = Split(",a,", ",")
Echo UBound(a), "[" & a(0) & "][" & a(1) & "][" & a(2) & "]"   '> 2 [][a][]
a = Split("a  b")
Echo UBound(a)                 '> 2
a = Split(12.5, ".")
Echo a(0), a(1)                '> 12 5

'=== Filter
Dim a: a = Array("Alpha", "beta", "GAMMA", 12)
Echo Join(Filter(a, "A"), ","), Join(Filter(a, "a"), ","), Join(Filter(a, "a", True, vbTextCompare), ",")   '> Alpha,GAMMA Alpha,beta Alpha,beta,GAMMA
Echo Join(Filter(a, "a", False, 1), ","), UBound(Filter(Array(), "x")), UBound(Filter(a, "x"))   '> 12 -1 -1

'=== StrComp
Echo StrComp("", ""), StrComp("", "a"), StrComp("a", ""), StrComp("abc", "abd"), StrComp("b", "abc")   '> 0 -1 1 -1 1
Echo StrComp("abc", "ABC", vbTextCompare), StrComp("abc", "ABC", vbBinaryCompare), StrComp(2, "10")   '> 0 1 1
Show StrComp(Null, Null)       '> Null

'=== Mid, Left and Right beyond the end
Show Mid("abc", 4)             '> String ""
Show Mid("abc", 100, 5)        '> String ""
Show Mid("abc", 3, 100)        '> String "c"
Show Mid("", 1)                '> String ""
Show Left("", 1)               '> String ""
Show Right("abc", 100)         '> String "abc"
Show Mid("abc", "2", "1")      '> String "b"
Show Mid(12345, 2, 3)          '> String "234"

'=== texts of other values
Dim e
Show Len(True)                 '> Long 4
Show UCase(e)                  '> String ""
Show LCase(True)               '> String "true"
Show StrReverse(123)           '> String "321"
Show Trim(5)                   '> String "5"
Show Space("3")                '> String "   "
Show Chr("65")                 '> String "A"
Show Join(Array(1, Empty, "x"), "-")   '> String "1--x"
On Error Resume Next
x = Join("text")
Failed                         '> 13
x = Join(Array(Array(1)), ",")
Failed                         '> 13
x = StrReverse(Null)
Failed                         '> 94
x = Split(Null)
Failed                         '> 94

'=== single characters by place, of every kind of argument
Dim i, s, wide
For i = 0 To 255
  If Asc(Chr(i)) <> i Then Echo "lost: " & i
  s = s & Chr(i)
Next
For i = 1 To Len(s)
  If Asc(Mid(s, i, 1)) <> i - 1 Then Echo "lost: " & i
  If Mid(s, CByte((i - 1) And 255) + 1, 1) <> Chr(i - 1) Then Echo "lost: " & i
Next
wide = "a" & ChrW(&H4E00) & "b"
Echo Mid(wide, 1, 1) & Mid(wide, 3, 1) & Asc(Mid(wide, 2, 1)) '> ab63
Echo "[" & Mid("abc", 4, 1) & Mid("", 1, 1) & Mid("abc", 100000, 1) & "]" '> []
Echo Mid("abc", "2", 1) & Mid("abc", 1.6, 1) & Mid(12345, 2, 1) & Mid(True, 1, 1) '> bb2T
Echo Mid("abc", 2, True + 2) & Mid("abc", 2, "1") & Mid("abc", 2) '> bbbc
Echo TypeName(Mid(Null, 1, 1)) '> Null
Echo Asc(123) & " " & Asc(True) '> 49 84
On Error Resume Next
s = Mid("abc", 0, 1)
Echo Err.Number                '> 5
Err.Clear
s = Mid("abc", True, 1)
Echo Err.Number                '> 5
Err.Clear
s = Asc("")
Echo Err.Number                '> 5
Err.Clear
s = Asc(Null)
Echo Err.Number                '> 94
