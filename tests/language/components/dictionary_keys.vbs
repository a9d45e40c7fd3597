'=== keys of every type are keys of their own
Dim d, keys, i, o: Set d = CreateObject("Scripting.Dictionary"): Set o = CreateObject("Scripting.Dictionary")
keys = Array("1", 1, Empty, Null, "", o, Nothing, #1/2/2000#, True, "True", 2.5, "2.5", "a", "A", Chr(0), "a" & Chr(0))
For i = 0 To UBound(keys): d.Add keys(i), i: Next
For i = 0 To UBound(keys)
  If Not d.Exists(keys(i)) Or d(keys(i)) <> i Or d.Item(keys(i)) <> i Then Echo "lost", i
  d(keys(i)) = d(keys(i)) + 100
  If d(keys(i)) <> i + 100 Then Echo "not written", i
Next
Echo d.Count, UBound(keys) + 1   '> 16 16
Echo d(CDbl(1)), d(CLng(1)), d(CCur(1)), d(CByte(1)), d(-1), d(36527)   '> 101 101 101 101 108 107
Echo d.Count   '> 16
On Error Resume Next
d.Add "1", 0: FailedText     '> 457 This key is already associated with an element of this collection
d(Array(1)) = 1: Failed      '> 5
Echo d(Array(1)): Failed     '> 5

'=== a text that grows after it was a key is another key
Dim d, k, i: Set d = CreateObject("Scripting.Dictionary")
k = String(40, "a")
Echo d.Exists(k)             '> False
k = k & "b"
Echo d.Exists(k)             '> False
d.Add k, 1
Echo d.Exists(k), d(k)       '> True 1
k = k & "c"
Echo d.Exists(k)             '> False
d(k) = 2
k = Left(k, 41)
Echo d.Exists(k), d(k)       '> True 1
k = k & "c"
Echo d(k), d.Count           '> 2 2
k = "key " & 1: Echo d.Exists(k)   '> False
d(k) = "first"
k = "key " & 2: Echo d.Exists(k)   '> False
k = "key " & 1: Echo d.Exists(k), d(k)   '> True first
k = "": For i = 1 To 300: k = k & "x": d(k) = i: Next
k = "": For i = 1 To 300
  k = k & "x": If d(k) <> i Then Echo "lost", i
Next
Echo d.Count                 '> 303
For i = 1 To 300: k = "number " & i: If d.Exists(k) Then Echo "too early", i
  d(k) = i
Next
For i = 300 To 1 Step -1: k = "number " & i: If d(k) <> i Then Echo "lost", i
Next

'=== the texts of digits that keys are made of
Dim d, n: Set d = CreateObject("Scripting.Dictionary")
For Each n In Array(0, 7, 10, 99, 100, 101, 999, 1000, 9999, 10000, 32767, 32768, 123456, 99999999, 2147483647)
  d("n" & n) = 1: d(n & "n") = 1: d("n" & -n) = 1
Next
Echo Join(d.Keys, " ")
'> n0 0n n7 7n n-7 n10 10n n-10 n99 99n n-99 n100 100n n-100 n101 101n n-101 n999 999n n-999 n1000 1000n n-1000 n9999 9999n n-9999 n10000 10000n n-10000 n32767 32767n n-32767 n32768 32768n n-32768 n123456 123456n n-123456 n99999999 99999999n n-99999999 n2147483647 2147483647n n-2147483647
Echo "" & CLng(-2147483648), CByte(200) & "", -32768 & -1   '> -2147483648 200 -32768-1
Dim s: For Each n In Array("", "a", "ab", "abc", "abcd", "abcdefg", "abcdefgh", "abcdefghijklmno", "abcdefghijklmnop", "abcdefghijklmnopq")
  s = n & 12: Echo s: s = 12345 & n: Echo s
Next
'> 12
'> 12345
'> a12
'> 12345a
'> ab12
'> 12345ab
'> abc12
'> 12345abc
'> abcd12
'> 12345abcd
'> abcdefg12
'> 12345abcdefg
'> abcdefgh12
'> 12345abcdefgh
'> abcdefghijklmno12
'> 12345abcdefghijklmno
'> abcdefghijklmnop12
'> 12345abcdefghijklmnop
'> abcdefghijklmnopq12
'> 12345abcdefghijklmnopq

'=== texts of more than one byte a character
Dim d, k, w: Set d = CreateObject("Scripting.Dictionary")
w = ChrW(1046) & "abc"
Echo d.Exists(w)             '> False
d.Add w, 1: d.Add "abc", 2
Echo d.Exists(w), d(w), d(Mid(w, 2)), d(ChrW(1046) & "abc")   '> True 1 2 1
k = w & "d": Echo d.Exists(k)      '> False
w = w & "d": Echo d.Exists(w)      '> False
d(w) = 3: Echo d(k)                '> 3
d.RemoveAll: d.CompareMode = 1
d(ChrW(1046)) = 1: d("Stra" & Chr(223) & "e") = 2
Echo d(ChrW(1078)), d("STRA" & Chr(223) & "E"), d.Count       '> 1 2 2
d(String(70, "k")) = 3
Echo d(String(70, "K")), d.Exists(String(70, "K") & "x"), d.Count   '> 3 False 3
d("") = 4: Echo d(""), d(Left("x", 0)), d.Exists(Empty)       '> 4 4 False

'=== comparison without regard to case
Dim d, k: Set d = CreateObject("Scripting.Dictionary"): d.CompareMode = 1
k = "Key": d.Add k, 1
Echo d.Exists("KEY"), d("key"), d.Exists(k)   '> True 1 True
k = "kEY": d(k) = d(k) + 1
Echo d.Count, d("Key"), Join(d.Keys)          '> 1 2 Key
On Error Resume Next
d.Add "KEY", 1: Failed                        '> 457
d.CompareMode = 0: Failed                     '> 5

'=== the default member: read, written, counted up
Dim d, k, i, t, o: Set d = CreateObject("Scripting.Dictionary"): Set o = CreateObject("Scripting.Dictionary")
k = "n"
d(k) = d(k) + 1: d(k) = d(k) + 1: d("n") = d("n") + 1
Echo d(k), d.Count           '> 3 1
t = d(k): t = "text": t = d(k): Echo t         '> 3
d("t") = "text": t = d("t"): d("t") = d("t") & "+": Echo t, d("t")   '> text text+
t = d("new"): Echo IsEmpty(t), d.Count         '> True 3
Set d("o") = o: d("o")("x") = 5: Echo o("x"), d("o")("x"), d("o").Count   '> 5 5 1
Set t = d("o"): Echo t Is o                    '> True
d("a") = Array(1, 2): t = d("a"): t(0) = 9: Echo d("a")(0), t(0)   '> 1 9
For i = 1 To 3: d(i) = i: d(i) = d(i) * d(i): Next
Echo d(1), d(2), d(3)        '> 1 4 9
d.Remove "n": Echo IsEmpty(d("n")), d.Count    '> True 8
d.Key("n") = "m": Echo d.Exists("n"), d.Exists("m")   '> False True
With d: .Item("w") = 1: .Item("w") = .Item("w") + 1: Echo .Item("w"): End With   '> 2

'=== keys put back after they were removed
Dim d, i, r: Set d = CreateObject("Scripting.Dictionary")
For r = 1 To 5
  For i = 1 To 50: d.Add "k" & i, i: Next
  For i = 1 To 50 Step 2: d.Remove "k" & i: Next
  If d.Exists("k1") Or Not d.Exists("k2") Then Echo "wrong"
  For i = 1 To 50 Step 2: d.Add "k" & i, -i: Next
  For i = 1 To 50: If Abs(d("k" & i)) <> i Then Echo "lost", i
  Next
  If r < 5 Then For i = 50 To 1 Step -1: d.Remove "k" & i: Next
Next
Echo d.Count, d.Keys()(0)    '> 50 k2
