'=== Len
Show Len("abc")                '> Long 3
Show Len("")                   '> Long 0
Show Len(Null)                 '> Null
Show Len(12345)                '> Long 5
Dim e
Show Len(e)                    '> Long 0

'=== Left and Right
Show Left("abcdef", 2)         '> String "ab"
Show Left("ab", 5)             '> String "ab"
Show Left("ab", 0)             '> String ""
Show Right("abcdef", 2)        '> String "ef"
Show Right("ab", 5)            '> String "ab"
Show Right("ab", 0)            '> String ""
Show Left(Null, 1)             '> Null
Show Right(Null, 1)            '> Null
Show Left(12345, 2)            '> String "12"
On Error Resume Next
x = Left("ab", -1)
Failed                         '> 5
x = Right("ab", -1)
Failed                         '> 5

'=== Mid
Show Mid("abcdef", 3)          '> String "cdef"
Show Mid("abcdef", 3, 2)       '> String "cd"
Show Mid("abcdef", 7)          '> String ""
Show Mid("abcdef", 5, 10)      '> String "ef"
Show Mid("abc", 2, 0)          '> String ""
Show Mid(Null, 1)              '> Null
On Error Resume Next
x = Mid("abc", 0)
Failed                         '> 5
x = Mid("abc", 1, -1)
Failed                         '> 5

'=== InStr
Show InStr("abcabc", "c")      '> Long 3
Show InStr("abc", "x")         '> Long 0
Show InStr(4, "abcabc", "c")   '> Long 6
Show InStr("abc", "")          '> Long 1
Show InStr(2, "abc", "")       '> Long 2
Show InStr("", "a")            '> Long 0
Show InStr("", "")             '> Long 0
Show InStr(10, "abc", "a")     '> Long 0
Show InStr("ABC", "b")         '> Long 0
Show InStr(1, "ABC", "b", 1)   '> Long 2
Show InStr(1, "ABC", "b", vbBinaryCompare)   '> Long 0
Show InStr(Null, "a")          '> Null
Show InStr("a", Null)          '> Null
Show InStr(12345, 34)          '> Long 3
On Error Resume Next
x = InStr(0, "abc", "a")
Failed                         '> 5

'=== InStrRev
Show InStrRev("abcabc", "b")   '> Long 5
Show InStrRev("abcabc", "b", 4)   '> Long 2
Show InStrRev("abc", "x")      '> Long 0
Show InStrRev("abc", "")       '> Long 3
Show InStrRev("", "a")         '> Long 0
Show InStrRev("ABC", "b", -1, 1)   '> Long 2
Show InStrRev("abc", "a", 10)  '> Long 0

'=== Replace
Show Replace("abcabc", "b", "x")   '> String "axcaxc"
Show Replace("aaa", "a", "bb") '> String "bbbbbb"
Show Replace("abc", "x", "y")  '> String "abc"
Show Replace("abc", "", "y")   '> String "abc"
Show Replace("", "a", "b")     '> String ""
Show Replace("abc", "b", "")   '> String "ac"
Show Replace("aaaa", "a", "b", 1, 2)   '> String "bbaa"
Show Replace("abcabc", "a", "x", 2)    '> String "bcxbc"
Show Replace("ABC", "b", "x", 1, -1, 1)   '> String "AxC"
Show Replace("aaa", "aa", "b") '> String "ba"
On Error Resume Next
x = Replace(Null, "a", "b")
Failed                         '> 94
x = Replace("a", "a", "b", 0)
Failed                         '> 5

'=== Split
Dim a
a = Split("a,b,c", ",")
Echo UBound(a), a(0), a(2)     '> 2 a c
a = Split("a b c")
Echo UBound(a), a(1)           '> 2 b
a = Split("", ",")
Echo UBound(a)                 '> -1
a = Split("abc", ",")
Echo UBound(a), a(0)           '> 0 abc
a = Split("a,,b", ",")
Echo UBound(a), "[" & a(1) & "]"   '> 2 []
a = Split("a,b,c,d", ",", 2)
Echo UBound(a), a(1)           '> 1 b,c,d
a = Split("aXbxc", "x", -1, 1)
Echo UBound(a)                 '> 2
a = Split("a--b--c", "--")
Echo a(2)                      '> c
Show Split("1,2", ",")(0)      '> String "1"
a = Split(",", ",")
Echo UBound(a)                 '> 1

