'=== an expression, its matches and their parts
Set r = CreateObject("VBScript.RegExp")
r.Pattern = "(\w)(\d)": r.Global = True: r.IgnoreCase = True: r.MultiLine = True
Echo r.Pattern, r.Global, r.IgnoreCase, r.MultiLine, r.Test("x1"), r.Replace("a1 b2", "$2$1")   '> (\w)(\d) True True True True 1a 2b
Set all = r.Execute("a1 b2")
Echo all.Count, all.Item(1).Value, all(1).FirstIndex, all(1).Length            '> 2 b2 3 2
Echo all(0).SubMatches.Count, all(0).SubMatches.Item(1), all(0).SubMatches(0)  '> 2 1 a

'=== what lists say of themselves
Set l = CreateObject("System.Collections.ArrayList")
l.Add "a": l.Add "b": l.Add "a"
Echo l.IndexOf_2("a", 1), l.IsFixedSize, l.IsSynchronized, l.ToString          '> 2 False False System.Collections.ArrayList

'=== a hash begins anew, and an encoding tells of itself
Set h = CreateObject("System.Security.Cryptography.HMACMD5")
Set e = CreateObject("System.Text.UTF8Encoding")
x = h.ComputeHash_2(e.GetBytes_4("a"))
h.Initialize
On Error Resume Next
x = h.Hash: Failed                             '> 5
On Error Goto 0
Echo e.GetMaxByteCount(2), e.GetMaxCharCount(5), LenB(e.GetPreamble)           '> 9 6 0
Echo e.BodyName, e.HeaderName, e.EncodingName                                  '> utf-8 utf-8 Unicode (UTF-8)

'=== a program runs and is talked to
Set sh = CreateObject("WScript.Shell")
Echo sh.Run(Succeeds, 0, True), sh.Run(Fails, 0, True)                         '> 0 1
Set p = sh.Exec(Copies)
p.StdIn.WriteLine "there and back"
p.StdIn.Close
Echo Replace(p.StdOut.ReadAll, vbCr, "") & p.StdErr.AtEndOfStream              '> there and back
'> True
Do While p.Status = 0: n = n + 1: Loop
Echo p.Status, p.ExitCode, p.ProcessID > 0     '> 1 0 True
Set p = sh.Exec(Copies)
p.Terminate
Do While p.Status = 0: Loop
Echo p.ExitCode <> 0                           '> True
Echo sh.Environment("PROCESS").Length > 0      '> True
Echo sh.SpecialFolders.Count > 0, sh.SpecialFolders.Length > 0, sh.SpecialFolders.Item("Desktop") <> ""   '> True True True

'=== all contents of a schedule
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("c.txt").Write "%% #1" & vbCrLf & "one" & vbCrLf & "%% #1" & vbCrLf & "two" & vbCrLf
Set r = CreateObject("MSWC.ContentRotator")
r.GetAllContent "c.txt"
Echo Len(r.ChooseContent("c.txt")) > 0         '> True

'=== what a browser can do
Set b = CreateObject("MSWC.BrowserType")
Echo b.browser, b.version, b.majorver, b.minorver, b.parent, b.platform          '> Firefox 115.0 115 0 Firefox 115.0 Linux
Echo b.crawler, b.tables, b.cookies, b.frames, b.javascript, b.css               '> False True True True True True
Echo b.vbscript, b.activexcontrols, b.backgroundsounds, b.javaapplets, b.cdf, b.beta, b.win16, b.aol   '> False False False False False False False False
Echo b.Value("browser"), b.none                                                  '> Firefox unknown
