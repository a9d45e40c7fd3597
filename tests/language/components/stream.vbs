'=== text is held in a character set, behind its mark
Dim s: Set s = CreateObject("ADODB.Stream")
Echo s.State, s.Type, s.Charset, s.LineSeparator   '> 0 2 Unicode -1
s.Open
s.WriteText "ab"
Echo s.Size, s.Position, s.State, s.EOS    '> 6 6 1 True
s.Position = 0
Echo s.ReadText                            '> ab
s.Close: s.Charset = "utf-8": s.Open
s.WriteText "a" & ChrW(8364)
Echo s.Size                                '> 7
s.Position = 0: Echo AscW(Mid(s.ReadText, 2))   '> 8364
s.Position = 3: Echo s.ReadText(1), s.Position, AscW(s.ReadText(1)), s.EOS   '> a 4 8364 True
Echo "[" & s.ReadText & "]"                '> []

'=== bytes to text and back by changing the type
Dim s, b: Set s = CreateObject("ADODB.Stream")
s.Type = 2: s.Charset = "windows-1252": s.Open
s.WriteText "A" & Chr(228)
s.Position = 0: s.Type = 1
b = s.Read
Echo TypeName(b), UBound(b), AscB(MidB(b, 2, 1)), VarType(b)   '> Byte() 1 228 8209
Show s.Read                                '> Null
s.Position = 0: s.SetEOS: s.Write b: s.Write b
Echo s.Size                                '> 4
s.Position = 0: s.Type = 2: s.Charset = "iso-8859-1"
Echo Asc(Right(s.ReadText(2), 1)), s.Position   '> 228 2

'=== other sets
Dim s, c, n: Set s = CreateObject("ADODB.Stream")
For Each c In Array("gb2312", "big5", "shift_jis", "euc-kr", "windows-1251", "utf-16", "unicodeFFFE", "us-ascii")
  s.Open: s.Charset = c
  s.WriteText "x" & ChrW(&H4E00) & ChrW(1078)
  n = s.Size: s.Position = 0
  s.ReadText 1
  Echo c, n, Hex(AscW(s.ReadText(1))), s.EOS
  s.Close
Next
'> gb2312 5 4E00 False
'> big5 4 4E00 False
'> shift_jis 5 4E00 False
'> euc-kr 5 4E00 False
'> windows-1251 3 3F False
'> utf-16 8 4E00 False
'> unicodeFFFE 6 4E00 False
'> us-ascii 3 3F False
On Error Resume Next
s.Charset = "none": Failed        '> 3001
s.Charset = "": Failed            '> 3001
s.Charset = "utf-8//IGNORE": Failed   '> 3001

'=== lines
Dim s: Set s = CreateObject("ADODB.Stream")
s.Charset = "Unicode": s.Open
s.WriteText "one", 1: s.WriteText "two" & vbLf & "three", 1: s.WriteText "four"
s.Position = 0
s.SkipLine
Echo Replace(s.ReadText(-2), vbLf, "|"), s.ReadText(-2), s.EOS   '> two|three four True
s.Position = 0: s.LineSeparator = 10
Echo Len(s.ReadText(-2)), s.ReadText(3)   '> 4 two

'=== files
Dim s, t, fso: Set s = CreateObject("ADODB.Stream"): Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "12345"
s.Open: s.Type = 1: s.LoadFromFile "A.txt"
Echo s.Size, s.Position            '> 5 0
s.Position = 2
Set t = CreateObject("ADODB.Stream"): t.Type = 1: t.Open
s.CopyTo t, 2
s.CopyTo t
Echo t.Size, t.Position, s.EOS     '> 3 3 True
t.SaveToFile "/data/b.txt"
Echo fso.OpenTextFile("b.txt").ReadAll, t.Position   '> 345 0
On Error Resume Next
t.SaveToFile "b.txt": FailedText   '> 3004 Write to file failed.
t.SaveToFile "b.txt", 2: Failed    '> no error
t.SaveToFile "none/b.txt", 2: Failed   '> 3004
t.SaveToFile "/elsewhere/x": Failed    '> 70
s.LoadFromFile "c.txt": FailedText     '> 3002 File could not be opened.
s.LoadFromFile "/elsewhere/secret.txt": Failed   '> 70

'=== texts are copied from one set to another
Dim s, t: Set s = CreateObject("ADODB.Stream"): Set t = CreateObject("ADODB.Stream")
s.Charset = "utf-8": s.Open: t.Charset = "windows-1251": t.Open
s.WriteText ChrW(1078) & "x": s.Position = 0
s.CopyTo t
Echo s.Size, t.Size                '> 6 2
Dim b: Set b = CreateObject("ADODB.Stream"): b.Type = 1: b.Open
s.Position = 3: s.CopyTo b, 1
Echo b.Size                        '> 2

'=== what is not allowed
Dim s: Set s = CreateObject("ADODB.Stream")
On Error Resume Next
s.ReadText: FailedText   '> 3704 Operation is not allowed when the object is closed.
s.Close: Failed          '> 3704
s.Open: s.Open: Failed   '> 3705
s.Read: FailedText       '> 3219 Operation is not allowed in this context.
s.WriteText "abc"
s.Type = 1: Failed       '> 3219
s.Charset = "utf-8": Failed   '> 3219
s.Position = -1: Failed  '> 3001
s.Position = 0: s.Type = 1
s.Write "text": Failed   '> 3001
s.Read -5: Failed        '> 3001
s.Type = 3: Failed       '> 3001
s.CopyTo Err: Failed     '> 3001
s.Open "c:\x": Failed    '> 3705
Echo s.EOS               '> False
s.Position = 10
Echo s.Size, s.EOS       '> 10 True