'=== Join
Echo Join(Array("a", "b", "c"), ",")   '> a,b,c
Echo Join(Array("a", "b"))     '> a b
Echo Join(Array(1, 2.5, True), "-")   '> 1-2.5-True
Echo "[" & Join(Array(), ",") & "]"   '> []
Echo Join(Array("x"), ",")     '> x
Echo Join(Array("a", "b"), "") '> ab

'=== Filter
Dim a
a = Filter(Array("apple", "banana", "cherry"), "an")
Echo UBound(a), a(0)           '> 0 banana
a = Filter(Array("apple", "banana", "cherry"), "an", False)
Echo Join(a, ",")              '> apple,cherry
a = Filter(Array("AB", "ab"), "a")
Echo Join(a, ",")              '> ab
a = Filter(Array("AB", "ab"), "a", True, 1)
Echo Join(a, ",")              '> AB,ab
a = Filter(Array("x"), "y")
Echo UBound(a)                 '> -1

'=== letter case
Show UCase("abC1")             '> String "ABC1"
Show LCase("ABc1")             '> String "abc1"
Show UCase(Null)               '> Null
Echo UCase(Chr(228)) = Chr(196)   '> True
Echo LCase(Chr(196)) = Chr(228)   '> True

'=== Trim
Show Trim("  a b  ")           '> String "a b"
Show LTrim("  a ")             '> String "a "
Show RTrim(" a  ")             '> String " a"
Show Trim("   ")               '> String ""
Show Trim(vbTab & "a")         '> String "	a"
Show Trim(Null)                '> Null

'=== Space and String
Show Space(3)                  '> String "   "
Show Space(0)                  '> String ""
Show String(3, "x")            '> String "xxx"
Show String(3, "xyz")          '> String "xxx"
Show String(2, 65)             '> String "AA"
Show String(0, "x")            '> String ""
On Error Resume Next
x = Space(-1)
Failed                         '> 5
x = String(-1, "x")
Failed                         '> 5
x = String(2, "")
Failed                         '> 5

'=== StrReverse and StrComp
Show StrReverse("abc")         '> String "cba"
Show StrReverse("")            '> String ""
Show StrComp("a", "b")         '> Integer -1
Show StrComp("b", "a")         '> Integer 1
Show StrComp("a", "a")         '> Integer 0
Show StrComp("a", "A")         '> Integer 1
Show StrComp("a", "A", 1)      '> Integer 0
Show StrComp("a", "B", 1)      '> Integer -1
Show StrComp(Null, "a")        '> Null

'=== Asc and Chr
Show Asc("A")                  '> Integer 65
Show Asc("ABC")                '> Integer 65
Show Chr(65)                   '> String "A"
Show Asc(Chr(200))             '> Integer 200
Show AscW("A")                 '> Integer 65
Show AscW(ChrW(8364))          '> Integer 8364
Show Asc(ChrW(8364))           '> Integer 128
Show AscW(Chr(128))            '> Integer 8364
Show ChrW(65)                  '> String "A"
On Error Resume Next
x = Asc("")
Failed                         '> 5
x = Chr(256)
Failed                         '> 5
x = Chr(-1)
Failed                         '> 5

'=== bytes
Show LenB("abc")               '> Long 6
Show LenB(ChrB(65))            '> Long 1
Show AscB("A")                 '> Byte 65
Show LenB(ChrB(65) & ChrB(66)) '> Long 2
Show AscB(MidB("AB", 3, 1))    '> Byte 66
Show InStrB("abc", "b")        '> Long 3
Show LeftB("abc", 2)           '> String "a"
Show RightB("abc", 2)          '> String "c"
Show MidB("abc", 3, 2)         '> String "b"

'=== Hex and Oct
Show Hex(255)                  '> String "FF"
Show Hex(0)                    '> String "0"
Show Hex(-1)                   '> String "FFFF"
Show Hex(CLng(-1))             '> String "FFFFFFFF"
Show Hex(65536)                '> String "10000"
Show Hex(10.6)                 '> String "B"
Show Hex("16")                 '> String "10"
Show Oct(8)                    '> String "10"
Show Oct(-1)                   '> String "177777"
Show Hex(Null)                 '> Null

'=== Escape and Unescape
Show Escape("a b")             '> String "a%20b"
Show Escape("a+b/c@d*e_f-g.h") '> String "a+b/c@d*e_f-g.h"
Show Escape("100%")            '> String "100%25"
Show Escape(Chr(228))          '> String "%E4"
Show Escape(ChrW(8364))        '> String "%u20AC"
Show Unescape("a%20b")         '> String "a b"
Show Unescape("%u0041%42")     '> String "AB"
Show Unescape("100%")          '> String "100%"
