'=== a list grows, gives its elements by number and is walked
Dim l, x, s: Set l = CreateObject("System.Collections.ArrayList")
Echo TypeName(l), l.Count, l.Capacity        '> ArrayList 0 0
Echo l.Add("b"), l.Add("a")                  '> 0 1
l.Add 5
Echo l.Count, l.Capacity, l(0), l.Item(1), l(2)   '> 3 4 b a 5
l(0) = "c"
For Each x In l: s = s & x: l.Add "more": Next
Echo s, l.Count                              '> ca5 6
Echo Join(l.ToArray, ",")                    '> c,a,5,more,more,more
Set l(1) = CreateObject("Scripting.Dictionary")
l(1)("k") = "v"
Echo TypeName(l(1)), l(1)("k")               '> Dictionary v

'=== elements are found and removed
Dim l: Set l = CreateObject("System.Collections.ArrayList")
l.Add "a": l.Add "b": l.Add "c": l.Add "b": l.Add 7
Echo l.Contains("b"), l.Contains("B"), l.Contains(7), l.Contains("7")   '> True False True False
Echo l.IndexOf("b", 0), l.IndexOf("b", 2), l.IndexOf_3("c"), l.LastIndexOf("b"), l.IndexOf_3("x")   '> 1 3 2 3 -1
l.Remove "b": l.Remove "none"
Echo Join(l.ToArray, "")                     '> acb7
l.RemoveAt 0: l.Insert 0, "x": l.Insert 4, "end"
Echo Join(l.ToArray, "")                     '> xcb7end
l.RemoveRange 1, 2
Echo Join(l.ToArray, ""), l.IsReadOnly       '> x7end False
l.Clear
Echo l.Count                                 '> 0

'=== lists are put together, cut and turned
Dim l, m: Set l = CreateObject("System.Collections.ArrayList")
l.AddRange Array(1, 2, 3)
l.AddRange l
Echo Join(l.ToArray, "")                     '> 123123
Set m = l.Clone: m.InsertRange 1, Array("x", "y")
Echo Join(m.ToArray, ""), l.Count            '> 1xy23123 6
Echo Join(m.GetRange(1, 3).ToArray, "")      '> xy2
m.Reverse: Echo Join(m.ToArray, "")          '> 32132yx1
m.Reverse_2 0, 2: Echo Join(m.ToArray, "")   '> 23132yx1

