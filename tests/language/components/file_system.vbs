'=== a text file is written and read by lines
Dim fso, t: Set fso = CreateObject("Scripting.FileSystemObject")
Set t = fso.CreateTextFile("a.txt")
t.WriteLine "one": t.Write "two": t.WriteLine: t.WriteBlankLines 1: t.Write "end"
t.Close
Set t = fso.OpenTextFile("A.TXT")
Do Until t.AtEndOfStream
  Echo t.Line & t.ReadLine
Loop
'> 1one
'> 2two
'> 3
'> 4end
Echo fso.GetFile("a.txt").Size   '> 15
On Error Resume Next
t.ReadLine: Failed             '> 62
t.Write "x": Failed            '> 54
t.Close
t.ReadAll: Failed              '> 52
t.Close: Failed                '> no error

'=== what opening does with a file that is there, or is not
Dim fso, t: Set fso = CreateObject("Scripting.FileSystemObject")
fso.OpenTextFile("a.txt", 2, True).Write "12345"
fso.OpenTextFile("a.txt", 8).Write "67"
Echo fso.OpenTextFile("a.txt", 1).ReadAll        '> 1234567
fso.OpenTextFile("a.txt", 2).Write "8"
Echo fso.OpenTextFile("a.txt", 1, False, 0).Read(9)   '> 8
On Error Resume Next
fso.OpenTextFile "b.txt": Failed                 '> 53
fso.OpenTextFile "b.txt", 8: Failed              '> 53
fso.OpenTextFile "none/b.txt", 2, True: Failed   '> 76
fso.OpenTextFile "a.txt", 3: Failed              '> 5
fso.OpenTextFile ".": Failed                     '> 70
fso.CreateTextFile "a.txt", False: Failed        '> 58
Echo fso.OpenTextFile("new.txt", 1, True).AtEndOfStream   '> True
fso.OpenTextFile("new.txt").ReadAll: Failed      '> 62

'=== what was written stands in the file when the stream is gone
Dim fso, t: Set fso = CreateObject("Scripting.FileSystemObject")
Set t = fso.CreateTextFile("a.txt"): t.Write "x"
Echo fso.GetFile("a.txt").Size   '> 0
Set t = Nothing
Echo fso.GetFile("a.txt").Size   '> 1

'=== Unicode files
Dim fso, t: Set fso = CreateObject("Scripting.FileSystemObject")
Set t = fso.CreateTextFile("u.txt", True, True)
t.WriteLine ChrW(8364) & "1": t.Write ChrW(269): t.Close
Echo fso.GetFile("u.txt").Size   '> 12
Set t = fso.OpenTextFile("u.txt", 1, False, -1)
Echo AscW(t.ReadLine), AscW(t.ReadAll)   '> 8364 269
Set t = fso.OpenTextFile("u.txt", 8, False, -1): t.Write "z": t.Close
Echo Right(fso.OpenTextFile("u.txt", 1, False, -1).ReadAll, 1)   '> z
Echo Asc(fso.OpenTextFile("u.txt").Read(1))   '> 255

