'=== a drive
Set fso = CreateObject("Scripting.FileSystemObject")
Set d = fso.Drives.Item("C")
Echo d.DriveLetter, d.FreeSpace > 0, d.FileSystem & "|" & d.ShareName & "|", VarType(d.SerialNumber), TypeName(d.VolumeName)
'> C True || 3 String

'=== files and folders are copied and moved
Set fso = CreateObject("Scripting.FileSystemObject")
here = fso.GetAbsolutePathName(".")
fso.CreateTextFile("one.txt").Write "1"
Set f = fso.GetFile("one.txt")
Echo f.ShortPath = f.Path                      '> True
f.Copy here & "/two.txt"
f.Move here & "/three.txt"
Echo fso.FileExists("one.txt"), fso.FileExists("two.txt"), f.Name      '> False True three.txt
Set d = fso.CreateFolder("folder")
Echo d.ShortName, d.ShortPath = d.Path, d.Drive.DriveLetter            '> folder True C
Echo DateDiff("n", d.DateCreated, d.DateLastModified), DateDiff("n", d.DateLastAccessed, d.DateLastModified)   '> 0 0
d.Copy here & "/copy"
Echo fso.FolderExists("copy"), fso.GetFolder(".").SubFolders.Item("copy").Name   '> True copy
d.Delete
Echo fso.FolderExists("folder")                '> False
Echo Right(fso.GetSpecialFolder(2), 1) <> "", "[" & fso.GetFileVersion("two.txt") & "]"   '> True []

'=== a place in a text
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("t.txt").Write "abcdef" & vbCrLf & "second" & vbCrLf & "third"
Set t = fso.OpenTextFile("t.txt")
t.Skip 2
Echo t.Read(2), t.Column, t.AtEndOfLine        '> cd 5 False
t.Skip 2
Echo t.AtEndOfLine                             '> True
t.SkipLine: t.SkipLine
Echo t.Line, t.ReadLine                        '> 3 third
Echo fso.GetFile("t.txt").OpenAsTextStream(1).ReadLine                 '> abcdef
