'=== an uploader saves files and tells of them
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateFolder "up"
Set u = CreateObject("Persits.Upload")
u.CodePage = 1252
u.IgnoreNoPost = True
Echo u.IgnoreNoPost, u.OverwriteFiles          '> True True
u.OverwriteFiles = False
u.SetMaxSize 1000
Echo u.SaveToMemory                            '> 2
Echo u.Save("up"), u.Files.Count, u.Form.Count '> 2 2 2
Echo u.SaveVirtual("up")                       '> 2
Echo u.TotalBytes > 300                        '> True
Echo u.Form("title"), u.Form("title").Name, u.Form.Item(2).Value, u.Form.Exists("place"), u.Form.Exists("x")
'> A view title here True False
For Each i In u.Form: Echo i.Name, i.Value: Next
'> title A view
'> place here
u.CreateDirectory "up/new", True
Echo u.FileExists("up/one.txt"), u.FileExists("up/none"), fso.FolderExists("up/new")   '> True False True
u.DeleteFile "up/one.txt"
Echo u.FileExists("up/one.txt")                '> False
On Error Resume Next
u.DeleteFile "up/one.txt": Failed              '> 53
u.SetMaxSize 5: u.Save "up": Failed            '> 8

'=== a file of a form
Set u = CreateObject("Persits.Upload")
u.Save
Set f = u.Files("first")
Echo f.Name, f.FileName, f.Ext, f.FileExt, f.ExtractFileName         '> first one.txt .txt txt one.txt
Echo f.Size, f.TotalBytes, f.OriginalSize, f.ContentType, f.IsEmpty, f.IsMissing
'> 10 10 10 text/plain False False
Echo f.OriginalPath, f.FilePathName, f.UserFileName                  '> C:\pics\one.txt C:\pics\one.txt C:\pics\one.txt
Echo f.OriginalFileName, f.ShortFileName                             '> one.txt one.txt
Echo LenB(f.Binary), LenB(f.BinaryData), f.ContentString             '> 10 10 first file
Set fso = CreateObject("Scripting.FileSystemObject")
here = fso.GetAbsolutePathName(".")
f.SaveAs here & "/a.txt"
here = Spelled(here)
Echo Spelled(f.Path) = here & "/a.txt", f = f.Path, f.ServerName = f.Path, Spelled(f.Folder) = here & "/"   '> True True True True
f.SaveAsVirtual "b.txt": f.SaveInVirtual "c.txt": f.Copy here & "/d.txt": f.CopyVirtual "e.txt"
Echo fso.FileExists("b.txt"), fso.FileExists("c.txt"), fso.FileExists("d.txt"), fso.FileExists("e.txt")   '> True True True True
f.Move here & "/m.txt"
Echo fso.FileExists("m.txt")                   '> True
f.MoveVirtual "n.txt"
Echo fso.FileExists("m.txt"), fso.OpenTextFile("n.txt").ReadAll      '> False first file
f.Delete
Echo fso.FileExists("n.txt")                   '> False

'=== an object that is the form's first file too
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateFolder "in"
Set u = CreateObject("SoftArtisans.FileUp")
u.Path = "in": u.UseMemory = True: u.CodePage = 65001
u.OverwriteFiles = True
Echo u.OverwriteFiles, Spelled(Right(u.Path, 3)), u.MaxBytes, u.MaxBytesToCancel          '> True /in -1 -1
u.MaxBytes = 100: u.MaxBytesToCancel = 100
Echo u.Form("title"), u.FormEx("place"), u.TotalBytes > 300                      '> A view here True
Echo u.UserFileName, u.ShortFileName, u.ContentType, u.IsEmpty                   '> C:\pics\one.txt one.txt text/plain False
u.Save
Echo fso.FileExists("in/one.txt"), fso.FileExists("in/two.bin")                  '> True True
u.SaveAs "other.txt"
Echo Spelled(Right(u.ServerName, 13)), fso.FileExists("in/other.txt")                     '> /in/other.txt True
u.SaveInVirtual "in/third.txt"
Echo fso.FileExists("in/third.txt")                                              '> True
u.Flush
For Each n In u.Form: s = s & n & " ": Next
Echo s                                                                           '> title place first second 
u.MaxBytes = 5
On Error Resume Next
u.Save: Failed                                                                   '> -2147220991

'=== an uploader with lists of what may come
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateFolder "in"
Set u = CreateObject("aspSmartUpload.SmartUpload")
u.AllowedFilesList = "txt,bin": u.DeniedFilesList = "exe"
u.MaxFileSize = 50: u.TotalMaxFileSize = 100
Echo u.AllowedFilesList, u.DeniedFilesList, u.MaxFileSize, u.TotalMaxFileSize    '> txt,bin exe 50 100
u.Upload
Echo u.Files.Count, u.Files(2).FileName, u.Form("title"), u.TotalBytes > 300     '> 2 two.bin A view True
Echo u.Save("in"), fso.FileExists("in/two.bin")                                  '> 2 True
On Error Resume Next
u.DeniedFilesList = "txt": u.Upload: Failed                                      '> -2147220489