'=== paths as text
Dim fso: Set fso = CreateObject("Scripting.FileSystemObject")
Echo fso.BuildPath("c:\a", "b"), fso.BuildPath("c:\a\", "\b"), Spelled(fso.BuildPath("/a", "b"))   '> c:\a\b c:\a\b /a/b
Echo fso.BuildPath("", "b"), fso.BuildPath("c:", "b")   '> b c:b
Echo fso.GetFileName("c:\a\b.c\"), fso.GetBaseName("/a.b/c.d.e"), fso.GetExtensionName("a\b.TxT")   '> b.c c.d TxT
Echo "[" & fso.GetExtensionName("a.b/c") & "][" & fso.GetFileName("c:\") & "]"   '> [][]
Echo fso.GetParentFolderName("c:\a\b\"), fso.GetParentFolderName("c:\a"), fso.GetParentFolderName("/a")   '> c:\a c:\ /
Echo "[" & fso.GetParentFolderName("a") & "]", fso.GetDriveName("d:\x")   '> [] d:
Echo Spelled(fso.GetAbsolutePathName("x\..\y.txt"))   '> /data/y.txt
Echo Spelled(fso.GetAbsolutePathName("C:\q\")), Spelled(fso.GetAbsolutePathName("."))   '> /q /data
Echo Len(fso.GetTempName), Left(fso.GetTempName, 3)   '> 12 rad

'=== a file's properties
Dim fso, f: Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateFolder "Sub"
fso.CreateTextFile("Sub/A.Txt").Write "12"
Set f = fso.GetFile("sub\a.txt")
Echo Spelled(f), Spelled(f.Path), f.Name, f.ShortName, f.Size, f.Type   '> /data/Sub/A.Txt /data/Sub/A.Txt A.Txt A.Txt 2 Text Document
Echo f.ParentFolder.Name, Spelled(f.ParentFolder.ParentFolder.Path), f.Attributes, TypeName(f.DateLastModified)   '> Sub /data 32 Date
Echo Year(f.DateCreated), Month(f.DateLastAccessed), f.Drive.DriveLetter   '> 2024 2 C
f.Attributes = f.Attributes + 1
Echo f.Attributes & "", fso.GetFile("sub/a.txt").Attributes   '> 33 33
On Error Resume Next
f.Delete: Failed                     '> 70
fso.OpenTextFile "sub/a.txt", 2: Failed   '> 70
f.Name = "b/c": Failed               '> 52
f.Name = "B.bin": Failed             '> no error
Echo Spelled(f.Path), f.Type         '> /data/Sub/B.bin BIN File
f.Delete True: Failed                '> no error
f.Size: Failed                       '> 53

'=== folders and their collections
Dim fso, d, x: Set fso = CreateObject("Scripting.FileSystemObject")
Set d = fso.CreateFolder("/data/Top")
d.SubFolders.Add "Two": fso.CreateFolder d & "\one"
d.CreateTextFile("b.txt").Write "123": d.CreateTextFile("A.txt").Write "4"
fso.CreateTextFile(d & "/one/c.txt").Write "56"
For Each x In d.Files: Echo x.Name: Next
'> A.txt
'> b.txt
For Each x In d.SubFolders: Echo x.Name: Next
'> one
'> Two
Echo d.Files.Count, d.SubFolders.Count, d.Size, d.Name, d.IsRootFolder, d.Type, d.Attributes   '> 2 2 6 Top False File folder 16
Echo d.Files("a.TXT").Name, d.Files.Item("b.txt").Size, d.SubFolders("ONE").Files.Count   '> A.txt 3 1
On Error Resume Next
Set x = d.Files(1): Failed           '> 5
Set x = d.Files("no"): Failed        '> 53
Set x = d.SubFolders("no"): Failed   '> 76
d.SubFolders.Add "one": Failed       '> 58

'=== copying
Dim fso, x: Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "a": fso.CreateTextFile("b.txt").Write "b": fso.CreateTextFile("c.dat").Write "c"
fso.CreateFolder "to"
fso.CopyFile "*.txt", "to\"
fso.CopyFile "c.dat", "to\d.dat"
For Each x In fso.GetFolder("to").Files: Echo x.Name: Next
'> a.txt
'> b.txt
'> d.dat
On Error Resume Next
fso.CopyFile "a.txt", "to\b.txt", False: Failed   '> 58
fso.CopyFile "a.txt", "to\b.txt": Failed          '> no error
Echo fso.OpenTextFile("to/b.txt").ReadAll         '> a
fso.CopyFile "a.txt", "to": Failed                '> 70
fso.CopyFile "a.txt", "none\": Failed             '> 76
fso.CopyFile "a.txt", "none\a.txt": Failed        '> 76
fso.CopyFile "x*", "to\": Failed                  '> 53
fso.CopyFile "x", "to\": Failed                   '> 53
fso.CopyFile "a.txt", "a.txt": Failed             '> 70
fso.CopyFolder "to", "copy": Failed               '> no error
fso.CopyFolder "to", "copy\": Failed              '> no error
Echo fso.FileExists("copy/a.txt"), fso.FileExists("copy/to/a.txt")   '> True True
fso.CopyFolder "to", "copy", False: Failed        '> 58
fso.CopyFolder "none", "copy": Failed             '> 76
fso.CopyFolder "to", "to\inner": Failed           '> 70

'=== moving
Dim fso: Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "a": fso.CreateTextFile("b.txt").Write "b"
fso.CreateFolder "to"
fso.MoveFile "a.txt", "to\c.txt"
Echo fso.FileExists("a.txt"), fso.FileExists("to\c.txt")   '> False True
On Error Resume Next
fso.MoveFile "b.txt", "to\c.txt": Failed   '> 58
fso.MoveFile "b.txt", "to": Failed         '> 58
fso.MoveFile "b.txt", "to\": Failed        '> no error
fso.MoveFile "b.txt", "to\": Failed        '> 53
fso.MoveFolder "to", "went": Failed        '> no error
Echo fso.FileExists("went/b.txt"), fso.FolderExists("to")   '> True False
fso.CreateFolder "to"
fso.MoveFolder "went", "to": Failed        '> 58
Dim d: Set d = fso.GetFolder("went")
d.Move "to\"
Echo Spelled(d.Path)                       '> /data/to/went
d.Name = "again"
Echo fso.FileExists("to/again/b.txt")      '> True

'=== deleting
Dim fso: Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateFolder "d": fso.CreateFolder "d\e": fso.CreateTextFile "d\e\f.txt": fso.CreateTextFile "g.txt"
fso.DeleteFolder "d"
fso.DeleteFile "*.txt"
Echo fso.FolderExists("d"), fso.FileExists("g.txt")   '> False False
On Error Resume Next
fso.DeleteFolder "d": Failed     '> 76
fso.DeleteFile "g.txt": Failed   '> 53
fso.DeleteFile "*.txt": Failed   '> 53
fso.CreateFolder "x\y": Failed   '> 76
fso.CreateFolder "x": fso.CreateFolder "X": Failed   '> 58
fso.GetFile "x": Failed          '> 53
fso.GetFolder "g.txt": Failed    '> 76

'=== where scripts may not go
Dim fso: Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("/temporary/t.txt").Write "x"
Echo fso.FileExists("/temporary/t.txt"), fso.FileExists("/elsewhere/secret.txt"), fso.FolderExists("/elsewhere")   '> True False False
On Error Resume Next
fso.OpenTextFile "/elsewhere/secret.txt": Failed       '> 70
fso.OpenTextFile "..\elsewhere\secret.txt": Failed     '> 70
fso.OpenTextFile "/data/../elsewhere/secret.txt": Failed   '> 70
fso.CreateTextFile "/elsewhere/x": Failed              '> 70
fso.CopyFile "/elsewhere/secret.txt", "x": Failed      '> 70
fso.CopyFile "/elsewhere/*", ".\": Failed              '> 70
fso.GetFolder "/": Failed                              '> 70
fso.DeleteFolder "/elsewhere": Failed                  '> 70
fso.CreateTextFile "/database": Failed                 '> 70
fso.OpenTextFile "a" & Chr(0) & "b": Failed            '> 52

'=== drives
Dim fso, d: Set fso = CreateObject("Scripting.FileSystemObject")
Dim here: here = fso.GetDriveName(fso.GetAbsolutePathName("/data"))
Echo fso.Drives.Count, fso.DriveExists("c:"), fso.DriveExists("x"), here   '> 1 True False C:
Set d = fso.GetDrive(here)
Echo d, d.DriveType, d.IsReady, d.TotalSize, Spelled(d.RootFolder.Path), d.AvailableSpace < d.TotalSize   '> C: 2 True 1073741824 / True
For Each d In fso.Drives: Echo d.Path: Next   '> C:
On Error Resume Next
fso.GetDrive "x:": Failed   '> 68
fso.GetDrive "": Failed     '> 5