'=== sorting: no letter case, the lower one first, nothing in front
Dim l: Set l = CreateObject("System.Collections.ArrayList")
l.AddRange Array("b", "B", "a", "C", "ä")
l.Sort: Echo Join(l.ToArray, "")             '> aäbBC
Echo l.BinarySearch("b"), l.BinarySearch("bb")   '> 2 -5
l.Clear: l.AddRange Array(10, 9.5, CLng(70000), 1)
l.Sort: Echo Join(l.ToArray, " ")            '> 1 9.5 10 70000
l.Clear: l.AddRange Array(#2024-02-01#, Empty, #2023-01-01#)
l.Sort: Echo IsEmpty(l(0)), Year(l(1))       '> True 2023
l.Clear: l.AddRange Array("a", 1)
On Error Resume Next
l.Sort: FailedText                           '> -2146233079 Failed to compare two elements in the array.
Echo Join(l.ToArray, "")                     '> a1

'=== places outside the list
Dim l: Set l = CreateObject("System.Collections.ArrayList")
l.Add 1
On Error Resume Next
Echo l(1): Failed                            '> -2146233086
l(-1) = 2: Failed                            '> -2146233086
l.RemoveAt 1: Failed                         '> -2146233086
l.Insert 3, 1: Failed                        '> -2146233086
l.GetRange 0, 2: Failed                      '> -2147024809
l.Capacity = 0: Failed                       '> -2146233086
l.None: Failed                               '> 438
l.Capacity = 100: l.TrimToSize: Echo l.Capacity   '> 1

'=== a list that holds itself, and one whose elements empty it at their end
Class Emptier
  Public List
  Private Sub Class_Terminate: List.Clear: Echo "ended", List.Count: End Sub
End Class
Dim l, m: Set l = CreateObject("System.Collections.ArrayList")
l.Add l: Echo l(0)(0).Count                  '> 1
Set m = CreateObject("System.Collections.ArrayList")
m.Add New Emptier: Set m(0).List = m: m.Add 2
m.RemoveAt 0                                 '> ended 0

'=== texts and their bytes
Dim e, b: Set e = CreateObject("System.Text.UTF8Encoding")
b = e.GetBytes_4("a" & ChrW(8364))
Echo TypeName(b), LenB(b), Hex(AscB(MidB(b, 2, 1)))   '> Byte() 4 E2
Echo e.GetByteCount_2(ChrW(8364)), e.GetCharCount(b), e.WebName, e.CodePage   '> 3 2 utf-8 65001
Echo AscW(Mid(e.GetString(b), 2)), e.GetString_2(b, 0, 1)   '> 8364 a
On Error Resume Next
e.GetString "text": Failed                   '> 5
e.GetString_2 b, 3, 2: Failed                '> -2146233086

'=== hashes
Function HexOf(bytes)
  Dim i
  For i = 1 To LenB(bytes): HexOf = HexOf & LCase(Right("0" & Hex(AscB(MidB(bytes, i, 1))), 2)): Next
End Function
Dim e, abc, name, h: Set e = CreateObject("System.Text.UTF8Encoding")
abc = e.GetBytes_4("abc")
For Each name In Array("MD5CryptoServiceProvider", "SHA1Managed", "SHA256Managed", "SHA512Managed")
  Set h = CreateObject("System.Security.Cryptography." & name)
  Echo TypeName(h), h.HashSize, Left(HexOf(h.ComputeHash_2((abc))), 40), HexOf(h.Hash) = HexOf(h.ComputeHash_3(abc, 0, 3))
Next
'> MD5CryptoServiceProvider 128 900150983cd24fb0d6963f7d28e17f72 True
'> SHA1CryptoServiceProvider 160 a9993e364706816aba3e25717850c26c9cd0d89d True
'> SHA256Managed 256 ba7816bf8f01cfea414140de5dae2223b00361a3 True
'> SHA512Managed 512 ddaf35a193617abacc417349ae20413112e6fa4e True
On Error Resume Next
h.ComputeHash_2 "abc": Failed                '> 5
h.Key = abc: Failed                          '> 438
h.Clear: h.Hash: Failed                      '> 5

'=== hashes with a key
Function HexOf(bytes)
  Dim i
  For i = 1 To LenB(bytes): HexOf = HexOf & LCase(Right("0" & Hex(AscB(MidB(bytes, i, 1))), 2)): Next
End Function
Dim e, h: Set e = CreateObject("System.Text.UTF8Encoding")
Set h = CreateObject("System.Security.Cryptography.HMACSHA256")
Echo LenB(h.Key)                             '> 64
h.Key = e.GetBytes_4("Jefe")
Echo HexOf(h.ComputeHash_2(e.GetBytes_4("what do ya want for nothing?")))
'> 5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843
Set h = CreateObject("System.Security.Cryptography.HMACSHA1")
h.Key = e.GetBytes_4("Jefe")
Echo HexOf(h.ComputeHash_2(e.GetBytes_4("what do ya want for nothing?")))
'> effcdf6ae5eb2fa2d27416d5f184df9c259a7c79

'=== identifiers end in two NULs
Dim t: Set t = CreateObject("Scriptlet.TypeLib")
Echo Len(t.Guid), Left(t.Guid, 38), Right(t.Guid, 2) = String(2, Chr(0))
'> 40 {03020100-0504-0706-0809-0A0B0C0D0E0F} True
Echo t.Guid = t.Guid, t.Guid = CreateObject("scriptlet.typelib").Guid   '> True False
